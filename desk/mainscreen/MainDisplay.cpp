#include "desk/mainscreen/MainDisplay.h"

#include "base/NumberText.h"
#include "base/RelativeUnits.h"
#include "base/RiskText.h"
#include "desk/compute/CurrentFigures.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/compute/RatioPanels.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/LimitRows.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/mainscreen/MeasuringRow.h"
#include "desk/mainscreen/OffsetPictures.h"
#include "desk/mainscreen/TextFields.h"
#include "record/ToleranceUnits.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/Verified.h"

namespace metrisk {

namespace {

constexpr const char* product = "Metrisk";
constexpr const char* ratioPicture = "#,##0.00";
constexpr const char* baselineRatioPicture = "##0.00";
constexpr const char* processPicture = "#,##0.0000";
constexpr const char* defaultModePicture = "#,##0.0000";

/// A mode of 0 is an entry like any other, but before the first entry the box is empty.
bool modeEntered(const Analysis& r) {
    return r.SU_Mode != 0 || r.SU_PctInTol != 0 || r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0 ||
           r.MTE_Offset != 0 || r.SU_Mode_fmt != defaultModePicture;
}

std::string pctText(double pct, const Regional& regional) {
    return pct == 0 ? "" : pctEntryText(pct, regional);
}

/// A compute has ended for this analysis, now or before it was saved.
bool everComputed(const Analysis& r) {
    return r.Last_PctInTol != 0 || r.FalseAcceptRisk != 0 || r.FalseRejectRisk != 0;
}

bool entriesComplete(const Analysis& r) {
    const bool tolerance = r.OptSingleLower ? r.SU_LowerOffset > 0 : r.SU_UpperOffset > 0;
    return tolerance && r.SU_PctInTol > 0 && r.MTE_PctInTol > 0 && r.MTE_Offset > 0;
}

std::string nextStep(const Session& session) {
    const Analysis& r = session.record;
    if (!entriesComplete(r)) return "Enter nominal value, tolerance and % in-tolerance";
    if (r.Last_PctInTol == 0) return "Ready to compute";
    if (r.ResultsStale) return notComputedTip;
    return risksAreCurrent(session) ? "Computed" : "Entries changed: compute again";
}

void showSubject(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    screen.ModeBox.text =
        (modeEntered(r) ? withUnits(FormatNumber(r.SU_Mode, r.SU_Mode_fmt, session.regional), r.NominalUnits)
                        : "");
    screen.PctInTolBox.text = (pctText(r.SU_PctInTol, session.regional));
    screen.TwoSideOption.checked = (r.OptTwoSided);
    screen.SingleUpperOption.checked = (r.OptSingleUpper);
    screen.SingleLowerOption.checked = (r.OptSingleLower);
    screen.chk_Symmetric.checked = (r.SymmetricTolerances);
    screen.chk_Symmetric.enabled = r.OptTwoSided;
    screen.PhysLimitRequired.checked = (r.PhysLimitRequired && !r.OptTwoSided);
    screen.PhysLimitRequired.enabled = !r.OptTwoSided;
    screen.optOffsets_0.checked = (r.ShowLimits);
    screen.optOffsets_1.checked = (!r.ShowLimits);
    showLimitRows(screen, session);
}

void showRisks(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    const Regional& regional = session.regional;
    const bool producer = r.FalseAcceptOption == 1;
    screen.Heading_0.text =
        producer ? "    COMPUTED RISKS (Producer Option)" : "    COMPUTED RISKS (Consumer Option)";
    screen.Heading_1.text =
        producer ? "    BASELINE RISKS (Producer Option)" : "    BASELINE RISKS (Consumer Option)";
    const bool computed = everComputed(r);
    const auto figure = [&](double value, const std::string& units, const std::string& picture) {
        return computed ? riskText({value, units}, picture, regional) : "";
    };
    screen.AcceptRisk.text = figure(r.FalseAcceptRisk, r.FalseAcceptUnits, r.FalseAccept_fmt);
    screen.AcceptUnits.text = computed ? r.FalseAcceptUnits : "";
    screen.RejectRisk.text = figure(r.FalseRejectRisk, r.FalseRejectUnits, r.FalseReject_fmt);
    screen.RejectUnits.text = computed ? r.FalseRejectUnits : "";

    const bool searched = r.EqAccRat != 0 || (computed && r.ComputeEqRatio && !r.EqAccRatDen.empty());
    screen.AccRatEquivalent1Box.text = searched ? FormatNumber(r.EqAccRat, ratioPicture, regional) : "";
    screen.AccRatEquivalent2Box.text =
        !searched || r.EqAccRatDen.empty()
            ? ""
            : FormatNumber(ParseValue(r.EqAccRatDen, regional), ratioPicture, regional);
    screen.Lbl_EqAccRatColon.text = searched ? ":" : "";
    screen.Lbl_EqAccRatNote.text = searched && !ratioAttained(r.EqAccRat) ? noSuchRatioText : "";
    screen.Lbl_EqAccRatNote.visible = !screen.Lbl_EqAccRatNote.text.empty();
    screen.pnl_RiskLabel_0.emphasised = r.ComputeEqRatio && r.EqRatioOnFalseAccept;
    screen.pnl_RiskLabel_1.emphasised = r.ComputeEqRatio && !r.EqRatioOnFalseAccept;

    // Figures of other entries must not look like those of the entries that are seen.
    const bool current = !computed || risksAreCurrent(session); // an empty box has nothing old
    const bool currentRatio = !searched || ratioIsCurrent(session);
    screen.AcceptRisk.toolTip = current ? "Computed false accept risk" : notComputedTip;
    screen.RejectRisk.toolTip = current ? "Computed false reject risk" : notComputedTip;
    screen.AccRatEquivalent1Box.toolTip =
        currentRatio ? "Accuracy ratio with the same risk in the baseline" : notComputedTip;
    for (Control* shown : std::initializer_list<Control*>{&screen.AcceptRisk, &screen.AcceptUnits,
                                                          &screen.RejectRisk, &screen.RejectUnits})
        shown->enabled = current;
    for (Control* shown :
         std::initializer_list<Control*>{&screen.AccRatEquivalent1Box, &screen.AccRatEquivalent2Box,
                                         &screen.Lbl_EqAccRatColon, &screen.Lbl_EqAccRatNote})
        shown->enabled = currentRatio;
    screen.ComputeResults.enabled = !r.Computing;

    const auto baselineText = [&](double value, const std::string& units) {
        return riskText({value, units}, units == ppmUnits ? "##0.0" : "##0.0000", regional);
    };
    screen.BaseAcceptRisk.text = (baselineText(r.Base_FalseAccept, r.Base_AcceptUnits));
    screen.BaseAcceptUnits.text = (r.Base_AcceptUnits);
    screen.BaseAcceptRisk.toolTip = "False accept risk of the baseline";
    screen.BaseRejectRisk.toolTip = "False reject risk of the baseline";
    screen.BaseRejectRisk.text = (baselineText(r.Base_FalseReject, r.Base_RejectUnits));
    screen.BaseRejectUnits.text = (r.Base_RejectUnits);
    screen.BaselineAccRat1Box.text = (FormatNumber(r.Base_AccRatNum, baselineRatioPicture, regional));
    screen.BaselineAccRat2Box.text = (FormatNumber(r.Base_AccRatDen, baselineRatioPicture, regional));
}

/// A figure that exact integration would show otherwise bears a sign, with the other figure below it.
void showSecondFigures(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    const Regional& regional = session.regional;
    const bool current = everComputed(r) && risksAreCurrent(session);
    Verified verified = verifyRisks(r);
    if (!current) verified.falseAccept = verified.falseReject = {};
    setRemark(screen.AcceptRisk, screen.Lbl_ExactAccept,
              exactRemark(verified.falseAccept, riskPicture, regional));
    setRemark(screen.RejectRisk, screen.Lbl_ExactReject,
              exactRemark(verified.falseReject, riskPicture, regional));
    std::string ratioRemark;
    if (ratioIsCurrent(session) && verified.falseReject)
        ratioRemark =
            exactRatioRemark(r.EqAccRat, screen.AccRatEquivalent1Box.text, exactRatio(r, verified), regional);
    setRemark(screen.AccRatEquivalent1Box, screen.Lbl_ExactRatio, ratioRemark);
    const auto mainPicture = [](std::string_view units) -> std::string {
        return units == ppmUnits ? "##0.0" : "##0.0000";
    };
    setRemark(screen.BaseAcceptRisk, screen.Lbl_ExactBaseAccept,
              exactRemark(verified.baselineFalseAccept, mainPicture, regional));
    setRemark(screen.BaseRejectRisk, screen.Lbl_ExactBaseReject,
              exactRemark(verified.baselineFalseReject, mainPicture, regional));
}

void showOptions(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    const ToleranceUnits units = measuringUnits(r);
    const double process = units.shown(r.ProcessUncertainty);
    screen.pnl_ProcessUncertainty.text = (withUnits(
        FormatNumber(process, WidenPicture(process, processPicture), session.regional), units.name));
    screen.chk_IncludeUncertainty.checked = (r.IncludeUncertainty);
    const RatioPanels ratios = ratioPanels(session);
    screen.pnl_UncRatio.text = (ratios.pnl_UncRatio);
    screen.pnlTUR.text = (ratios.pnlTUR);
}

} // namespace

std::string mainCaption(const Session& session) {
    return session.record.AnalysisFileName + " - " + product;
}

void showRecord(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    for (const TextField& field : textFields) (screen.*field.box).text = r.*field.field;
    showSubject(screen, session);
    showMeasuringRow(screen, session);
    showRisks(screen, session);
    showSecondFigures(screen, session);
    showOptions(screen, session);
    showGuardbandRows(screen, session);
    screen.caption = mainCaption(session);
    screen.nextStep = nextStep(session);
}

} // namespace metrisk
