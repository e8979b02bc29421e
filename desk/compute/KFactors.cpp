#include "desk/compute/KFactors.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/SameNumber.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double sameAsOne = 1e-12;
constexpr const char* kPicture = "#,##0.000000";
constexpr const char* zeroKPicture = "#,##0.0000";
constexpr const char* wholePicture = "#,###";
constexpr int fewestDecimals = 4;
constexpr int mostDecimals = 8;

/// What differs between the sides.
struct SideTexts {
    const char* invalid;    // behind "Using VALUE for the "
    const char* invalidNow; // the question of RevalidateKFactors
    const char* newTitle;   // its notice
    const char* newText;
    const char* shownZero;    // picture of a k of 0 when shown
    const char* followedZero; // picture of a k of 0 that follows its multiplier
};

constexpr SideTexts upperTexts{
    .invalid = " for the upper k-factor value sets the upper test limit below the mode value.",
    .invalidNow = "Changes in uncertainty or tolerances have made the current upper k-factor "
                  "invalid.  Do you want to solve for the largest allowable k-factor?",
    .newTitle = "New Upper k-factor",
    .newText = "You elected not to compute a maximum allowable upper k-factor.  Metrisk will "
               "now solve for the upper k-factor from the current upper guardband multiplier.",
    .shownZero = zeroKPicture,
    .followedZero = ""};

constexpr SideTexts lowerTexts{
    .invalid = " for the lower k-factor value sets the lower test limit above the mode value.",
    .invalidNow = "Changes in uncertainty or tolerances have made the current lower k-factor "
                  "invalid.  Do you want to solve for the largest allowable k-factor?",
    .newTitle = "New Lower k-factor",
    .newText = "You elected not to compute a maximum allowable lower k-factor.  Metrisk will "
               "now solve for the lower k-factor from the current upper guardband multiplier.",
    .shownZero = "",
    .followedZero = zeroKPicture};

const SideTexts& textsOf(const SubjectSide& side) {
    return &side == &upperSide ? upperTexts : lowerTexts;
}

bool isOne(double multiplier) {
    return std::fabs(multiplier - 1) < sameAsOne;
}

void followMultiplier(Analysis& r, const SubjectSide& side, bool isZero, const char* zeroPicture) {
    const double k = isZero ? 0 : kFromMultiplier(r.*side.multiplier, r.*side.offset, r.MTE_Sigma);
    r.*side.kFactor = k;
    r.*side.kPicture = isZero ? zeroPicture : WidenPicture(k, kPicture);
}

std::optional<std::string> showKFactor(Analysis& r, const SubjectSide& side, const Regional& regional) {
    if (r.MTE_Sigma == 0) return FormatNumber(0, zeroKPicture, regional);
    if (r.*side.absent) return std::nullopt;
    followMultiplier(r, side, isOne(r.*side.multiplier), textsOf(side).shownZero);
    return kFactorText(r, side, regional);
}

/// False where the side has no multiplier to derive.
bool multiplierFromKFactor(Analysis& r, const SubjectSide& side, const Regional& regional) {
    if (r.*side.absent || r.*side.offset == 0) return false;
    const double m = multiplierFromK(r.*side.kFactor, r.*side.offset, r.MTE_Sigma);
    const int ofK = CountDecimals(kFactorText(r, side, regional), regional);
    const int decimals = std::min(std::max(ofK, DecimalsOfValue(m, fewestDecimals)), mostDecimals);
    r.*side.multiplier = m;
    r.*side.multiplierPicture = m == 1 ? wholePicture : PictureForDecimals(decimals);
    return true;
}

void replaceKFactor(Session& session, const SubjectSide& side) {
    Analysis& r = session.record;
    const SideTexts& texts = textsOf(side);
    if (ask(session.ui, {texts.invalidNow, "Invalid k-factor", BoxButtons::YesNo, Answer::No}) == Answer::Yes)
        r.*side.multiplier = 0;
    else
        tell(session.ui, {texts.newText, texts.newTitle, BoxIcon::Information});
    r.GB_SymmetricK = false;
    r.*side.kEntered = false;
}

void revalidate(Session& session, const SubjectSide& side) {
    Analysis& r = session.record;
    if (r.*side.kEntered && CheckKFactor(session, r.*side.kFactor, side)) {
        multiplierFromKFactor(r, side, session.regional);
        return;
    }
    if (r.*side.kEntered) replaceKFactor(session, side);
    if (r.MTE_Sigma == 0 || r.*side.absent) return;
    // The upper multiplier decides for both sides whether there is a k-factor: it has always been so.
    followMultiplier(r, side, isOne(r.GB_UpperMult), textsOf(side).followedZero);
}

