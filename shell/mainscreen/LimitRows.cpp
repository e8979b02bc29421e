#include "shell/mainscreen/LimitRows.h"

#include "model/NumberText.h"
#include "model/Session.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* physicalLimitCaption = "Physical Limit";

/// One row, told apart once.
struct Row {
    const char* label;
    const char* box;
    const char* limitsCaption;
    const char* offsetsCaption;
    double limit;        // nominal units
    double offset;       // nominal units
    std::string picture; // of the offset, held for nominal units
    bool absent;         // the tolerance kind has no such side
};

Row upperRow(const Analysis& r) {
    return {"pnl_SUUpper",   "UpperLimitBox",  "Upper Tolerance",    "Upper Tolerance Limit",
            r.SU_UpperLimit, r.SU_UpperOffset, r.SU_UpperOffset_fmt, r.OptSingleLower};
}

Row lowerRow(const Analysis& r) {
    return {"pnl_SULower",   "LowerLimitBox",  "Lower Tolerance",    "Lower Tolerance Limit",
            r.SU_LowerLimit, r.SU_LowerOffset, r.SU_LowerOffset_fmt, r.OptSingleUpper};
}

std::string limitText(const Row& row, const Session& session) {
    const Analysis& r = session.record;
    if (r.SU_UpperOffset == 0 && r.SU_LowerOffset == 0) return "";
    if (!r.ShowLimits) {
        const double factor = r.SU_TolUnitsFactor == 0 ? 1 : r.SU_TolUnitsFactor;
        return withUnits(FormatNumber(row.offset * factor,
                                      ShownOffsetPicture(row.picture, r.SU_TolDecimalShift),
                                      session.regional),
                         r.SU_ToleranceUnits);
    }
    // The offset's decimals, and those of the mode where the limit needs them.
    const int needed = std::min(PictureDecimals(r.SU_Mode_fmt), DecimalsOfValue(row.limit, 0));
    const int decimals = std::max(PictureDecimals(row.picture), needed);
    return withUnits(FormatNumber(row.limit, PictureForDecimals(decimals), session.regional), r.NominalUnits);
}

void showRow(ScreenState& screen, const Session& session, const Row& row, bool follows) {
    const Analysis& r = session.record;
    ControlState& label = screen[row.label];
    ControlState& box = screen[row.box];
    if (row.absent) {
        label.text = physicalLimitCaption;
        const bool entered = r.PhysLimitRequired && r.PhysicalLimitEntered;
        box.text = entered ? withUnits(FormatNumber(r.PhysicalLimit, r.PhysicalLimit_fmt, session.regional),
                                       r.NominalUnits)
                           : "";
        box.locked = !r.PhysLimitRequired;
        return;
    }
    label.text = r.ShowLimits ? row.limitsCaption : row.offsetsCaption;
    box.text = limitText(row, session);
    box.locked = follows;
}

/// Decimals of a multiplier: all that it needs, as far as the worksheet shows them.
std::string multiplierText(double multiplier, const Session& session) {
    constexpr int most = 8;
    return FormatNumber(multiplier, PictureForDecimals(std::min(most, DecimalsOfValue(multiplier, 0))),
                        session.regional);
}

void showGuardband(ScreenState& screen, const Session& session, const Row& row, double multiplier,
                   double sign, const char* index, bool asLimits) {
    const Analysis& r = session.record;
    ControlState& box = screen[std::string("txt_GuardbandMultiplier_") + index];
    box.locked = true; // entered on the guardband worksheet
    box.visible = screen[std::string("Lbl_Guardbands_") + index].visible = !row.absent;
    if (!asLimits) {
        box.text = multiplierText(multiplier, session);
        return;
    }
    constexpr int most = 8;
    const double limit = r.SU_Mode + sign * multiplier * row.offset;
    const int decimals = std::min(most, PictureDecimals(row.picture) + DecimalsOfValue(multiplier, 0));
    box.text = withUnits(FormatNumber(limit, PictureForDecimals(decimals), session.regional), r.NominalUnits);
}

} // namespace

std::string withUnits(std::string number, const std::string& units) {
    if (!number.empty() && !units.empty()) number += " " + units;
    return number;
}

void showLimitRows(ScreenState& screen, const Session& session) {
    const Analysis& r = session.record;
    showRow(screen, session, upperRow(r), false);
    showRow(screen, session, lowerRow(r), r.OptTwoSided && r.SymmetricTolerances);
}

void showGuardbandRows(ScreenState& screen, const Session& session, bool asLimits) {
    const Analysis& r = session.record;
    showGuardband(screen, session, upperRow(r), r.GB_UpperMult, 1, "0", asLimits);
    showGuardband(screen, session, lowerRow(r), r.GB_LowerMult, -1, "1", asLimits);
    screen["optGuardbands_0"].checked = asLimits;
    screen["optGuardbands_1"].checked = !asLimits;
    screen["chk_IncludeGuardbands"].checked = r.IncludeGuardbands;
    screen["chk_SymmetricGBands"].checked = r.GB_SymmetricMult;
    screen["chk_SymmetricGBands"].visible = r.OptTwoSided;
}

} // namespace metrisk
