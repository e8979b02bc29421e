#include "desk/mainscreen/LimitRows.h"

#include "base/NumberText.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/MainScreen.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* physicalLimitCaption = "Physical Limit";

/// One row of the subject parameter's limits.
struct Row {
    const SubjectSide& side;
    Label MainScreen::*label;
    TextBox MainScreen::*box;
    const char* limitsCaption;
    const char* offsetsCaption;
};

const Row upperRow{upperSide, &MainScreen::pnl_SUUpper, &MainScreen::UpperLimitBox, "Upper Tolerance",
                   "Upper Tolerance Limit"};
const Row lowerRow{lowerSide, &MainScreen::pnl_SULower, &MainScreen::LowerLimitBox, "Lower Tolerance",
                   "Lower Tolerance Limit"};

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

void showRow(MainScreen& screen, const Session& session, const Row& row, bool follows) {
    const Analysis& r = session.record;
    Label& label = screen.*row.label;
    TextBox& box = screen.*row.box;
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

void showGuardband(Label& label, TextBox& box, const Session& session, const SubjectSide& side,
                   bool asLimits) {
    const Analysis& r = session.record;
    box.visible = label.visible = !(r.*side.absent);
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

void showLimitRows(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    showRow(screen, session, upperRow, false);
    showRow(screen, session, lowerRow, r.OptTwoSided && r.SymmetricTolerances);
}

void showGuardbandRows(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    const bool asLimits = screen.guardbandsAsLimits;
    showGuardband(screen.Lbl_Guardbands_0, screen.txt_GuardbandMultiplier_0, session, upperSide, asLimits);
    showGuardband(screen.Lbl_Guardbands_1, screen.txt_GuardbandMultiplier_1, session, lowerSide, asLimits);
    screen.optGuardbands_0.checked = asLimits;
    screen.optGuardbands_1.checked = !asLimits;
    screen.chk_IncludeGuardbands.checked = r.IncludeGuardbands;
    screen.chk_SymmetricGBands.checked = r.GB_SymmetricMult;
    screen.chk_SymmetricGBands.visible = r.OptTwoSided;
}

} // namespace metrisk
