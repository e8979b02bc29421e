// What is wanted of each row: words, each some columns.
#pragma once

#include "risk/decision/DecisionRule.h"
#include "risk/evaluate/Evaluate.h"
#include "risk/guardband/GuardbandSolver.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace metrisk {

/// In the order of their columns.
enum class WantWord {
    Risks,
    Tur,
    Ratio,
    Exact,
    Baseline,
    Fit,
    Entries,
    Guardband,
    Worst,
    Uncertainty,
    Counts,
    Decide
};
inline constexpr std::size_t wantWordCount = static_cast<std::size_t>(WantWord::Decide) + 1;

enum class FigureKind {
    Number,
    Length, // a width, in the unit of the row
    Place,  // on its scale, as a limit
    Flag,
    Text // one of a few words
};

/// A column of the output.
struct FigureColumn {
    std::string_view name;
    FigureKind kind;
    std::string_view about;

    constexpr bool isLength() const { return kind == FigureKind::Length || kind == FigureKind::Place; }
};

struct WantInfo {
    WantWord word;
    std::string_view name;
    std::span<const FigureColumn> columns;
};
std::span<const WantInfo> wantTable();

struct Want {
    bool words[wantWordCount] = {};
    GuardbandTarget guardband{GuardbandKey::Equalize};
    bool guardbandByK = false;
    DecisionRule rule{};

    bool has(WantWord word) const { return words[static_cast<std::size_t>(word)]; }
    bool anyLength() const;
    std::size_t columnCount() const;
    Wanted ofEvaluate() const;
};

/// "risks,tur,guardband:fa=2%,decide:guard=1:3"; a text says what is wrong with the list.
std::variant<Want, std::string> wantOf(std::string_view list);

/// "fa=2%", "fr=500ppm", "equal", with ":k" behind it for k-factors.
bool readGuardbandWant(std::string_view text, Want& want);

/// "guard=1" or "guard=1:3", the rule with its outcomes; none for any other text, and for a rule that has no
/// limits of its own parameters.
std::optional<DecisionRule> ruleCellOf(std::string_view text);

} // namespace metrisk
