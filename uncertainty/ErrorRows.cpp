#include "uncertainty/ErrorRows.h"

#include "base/NumberText.h"
#include "base/Text.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorCell.h"

namespace metrisk {

bool isIncluded(std::string_view mark, double uncertainty) {
    if (!(uncertainty > 0)) return false;
    const std::string_view word = withoutOuterBlanks(mark);
    return word.empty() || equalCaseBlind(word, "True");
}

ErrorRows readErrorRows(const Analysis& record, const Regional& regional) {
    ErrorRows rows;
    rows[biasRow] = {.uncertainty = measuringUnits(record).shown(record.MTE_StdUncertainty),
                     .degFreedom = record.MTE_DegFreedom,
                     .decimals = biasDecimals,
                     .included = record.IncludeMTEBias};
    for (int row = 1; row < errorRowCount; ++row) {
        const auto& cells = record.ErrTableText[row];
        if (cells[errorColumn::uncertainty].empty()) continue; // most rows
        const ErrorCell cell = readUncertainty(record, row, regional);
        rows[static_cast<std::size_t>(row)] = {
            .uncertainty = cell.value,
            .degFreedom = ParseValue(cells[errorColumn::degFreedom], regional),
            .decimals = cell.decimals,
            .included = isIncluded(cells[errorColumn::include], cell.value)};
    }
    return rows;
}

} // namespace metrisk
