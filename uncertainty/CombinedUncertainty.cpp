#include "uncertainty/CombinedUncertainty.h"

#include "model/ToleranceUnits.h"
#include "numerics/Real.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/ProcessTotals.h"

namespace metrisk {

Combined CombinedUncertainty(const Analysis& record, const Regional& regional) {
    const Real bias = record.MTE_StdUncertainty;
    const Real process = record.ProcessUncertainty;
    const Real factor = measuringUnits(record).factor;
    const ErrorRows rows = readErrorRows(record, regional);

    Real variance = bias * bias + process * process;
    EffectiveFreedom freedom;
    bool anyRow = false;
    for (int row = 1; row < errorRowCount; ++row) {
        const ErrorRow& source = rows[static_cast<std::size_t>(row)];
        const Real uncertainty = Real(source.counted()) / factor;
        variance += 2 * Real(record.CorrelationMatrix[correlationIndex(biasRow)][correlationIndex(row)]) *
                    bias * uncertainty;
        freedom.add(uncertainty.value(), source.degFreedom);
        anyRow |= uncertainty.value() != 0;
    }
    if (!anyRow) freedom.add(process.value(), record.Process_DegFreedom);
    freedom.add(bias.value(), record.MTE_DegFreedom);

    const double effective = freedom.value();
    return {variance > 0 ? sqrt(variance).value() : 0, effective <= largestDegFreedom ? effective : 0};
}

} // namespace metrisk
