#include "risk/decision/StrategyTable.h"

#include "base/ExactText.h"

#include <cmath>

namespace metrisk {

StrategyLine strategyLine(const DecisionBasis& basis, Strategy strategy, const StrategyTargets& targets) {
    const auto row = strategyRow(basis, strategy, targets);
    if (!row) return {strategy, {}, row.refusal().text};
    std::string notes;
    for (const StrategyNote note : row->notes)
        notes += (notes.empty() ? "" : "; ") + std::string(textOf(note));
    return {strategy, *row, notes};
}

std::vector<StrategyLine> strategyTable(const DecisionBasis& basis, const StrategyTargets& targets) {
    std::vector<StrategyLine> lines;
    for (const Strategy strategy : allStrategies)
        if (strategy != Strategy::FalseRejectTarget || targets.falseReject)
            lines.push_back(strategyLine(basis, strategy, targets));
    return lines;
}

std::string strategyCsv(const DecisionBasis& basis, std::span<const StrategyLine> lines) {
    std::string csv = "Rule,GuardBand,UpperMult,LowerMult,AcceptLower,AcceptUpper,FalseAcceptConsumer,"
                      "FalseAcceptProducer,FalseReject,Accepted,InTolerance,Note\n";
    for (const StrategyLine& row : lines) {
        csv += std::string(nameOf(row.strategy));
        const auto cell = [&](const std::optional<double>& value) {
            csv += "," + (value && std::isfinite(*value) ? exactText(*value) : "");
        };
        const auto figure = [&](double StrategyRow::*member) {
            cell(row.figures ? std::optional((*row.figures).*member) : std::nullopt);
        };
        const auto risk = [&](double GuardedRisks::*member) {
            cell(row.figures ? std::optional(row.figures->risks.*member) : std::nullopt);
        };
        const auto limit = [&](double Interval::*member) {
            cell(row.figures ? std::optional(basis.subject.mode + row.figures->testLimits.*member)
                             : std::nullopt);
        };
        figure(&StrategyRow::width);
        cell(row.figures ? row.figures->upperMult : std::nullopt);
        cell(row.figures ? row.figures->lowerMult : std::nullopt);
        limit(&Interval::lower);
        limit(&Interval::upper);
        for (const auto member :
             {&GuardedRisks::consumer, &GuardedRisks::producer, &GuardedRisks::falseReject,
              &GuardedRisks::accepted, &GuardedRisks::inTolerance})
            risk(member);
        csv += ",\"" + row.text + "\"\n";
    }
    return csv;
}

} // namespace metrisk
