#include "record/AnalysisTexts.h"

#include "base/DecimalForm.h"
#include "base/NumberText.h"
#include "record/Analysis.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* defaultModePicture = "#,##0.0000";
constexpr const char* infinity = "\u221e";
constexpr int mostDecimals = 8; // of a multiplier, as far as its worksheet shows them

/// A mode of 0 is an entry like any other, but before the first entry the box is empty.
bool modeEntered(const Analysis& r) {
    return r.SU_Mode != 0 || r.SU_PctInTol != 0 || r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0 ||
           r.MTE_Offset != 0 || r.SU_Mode_fmt != defaultModePicture;
}

std::string pctText(double pct, const Regional& regional) {
    return pct == 0 ? "" : pctEntryText(pct, regional);
}

std::string physicalLimitText(const Analysis& r, const Regional& regional) {
    if (!r.PhysLimitRequired || !r.PhysicalLimitEntered) return "";
    return withUnits(FormatNumber(r.PhysicalLimit, r.PhysicalLimit_fmt, regional), r.NominalUnits);
}

std::string limitText(const Analysis& r, const SubjectSide& side, const Regional& regional) {
    if (r.*side.absent) return physicalLimitText(r, regional);
    if (r.SU_UpperOffset == 0 && r.SU_LowerOffset == 0) return "";
    const std::string& picture = r.*side.offsetPicture;
    if (!r.ShowLimits) return subjectUnits(r).text(r.*side.offset, picture, regional);
    // The offset's decimals, and those of the mode where the limit needs them.
    const double limit = r.*side.limit;
    const int needed = std::min(PictureDecimals(r.SU_Mode_fmt), DecimalsOfValue(limit, 0));
    const int decimals = std::max(PictureDecimals(picture), needed);
    return withUnits(FormatNumber(limit, PictureForDecimals(decimals), regional), r.NominalUnits);
}

std::string multiplierText(double multiplier, const Regional& regional) {
    const int decimals = std::min(mostDecimals, DecimalsOfValue(multiplier, 0));
    return FormatNumber(multiplier, PictureForDecimals(decimals), regional);
}

void putMeasuring(AnalysisTexts& texts, const Analysis& r, const Regional& regional) {
    const bool uncertainty = r.MTE_EntryByUncertainty;
    const bool entered =
        r.MTE_Offset != 0 || r.MTE_PctReading != 0 || (uncertainty && r.MTE_StdUncertainty != 0);
    const ToleranceUnits units = measuringUnits(r);
    const auto offset = [&](double value, const std::string& picture) {
        const double shown = units.shown(value);
        return FormatNumber(shown, WidenPicture(shown, units.shownPicture(picture)), regional);
    };
    if (entered) {
        texts.measuringOffset = offset(r.MTE_Offset, r.MTE_Offset_fmt);
        texts.measuringFixed = uncertainty ? offset(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt)
                                           : offset(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt);
    }
    if (uncertainty)
        texts.measuringLast = r.MTE_DegFreedom == 0 ? infinity : GeneralText(r.MTE_DegFreedom, regional);
    else if (entered)
        texts.measuringLast = FormatNumber(r.MTE_PctReading, r.MTE_PctReading_fmt, regional);
    texts.measuringPct = pctText(r.MTE_PctInTol, regional);
}

} // namespace

std::string pctEntryText(double pct, const Regional& regional) {
    std::string picture = WidenPicture(pct, pctEntryPicture);
    constexpr int most = 15;
    for (int n = PictureDecimals(picture); pct < 100 && n < most && roundedToDecimals(pct, n) >= 100;)
        picture = "#0." + std::string(static_cast<std::size_t>(++n), '0');
    return FormatNumber(pct, picture, regional);
}

AnalysisTexts textsOf(const Analysis& r, const Regional& regional) {
    AnalysisTexts texts;
    if (modeEntered(r))
        texts.mode = withUnits(FormatNumber(r.SU_Mode, r.SU_Mode_fmt, regional), r.NominalUnits);
    texts.subjectPct = pctText(r.SU_PctInTol, regional);
    texts.upperLimit = limitText(r, upperSide, regional);
    texts.lowerLimit = limitText(r, lowerSide, regional);
    texts.upperMultiplier = multiplierText(r.GB_UpperMult, regional);
    texts.lowerMultiplier = multiplierText(r.GB_LowerMult, regional);
    putMeasuring(texts, r, regional);
    return texts;
}

std::string testLimitText(const Analysis& r, const SubjectSide& side, const Regional& regional) {
    const double multiplier = r.*side.multiplier;
    const double limit = r.SU_Mode + side.sign * multiplier * r.*side.offset;
    const int decimals =
        std::min(mostDecimals, PictureDecimals(r.*side.offsetPicture) + DecimalsOfValue(multiplier, 0));
    return withUnits(FormatNumber(limit, PictureForDecimals(decimals), regional), r.NominalUnits);
}

} // namespace metrisk
