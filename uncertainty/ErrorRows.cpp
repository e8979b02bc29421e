#include "uncertainty/ErrorRows.h"

#include "model/NumberText.h"
#include "model/Text.h"
#include "numerics/Real.h"

namespace metrisk {
namespace {

constexpr int uncertaintyColumn = 3;
constexpr int includeColumn = 4;
constexpr int freedomColumn = 6;

} // namespace

ErrorRows readErrorRows(const ProcessErrors& errors, const Regional& regional) {
    ErrorRows table;
    for (int r = 1; r <= 8; ++r) {
        const auto& cells = errors.ErrTableText[r];
        const std::string& typed = cells[uncertaintyColumn];
        if (typed.empty()) continue; // most rows
        const double uncertainty = ParseValue(typed, regional);
        table.anyUncertainty |= uncertainty != 0;
        if (!equalCaseBlind(withoutOuterBlanks(cells[includeColumn]), "True")) continue;
        table.rows[r] = {uncertainty, ParseValue(cells[freedomColumn], regional),
                         DigitsForEntry(typed, regional)};
    }
    return table;
}

void EffectiveFreedom::add(double uncertainty, double degFreedom) {
    const Real square = Real(uncertainty) * uncertainty;
    squares = (squares + square).value();
    if (degFreedom > 0) quarticsPerFreedom = (quarticsPerFreedom + square * square / degFreedom).value();
}

double EffectiveFreedom::value() const {
    if (!(quarticsPerFreedom > 0)) return 0;
    return (Real(squares) * squares / quarticsPerFreedom).value();
}

} // namespace metrisk
