#include "risk/decision/Coverage.h"

#include "numerics/CoverageFactor.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/StudentsT.h"
#include "risk/decision/Refused.h"
#include "risk/decision/RuleText.h"

namespace metrisk {

double countedDegFreedom(double degFreedom) {
    return degFreedom > 0 && degFreedom < infiniteDegFreedom ? degFreedom : 0;
}

double upperTail(double t, double degFreedom) {
    return degFreedom > 0 ? studentsTail(t, degFreedom) : Normal(-t);
}

double upperQuantile(double tail, double degFreedom) {
    return -(degFreedom > 0 ? StudentsT(degFreedom, tail) : InvNorm(tail));
}

std::optional<CoverageChoice> coverageChoiceOf(std::string_view text) {
    if (const auto pct = percentIn(text)) return CoverageChoice{.factor = {}, .pct = pct};
    if (const auto factor = numberIn(text)) return CoverageChoice{.factor = factor, .pct = {}};
    return std::nullopt;
}

Result<double> coverageFactor(const CoverageChoice& choice, double degFreedom) {
    const double counted = countedDegFreedom(degFreedom);
    if (choice.factor) {
        if (!(*choice.factor > 0)) return refusedFigure(coverageTitle, "Must be greater than zero.");
        return *choice.factor;
    }
    if (choice.pct) {
        if (!(*choice.pct > 0 && *choice.pct < 100))
            return refusedFigure(coverageTitle, "Must be greater than 0 % and less than 100 %.");
        return upperQuantile((100 - *choice.pct) / 200, counted);
    }
    return counted > 0 ? upperQuantile(Normal(-2), counted) : 2.0;
}

double coverageContent(double factor, double degFreedom) {
    return 1 - 2 * upperTail(factor, countedDegFreedom(degFreedom));
}

} // namespace metrisk
