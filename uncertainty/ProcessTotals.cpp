#include "uncertainty/ProcessTotals.h"

#include "model/NumberText.h"
#include "model/ToleranceUnits.h"
#include "numerics/Real.h"
#include "uncertainty/ErrorRows.h"

#include <algorithm>
#include <string>
#include <utility>

namespace metrisk {
namespace {

constexpr double sameTotal = 1e-9; // relative; a stored total has 15 digits
constexpr int numberColumns[] = {1, 2, 3, 6};

/// Root of the variance with correlations. Correlations that contradict each other may leave less than
/// nothing, which counts as nothing.
double correlatedSum(const ErrorRows& table, const ProcessErrors& errors) {
    Real variance = 0;
    for (int i = 1; i <= 8; ++i) {
        const Real ui = table.rows[i].uncertainty;
        variance += ui * ui;
        for (int j = i + 1; j <= 8; ++j)
            variance += 2 * Real(errors.CorrelationMatrix[i + 2][j + 2]) * ui * table.rows[j].uncertainty;
    }
    return variance > 0 ? sqrt(variance).value() : 0;
}

struct Totals {
    double uncertainty = 0; // tolerance units
    int decimals = 0;
    double processFreedom = 0;
    double totalFreedom = 0;
};

Totals ComputeTotals(const ErrorRows& table, const Analysis& record) {
    Totals totals;
    totals.uncertainty = correlatedSum(table, record);
    EffectiveFreedom freedom;
    for (const ErrorRow& row : table.rows) {
        totals.decimals = std::max(totals.decimals, row.decimals);
        freedom.add(row.uncertainty, row.degFreedom);
    }
    totals.processFreedom = std::max(freedom.value(), 0.0);

    const double bias = (Real(measuringUnits(record).factor) * record.MTE_StdUncertainty).value();
    freedom.add(bias, record.MTE_DegFreedom);
    const double all = freedom.value();
    totals.totalFreedom = all <= largestDegFreedom ? all : 0;
    return totals;
}

/// Whether the table, read with these marks, gives the process uncertainty that the record holds.
bool givesStoredTotal(const Analysis& record, const Regional& regional) {
    const ErrorRows table = readErrorRows(record, regional);
    if (!table.anyUncertainty) return true;
    const Real total = Real(correlatedSum(table, record)) / measuringUnits(record).factor;
    return abs(total - record.ProcessUncertainty) <= sameTotal * abs(total);
}

/// A number in the marks of `from`, in those of `to` and without grouping.
std::string inMarksOf(const Regional& to, std::string text, const Regional& from) {
    if (!isNumeric(text, from)) return text;
    std::erase(text, from.ThousandSeparator.front());
    const std::size_t mark = text.find(from.DecimalSymbol);
    return mark == text.npos ? text : text.replace(mark, from.DecimalSymbol.size(), to.DecimalSymbol);
}

} // namespace

void SettleTableMarks(Session& session) {
    Analysis& record = session.record;
    Regional other = session.regional;
    std::swap(other.DecimalSymbol, other.ThousandSeparator);
    try {
        if (givesStoredTotal(record, session.regional) || !givesStoredTotal(record, other)) return;
        for (auto& row : record.ErrTableText)
            for (const int column : numberColumns)
                row[column] = inMarksOf(session.regional, std::move(row[column]), other);
    } catch (const std::exception&) {
        return; // a total that cannot be formed tells nothing about the marks
    }
}

void SumProcessUncertainty(Session& session) {
    Analysis& record = session.record;
    try {
        const ErrorRows table = readErrorRows(record, session.regional);
        const Totals totals = ComputeTotals(table, record);
        const double uncertainty = (Real(totals.uncertainty) / measuringUnits(record).factor).value();
        std::string picture = WidenPicture(record.ProcessUncertainty, record.ProcessUncertainty_fmt);
        if (table.anyUncertainty)
            picture = WidenPicture(uncertainty, HeldOffsetPicture(totals.decimals, record.SU_SigDigits));

        if (table.anyUncertainty) record.ProcessUncertainty = uncertainty;
        record.ProcessUncertainty_fmt = std::move(picture);
        record.Process_DegFreedom = totals.processFreedom;
        record.Total_DegFreedom = totals.totalFreedom;
    } catch (const std::exception&) {
        return; // the figures stay as they were
    }
}

} // namespace metrisk