/// The lower k-factor of symmetric ones, with its multiplier. A k of 0 that nobody typed reads as that of its
/// side.
void copyUpperKFactor(Analysis& r, const char* zeroPicture, const Regional& regional) {
    const bool zero = r.GB_UpperK == 0 && !r.GB_UpperKEntered;
    r.GB_LowerK = r.GB_UpperK;
    r.GB_LowerK_fmt = zero ? zeroPicture : r.GB_UpperK_fmt;
    r.GB_LowerKEntered = r.GB_UpperKEntered;
    if (r.SU_LowerOffset == r.SU_UpperOffset) {
        r.GB_LowerMult = r.GB_UpperMult;
        r.GB_LowerMult_fmt = r.GB_UpperMult_fmt;
    } else if (r.SU_LowerOffset != 0 &&
               !sameDerived(r.GB_LowerMult, multiplierFromK(r.GB_LowerK, r.SU_LowerOffset, r.MTE_Sigma))) {
        multiplierFromKFactor(r, lowerSide, regional);
    }
}

bool symmetricK(const Analysis& r) {
    return r.OptTwoSided && r.GB_SymmetricK && !r.GB_SymmetricMult && r.MTE_Sigma != 0;
}

/// The lower side of symmetric k-factors after a change; false where it has to be looked at on its own.
bool followUpperKFactor(Analysis& r, const char* zeroPicture, const Regional& regional) {
    if (!symmetricK(r)) return false;
    if (kFactorAllowed(r, r.GB_UpperK, lowerSide)) {
        copyUpperKFactor(r, zeroPicture, regional);
        return true;
    }
    // A typed one is asked about.
    if (!r.GB_LowerKEntered) r.GB_SymmetricK = false;
    return false;
}

} // namespace

double kFromMultiplier(double multiplier, double offset, double sigma) {
    return checked((1 - multiplier) * offset / sigma);
}

double multiplierFromK(double k, double offset, double sigma) {
    return checked(1 - sigma * k / offset);
}

bool kFactorAllowed(const Analysis& r, double k, const SubjectSide& side) {
    if (r.SU_LowerOffset == 0 || r.MTE_Sigma == 0 || r.*side.offset == 0) return true;
    return multiplierFromK(k, r.*side.offset, r.MTE_Sigma) >= -sameAsOne;
}

bool CheckKFactor(Session& session, double k, const SubjectSide& side, std::string_view text) {
    if (kFactorAllowed(session.record, k, side)) return true;
    if (!text.empty())
        tell(session.ui, {"Using " + std::string(text) + textsOf(side).invalid, "Invalid k-Factor"});
    return false;
}

std::string kFactorText(const Analysis& r, const SubjectSide& side, const Regional& regional) {
    const std::string& picture = r.*side.kPicture;
    if (picture.empty()) return "";
    const double k = r.*side.kFactor;
    std::string text = FormatNumber(k, picture, regional);
    if (r.*side.multiplier != 0 || !(ParseValue(text, regional) > k)) return text;
    return FormatNumber(k - std::pow(10, -PictureDecimals(picture)), picture, regional);
}

std::optional<std::string> ShowLowerKFactor(Analysis& record, const Regional& regional) {
    return showKFactor(record, lowerSide, regional);
}

std::optional<std::string> ShowUpperKFactor(Analysis& record, const Regional& regional) {
    return showKFactor(record, upperSide, regional);
}

void LowerMultiplierFromKFactor(Analysis& record, const Regional& regional) {
    multiplierFromKFactor(record, lowerSide, regional);
}

void UpperMultiplierFromKFactor(Analysis& r, const Regional& regional) {
    if (!multiplierFromKFactor(r, upperSide, regional) || !r.GB_SymmetricMult) return;
    copyUpperMultiplier(r);
}

void copyUpperMultiplier(Analysis& r) {
    r.GB_LowerMult = r.GB_UpperMult;
    r.GB_LowerMult_fmt = r.GB_UpperMult_fmt;
    r.GB_LowerKEntered = false;
}

void chooseSymmetricMultipliers(Analysis& r, bool on, const Regional& regional) {
    r.GB_SymmetricMult = on;
    r.GB_AsymmetricMult = !on;
    if (!on) return;
    if (r.GB_LowerMult != r.GB_UpperMult) r.GuardbandsChanged = true;
    r.GB_SymmetricK = false;
    settleSymmetry(r, regional);
}

void settleSymmetry(Analysis& r, const Regional& regional) {
    if (!r.OptTwoSided) return;
    if (r.GB_SymmetricMult) {
        copyUpperMultiplier(r);
        ShowLowerKFactor(r, regional);
    } else if (symmetricK(r)) {
        r.GB_SymmetricK = kFactorAllowed(r, r.GB_UpperK, lowerSide);
        if (r.GB_SymmetricK) copyUpperKFactor(r, lowerTexts.shownZero, regional);
    }
}

void RevalidateKFactors(Session& session) {
    try {
        Analysis& r = session.record;
        revalidate(session, upperSide);
        if (r.OptTwoSided && r.GB_SymmetricMult) copyUpperMultiplier(r);
        if (!followUpperKFactor(r, lowerTexts.followedZero, session.regional)) revalidate(session, lowerSide);
    } catch (const RuntimeFault&) {
        session.record.AbortFlag = true;
    }
    session.record.SymmetryChanged = false;
}

} // namespace metrisk
