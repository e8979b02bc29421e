#include "desk/guardband/GuardbandScreen.h"

#include "base/DisplayRule.h"
#include "base/FlagGuard.h"
#include "base/NumberEntry.h"
#include "base/NumberText.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/Notes.h"
#include "desk/guardband/Procedure.h"
#include "desk/kit/Message.h"
#include "desk/kit/RestingTips.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/Verified.h"
#include "risk/guardband/GuardbandTexts.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* keyTexts[] = {"False Accept Risk", "False Reject Risk", "Equalizing Risks"};
constexpr const char* uncertaintyPicture = "#,##0.0000";
constexpr const char* eightDecimals = "#,##0.00000000";
constexpr int fewestDecimals = 4;
constexpr int mostDecimals = 8;
constexpr const char* noKText = "0.0000";
constexpr double ppmFrom = 100; // a risk of so many percent is meant in ppm

} // namespace

const GuardbandScreen::RiskBox GuardbandScreen::falseAcceptBox{
    &GuardbandScreen::FARiskBox, &GuardbandScreen::FARiskUnitsBox, &Analysis::GB_FARisk,
    &Analysis::GB_FARiskUnits};
const GuardbandScreen::RiskBox GuardbandScreen::falseRejectBox{
    &GuardbandScreen::FRRiskBox, &GuardbandScreen::FRRiskUnitsBox, &Analysis::GB_FRRisk,
    &Analysis::GB_FRRiskUnits};

GuardbandScreen::GuardbandScreen(Session& session)
    : Worksheet("GuardbandAnalysis", "Guardband Analysis Worksheet", "guardbands"), session_(session),
      opened_(session.record), loaded_(session.record) {
    Analysis& r = session.record;
    for (const SubjectSide* side : {&upperSide, &lowerSide})
        if (r.*side->multiplier == 0 && r.*side->kFactor == 0) r.*side->multiplier = 1;
    r.GB_ScreenOpen = true;
    r.GB_RatioRequest = false;
    if (r.GB_UpperKEntered)
        UpperMultiplierFromKFactor(r, session_.regional);
    else
        ShowUpperKFactor(r, session_.regional);
    if (r.GB_LowerKEntered)
        LowerMultiplierFromKFactor(r, session_.regional);
    else
        ShowLowerKFactor(r, session_.regional);
    settleSymmetry(r, session_.regional);
    loadRisks();
    lastUpper_ = r.GB_UpperMult;
    lastLower_ = r.GB_LowerMult;
    loaded_ = Kept(r);
    FARiskUnitsBox.items = FRRiskUnitsBox.items = {percentUnits, ppmUnits};
    txt_Procedure.text = guardbandProcedure();
    bindOptions();
    bindGuardbands();
    bindRisks();
    refresh();
}

GuardbandScreen::~GuardbandScreen() {
    session_.record.GB_ScreenOpen = false;
}

/// The main results may be those of these guardbands. What is not theirs by a second computation is not
/// shown.
void GuardbandScreen::loadRisks() {
    Analysis& r = session_.record;
    if (r.GB_RisksStale && r.IncludeGuardbands) {
        r.GB_FARisk = r.FalseAcceptRisk;
        r.GB_FARiskUnits = r.FalseAcceptUnits;
        r.GB_FRRisk = r.FalseRejectRisk;
        r.GB_FRRiskUnits = r.FalseRejectUnits;
        if (r.GB_IncludeEqAccRat) {
            r.GB_EqAccRat = r.EqAccRat;
            r.GB_EqAccRatValid = true;
        }
    }
    const auto standing = standingGuardbands(session_.record, session_.regional);
    if (standing) {
        computed_ = standing->risks;
    } else {
        r.GB_FARisk = r.GB_FRRisk = 0;
        r.GB_FARiskUnits = r.GB_FRRiskUnits = percentUnits;
    }
    ratioCurrent_ = standing && standing->ratio;
    if (!ratioCurrent_) r.GB_EqAccRat = 0;
    r.GB_EqAccRatValid = ratioCurrent_;
    showRisks(standing.has_value());
}

