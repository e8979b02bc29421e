#include "risk/RatioSearch.h"

#include "base/Real.h"
#include "record/SubjectSide.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr int maxPasses = 10000;
constexpr double ceiling = 1000000;
constexpr double toleranceDivisor = 5000;
constexpr double minStepDivisor = 20000;
constexpr double growth = 1.5;

int signOf(double x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}

} // namespace

bool ratioAttained(double ratio) {
    return ratio >= 0.01 && ratio <= 10000;
}

double ratioTolerance(const Analysis& r) {
    if (r.OptTwoSided) return (r.SU_LowerOffset + r.SU_UpperOffset) / 2;
    return r.*presentSide(r).offset;
}

RatioEnd searchRatio(const RatioQuestion& question, double& ratio,
                     FunctionRef<bool(const SearchPass&)> goOn) {
    const auto errorAt = [&](double tried) {
        const Probabilities p = question.baseline.at(tried);
        const double risk =
            question.onFalseAccept ? falseAcceptOf(p, question.falseAcceptOption) : falseRejectOf(p);
        return checked(risk - question.target);
    };
    const double tolerance = question.target / toleranceDivisor;
    ratio = checked(question.start);
    int direction = 1;
    double step = ratio / 2;
    const double minStep = step / minStepDivisor;
    const double floor = std::exp(-30 * question.baseline.inTolerance());
    int good = 0;
    int count = 0;
    double error = errorAt(ratio);
    bool going = goOn({0, ratio, error, tolerance});
    while (std::fabs(error) > tolerance && count < maxPasses && going) {
        if (step < minStep) return RatioEnd::StepTooSmall;
        ++count;
        ratio += step * direction;
        if (ratio > ceiling) ratio = ceiling;
        if (ratio < floor) ratio = floor;
        const double oldSize = std::fabs(error);
        const int oldSign = signOf(error);
        error = errorAt(ratio);
        going = goOn({count, ratio, error, tolerance});
        const int sign = signOf(error);
        const double size = std::fabs(error);
        if (sign == oldSign && size < oldSize) {
            if (++good > 3) step *= growth;
        } else if ((sign == oldSign && size > oldSize) || (sign != 0 && sign == -oldSign)) {
            direction = -direction;
            good = 0;
            step /= std::sqrt(std::numbers::pi);
        }
    }
    return going ? RatioEnd::Found : RatioEnd::Stopped;
}

} // namespace metrisk
