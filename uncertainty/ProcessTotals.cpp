#include "uncertainty/ProcessTotals.h"

#include "model/NumberText.h"
#include "model/ToleranceUnits.h"
#include "numerics/Real.h"
#include "uncertainty/ErrorRows.h"

#include <algorithm>
#include <cmath>

namespace metrisk {
namespace {

/// Root of the variance with correlations. Fully anticorrelated rows may leave a rounding error
/// below zero, which is no fault.
double correlatedSum(const ErrorRows& table, const ProcessErrors& errors) {
    Real variance = 0, magnitude = 0;
    const auto add = [&](Real term) {
        variance += term;
        magnitude += abs(term);
    };
    for (int i = 1; i <= 8; ++i) {
        const Real ui = table.rows[i].uncertainty;
        add(ui * ui);
        for (int j = i + 1; j <= 8; ++j)
            add(2 * Real(errors.CorrelationMatrix[i + 2][j + 2]) * ui * table.rows[j].uncertainty);
    }
    if (variance < 0 && abs(variance) <= 1e-14 * magnitude) return 0;
    return sqrt(variance).value();
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

} // namespace

void SumProcessUncertainty(Session& session) noexcept {
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
