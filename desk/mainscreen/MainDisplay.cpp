#include "desk/mainscreen/MainDisplay.h"

#include "base/NumberText.h"
#include "base/RelativeUnits.h"
#include "base/RiskText.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/compute/RatioPanels.h"
#include "desk/kit/RestingTips.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/LimitRows.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/mainscreen/MeasuringRow.h"
#include "desk/mainscreen/ResultMarks.h"
#include "desk/mainscreen/TextFields.h"
#include "record/AnalysisTexts.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "risk/evaluate/BaselineFigures.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/evaluate/ExactRemarks.h"

#include <utility>

namespace metrisk {

namespace {

constexpr const char* product = "Metrisk";
constexpr const char* ratioPicture = "#,##0.00";
constexpr const char* baselineRatioPicture = "##0.00";
constexpr const char* processPicture = "#,##0.0000";

std::string nextStep(const Session& session) {
    const Analysis& r = session.record;
    const bool tolerance = r.OptSingleLower ? r.SU_LowerOffset > 0 : r.SU_UpperOffset > 0;
    if (!tolerance || r.SU_PctInTol <= 0) return "Enter nominal value, tolerance and % in-tolerance";
    if (r.MTE_PctInTol <= 0 || r.MTE_Offset <= 0)
        return "Enter tolerance and % in-tolerance of the measuring parameter";
    if (r.Last_PctInTol == 0) return "Ready to compute";
    if (r.ResultsStale) return notComputedTip;
    if (!risksAreCurrent(session.record)) return "Entries changed: compute again";
    const bool guarded =
        (!r.OptSingleLower && r.GB_UpperMult != 1) || (!r.OptSingleUpper && r.GB_LowerMult != 1);
    return guarded && !r.IncludeGuardbands
               ? "Computed without the guardbands: Include under Options uses them"
               : "Computed";
}

void showSubject(MainScreen& screen, const Analysis& r, const AnalysisTexts& texts) {
    screen.ModeBox.text = texts.mode;
    screen.PctInTolBox.text = texts.subjectPct;
    screen.TwoSideOption.checked = (r.OptTwoSided);
    screen.SingleUpperOption.checked = (r.OptSingleUpper);
    screen.SingleLowerOption.checked = (r.OptSingleLower);
    screen.chk_Symmetric.checked = (r.SymmetricTolerances);
    screen.chk_Symmetric.allow(r.OptTwoSided, oneToleranceTip);
    screen.PhysLimitRequired.checked = (r.PhysLimitRequired && !r.OptTwoSided);
    screen.PhysLimitRequired.allow(!r.OptTwoSided, noPhysicalLimitTip);
    screen.optOffsets_0.checked = (r.ShowLimits);
    screen.optOffsets_1.checked = (!r.ShowLimits);
    showLimitRows(screen, r, texts);
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

    screen.AccRatEquivalent1Box.text = ratioText(r, regional);
    const bool searched = !screen.AccRatEquivalent1Box.text.empty();
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
    const bool current = !computed || risksAreCurrent(session.record); // an empty box has nothing old
    const bool currentRatio = !searched || ratioIsCurrent(session.record);
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
    screen.worstCase.show(screen.Lbl_WorstCase);
    screen.ComputeResults.allow(!r.Computing, "The risks are being computed");

    const auto baselineText = [&](double value, const std::string& units) {
        return riskText({value, units}, units == ppmUnits ? "##0.0" : "##0.0000", regional);
    };
    screen.BaseAcceptRisk.text = (baselineText(r.Base_FalseAccept, r.Base_AcceptUnits));
    screen.BaseAcceptUnits.text = (r.Base_AcceptUnits);
    const bool baseline = baselineIsCurrent(r);
    screen.BaseAcceptRisk.toolTip = baseline ? "False accept risk of the baseline" : notComputedTip;
    screen.BaseRejectRisk.toolTip = baseline ? "False reject risk of the baseline" : notComputedTip;
    for (Control* shown : std::initializer_list<Control*>{&screen.BaseAcceptRisk, &screen.BaseAcceptUnits,
                                                          &screen.BaseRejectRisk, &screen.BaseRejectUnits})
        shown->enabled = baseline;
    screen.BaseRejectRisk.text = (baselineText(r.Base_FalseReject, r.Base_RejectUnits));
    screen.BaseRejectUnits.text = (r.Base_RejectUnits);
    screen.BaselineAccRat1Box.text = (FormatNumber(r.Base_AccRatNum, baselineRatioPicture, regional));
    screen.BaselineAccRat2Box.text = (FormatNumber(r.Base_AccRatDen, baselineRatioPicture, regional));
}

/// A figure that exact integration would show otherwise bears a sign, with the other figure below it.
void showSecondFigures(MainScreen& screen, const Session& session) {
    const ExactRemarks remarks = exactRemarksOf(session.record, session.regional);
    setRemark(screen.AcceptRisk, screen.Lbl_ExactAccept, remarks.falseAccept);
    setRemark(screen.RejectRisk, screen.Lbl_ExactReject, remarks.falseReject);
    setRemark(screen.AccRatEquivalent1Box, screen.Lbl_ExactRatio, remarks.ratio);
    setRemark(screen.BaseAcceptRisk, screen.Lbl_ExactBaseAccept, remarks.baselineFalseAccept);
    setRemark(screen.BaseRejectRisk, screen.Lbl_ExactBaseReject, remarks.baselineFalseReject);
    showResultMarks(screen, session.record, remarks);
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

/// A tolerance; a limit of the example's nominal value; or a physical limit, which most have at 0 or 100.
const char* limitHint(const Analysis& r, const SubjectSide& side) {
    const bool upper = &side == &upperSide;
    if (r.*side.absent) return upper ? "e.g. 100" : "e.g. 0";
    if (!r.ShowLimits) return "e.g. 0.5";
    return upper ? "e.g. 10.5" : "e.g. 9.5";
}

/// Examples without units, which these boxes do not read.
void showHints(MainScreen& screen, const Analysis& r) {
    for (const auto& [box, hint] : {std::pair{&screen.ModeBox, "e.g. 10"},
                                    {&screen.UpperLimitBox, limitHint(r, upperSide)},
                                    {&screen.LowerLimitBox, limitHint(r, lowerSide)},
                                    {&screen.PctInTolBox, "e.g. 95"},
                                    {&screen.MTEOffsetBox, "e.g. 0.1"},
                                    {&screen.MTEParameterUnitsBox, "e.g. mV"},
                                    {&screen.MTEPctInTolBox, "e.g. 95"}})
        box->hint = box->locked ? "" : hint;
}

} // namespace

std::string mainCaption(const Session& session) {
    return session.record.AnalysisFileName + " - " + product;
}

void showRecord(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    for (const TextField& field : textFields) (screen.*field.box).text = r.*field.field;
    const AnalysisTexts texts = textsOf(r, session.regional);
    showSubject(screen, r, texts);
    showMeasuringRow(screen, r, texts);
    showRisks(screen, session);
    showSecondFigures(screen, session);
    showOptions(screen, session);
    showGuardbandRows(screen, session, texts);
    showHints(screen, r);
    screen.area = r.MeasurementArea;
    screen.caption = mainCaption(session);
    screen.nextStep = screen.unreadUnit.empty() ? nextStep(session) : screen.unreadUnit;
}

} // namespace metrisk
