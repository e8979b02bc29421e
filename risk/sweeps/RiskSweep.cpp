#include "risk/sweeps/RiskSweep.h"

#include "base/ParallelFor.h"
#include "base/Real.h"

#include <limits>

namespace metrisk {

namespace {

constexpr std::size_t blockPoints = 8;
constexpr double nowhere = std::numeric_limits<double>::infinity();

std::optional<BaselineModel> baselineOf(const SweepOptions& options) {
    try {
        return BaselineModel(options.baselineSubjectPct / 100, options.baselineMeasuringPct / 100);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

} // namespace

double SweepRange::at(std::size_t i) const {
    if (i + 1 == points) return to;
    const double step = (to - from) / static_cast<double>(points - 1);
    return from + static_cast<double>(i) * step;
}

RiskSweep::RiskSweep(const Analysis& r, const Regional& regional, Swept swept, const SweepOptions& options)
    : swept_(swept), parts_(r, regional), options_(options),
      lowerMult_(options.includeGuardbands ? r.GB_LowerMult : 1),
      upperMult_(options.includeGuardbands ? r.GB_UpperMult : 1),
      lowerOffset_(r.OptSingleUpper ? nowhere : r.SU_LowerOffset),
      upperOffset_(r.OptSingleLower ? nowhere : r.SU_UpperOffset), mteOffset_(r.MTE_Offset),
      falseAcceptOption_(r.FalseAcceptOption) {
    if (swept == Swept::BaselineRatio) baseline_ = baselineOf(options);
}

std::optional<SweepPoint> RiskSweep::at(double x, SweepFigure figure) const {
    return swept_ == Swept::BaselineRatio ? reference(x, figure) : test(x, figure);
}

std::optional<SweepPoint> RiskSweep::reference(double ratio, SweepFigure figure) const {
    if (!baseline_) return std::nullopt;
    try {
        std::optional<Risks> risks;
        if (figure == SweepFigure::Published) {
            risks = quietRisks(baseline_->at(ratio), falseAcceptOption_);
        } else if (const auto exact = exactBaseline(ratio, options_.baselineSubjectPct / 100,
                                                    options_.baselineMeasuringPct / 100)) {
            risks = quietRisks(*exact, falseAcceptOption_);
        }
        return risks ? std::optional(SweepPoint{ratio, *risks, 0}) : std::nullopt;
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

std::optional<SweepPoint> RiskSweep::test(double x, SweepFigure figure) const {
    std::optional<SubjectBias> subject = parts_.subject();
    double sigma = parts_.mteSigma();
    double lower = lowerMult_, upper = upperMult_;
    switch (swept_) {
    case Swept::Multiplier: lower = upper = x; break;
    case Swept::KFactor:
        lower = 1 - sigma * x / lowerOffset_;
        upper = 1 - sigma * x / upperOffset_;
        break;
    case Swept::SubjectPct: subject = parts_.subjectAt(x); break;
    case Swept::MeasuringPct:
        sigma = parts_.mteSigmaOf(mteOffset_, parts_.coverageFactorAt(x), options_.includeProcess);
        break;
    case Swept::BaselineRatio: break;
    }
    if (!subject) return std::nullopt;
    const auto risks = figure == SweepFigure::Published ? parts_.risks(*subject, sigma, lower, upper)
                                                        : parts_.exactRisks(*subject, sigma, lower, upper);
    return risks ? std::optional(SweepPoint{x, *risks, subject->sigma}) : std::nullopt;
}

std::vector<std::optional<SweepPoint>> RiskSweep::over(const SweepRange& range, SweepFigure figure,
                                                       const std::stop_token& stop) const {
    std::vector<std::optional<SweepPoint>> points(range.points);
    const bool done = parallelFor(
        range.points, blockPoints,
        [&](std::size_t first, std::size_t last) {
            for (std::size_t i = first; i < last && !stop.stop_requested(); ++i)
                points[i] = at(range.at(i), figure);
        },
        stop);
    if (!done) points.clear();
    return points;
}

bool SweepCourse::add(double x, const std::optional<SweepPoint>& point) {
    if (point) {
        points_.push_back(*point);
        return true;
    }
    if (!points_.empty() || !sweep_.lacksTest(x)) return false;
    ++skipped_;
    return true;
}

} // namespace metrisk
