#include "plots/DistributionTexts.h"

#include "plots/PlotLabels.h"
#include "record/ToleranceUnits.h"

#include <cmath>
#include <utility>
#include <vector>

namespace metrisk {

namespace {

bool isDrawn(bool exists, double at) {
    return exists && at >= 0 && at <= 1;
}

} // namespace

double shownIn(const DistributionPlot& plot, double value) {
    return plot.kind == PlotKind::Error ? value * plot.unitsFactor : value;
}

DistributionTexts textsOf(const DistributionPlot& plot, const Regional& regional) {
    const bool isError = plot.kind == PlotKind::Error;
    const double lower = shownIn(plot, plot.lowerValue);
    const double upper = shownIn(plot, plot.upperValue);
    const double middle = shownIn(plot, plot.centralValue);
    const bool hasLower = isDrawn(plot.lowerExists, plot.positions.lower);
    const bool hasUpper = isDrawn(plot.upperExists, plot.positions.upper);
    double least = 0;
    for (const auto& [drawn, distance] :
         {std::pair{hasLower, std::abs(lower - middle)}, {hasUpper, std::abs(upper - middle)}})
        if (drawn && distance > 0 && (least == 0 || distance < least)) least = distance;
    if (least == 0) least = shownIn(plot, plot.rightValue - plot.leftValue);
    const double tolerance = least / 100;

    std::vector<double> values{middle};
    const auto add = [&values](bool shown, double value) {
        if (shown) values.push_back(value);
    };
    const bool limitsAsValues = !plot.showOffsets;
    add(!isError, plot.leftValue);
    add(!isError, plot.rightValue);
    add(limitsAsValues && hasLower, lower);
    add(limitsAsValues && hasUpper, upper);
    const std::vector<std::string> written = labelTexts(values, tolerance, regional);
    auto next = written.begin();
    const auto take = [&](bool shown) { return shown ? *next++ : std::string(); };
    DistributionTexts texts;
    texts.central = withUnits(take(true), isError ? plot.toleranceUnits : plot.nominalUnits);
    texts.left = take(!isError);
    texts.right = take(!isError);
    texts.lower = take(limitsAsValues && hasLower);
    texts.upper = take(limitsAsValues && hasUpper);
    if (limitsAsValues) return texts;
    const double factor = plot.unitsFactor;
    const double offsets[] = {(plot.lowerValue - plot.centralValue) * factor,
                              (plot.upperValue - plot.centralValue) * factor};
    const auto signedTexts = labelTexts(offsets, isError ? tolerance : tolerance * factor, regional);
    texts.lower = withUnits(signedTexts[0], plot.toleranceUnits);
    texts.upper = "+" + withUnits(signedTexts[1], plot.toleranceUnits);
    return texts;
}

} // namespace metrisk
