#include "desk/mainscreen/MainScreen.h"

#include "base/FlagGuard.h"
#include "base/Real.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/DataGate.h"
#include "desk/compute/KFactors.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/FieldRules.h"
#include "desk/mainscreen/MainDisplay.h"
#include "desk/mainscreen/TextFields.h"
#include "desk/mainscreen/ToleranceOptions.h"
#include "desk/mainscreen/UnreadUnit.h"
#include "persistence/SettingKeys.h"
#include "record/SubjectSide.h"
#include "risk/Snapshot.h"

namespace metrisk {

MainScreen::MainScreen(Session& session)
    : Worksheet("MainScreen", mainCaption(session), "main-screen"),
      worstCase(session, [this] { session_.ui.refresh(*this); }), session_(session), saved_(session.record) {
    bindTexts();
    bindNumbers();
    bindOptions();
    for (TextBox* box : {&txt_GuardbandMultiplier_0, &txt_GuardbandMultiplier_1})
        box->opened = [this] { openGuardbands(); };
    ComputeResults.isDefault = true;
    ComputeResults.isPrimary = true;
    ComputeResults.clicked = [this](bool) { ComputeResults_Click(session_); };
    cmd_Baseline.clicked = [this](bool) { runScreen(screens::baseline, {session_}); };
    refresh();
}

/// A text goes to the record while it is typed: no check can refuse it.
void MainScreen::bindTexts() {
    for (const TextField& field : textFields) {
        TextBox& box = this->*field.box;
        box.edited = [this, target = field.field](const std::string& text) {
            commitText(session_, target, text);
        };
        box.left = [this, target = field.field](const std::string& text) -> FieldResult {
            commitText(session_, target, text);
            return {false, session_.record.*target};
        };
    }
    cmdSU.clicked = [this](bool) { session_.ui.focus(SystemIDBox.name); };
    cmdMTE.clicked = [this](bool) { session_.ui.focus(MTESystemIDBox.name); };
}

void MainScreen::bindNumbers() {
    ModeBox.left = [this](const std::string& text) {
        return commitMode(session_, text, ModeBox.last.value_or(""));
    };
    UpperLimitBox.left = [this](const std::string& text) {
        return commitLimit(session_, upperSide, text, UpperLimitBox.last.value_or(""));
    };
    LowerLimitBox.left = [this](const std::string& text) {
        return commitLimit(session_, lowerSide, text, LowerLimitBox.last.value_or(""));
    };
    PctInTolBox.left = [this](const std::string& text) { return commitPctInTol(session_, text); };
    MTEPctInTolBox.left = [this](const std::string& text) { return commitMTEPctInTol(session_, text); };
    const auto bindMeasuring = [this](TextBox& control, MeasuringBox box) {
        control.left = [this, box](const std::string& text) { return commitMeasuring(session_, box, text); };
    };
    bindMeasuring(MTEOffsetBox, MeasuringBox::Offset);
    bindMeasuring(MTEFixedOffsetBox, MeasuringBox::Fixed);
    bindMeasuring(MTEPctOfReadingBox, MeasuringBox::PctOfReading);
    for (TextBox* box : {&ModeBox, &UpperLimitBox, &LowerLimitBox, &MTEOffsetBox, &MTEFixedOffsetBox})
        box->left = [this, commit = std::move(box->left)](const std::string& text) {
            unreadUnit = unreadUnitNote(session_.record, text);
            return commit(text);
        };
    // What the user has acknowledged about an entry is asked again for another.
    for (TextBox* box : {&ModeBox, &UpperLimitBox, &LowerLimitBox, &PctInTolBox})
        box->keyPressed = [this] {
            Analysis& r = session_.record;
            r.Ack100Pct = r.AckPhysLimitLow = r.AckPhysLimitHigh = false;
        };
}

void MainScreen::hideIdentification(bool hidden) {
    pnl_IDData.visible = !hidden;
    session_.settings.write(mainScreenSettings::hideIdentification, hidden ? "Yes" : "No");
}

void MainScreen::bindOptions() {
    pnl_IDData.visible = session_.settings.read(mainScreenSettings::hideIdentification) != "Yes";
    Heading_0.tone = Label::Tone::Accent;
    for (TextBox* box : {&txt_GuardbandMultiplier_0, &txt_GuardbandMultiplier_1}) box->locked = true;
    const auto bindKind = [this](RadioButton& button, ToleranceKind kind) {
        button.clicked = [this, kind](bool) {
            chooseTolerance(session_, kind);
            followInKFactors();
        };
    };
    bindKind(TwoSideOption, ToleranceKind::TwoSided);
    bindKind(SingleUpperOption, ToleranceKind::SingleUpper);
    bindKind(SingleLowerOption, ToleranceKind::SingleLower);
    chk_Symmetric.clicked = [this](bool on) {
        chk_Symmetric_Click(session_, on);
        followInKFactors();
    };
    PhysLimitRequired.clicked = [this](bool on) { PhysLimitRequired_Click(session_, on); };
    optOffsets_0.clicked = [this](bool) { optOffsets_Click(session_, 0); };
    optOffsets_1.clicked = [this](bool) { optOffsets_Click(session_, 1); };
    optGuardbands_0.clicked = [this](bool) { guardbandsAsLimits = true; };
    optGuardbands_1.clicked = [this](bool) { guardbandsAsLimits = false; };
    chk_IncludeGuardbands.clicked = [this](bool on) { chk_IncludeGuardbands_Click(session_, on); };
    chk_SymmetricGBands.clicked = [this](bool on) { chk_SymmetricGBands_Click(session_, on); };
    chk_IncludeUncertainty.clicked = [this](bool on) {
        chk_IncludeUncertainty_Click(session_, on);
        followInKFactors();
    };
}

void MainScreen::refresh() {
    // Half a record is nothing to look at.
    if (!session_.record.LoadInProgress) showRecord(*this, session_);
}

void MainScreen::forgetLastTexts() {
    for (Control* control : controls())
        if (auto* box = dynamic_cast<TextBox*>(control)) box->last.reset();
}

FieldResult MainScreen::runRule(TextBox& box, const std::string& text) {
    const Analysis before = session_.record;
    const FlagGuard entering(session_.record.EntryBoxChanged);
    session_.record.AbortFlag = false;
    FieldResult result;
    try {
        result = box.left(text);
    } catch (const RuntimeFault&) {
        session_.record = before;
        result = {true, box.last.value_or("")};
    }
    if (result.stay)
        session_.record.AbortFlag = true;
    else
        followInKFactors();
    return result;
}

/// A k-factor is a distance in process uncertainties: either may have changed.
void MainScreen::followInKFactors() {
    if (!session_.record.AbortFlag && session_.record.MTE_Sigma > 0) RevalidateKFactors(session_);
}

void MainScreen::open(std::string_view screen, const DeskParts& parts) {
    runScreen(screen, parts);
    followInKFactors();
}

void MainScreen::openGuardbands() {
    runScreen(screens::guardbands, {session_});
}

void MainScreen::openOffsets(const DeskParts& parts) {
    runScreen(screens::offsets, parts);
    forgetLastTexts();
    RefreshMainScreen(session_);
    followInKFactors();
}

void MainScreen::openUncertainty(DeskParts parts) {
    session_.record.ComputeNeeded = false;
    parts.openTolerances = [this, parts] { openOffsets(parts); };
    open(screens::uncertainty, parts);
}

bool MainScreen::mayRun(const MenuItem& item) {
    return item.needs == Needs::Nothing || haveData(session_, item.needs);
}

void MainScreen::TakeSavedCopy() {
    saved_ = SavedCopy(session_.record);
}

bool MainScreen::hasChanges() const {
    return session_.record.FileChanged || saved_.differs(session_.record);
}

void MainScreen::DetectChanges() {
    session_.record.FileChanged = hasChanges();
}

void RefreshMainScreen(Session& session) {
    Analysis& r = session.record;
    r.MTE_Mode = r.SU_Mode;
    session.ui.repaintMainScreen();
    CompareWithSnapshot(session.record);
    r.SymmetryChanged = false;
    if (r.FirstDisplay) {
        r.FirstDisplay = false;
        r.LoadInProgress = false;
    }
}

} // namespace metrisk
