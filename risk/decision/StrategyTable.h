// All guardband strategies of a test as lines of a table.
#pragma once

#include "risk/decision/Strategies.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace metrisk {

/// A strategy's figures with what is said of them, or why it has none.
struct StrategyLine {
    Strategy strategy;
    std::optional<StrategyRow> figures{};
    std::string text{};
};

StrategyLine strategyLine(const DecisionBasis& basis, Strategy strategy, const StrategyTargets& targets);

/// Each strategy in the order of allStrategies; that of a false reject risk only where it has a target.
std::vector<StrategyLine> strategyTable(const DecisionBasis& basis, const StrategyTargets& targets);

/// Values separated by commas under a line of names, in all digits: widths and limits in nominal units, risks
/// as fractions.
std::string strategyCsv(const DecisionBasis& basis, std::span<const StrategyLine> lines);

} // namespace metrisk
