#include "uncertainty/Budget.h"

#include "base/Real.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/EffectiveFreedom.h"

namespace metrisk {

double Budget::with(double itsBias) const {
    const Real bias = itsBias;
    Real variance = bias * bias + Real(process) * process;
    for (const BudgetSource& source : sources)
        variance += 2 * Real(source.correlation) * bias * source.uncertainty;
    return variance > 0 ? sqrt(variance).value() : 0;
}

Combined Budget::combined(double bias, double biasDegFreedom) const {
    EffectiveFreedom freedom;
    bool anySource = false;
    for (const BudgetSource& source : sources) {
        freedom.add(source.uncertainty, source.degFreedom);
        anySource |= source.uncertainty != 0;
    }
    if (!anySource) freedom.add(process, processDegFreedom);
    freedom.add(bias, biasDegFreedom);

    const double effective = freedom.value();
    return {with(bias), effective <= largestDegFreedom ? effective : 0};
}

Budget budgetOf(const Analysis& record, const Regional& regional) {
    Budget budget{.process = checked(record.ProcessUncertainty),
                  .processDegFreedom = record.Process_DegFreedom};
    const Real factor = measuringUnits(record).factor;
    const ErrorRows rows = readErrorRows(record, regional);
    for (int row = 1; row < errorRowCount; ++row) {
        const ErrorRow& read = rows[static_cast<std::size_t>(row)];
        budget.sources[static_cast<std::size_t>(row) - 1] = {
            .uncertainty = (Real(read.counted()) / factor).value(),
            .degFreedom = read.degFreedom,
            .correlation = record.CorrelationMatrix[correlationIndex(biasRow)][correlationIndex(row)]};
    }
    return budget;
}

Combined CombinedUncertainty(const Analysis& record, const Regional& regional) {
    return budgetOf(record, regional).combined(checked(record.MTE_StdUncertainty), record.MTE_DegFreedom);
}

} // namespace metrisk
