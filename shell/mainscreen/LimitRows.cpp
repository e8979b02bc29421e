#include "shell/mainscreen/LimitRows.h"

#include "model/NumberText.h"
#include "model/Session.h"
#include "model/SubjectSide.h"
#include "model/ToleranceUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* physicalLimitCaption = "Physical Limit";

/// One row of the subject parameter's limits.
struct Row {
    const SubjectSide& side;
    const char* label;
    const char* limitsCaption;
    const char* offsetsCaption;
};

const Row upperRow{upperSide, "pnl_SUUpper", "Upper Tolerance", "Upper Tolerance Limit"};
const Row lowerRow{lowerSide, "pnl_SULower", "Lower Tolerance", "Lower Tolerance Limit"};

std::string limitText(const SubjectSide& side, const Session& session) {
    const Analysis& r = session.record;
    if (r.SU_UpperOffset == 0 && r.SU_LowerOffset == 0) return "";
    const std::string& picture = r.*side.offsetPicture;
    if (!r.ShowLimits) return subjectUnits(r).text(r.*side.offset, picture, session.regional);
    // The offset's decimals, and those of the mode where the limit needs them.
    const double limit = r.*side.limit;
    const int needed = std::min(PictureDecimals(r.SU_Mode_fmt), DecimalsOfValue(limit, 0));
    const int decimals = std::max(PictureDecimals(picture), needed);
    return withUnits(FormatNumber(limit, PictureForDecimals(decimals), session.regional), r.NominalUnits);
}

void showRow(ScreenState& screen, const Session& session, const Row& row, bool follows) {
    const Analysis& r = session.record;
    ControlState& label = screen[row.label];
    ControlState& box = screen[row.side.limitBox];
    if (r.*row.side.absent) {
        label.text = physicalLimitCaption;
        const bool entered = r.PhysLimitRequired && r.PhysicalLimitEntered;
        box.text = entered ? withUnits(FormatNumber(r.PhysicalLimit, r.PhysicalLimit_fmt, session.regional),
                                       r.NominalUnits)
                           : "";
        box.locked = !r.PhysLimitRequired;
        return;
    }
    label.text = r.ShowLimits ? row.limitsCaption : row.offsetsCaption;
    box.text = limitText(row.side, session);
    box.locked = follows;
}

/// Decimals of a multiplier: all that it needs, as far as the worksheet shows them.
std::string multiplierText(double multiplier, const Session& session) {
    constexpr int most = 8;
    return FormatNumber(multiplier, PictureForDecimals(std::min(most, DecimalsOfValue(multiplier, 0))),
                        session.regional);
}

void showGuardband(ScreenState& screen, const Session& session, const SubjectSide& side, const char* index,
                   bool asLimits) {
    const Analysis& r = session.record;
    ControlState& box = screen[std::string("txt_GuardbandMultiplier_") + index];
    box.locked = true; // entered on the guardband worksheet
    box.visible = screen[std::string("Lbl_Guardbands_") + index].visible = !(r.*side.absent);
    const double multiplier = r.*side.multiplier;
    if (!asLimits) {
        box.text = multiplierText(multiplier, session);
        return;
    }
    constexpr int most = 8;
    const double limit = r.SU_Mode + side.sign * multiplier * r.*side.offset;
    const int decimals =
        std::min(most, PictureDecimals(r.*side.offsetPicture) + DecimalsOfValue(multiplier, 0));
    box.text = withUnits(FormatNumber(limit, PictureForDecimals(decimals), session.regional), r.NominalUnits);
}

} // namespace

void showLimitRows(ScreenState& screen, const Session& session) {
    const Analysis& r = session.record;
    showRow(screen, session, upperRow, false);
    showRow(screen, session, lowerRow, r.OptTwoSided && r.SymmetricTolerances);
}

void showGuardbandRows(ScreenState& screen, const Session& session, bool asLimits) {
    const Analysis& r = session.record;
    showGuardband(screen, session, upperSide, "0", asLimits);
    showGuardband(screen, session, lowerSide, "1", asLimits);
    screen["optGuardbands_0"].checked = asLimits;
    screen["optGuardbands_1"].checked = !asLimits;
    screen["chk_IncludeGuardbands"].checked = r.IncludeGuardbands;
    screen["chk_SymmetricGBands"].checked = r.GB_SymmetricMult;
    screen["chk_SymmetricGBands"].visible = r.OptTwoSided;
}

} // namespace metrisk
