// The accuracy ratio at which the reference case has a risk, by exact integration.
#pragma once

#include <optional>
#include <string>

namespace metrisk {

struct Analysis;
struct Regional;

/// Which risk of which reference case; both in-tolerance figures are fractions.
struct ExactRatioQuestion {
    double subjectInTol;
    double measuringInTol;
    bool onFalseAccept;
    int falseAcceptOption;
};

/// The question that the ratio search of the record asks.
ExactRatioQuestion exactRatioQuestion(const Analysis& record);

/// The ratio from 0.01 to 10,000 at which the reference case has `risk`, a fraction, to rounding. The
/// Producer's false accept risk has one ratio on each side of its largest: then that nearer to `near` in
/// logarithm or, without one, the greater. None if there is no such ratio. Raises nothing.
std::optional<double> exactRatio(const ExactRatioQuestion& question, double risk,
                                 std::optional<double> near = {});

/// "Exact integration gives 4.01 : 1." where the shown texts of both differ, or that it gives no such ratio;
/// empty where they agree. `told` is the ratio of the search, `toldText` as it is shown; a told ratio that is
/// none agrees with no exact one.
std::string exactRatioRemark(double told, const std::string& toldText, const std::optional<double>& exact,
                             const Regional& regional);

} // namespace metrisk
