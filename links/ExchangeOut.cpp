#include "links/ExchangeFile.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "persistence/ItemWriter.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/Samples.h"

namespace metrisk {
namespace {

/// The number of a cell in other units; what is none stays out.
std::string rescaled(const std::string& text, double ratio, const Regional& regional) {
    if (!isNumeric(text, regional)) return "";
    return GeneralText(checked(ParseValue(text, regional) * ratio), {});
}

void writeErrors(ItemWriter& writer, const Analysis& r, const Regional& regional) {
    const double ratio = subjectUnits(r).factor / measuringUnits(r).factor;
    for (int row = 1; row < errorRowCount; ++row) {
        const auto& cells = r.ErrTableText[row];
        writer.line(rescaled(cells[errorColumn::limit], ratio, regional),
                    rescaled(cells[errorColumn::confidence], 1, regional),
                    rescaled(cells[errorColumn::uncertainty], ratio, regional), cells[errorColumn::include],
                    r.ErrorSourceName[row], rescaled(cells[errorColumn::degFreedom], 1, regional));
    }
}

void writeSamples(ItemWriter& writer, const Analysis& r) {
    const double factor = measuringUnits(r).factor;
    for (int slot = 1; slot <= 2; ++slot) {
        writer.each(r.Stat_SampleSize[slot], r.Stat_Include[slot]);
        for (int i = 1; i <= r.Stat_SampleSize[slot]; ++i) {
            const double sample = r.Stat_Sample[i][slot];
            writer.line(areDeviations(r, slot) ? sample / factor : sample - r.SU_Mode,
                        r.Stat_SampleInclude[i][slot]);
        }
    }
}

} // namespace

std::string writeExchange(const Analysis& r, const Regional& regional) {
    ItemWriter writer(exchangeVersion);
    const double subject = subjectUnits(r).factor, measuring = measuringUnits(r).factor;
    writer.line(true, exchangeVersion);
    writeErrors(writer, r, regional);
    writer.each(r.IncludeMTEBias);
    writeSamples(writer, r);
    writer.each(r.MeasurementArea);
    for (int slot = 1; slot <= 2; ++slot)
        writer.line(r.Stat_SampleMean[slot], r.Stat_SampleStdDev[slot] / measuring, r.Stat_tStatistic[slot]);
    writer.line(r.SU_Mode, r.SU_Mode_fmt, r.NominalUnits, r.MTE_ToleranceUnits, measuring,
                r.SU_ToleranceUnits, subject);
    writer.line(r.PhysicalLimit, r.SU_UpperLimit, r.SU_LowerLimit, r.SU_PctInTol, r.MTE_UpperLimit,
                r.MTE_LowerLimit, r.MTE_PctInTol);
    writer.line(r.OptTwoSided, r.OptSingleUpper, r.OptSingleLower, r.PhysicalLimitEntered,
                r.PhysLimitRequired);
    writer.line(r.SU_Manufacturer, r.SU_ModelNumber, r.SU_Description, r.SU_ParameterName, r.SU_Qualifier1,
                r.SU_Qualifier2);
    writer.line(r.MTE_Manufacturer, r.MTE_ModelNumber, r.MTE_Description, r.MTE_ParameterName,
                r.MTE_Qualifier1, r.MTE_Qualifier2);
    writer.line(r.SU_TolDecimalShift, r.SU_SigDigits);
    writer.line(r.SymmetricTolerances);
    writer.line(r.MTE_EntryByUncertainty, r.MTE_DegFreedom);
    writer.line(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt);
    writer.line(r.MTE_Offset, r.MTE_Offset_fmt);
    writer.line(r.MTE_BiasFromWorksheet);
    writer.line(r.MTE_kFactor, r.MTE_PctInTol_fmt, r.MTE_KUsed);
    return writer.text();
}

} // namespace metrisk
