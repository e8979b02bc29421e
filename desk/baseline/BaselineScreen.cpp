#include "desk/baseline/BaselineScreen.h"

#include "base/NumberText.h"
#include "base/RiskText.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "persistence/BaselineDefaults.h"
#include "risk/Snapshot.h"
#include "risk/evaluate/BaselineFigures.h"
#include "risk/exact/Verified.h"

#include <cmath>
#include <utility>

namespace metrisk {

namespace {

constexpr const char* ratioPicture = "###,##0.00";
constexpr const char* pctPicture = "##0.0000";
constexpr Message noRatio{ratioTooLowText, "Baseline Accuracy Ratio"};
constexpr const char* pctText = "In Tolerance Percent must be greater than Zero";
constexpr Message noMeasuringPct{pctText, "Baseline MTE Parameter % In-Tolerance"};
constexpr Message noSubjectPct{pctText, "Baseline Subject Parameter % In-Tolerance"};
constexpr Message measuringPctRange{pctRangeText, "Inappropriate MTE % In-tolerance"};
constexpr Message subjectPctRange{pctRangeText, "Inappropriate Subject Parameter % In-tolerance"};
constexpr Message defaultKey{"To change the default baseline, enter changes in the analysis baseline and "
                             "click 'Set default baseline.'",
                             "Default Baseline Procedure", BoxIcon::Information};
constexpr Question usedDefault{"By using the default baseline, you have changed\n"
                               "the current False Accept option.  This will\n"
                               "necessitate recomputing the false accept risk and\n"
                               "equivalent accuracy ratio.  Continue?",
                               optionChangeTitle, BoxButtons::OkCancel, Answer::Cancel};
constexpr Question storedDefault{"You have changed the default baseline False\n"
                                 "Accept Option.\n"
                                 "Continuing will not only store the default baseline\n"
                                 "value, but may also change the main system False\n"
                                 "Accept Option.",
                                 optionChangeTitle, BoxButtons::YesNo, Answer::No};
constexpr const char* showDefaultsCaption = "Show &Defaults";
constexpr const char* hideDefaultsCaption = "Hide &Defaults";
constexpr const char* computingCaption = "COMPUTING";

// ANSI/NCSL Z540.3: 4 : 1, a subject parameter of 85 %, and the measuring figure by convention.
constexpr double z540Ratio = 4;
constexpr double z540Subject = 85;
constexpr double z540Measuring[] = {96.028, 90.601};

const char* optionCaption(int option) {
    return option == 1 ? "Producer Option" : "Consumer Option";
}

std::string figureText(const ShownRisk& risk, const Regional& regional) {
    return riskText(risk, baselinePicture(risk.units), regional);
}

BaselineSide sideOf(const Baseline& b, int option, const std::string& userOption, const Regional& regional) {
    BaselineSide side;
    side.AccRat1 = FormatNumber(b.Base_AccRatNum, ratioPicture, regional);
    side.AccRat2 = FormatNumber(b.Base_AccRatDen, ratioPicture, regional);
    side.PctInTol1 = FormatNumber(b.Base_MTEPctInTol, pctPicture, regional);
    side.PctInTol2 = FormatNumber(b.Base_SUPctInTol, pctPicture, regional);
    side.FalseAccept = figureText({b.Base_FalseAccept, b.Base_AcceptUnits}, regional);
    side.FalseReject = figureText({b.Base_FalseReject, b.Base_RejectUnits}, regional);
    side.FalseAcceptRiskUnits = b.Base_AcceptUnits;
    side.FalseRejectRiskUnits = b.Base_RejectUnits;
    side.falseAccept = b.Base_FalseAccept;
    side.falseReject = b.Base_FalseReject;
    side.falseAcceptOption = option;
    side.FAOption = optionCaption(option);
    side.BaselineOption = userOption;
    return side;
}

} // namespace

BaselineScreen::BaselineScreen(Session& session)
    : Worksheet("BaselineAnalysis", "Risk Baseline Analysis", "baseline"), session_(session),
      kept_(session.record), storedOption_(ReadFalseAcceptConvention(session.settings)) {
    const Analysis& r = session.record;
    analysis_ = sideOf(r, r.FalseAcceptOption, r.UserOption, session.regional);
    const BaselineDefaults stored = ReadBaselineDefaults(session.settings, r.Base_EqRatioTarget);
    defaults_ = sideOf(stored.figures, stored.FalseAcceptOption, stored.UserOption, session.regional);
    opened_ = analysis_;

    bindBox(BaseAccRat1, &BaselineSide::AccRat1);
    bindBox(BaseAccRat2, &BaselineSide::AccRat2);
    bindBox(BaselinePctInTol1, &BaselineSide::PctInTol1, &measuringPctRange);
    bindBox(BaselinePctInTol2, &BaselineSide::PctInTol2, &subjectPctRange);
    for (TextBox* box :
         {&DefAccRat1, &DefAccRat2, &DefPctInTol1, &DefPctInTol2, &DefFalseAccept, &DefFalseReject})
        box->keyPressed = [this] { tell(session_.ui, defaultKey); };
    optUserBaseline.clicked = [this](bool) { analysis_.BaselineOption = "User"; };
    optZ540Baseline.clicked = [this](bool) { chooseZ540(); };
    cmd_FAOption.clicked = [this](bool) { changeOption(); };
    ComputeBaselineResults.clicked = [this](bool) { computeRisks(); };
    Cmd_SetDefaultBaseline.clicked = [this](bool) { setDefault(); };
    Cmd_RetrieveDefaultBaseline.clicked = [this](bool) { retrieveDefault(); };
    cmd_OK.closes = Way::Ok;
    cmd_OK.isDefault = true;
    ComputeBaselineResults.isPrimary = true;
    mnu_Exit.closes = Way::Cancel;
    menus = {
        {.control = "mnu_View",
         .caption = "&View",
         .items = {{.control = "mnu_ShowDefaults",
                    .caption = showDefaultsCaption,
                    .run = [this] { defaultsShown_ = !defaultsShown_; }},
                   {.control = "mnu_Plot", .caption = "&Plot", .run = [this] { plot(); }}}},
        runMenu(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    refresh();
}

/// Where exact integration would show another figure than the one that is shown.
void BaselineScreen::showSecondFigures() {
    const Regional& regional = session_.regional;
    const auto number = [&](const std::string& text) { return ParseValue(text, regional); };
    const double denominator = number(analysis_.AccRat2);
    Verified verified;
    if (denominator > 0)
        verified = verifyBaseline(number(analysis_.AccRat1) / denominator, number(analysis_.PctInTol2) / 100,
                                  number(analysis_.PctInTol1) / 100, session_.record.FalseAcceptOption);
    const auto showFigure = [&](const std::optional<VerifiedFigure>& figure, const std::string& shown,
                                TextBox& box, Label& line) {
        // A figure of other entries is not judged.
        const bool ofTheseEntries = figure && figureText(shownRisk(figure->published), regional) == shown;
        setRemark(box, line, ofTheseEntries ? exactRemark(figure, baselinePicture, regional) : "");
    };
    showFigure(verified.baselineFalseAccept, analysis_.FalseAccept, BaseFalseAccept, Lbl_ExactAccept);
    showFigure(verified.baselineFalseReject, analysis_.FalseReject, BaseFalseReject, Lbl_ExactReject);
}

void BaselineScreen::refresh() {
    optUserBaseline.checked = !isZ540();
    optZ540Baseline.checked = isZ540();
    for (TextBox* box : {&BaseAccRat1, &BaseAccRat2, &BaselinePctInTol1, &BaselinePctInTol2})
        box->locked = isZ540();
    BaseAccRat1.text = analysis_.AccRat1;
    BaseAccRat2.text = analysis_.AccRat2;
    BaselinePctInTol1.text = analysis_.PctInTol1;
    BaselinePctInTol2.text = analysis_.PctInTol2;
    BaseFalseAccept.text = analysis_.FalseAccept;
    BaseFalseReject.text = analysis_.FalseReject;
    FalseAcceptRiskUnits.text = analysis_.FalseAcceptRiskUnits;
    FalseRejectRiskUnits.text = analysis_.FalseRejectRiskUnits;
    pnl_FAOption.text = analysis_.FAOption;
    showSecondFigures();

    DefAccRat1.text = defaults_.AccRat1;
    DefAccRat2.text = defaults_.AccRat2;
    DefPctInTol1.text = defaults_.PctInTol1;
    DefPctInTol2.text = defaults_.PctInTol2;
    DefFalseAccept.text = defaults_.FalseAccept;
    DefFalseReject.text = defaults_.FalseReject;
    DefFalseAcceptRiskUnits.text = defaults_.FalseAcceptRiskUnits;
    DefFalseRejectRiskUnits.text = defaults_.FalseRejectRiskUnits;
    pnl_DefaultFAOption.text = defaults_.FAOption;
    pnlDefBaselineOption.text = defaults_.BaselineOption;
    pnl_Defaults.visible = Cmd_RetrieveDefaultBaseline.visible = Cmd_SetDefaultBaseline.visible =
        defaultsShown_;
    menus.front().items.front().caption = defaultsShown_ ? hideDefaultsCaption : showDefaultsCaption;
}

double BaselineScreen::valueOf(const std::string& text) const {
    return ParseValue(text, session_.regional);
}

/// A % box has a range; a ratio box takes any figure.
void BaselineScreen::bindBox(TextBox& box, std::string BaselineSide::*text, const Message* outOfRange) {
    box.left = [this, text, outOfRange](const std::string& entry) -> FieldResult {
        std::string& shown = analysis_.*text;
        std::string rewritten =
            FormatNumber(valueOf(entry), outOfRange ? pctPicture : ratioPicture, session_.regional);
        // What counts is the figure as it will be read back.
        const double value = valueOf(rewritten);
        if (outOfRange && !(value > 0 && value < 100)) return refuseEntry(session_.ui, *outOfRange, shown);
        shown = std::move(rewritten);
        return {false, shown};
    };
}

void BaselineScreen::setZ540Figures() {
    const Regional& regional = session_.regional;
    const bool producer = analysis_.FAOption == optionCaption(1);
    analysis_.BaselineOption = "Z540";
    analysis_.AccRat1 = FormatNumber(z540Ratio, "0.00", regional);
    analysis_.AccRat2 = FormatNumber(1, "0.00", regional);
    analysis_.PctInTol2 = FormatNumber(z540Subject, "0.000", regional);
    analysis_.PctInTol1 = FormatNumber(z540Measuring[producer ? 1 : 0], "0.000", regional);
}

void BaselineScreen::chooseZ540() {
    setZ540Figures();
    computeRisks();
}

bool BaselineScreen::validate() {
    struct Check {
        const std::string& text;
        const Message& message;
        const TextBox& box;
    };
    const Check checks[] = {{analysis_.AccRat1, noRatio, BaseAccRat1},
                            {analysis_.AccRat2, noRatio, BaseAccRat2},
                            {analysis_.PctInTol1, noMeasuringPct, BaselinePctInTol1},
                            {analysis_.PctInTol2, noSubjectPct, BaselinePctInTol2}};
    for (const Check& check : checks) {
        if (valueOf(check.text) > 0) continue;
        tell(session_.ui, check.message);
        session_.ui.focus({name, check.box.name}, true);
        return false;
    }
    return true;
}

bool BaselineScreen::computeRisks() {
    if (!validate()) return false;
    ComputeBaselineResults.text = computingCaption;
    session_.ui.refresh(*this);
    const std::optional<Risks> risks =
        ComputeBaselineRisks(session_, {.ratio = valueOf(analysis_.AccRat1) / valueOf(analysis_.AccRat2),
                                        .subjectInTol = valueOf(analysis_.PctInTol2) / 100,
                                        .measuringInTol = valueOf(analysis_.PctInTol1) / 100});
    if (risks) showRisks(risks->falseAccept, risks->falseReject);
    ComputeBaselineResults.text = computeCaption;
    return risks.has_value();
}

void BaselineScreen::showRisks(double falseAccept, double falseReject) {
    const ShownRisk accept = shownRisk(falseAccept);
    const ShownRisk reject = shownRisk(falseReject);
    analysis_.falseAccept = accept.value;
    analysis_.falseReject = reject.value;
    analysis_.FalseAcceptRiskUnits = accept.units;
    analysis_.FalseRejectRiskUnits = reject.units;
    analysis_.FalseAccept = figureText(accept, session_.regional);
    analysis_.FalseReject = figureText(reject, session_.regional);
    session_.record.BaselineComputed = true;
}

void BaselineScreen::changeOption() {
    Analysis& r = session_.record;
    r.AbortFlag = false;
    runScreen(screens::falseAccept, {session_});
    if (r.AbortFlag || !r.RisksNeedCompute) return;
    analysis_.falseAcceptOption = r.FalseAcceptOption;
    analysis_.FAOption = optionCaption(r.FalseAcceptOption);
    computeForOption();
}

/// The figures of that standard go by the option.
bool BaselineScreen::computeForOption() {
    if (isZ540()) setZ540Figures();
    return computeRisks();
}

void BaselineScreen::plot() {
    if (!validate()) return;
    openPlot(analysis_.PctInTol2, analysis_.PctInTol1);
}

void BaselineScreen::setDefault() {
    if (!validate()) return;
    defaults_ = analysis_;
    storeDefault_ = true;
}

void BaselineScreen::retrieveDefault() {
    const int option = analysis_.falseAcceptOption;
    analysis_ = defaults_;
    analysis_.falseAcceptOption = option;
    analysis_.FAOption = optionCaption(option);
    defaultUsed_ = true;
    if (isZ540()) chooseZ540();
}

bool BaselineScreen::changed() const {
    return storeDefault_ || analysis_ != opened_;
}

bool BaselineScreen::mayClose(Way way) {
    if (!changed()) return true;
    switch (way == Way::Ok ? Answer::Yes : ask(session_.ui, retainChanges)) {
    case Answer::Yes: return store();
    case Answer::No: kept_.restore(session_.record); return true;
    default: return false;
    }
}

bool BaselineScreen::store() {
    if (!validate() || !confirmUsedDefault() || !confirmStoredDefault()) return false;
    Analysis& r = session_.record;
    if (defaultUsed_ && defaults_.falseAcceptOption != r.FalseAcceptOption) {
        r.FalseAcceptOption = defaults_.falseAcceptOption;
        r.RisksNeedCompute = true;
        analysis_.falseAcceptOption = defaults_.falseAcceptOption;
        analysis_.FAOption = optionCaption(defaults_.falseAcceptOption);
        // The figures of that standard go by the option.
        if (isZ540()) chooseZ540();
    }
    if (storeDefault_) storeDefault();
    storeAnalysis();
    return true;
}

bool BaselineScreen::confirmUsedDefault() {
    const Analysis& r = session_.record;
    const bool hasRisks = r.FalseAcceptRisk != 0 || r.FalseRejectRisk != 0;
    if (!defaultUsed_ || defaults_.falseAcceptOption == r.FalseAcceptOption || !hasRisks) return true;
    return ask(session_.ui, usedDefault) == Answer::Ok;
}

bool BaselineScreen::confirmStoredDefault() {
    if (!storeDefault_ || defaults_.falseAcceptOption == storedOption_) return true;
    return ask(session_.ui, storedDefault) == Answer::Yes;
}

BaselineDefaults BaselineScreen::figuresOf(const BaselineSide& side) const {
    Baseline b;
    b.Base_AccRatNum = valueOf(side.AccRat1);
    b.Base_AccRatDen = valueOf(side.AccRat2);
    const double target = b.Base_AccRatNum / b.Base_AccRatDen;
    b.Base_EqRatioTarget = std::isfinite(target) ? target : session_.record.Base_EqRatioTarget;
    b.Base_MTEPctInTol = valueOf(side.PctInTol1);
    b.Base_SUPctInTol = valueOf(side.PctInTol2);
    putBaselineRisks(b, {side.falseAccept, side.FalseAcceptRiskUnits},
                     {side.falseReject, side.FalseRejectRiskUnits});
    return {b, side.falseAcceptOption, side.BaselineOption};
}

void BaselineScreen::storeDefault() {
    WriteBaselineDefaults(session_.settings, figuresOf(defaults_), defaults_.falseAcceptOption);
}

void BaselineScreen::storeAnalysis() {
    if (analysis_ == opened_) return;
    Analysis& r = session_.record;
    const bool risksChanged = r.Base_FalseAccept != analysis_.falseAccept ||
                              r.Base_FalseReject != analysis_.falseReject ||
                              r.Base_AcceptUnits != analysis_.FalseAcceptRiskUnits ||
                              r.Base_RejectUnits != analysis_.FalseRejectRiskUnits;
    static_cast<Baseline&>(r) = figuresOf(analysis_).figures;
    r.UserOption = analysis_.BaselineOption;
    r.FileChanged = true;
    if (risksChanged) dropEquivalentRatio(session_.record);
}

} // namespace metrisk
