// The coverage factor of figures that a decision rule reads.
#pragma once

#include "base/Refusal.h"

#include <optional>
#include <string_view>

namespace metrisk {

/// A factor, or the content of +/- k standard uncertainties in percent; neither means the content of +/- 2
/// normal standard deviations, 95.45 %, since the rules by ratio were written for U = 2 u.
struct CoverageChoice {
    std::optional<double> factor{};
    std::optional<double> pct{};
};

/// "2.1" is a factor, "95%" a content; none for any other text. Their sizes are not judged.
std::optional<CoverageChoice> coverageChoiceOf(std::string_view text);

/// k of U = k u. A typed factor stands whatever the degrees of freedom; a content gives the two-sided
/// quantile of the normal distribution or of Student's (JCGM 100 G.3). Refused for a factor not above 0 and a
/// content not between 0 and 100 %.
Result<double> coverageFactor(const CoverageChoice& choice, double degFreedom);

/// The content of +/- k standard uncertainties, a fraction.
double coverageContent(double factor, double degFreedom);

/// 0, and 5000 or more, count as infinite: as 0.
double countedDegFreedom(double degFreedom);

/// P(T > t), T normal where the degrees of freedom are infinite, else Student's; and the t of which it is
/// `tail`.
double upperTail(double t, double degFreedom);
double upperQuantile(double tail, double degFreedom);

} // namespace metrisk
