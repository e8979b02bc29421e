#include "risk/guardband/KFactors.h"

#include "model/Message.h"
#include "model/NumberText.h"
#include "model/Session.h"
#include "model/SubjectSide.h"
#include "numerics/Real.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double nearOne = 1e-12;
constexpr const char* kPicture = "#,##0.000000";
constexpr const char* noKPicture = "#,##0.0000";
constexpr const char* noKText = "0.0000";
constexpr int fewestDecimals = 4;
constexpr int mostDecimals = 8;

constexpr const char* invalidTitle = "Invalid k-Factor";
constexpr Question askLargestUpper{
    "Changes in uncertainty or tolerances have made the current upper k-factor "
    "invalid.  Do you want to solve for the largest allowable k-factor?",
    "Invalid k-factor", BoxButtons::YesNo, Answer::No};
constexpr Question askLargestLower{
    "Changes in uncertainty or tolerances have made the current lower k-factor "
    "invalid.  Do you want to solve for the largest allowable k-factor?",
    "Invalid k-factor", BoxButtons::YesNo, Answer::No};
constexpr Message newUpper{"You elected not to compute a maximum allowable upper k-factor.  Metrisk will "
                           "now solve for the upper k-factor from the current upper guardband multiplier.",
                           "New Upper k-factor", BoxIcon::Information};
constexpr Message newLower{"You elected not to compute a maximum allowable lower k-factor.  Metrisk will "
                           "now solve for the lower k-factor from the current upper guardband multiplier.",
                           "New Lower k-factor", BoxIcon::Information};

bool isUpper(const SubjectSide& side) {
    return &side == &upperSide;
}

/// `nearness`: the multiplier that tells whether there is a guardband at all.
void kFromMultiplier(Analysis& r, const SubjectSide& side, double nearness, const char* pictureOfNone) {
    if (r.MTE_Sigma == 0 || r.*side.absent) return;
    if (std::fabs(nearness - 1) < nearOne) {
        r.*side.k = 0;
        r.*side.kPicture = pictureOfNone;
        return;
    }
    const double k = ((1 - Real(r.*side.multiplier)) * (r.*side.offset) / r.MTE_Sigma).value();
    r.*side.k = k;
    r.*side.kPicture = WidenPicture(k, kPicture);
}

void multiplierFromK(Analysis& r, const SubjectSide& side) {
    if (r.*side.offset == 0 || r.*side.absent) return;
    const double multiplier = (1 - Real(r.MTE_Sigma) * (r.*side.k) / (r.*side.offset)).value();
    r.*side.multiplier = multiplier;
    r.*side.multiplierPicture =
        multiplierPicture(multiplier, std::max(fewestDecimals, PictureDecimals(r.*side.kPicture)));
}

void revalidate(Session& session, const SubjectSide& side, const Question& question, const Message& notice) {
    Analysis& r = session.record;
    // The lower side has always looked at the upper multiplier, and shows a k of 0.
    const auto recompute = [&] { kFromMultiplier(r, side, r.GB_UpperMult, isUpper(side) ? "" : noKPicture); };
    if (!(r.*side.kEntered)) {
        recompute();
        return;
    }
    if (!CheckKFactor(session, r.*side.k, side, KFactorMessage::Silent, "")) {
        multiplierFromK(r, side);
        return;
    }
    if (ask(session.ui, question) == Answer::Yes)
        r.*side.multiplier = 0; // the test limit on the mode
    else
        tell(session.ui, notice);
    r.GB_SymmetricK = false;
    r.*side.kEntered = false;
    recompute();
}

} // namespace

void ShowUpperKFactor(Analysis& record) {
    kFromMultiplier(record, upperSide, record.GB_UpperMult, noKPicture);
}

void ShowLowerKFactor(Analysis& record) {
    kFromMultiplier(record, lowerSide, record.GB_LowerMult, "");
}

void UpperMultiplierFromKFactor(Analysis& record) {
    multiplierFromK(record, upperSide);
    if (!record.GB_SymmetricMult) return;
    record.GB_LowerMult = record.GB_UpperMult;
    record.GB_LowerMult_fmt = record.GB_UpperMult_fmt;
}

void LowerMultiplierFromKFactor(Analysis& record) {
    multiplierFromK(record, lowerSide);
}

bool CheckKFactor(Session& session, double k, const SubjectSide& side, KFactorMessage message,
                  const std::string& text) {
    const Analysis& r = session.record;
    if (r.SU_LowerOffset == 0 || r.MTE_Sigma == 0 || r.*side.offset == 0) return false;
    if (1 - r.MTE_Sigma * k / (r.*side.offset) >= beyondMode) return false;
    if (message == KFactorMessage::Shown) {
        const std::string told =
            "Using " + text +
            (isUpper(side) ? " for the upper k-factor value sets the upper test limit below the mode value."
                           : " for the lower k-factor value sets the lower test limit above the mode value.");
        tell(session.ui, {told, invalidTitle});
    }
    return true;
}

void RevalidateKFactors(Session& session) {
    revalidate(session, upperSide, askLargestUpper, newUpper);
    revalidate(session, lowerSide, askLargestLower, newLower);
    session.record.SymmetryChanged = false;
}

std::string multiplierPicture(double multiplier, int atLeast) {
    return PictureForDecimals(std::min(mostDecimals, DecimalsOfValue(multiplier, atLeast)));
}

std::string multiplierText(const Session& session, const SubjectSide& side) {
    const Analysis& r = session.record;
    const std::string& picture = r.*side.multiplierPicture;
    return picture.empty() ? "" : FormatNumber(r.*side.multiplier, picture, session.regional);
}

std::string kFactorText(const Session& session, const SubjectSide& side) {
    const Analysis& r = session.record;
    if (r.MTE_Sigma == 0) return noKText;
    const std::string& picture = r.*side.kPicture;
    if (picture.empty()) return "";
    double k = r.*side.k;
    if (std::fabs(r.*side.multiplier) < nearOne) {
        const double scale = std::pow(10, PictureDecimals(picture));
        k = std::floor(k * scale) / scale;
    }
    return FormatNumber(k, picture, session.regional);
}

} // namespace metrisk
