// The figures of an analysis beside their second ones, and what a user is told where they part.
#pragma once

#include "base/Regional.h"
#include "risk/exact/ExactRisks.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Analysis;

/// Fractions.
struct VerifiedFigure {
    double published = 0;
    BoundedFigure exact;
};

struct Verified {
    std::optional<VerifiedFigure> falseAccept, falseReject;
    std::optional<VerifiedFigure> baselineFalseAccept, baselineFalseReject;
    std::optional<ExactRisks> exact; // of the risks, both conventions
};

/// The second figures of the record's risks and of its baseline. Those of the risks need the fits that the
/// published ones were computed from, and are none without. Raises nothing.
Verified verifyRisks(const Analysis& record);
/// Of any published risks with those acceptance limits, as deviations from the mode.
Verified verifyRisks(const Analysis& record, const Risks& published, AcceptanceRange range);
Verified verifyBaseline(double ratio, double subjectInTol, double measuringInTol, int falseAcceptOption);

/// The accuracy ratio at which the baseline has the second figure of the risk that the search keys on: of
/// two, that nearer to the record's. None if there is none, whatever the search has found.
std::optional<double> exactRatio(const Analysis& record, const Verified& verified);

/// Significant digits in which the two agree, 0 to 15; 15 if both are 0.
int agreeingDigits(const VerifiedFigure& figure);
/// The fewest of all figures; none if there is none.
std::optional<int> agreeingDigits(const Verified& verified);

/// How a risk is shown: the picture of its units.
using RiskPicture = std::string (*)(std::string_view units);

/// "Exact integration gives 1.2400 %." where the shown texts of both differ, else empty.
std::string exactRemark(const std::optional<VerifiedFigure>& figure, RiskPicture picture,
                        const Regional& regional);

} // namespace metrisk
