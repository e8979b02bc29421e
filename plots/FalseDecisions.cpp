#include "plots/FalseDecisions.h"

#include "numerics/mathlib/Normal.h"
#include "record/Analysis.h"
#include "risk/FittedSubject.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/exact/ExactRisks.h"

#include <limits>

namespace metrisk {

void addFalseDecisions(DistributionPlot& plot, const Analysis& r) {
    if (plot.line.empty() || r.SUPlot_UseMTETols || !(r.MTE_Sigma > 0) || !risksAreCurrent(r) ||
        r.SU_Distribution == uniformName)
        return;
    const double lower = r.IncludeGuardbands ? r.GB_LowerMult : 1;
    const double upper = r.IncludeGuardbands ? r.GB_UpperMult : 1;
    const AcceptanceRange range{-lower * r.SU_LowerOffset, upper * r.SU_UpperOffset};
    const auto shares = exactRisks(subjectBiasOf(r), r.MTE_Sigma, range);
    if (!shares) return;
    constexpr double everywhere = std::numeric_limits<double>::infinity();
    const double from = plot.lowerExists ? range.lower : -everywhere;
    const double to = plot.upperExists ? range.upper : everywhere;
    FalseDecisions& decisions = plot.falseDecisions.emplace();
    decisions.falselyAccepted = shares->acceptedBad.value;
    decisions.falselyRejected = shares->rejectedGood.value;
    const double width = plot.rightValue - plot.leftValue;
    decisions.accepted.reserve(plot.line.size());
    for (const PlotPoint& point : plot.line) {
        const double deviation = plot.leftValue + static_cast<double>(point.x) * width - plot.centralValue;
        decisions.accepted.push_back(Normal((to - deviation) / r.MTE_Sigma) -
                                     Normal((from - deviation) / r.MTE_Sigma));
    }
}

} // namespace metrisk
