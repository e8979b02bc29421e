#include "risk/guardband/GuardbandTexts.h"

#include "model/NumberText.h"
#include "model/SubjectSide.h"
#include "model/ToleranceUnits.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// Whole orders of ten of the offset in tolerance units, towards 0.
int ordersOf(double offset) {
    return offset > 0 ? static_cast<int>(std::trunc(std::log10(offset))) : 0;
}

} // namespace

GuardbandTexts guardbandTexts(const Analysis& r, const SubjectSide& side, const Regional& regional) {
    const ToleranceUnits units = subjectUnits(r);
    const double offset = r.*side.offset;
    const double multiplier = r.*side.multiplier;
    const double leading = r.SU_LowerOffset != 0 ? r.SU_LowerOffset : offset;
    const int ofMultiplier =
        CountDecimals(FormatNumber(multiplier, r.*side.multiplierPicture, regional), regional);
    const int decimals =
        ofMultiplier + PictureDecimals(r.*side.offsetPicture) - ordersOf(units.shown(leading));

    const double moved = side.sign * multiplier * offset + 0.0; // no negative 0
    return {
        withUnits(FormatNumber(r.SU_Mode + moved, PictureForDecimals(decimals), regional), r.NominalUnits),
        withUnits(
            FormatNumber(units.shown(moved), PictureForDecimals(decimals - r.SU_TolDecimalShift), regional),
            r.SU_ToleranceUnits)};
}

GuardbandTexts toleranceTexts(const Analysis& r, const SubjectSide& side, const Regional& regional) {
    const ToleranceUnits units = subjectUnits(r);
    const int held = PictureDecimals(r.*side.offsetPicture);
    // The mode's decimals as well where the limit needs them.
    const int needed = std::min(PictureDecimals(r.SU_Mode_fmt), DecimalsOfValue(r.*side.limit, 0));
    return {withUnits(FormatNumber(r.*side.limit, PictureForDecimals(std::max(held, needed)), regional),
                      r.NominalUnits),
            withUnits(FormatNumber(side.sign * units.shown(r.*side.offset) + 0.0,
                                   units.shownPicture(r.*side.offsetPicture), regional),
                      r.SU_ToleranceUnits)};
}

GuardbandTexts ShowLowerGuardband(const Analysis& record, const Regional& regional) {
    return guardbandTexts(record, lowerSide, regional);
}

GuardbandTexts ShowUpperGuardband(const Analysis& record, const Regional& regional) {
    return guardbandTexts(record, upperSide, regional);
}

} // namespace metrisk
