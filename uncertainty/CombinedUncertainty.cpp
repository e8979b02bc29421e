#include "uncertainty/CombinedUncertainty.h"

#include "model/ToleranceUnits.h"
#include "numerics/Real.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/ProcessTotals.h"

namespace metrisk {

ProcessSpread::ProcessSpread(const Analysis& record, const Regional& regional)
    : process_(checked(record.ProcessUncertainty)) {
    const Real factor = measuringUnits(record).factor;
    const ErrorRows rows = readErrorRows(record, regional);
    for (int row = 1; row < errorRowCount; ++row) {
        const auto i = static_cast<std::size_t>(row);
        correlations_[i] = record.CorrelationMatrix[correlationIndex(biasRow)][correlationIndex(row)];
        uncertainties_[i] = (Real(rows[i].counted()) / factor).value();
    }
}

double ProcessSpread::with(double itsBias) const {
    const Real bias = itsBias;
    Real variance = bias * bias + Real(process_) * process_;
    for (std::size_t i = 1; i < correlations_.size(); ++i)
        variance += 2 * Real(correlations_[i]) * bias * uncertainties_[i];
    return variance > 0 ? sqrt(variance).value() : 0;
}

Combined CombinedUncertainty(const Analysis& record, const Regional& regional) {
    const Real bias = record.MTE_StdUncertainty;
    const Real process = record.ProcessUncertainty;
    const Real factor = measuringUnits(record).factor;
    const ErrorRows rows = readErrorRows(record, regional);

    EffectiveFreedom freedom;
    bool anyRow = false;
    for (int row = 1; row < errorRowCount; ++row) {
        const ErrorRow& source = rows[static_cast<std::size_t>(row)];
        const Real uncertainty = Real(source.counted()) / factor;
        freedom.add(uncertainty.value(), source.degFreedom);
        anyRow |= uncertainty.value() != 0;
    }
    if (!anyRow) freedom.add(process.value(), record.Process_DegFreedom);
    freedom.add(bias.value(), record.MTE_DegFreedom);

    const double effective = freedom.value();
    return {ProcessSpread(record, regional).with(bias.value()),
            effective <= largestDegFreedom ? effective : 0};
}

} // namespace metrisk
