#include "risk/guardband/GuardbandTexts.h"

#include "model/NumberText.h"
#include "model/Session.h"
#include "model/SubjectSide.h"
#include "model/ToleranceUnits.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// Decimals of a test limit in nominal units.
int guardbandDecimals(const Analysis& r, const SubjectSide& side) {
    const double own = r.*side.offset;
    const double size = (r.SU_LowerOffset != 0 ? r.SU_LowerOffset : own) * subjectUnits(r).factor;
    const int magnitude = size > 0 ? static_cast<int>(std::log10(size)) : 0;
    return PictureDecimals(r.*side.multiplierPicture) + PictureDecimals(r.*side.offsetPicture) - magnitude;
}

TwoForms forms(const Session& session, const SubjectSide& side, double offset, int decimals,
               int offsetDecimals) {
    const Analysis& r = session.record;
    const ToleranceUnits units = subjectUnits(r);
    const double limit = r.SU_Mode + side.sign * offset;
    return {withUnits(FormatNumber(limit, PictureForDecimals(decimals), session.regional), r.NominalUnits),
            withUnits(FormatNumber(side.sign * units.shown(offset), PictureForDecimals(offsetDecimals),
                                   session.regional),
                      units.name)};
}

} // namespace

TwoForms toleranceForms(const Session& session, const SubjectSide& side) {
    const Analysis& r = session.record;
    const int held = PictureDecimals(r.*side.offsetPicture);
    // The mode's decimals as well where the limit needs them.
    const int needed = std::min(PictureDecimals(r.SU_Mode_fmt), DecimalsOfValue(r.*side.limit, 0));
    return forms(session, side, r.*side.offset, std::max(held, needed), held - r.SU_TolDecimalShift);
}

TwoForms guardbandForms(const Session& session, const SubjectSide& side) {
    const Analysis& r = session.record;
    const int decimals = guardbandDecimals(r, side);
    return forms(session, side, r.*side.multiplier * r.*side.offset, decimals,
                 decimals - r.SU_TolDecimalShift);
}

} // namespace metrisk
