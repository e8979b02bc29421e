#include "risk/guardband/GuardbandTexts.h"

#include "base/NumberText.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// Whole orders of ten of the offset in tolerance units, towards 0.
int ordersOf(double offset) {
    return offset > 0 ? static_cast<int>(std::trunc(std::log10(offset))) : 0;
}

struct Decimals {
    int limit;
    int offset;
};

/// Of the texts of the tolerance itself.
Decimals toleranceDecimals(const Analysis& r, const SubjectSide& side) {
    const int held = PictureDecimals(r.*side.offsetPicture);
    // The mode's decimals as well where the limit needs them.
    const int needed = std::min(PictureDecimals(r.SU_Mode_fmt), DecimalsOfValue(r.*side.limit, 0));
    return {std::max(held, needed), PictureDecimals(subjectUnits(r).shownPicture(r.*side.offsetPicture))};
}

} // namespace

GuardbandTexts guardbandTexts(const Analysis& r, const SubjectSide& side, const Regional& regional,
                              int significant) {
    const ToleranceUnits units = subjectUnits(r);
    const double offset = r.*side.offset;
    const double multiplier = r.*side.multiplier;
    const double leading = r.SU_LowerOffset != 0 ? r.SU_LowerOffset : offset;
    const int ofMultiplier =
        CountDecimals(FormatNumber(multiplier, r.*side.multiplierPicture, regional), regional);
    const int decimals =
        ofMultiplier + PictureDecimals(r.*side.offsetPicture) - ordersOf(units.shown(leading));

    const double moved = side.sign * multiplier * offset + 0.0; // no negative 0
    const Decimals least = toleranceDecimals(r, side);
    const auto text = [&](double value, int wanted, int fewest) {
        if (significant > 0 && value != 0)
            wanted = std::min(wanted,
                              significant - 1 - static_cast<int>(std::floor(std::log10(std::fabs(value)))));
        return FormatNumber(value, PictureForDecimals(std::max(wanted, fewest)), regional);
    };
    return {withUnits(text(r.SU_Mode + moved, decimals, least.limit), r.NominalUnits),
            withUnits(text(units.shown(moved), decimals - r.SU_TolDecimalShift, least.offset),
                      r.SU_ToleranceUnits)};
}

GuardbandTexts toleranceTexts(const Analysis& r, const SubjectSide& side, const Regional& regional) {
    const ToleranceUnits units = subjectUnits(r);
    const Decimals decimals = toleranceDecimals(r, side);
    return {
        withUnits(FormatNumber(r.*side.limit, PictureForDecimals(decimals.limit), regional), r.NominalUnits),
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
