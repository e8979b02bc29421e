#include "desk/mainscreen/LimitRows.h"

#include "desk/kit/Session.h"
#include "desk/mainscreen/MainScreen.h"
#include "record/AnalysisTexts.h"
#include "record/SubjectSide.h"

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

void showRow(MainScreen& screen, const Analysis& r, const Row& row, const std::string& text, bool follows) {
    Label& label = screen.*row.label;
    TextBox& box = screen.*row.box;
    const bool absent = r.*row.side.absent;
    label.text = absent ? physicalLimitCaption : r.ShowLimits ? row.limitsCaption : row.offsetsCaption;
    box.text = text;
    box.locked = absent ? !r.PhysLimitRequired : follows;
}

} // namespace

void showLimitRows(MainScreen& screen, const Analysis& r, const AnalysisTexts& texts) {
    showRow(screen, r, upperRow, texts.upperLimit, false);
    showRow(screen, r, lowerRow, texts.lowerLimit, r.OptTwoSided && r.SymmetricTolerances);
}

void showGuardbandRows(MainScreen& screen, const Session& session, const AnalysisTexts& texts) {
    const Analysis& r = session.record;
    const bool asLimits = screen.guardbandsAsLimits;
    const auto show = [&](Label& label, TextBox& box, const SubjectSide& side,
                          const std::string& multiplier) {
        box.visible = label.visible = !(r.*side.absent);
        box.text = asLimits ? testLimitText(r, side, session.regional) : multiplier;
    };
    show(screen.Lbl_Guardbands_0, screen.txt_GuardbandMultiplier_0, upperSide, texts.upperMultiplier);
    show(screen.Lbl_Guardbands_1, screen.txt_GuardbandMultiplier_1, lowerSide, texts.lowerMultiplier);
    screen.optGuardbands_0.checked = asLimits;
    screen.optGuardbands_1.checked = !asLimits;
    screen.chk_IncludeGuardbands.checked = r.IncludeGuardbands;
    screen.chk_SymmetricGBands.checked = r.GB_SymmetricMult;
    screen.chk_SymmetricGBands.visible = r.OptTwoSided;
}

} // namespace metrisk
