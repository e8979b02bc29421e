#include "uncertainty/Samples.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorCell.h"
#include "uncertainty/ErrorRows.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// The two-sided t value; 0 where there is no spread to multiply.
double tStatistic(double confidence, int count, double deviation) {
    const bool usable = confidence > 0 && count >= 2;
    if (!usable && deviation <= 0) return 0;
    return CoverageFactor(100 * (usable ? confidence : defaultSampleConfidence), count - 1);
}

void fillRow(Analysis& record, int slot, const Regional& regional) {
    auto& row = record.ErrTableText[slot == 1 ? measuringSampleRow : subjectSampleRow];
    const double s = record.Stat_SampleStdDev[slot];
    const auto text = [&](double value) { return value == 0 ? "" : GeneralText(value, regional); };
    const auto computed = [&](double value) { return ErrorCell::ofComputed(value, 0, regional).stored; };
    row[errorColumn::limit] = computed(measuringUnits(record).shown(record.Stat_Value8[slot]));
    row[errorColumn::confidence] = text(100 * record.Stat_Value5[slot]);
    row[errorColumn::uncertainty] = computed(s);
    row[errorColumn::include] = s > 0 ? "True" : "False";
    row[errorColumn::degFreedom] = text(std::max(record.Stat_SampleSize[slot] - 1, 0));
}

} // namespace

SampleFigures sampleFigures(std::span<const double> values) {
    SampleFigures figures{.count = static_cast<int>(values.size())};
    if (values.empty()) return figures;
    const auto count = static_cast<double>(values.size());
    // From the first value on, so that what all have in common costs no digits.
    const double origin = values.front();
    double sum = 0;
    for (const double value : values) sum += value - origin;
    const double mean = sum / count;
    double rest = 0;
    double squares = 0;
    for (const double value : values) {
        const double deviation = (value - origin) - mean;
        rest += deviation;
        squares += deviation * deviation;
    }
    figures.mean = checked(origin + (mean + rest / count));
    if (values.size() < 2) return figures;
    const double variance = (squares - rest * rest / count) / (count - 1);
    figures.stdDeviation = std::sqrt(checked(std::max(variance, 0.0)));
    figures.inTheMean = figures.stdDeviation / std::sqrt(count);
    return figures;
}

void ComputeSampleStatistics(Analysis& record, int slot, std::span<const double> values) {
    const SampleFigures figures = sampleFigures(values);
    const double factor = measuringUnits(record).factor;
    const double scale = areDeviations(record, slot) ? 1 : factor;
    const double inTheMean = checked(figures.inTheMean * scale);
    const double deviation = record.Stat_Flag2[slot] ? inTheMean : checked(figures.stdDeviation * scale);
    const double t = tStatistic(record.Stat_Value5[slot], figures.count, deviation);
    const double limit = checked(t * deviation / factor);

    record.Stat_SampleSize[slot] = figures.count;
    record.Stat_SampleMean[slot] = figures.mean;
    record.Stat_SampleStdDev[slot] = deviation;
    record.Stat_Value6[slot] = inTheMean;
    record.Stat_tStatistic[slot] = t;
    record.Stat_Value8[slot] = limit;
}

void StoreSamples(Analysis& record, int slot, std::span<const double> values, int decimals,
                  const Regional& regional) {
    values = values.first(std::min(values.size(), static_cast<std::size_t>(maxSampleSize)));
    double& confidence = record.Stat_Value5[slot];
    if (!(confidence > 0)) confidence = defaultSampleConfidence;
    ComputeSampleStatistics(record, slot, values);
    record.Stat_SampleFmt[slot] = decimals > 0 ? PictureForDecimals(decimals) : "#";
    record.Stat_Include[slot] = !values.empty();
    for (int i = 1; i <= maxSampleSize; ++i) {
        const bool there = i <= record.Stat_SampleSize[slot];
        record.Stat_Sample[i][slot] = there ? values[static_cast<std::size_t>(i - 1)] : 0;
        record.Stat_SampleInclude[i][slot] = there;
    }
    fillRow(record, slot, regional);
}

} // namespace metrisk
