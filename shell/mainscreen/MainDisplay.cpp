#include "shell/mainscreen/MainDisplay.h"

#include "model/NumberText.h"
#include "model/RelativeUnits.h"
#include "model/RiskText.h"
#include "model/Session.h"
#include "model/ToleranceUnits.h"
#include "risk/RatioPanels.h"
#include "shell/mainscreen/LimitRows.h"
#include "shell/mainscreen/MeasuringRow.h"
#include "shell/mainscreen/OffsetPictures.h"
#include "shell/mainscreen/TextFields.h"

namespace metrisk {

namespace {

constexpr const char* product = "Metrisk";
constexpr const char* ratioPicture = "#,##0.00";
constexpr const char* baselineRatioPicture = "##0.00";
constexpr const char* processPicture = "#,##0.0000";
constexpr const char* defaultModePicture = "#,##0.0000";

ControlState shown(std::string text) {
    ControlState state;
    state.text = std::move(text);
    return state;
}

ControlState tick(bool on) {
    ControlState state;
    state.checked = on;
    return state;
}

/// A mode of 0 is an entry like any other, but before the first entry the box is empty.
bool modeEntered(const Analysis& r) {
    return r.SU_Mode != 0 || r.SU_PctInTol != 0 || r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0 ||
           r.MTE_Offset != 0 || r.SU_Mode_fmt != defaultModePicture;
}

std::string pctText(double pct, const Regional& regional) {
    return pct == 0 ? "" : FormatNumber(pct, pctEntryPicture, regional);
}

void showSubject(ScreenState& screen, const Session& session) {
    const Analysis& r = session.record;
    screen["ModeBox"] = shown(
        modeEntered(r) ? withUnits(FormatNumber(r.SU_Mode, r.SU_Mode_fmt, session.regional), r.NominalUnits)
                       : "");
    screen["PctInTolBox"] = shown(pctText(r.SU_PctInTol, session.regional));
    screen["TwoSideOption"] = tick(r.OptTwoSided);
    screen["SingleUpperOption"] = tick(r.OptSingleUpper);
    screen["SingleLowerOption"] = tick(r.OptSingleLower);
    screen["chk_Symmetric"] = tick(r.SymmetricTolerances);
    screen["chk_Symmetric"].enabled = r.OptTwoSided;
    screen["PhysLimitRequired"] = tick(r.PhysLimitRequired && !r.OptTwoSided);
    screen["PhysLimitRequired"].enabled = !r.OptTwoSided;
    screen["optOffsets_0"] = tick(r.ShowLimits);
    screen["optOffsets_1"] = tick(!r.ShowLimits);
    showLimitRows(screen, session);
}

void showRisks(ScreenState& screen, const Session& session) {
    const Analysis& r = session.record;
    const Regional& regional = session.regional;
    const bool producer = r.FalseAcceptOption == 1;
    screen["Heading_0"] =
        shown(producer ? "    COMPUTED RISKS (Producer Option)" : "    COMPUTED RISKS (Consumer Option)");
    screen["Heading_1"] =
        shown(producer ? "    BASELINE RISKS (Producer Option)" : "    BASELINE RISKS (Consumer Option)");
    screen["AcceptRisk"] =
        shown(riskText({r.FalseAcceptRisk, r.FalseAcceptUnits}, r.FalseAccept_fmt, regional));
    screen["AcceptUnits"] = shown(r.FalseAcceptUnits);
    screen["RejectRisk"] =
        shown(riskText({r.FalseRejectRisk, r.FalseRejectUnits}, r.FalseReject_fmt, regional));
    screen["RejectUnits"] = shown(r.FalseRejectUnits);
    screen["AccRatEquivalent1Box"] = shown(FormatNumber(r.EqAccRat, ratioPicture, regional));
    screen["AccRatEquivalent2Box"] = shown(
        r.EqAccRatDen.empty() ? ""
                              : FormatNumber(ParseValue(r.EqAccRatDen, regional), ratioPicture, regional));
    screen["pnl_RiskLabel_0"].emphasised = r.ComputeEqRatio && r.EqRatioOnFalseAccept;
    screen["pnl_RiskLabel_1"].emphasised = r.ComputeEqRatio && !r.EqRatioOnFalseAccept;

    const auto baselineText = [&](double value, const std::string& units) {
        return riskText({value, units}, units == ppmUnits ? "##0.0" : "##0.0000", regional);
    };
    screen["BaseAcceptRisk"] = shown(baselineText(r.Base_FalseAccept, r.Base_AcceptUnits));
    screen["BaseAcceptUnits"] = shown(r.Base_AcceptUnits);
    screen["BaseRejectRisk"] = shown(baselineText(r.Base_FalseReject, r.Base_RejectUnits));
    screen["BaseRejectUnits"] = shown(r.Base_RejectUnits);
    screen["BaselineAccRat1Box"] = shown(FormatNumber(r.Base_AccRatNum, baselineRatioPicture, regional));
    screen["BaselineAccRat2Box"] = shown(FormatNumber(r.Base_AccRatDen, baselineRatioPicture, regional));
}

void showOptions(ScreenState& screen, const Session& session) {
    const Analysis& r = session.record;
    const ToleranceUnits units = measuringUnits(r);
    const double process = units.shown(r.ProcessUncertainty);
    screen["pnl_ProcessUncertainty"] = shown(withUnits(
        FormatNumber(process, WidenPicture(process, processPicture), session.regional), units.name));
    screen["chk_IncludeUncertainty"] = tick(r.IncludeUncertainty);
    const RatioPanels ratios = ratioPanels(session);
    screen["pnl_UncRatio"] = shown(ratios.pnl_UncRatio);
    screen["pnlTUR"] = shown(ratios.pnlTUR);
}

} // namespace

std::string mainCaption(const Session& session) {
    return session.record.AnalysisFileName + " - " + product;
}

ScreenState mainDisplay(const Session& session, bool guardbandsAsLimits) {
    ScreenState screen;
    for (const TextField& field : textFields) screen[field.box] = shown(session.record.*field.field);
    showSubject(screen, session);
    showMeasuringRow(screen, session);
    showRisks(screen, session);
    showOptions(screen, session);
    showGuardbandRows(screen, session, guardbandsAsLimits);
    return screen;
}

} // namespace metrisk