void GuardbandScreen::bindOptions() {
    for (TextBox* box : {&ModeBox, &UpperTolLimitBox, &LowerTolLimitBox, &pnl_ProcessUncertainty})
        box->locked = true;
    // From the first click on the words are those of the other form; so they have always been.
    LimitsOptionButton.clicked = [this](bool) {
        session_.record.GB_ShowLimits = true;
        labelsAsLoaded_ = false;
    };
    OffsetsOptionButton.clicked = [this](bool) {
        session_.record.GB_ShowLimits = false;
        labelsAsLoaded_ = false;
    };
    opt_FARisk.clicked = [this](bool) { session_.record.GB_KeyOn = 0; };
    opt_FRRisk.clicked = [this](bool) { session_.record.GB_KeyOn = 1; };
    opt_EqualizeRisks.clicked = [this](bool) { session_.record.GB_KeyOn = 2; };
    SymmetryCheckBox.clicked = [this](bool on) { setSymmetricMultipliers(on); };
    chk_SymmetricK.clicked = [this](bool on) { setSymmetricK(on); };
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_0.isDefault = true;
    cmdComputeGuardbands.isPrimary = true;
    mnu_Exit_1.closes = Way::Cancel;
    txt_Procedure.jumped = [this](const std::string& word) { jumpTo(word); };
    menus = {
        {.control = "mnu_Procedure",
         .caption = "Hide &Procedure",
         .run = [this] { procedureShown_ = !procedureShown_; }},
        runMenu(session_),
        notesItem(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
}

void GuardbandScreen::bindGuardbands() {
    UpperMultiplierBox.left = [this](const std::string& text) { return leaveMultiplier(upperSide, text); };
    LowerMultiplierBox.left = [this](const std::string& text) { return leaveMultiplier(lowerSide, text); };
    txt_kFactor_0.left = [this](const std::string& text) { return leaveK(upperSide, text); };
    txt_kFactor_1.left = [this](const std::string& text) { return leaveK(lowerSide, text); };
    cmdComputeGuardbands.clicked = [this](bool) { computeGuardbands(); };
    cmd_UseExact.clicked = [this](bool) { useExact(); };
    cmd_RoundOff.clicked = [this](bool) { roundOff(); };
    CmdPlot.clicked = [this](bool) { plot(); };
    txt_DisplayedResolution.left = [this](const std::string& text) -> FieldResult {
        resolution_ = text;
        return {false, text};
    };
}

void GuardbandScreen::bindRisks() {
    for (const RiskBox* risk : {&falseAcceptBox, &falseRejectBox}) {
        TextBox& box = this->*risk->box;
        box.edited = [this, risk](const std::string& text) { typeRisk(*risk, text); };
        box.left = [this, risk](const std::string& text) -> FieldResult {
            typeRisk(*risk, text);
            return {false, text};
        };
        (this->*risk->units).chosen = [this, risk](int index) { takeUnits(*risk, index); };
    }
    CmdCompute.clicked = [this](bool) { computeRisks(); };
    IncludeEqAccRatBox.clicked = [this](bool on) {
        session_.record.GB_IncludeEqAccRat = on;
        ratioCurrent_ = false;
        if (!on) ratioText_.clear();
    };
}

/// Where exact integration would show the risks of these guardbands otherwise.
void GuardbandScreen::showSecondFigures() {
    const Analysis& r = session_.record;
    Verified verified;
    if (computed_)
        verified = verifyRisks(r, *computed_,
                               {-r.GB_LowerMult * r.SU_LowerOffset, r.GB_UpperMult * r.SU_UpperOffset});
    const auto showFigure = [&](const std::optional<VerifiedFigure>& figure, TextBox& box, Label& line) {
        setRemark(box, line, exactRemark(figure, riskPicture, session_.regional));
    };
    showFigure(verified.falseAccept, FARiskBox, Lbl_ExactAccept);
    showFigure(verified.falseReject, FRRiskBox, Lbl_ExactReject);
    std::string ratioRemark;
    const ExactRatioQuestion question = exactRatioQuestion(r);
    const auto& key = question.onFalseAccept ? verified.falseAccept : verified.falseReject;
    if (r.GB_IncludeEqAccRat && ratioCurrent_ && key)
        ratioRemark =
            exactRatioRemark(r.GB_EqAccRat, ratioText_, exactRatio(question, key->exact.value, r.GB_EqAccRat),
                             session_.regional);
    setRemark(EqAccRatBox, Lbl_ExactRatio, ratioRemark);
}

void GuardbandScreen::refresh() {
    showSecondFigures();
    const Analysis& r = session_.record;
    const Regional& regional = session_.regional;
    const bool limits = r.GB_ShowLimits;
    const bool shared = r.GB_SymmetricMult || r.GB_SymmetricK;
    ModeBox.text = withUnits(FormatNumber(r.SU_Mode, r.SU_Mode_fmt, regional), r.NominalUnits);
    const double uncertainty = subjectUnits(r).shown(r.MTE_Sigma);
    pnl_ProcessUncertainty.text =
        withUnits(FormatNumber(uncertainty, WidenPicture(uncertainty, uncertaintyPicture), regional),
                  r.SU_ToleranceUnits);
    LimitsOptionButton.checked = limits;
    OffsetsOptionButton.checked = !limits;
    const bool tolerances = limits != labelsAsLoaded_;
    Lbl_UpperTolerance.text = tolerances ? "Upper Tolerance:" : "Upper Limit:";
    Lbl_LowerTolerance.text = tolerances ? "Lower Tolerance:" : "Lower Limit:";
    Lbl_UpperGuardband.text = tolerances ? "Upper Guardband:" : "Upper Guardband Limit:";
    Lbl_LowerGuardband.text = tolerances ? "Lower Guardband:" : "Lower Guardband Limit:";

    const auto showSide = [&](const SubjectSide& side, TextBox& tolerance, TextBox& multiplier, TextBox& k,
                              TextBox& guardband, bool follows) {
        const bool there = !(r.*side.absent);
        const auto shown = [&](const GuardbandTexts& texts) {
            return !there ? "" : limits ? texts.limit : texts.offset;
        };
        tolerance.text = shown(toleranceTexts(r, side, regional));
        guardband.text = shown(guardbandTexts(r, side, regional, guardbandBoxDigits));
        const std::string full = shown(guardbandTexts(r, side, regional));
        guardband.toolTip =
            full == guardband.text ? &side == &upperSide ? "Upper test limit" : "Lower test limit" : full;
        multiplier.text = there ? FormatNumber(r.*side.multiplier, r.*side.multiplierPicture, regional) : "";
        // Without a process uncertainty there is no k-factor.
        k.text = !there ? "" : r.MTE_Sigma == 0 ? noKText : kFactorText(r, side, regional);
        tolerance.enabled = guardband.enabled = there;
        multiplier.enabled = k.enabled = there && !(follows && r.OptTwoSided);
        multiplier.locked = k.locked = !multiplier.enabled;
    };
    showSide(upperSide, UpperTolLimitBox, UpperMultiplierBox, txt_kFactor_0, UpperGuardbandBox, false);
    showSide(lowerSide, LowerTolLimitBox, LowerMultiplierBox, txt_kFactor_1, LowerGuardbandBox, shared);
    SymmetryCheckBox.checked = r.GB_SymmetricMult;
    chk_SymmetricK.checked = r.GB_SymmetricK;
    for (CheckBox* box : {&SymmetryCheckBox, &chk_SymmetricK}) box->allow(r.OptTwoSided, oneToleranceTip);

    opt_FARisk.checked = r.GB_KeyOn == 0;
    opt_FRRisk.checked = r.GB_KeyOn == 1;
    opt_EqualizeRisks.checked = r.GB_KeyOn == 2;
    pnl_RiskKey.text = keyTexts[r.GB_KeyOn == 1 || r.GB_KeyOn == 2 ? r.GB_KeyOn : 0];
    if (opt_FARisk.checked)
        pnl_RiskKey.text += r.FalseAcceptOption == 1 ? " - Producer Option" : " - Consumer Option";
    txt_DisplayedResolution.text = resolution_;

    showRiskBoxes();
    const bool uniform = hasNoFalseAccepts(r);
    if (uniform) FARiskBox.text.clear();
    if (uniform) FARiskUnitsBox.index = -1;
    for (Control* control : std::initializer_list<Control*>{&Lbl_FARisk, &FARiskBox, &FARiskUnitsBox})
        control->enabled = !uniform;
    IncludeEqAccRatBox.checked = r.GB_IncludeEqAccRat;
    EqAccRatBox.text = r.GB_IncludeEqAccRat ? ratioText_ : "";
    EqAccRat2Box.text = EqAccRatBox.text.empty() || !ratioAttained(r.GB_EqAccRat) ? "" : "1";
    Lbl_ExactSolve.visible = missed_.has_value();
    Lbl_ExactSolve.text = missed_ ? missedTargetText(*missed_, regional) : "";
    cmd_UseExact.visible = missed_ && missed_->guardband;

    EqAccRatBox.hint = r.GB_IncludeEqAccRat ? "" : "not included";
    showNotes();

    pnl_Procedure.visible = txt_Procedure.visible = procedureShown_;
    menus.front().caption = procedureShown_ ? "Hide &Procedure" : "Show &Procedure";
}

/// A target is shown as typed; a risk of other guardbands must not look like one of these.
void GuardbandScreen::showRiskBoxes() {
    for (const RiskBox* risk : {&falseAcceptBox, &falseRejectBox}) {
        TextBox& box = this->*risk->box;
        Choice& units = this->*risk->units;
        box.text = textOf(*risk);
        units.index = session_.record.*risk->unitsName == ppmUnits ? 1 : 0;
        box.faded = !computed_ && !typed(*risk) && !box.text.empty();
        box.toolTip = box.faded                 ? notComputedTip
                      : risk == &falseAcceptBox ? "False accept risk: computed, or the target of a solve"
                                                : "False reject risk: computed, or the target of a solve";
    }
}

/// Behind each risk, what its figure is; before a solve, what it lacks; at the foot, what OK does.
void GuardbandScreen::showNotes() {
    const Analysis& r = session_.record;
    const int keyed[] = {0, 1};
    Label* const notes[] = {&Lbl_FANote, &Lbl_FRNote};
    const RiskBox* const risks[] = {&falseAcceptBox, &falseRejectBox};
    for (const int i : keyed) {
        const TextBox& box = this->*risks[i]->box;
        Label& note = *notes[i];
        const bool target = typed(*risks[i]) && r.GB_KeyOn == i;
        note.tone = Label::Tone::Second;
        note.sign = Label::Sign::None;
        note.text.clear();
        if (box.text.empty()) {
            if (r.GB_KeyOn == i && box.enabled) note.text = "enter a target";
        } else if (computed_) {
            note.text = target ? "target and result" : "belongs to these multipliers";
            note.tone = Label::Tone::Good;
            note.sign = Label::Sign::Tick;
        } else if (box.faded) {
            note.text = "from other multipliers";
            note.tone = Label::Tone::Warn;
            note.sign = Label::Sign::Up;
        } else {
            note.text = target ? "target" : "not computed";
        }
    }
    const bool solvable = !r.OptTwoSided || r.GB_SymmetricMult || r.GB_SymmetricK;
    Lbl_Symmetry.text = solvable ? "" : "Tick Symmetric Multipliers or Symmetric k-Factors first";
    Lbl_Symmetry.visible = !solvable;
    Lbl_Symmetry.tone = Label::Tone::Second;
    const bool wider = r.GB_UpperMult > 1 || r.GB_LowerMult > 1;
    Lbl_Foot.text = wider ? "A multiplier above 1 accepts outside the tolerance: it gives more false accepts "
                            "than the tolerance itself."
                    : r.IncludeGuardbands
                        ? "OK stores the multipliers; the main screen includes them."
                        : "OK stores the multipliers. Tick Include on the main screen to use them.";
    Lbl_Foot.tone = wider ? Label::Tone::Warn : Label::Tone::Plain;
}

/// A change of the guardbands makes every figure one of other guardbands.
void GuardbandScreen::guardbandsTyped() {
    session_.record.GuardbandsChanged = true;
    dropRisks();
}

void GuardbandScreen::dropRisks() {
    computed_.reset();
    missed_.reset();
    ratioCurrent_ = false;
}

FieldResult GuardbandScreen::leaveMultiplier(const SubjectSide& side, const std::string& text) {
    Analysis& r = session_.record;
    if (!isNumeric(text, session_.regional))
        return {true, FormatNumber(r.*side.multiplier, r.*side.multiplierPicture, session_.regional)};
    const NumberEntry entry = NumberEntry::read(text, session_.regional);
    r.*side.multiplier = entry.value;
    r.*side.multiplierPicture = PictureForDecimals(
        std::min(mostDecimals, DecimalsOfValue(entry.value, std::max(fewestDecimals, entry.decimals))));
    r.*side.kEntered = false;
    showKFactors();
    settleSymmetry(r, session_.regional);
    for (const SubjectSide* each : {&upperSide, &lowerSide})
        if (!(r.*each->kEntered) && r.*each->kFactor != 0) r.*each->kPicture = eightDecimals;
    guardbandsTyped();
    return {false, text};
}

FieldResult GuardbandScreen::leaveK(const SubjectSide& side, const std::string& text) {
    Analysis& r = session_.record;
    if (!isNumeric(text, session_.regional)) return {true, kFactorText(r, side, session_.regional)};
    const NumberEntry entry = NumberEntry::read(text, session_.regional);
    const bool both = r.GB_SymmetricK && &side == &upperSide;
    if (!CheckKFactor(session_, entry.value, side, text) ||
        (both && !CheckKFactor(session_, entry.value, lowerSide, text)))
        return {true, kFactorText(r, side, session_.regional)};
    const std::string picture = PictureForDecimals(std::max(fewestDecimals, entry.decimals));
    r.*side.kFactor = entry.value;
    r.*side.kPicture = picture;
    r.*side.kEntered = true;
    &side == &upperSide ? UpperMultiplierFromKFactor(r, session_.regional)
                        : LowerMultiplierFromKFactor(r, session_.regional);
    settleSymmetry(r, session_.regional);
    guardbandsTyped();
    return {false, text};
}

void GuardbandScreen::showKFactors() {
    Analysis& r = session_.record;
    if (!r.GB_UpperKEntered) ShowUpperKFactor(r, session_.regional);
    if (!r.GB_LowerKEntered) ShowLowerKFactor(r, session_.regional);
}

void GuardbandScreen::setSymmetricMultipliers(bool on) {
    chooseSymmetricMultipliers(session_.record, on, session_.regional);
    dropRisks();
}

void GuardbandScreen::setSymmetricK(bool on) {
    Analysis& r = session_.record;
    dropRisks();
    if (!on) {
        r.GB_SymmetricK = false;
        return;
    }
    const std::string k = kFactorText(r, upperSide, session_.regional);
    if (!CheckKFactor(session_, r.GB_UpperK, lowerSide, k.empty() ? noKText : k)) return;
    r.GB_SymmetricK = true;
    r.GB_SymmetricMult = false;
    r.GB_AsymmetricMult = true;
    const double before = r.GB_LowerK;
    r.GB_LowerK = r.GB_UpperK;
    r.GB_LowerK_fmt = r.GB_UpperK_fmt;
    r.GB_LowerKEntered = r.GB_UpperKEntered;
    if (before != r.GB_LowerK) r.GuardbandsChanged = true;
    UpperMultiplierFromKFactor(r, session_.regional);
    LowerMultiplierFromKFactor(r, session_.regional);
}

/// A risk typed is a target, not a result.
void GuardbandScreen::typeRisk(const RiskBox& risk, const std::string& text) {
    std::string& shown = textOf(risk);
    if (shown == text) return;
    shown = text;
    Analysis& r = session_.record;
    r.*risk.value = ParseValue(text, session_.regional);
    if (r.*risk.value >= ppmFrom) r.*risk.unitsName = ppmUnits;
    typed(risk) = true;
    dropRisks();
}

void GuardbandScreen::takeUnits(const RiskBox& risk, int index) {
    session_.record.*risk.unitsName = index == 0 ? percentUnits : ppmUnits;
    typed(risk) = true;
    dropRisks();
}

} // namespace metrisk
