#include "risk/BaselineScreen.h"

#include "model/NumberText.h"
#include "model/RiskText.h"
#include "model/Session.h"
#include "persistence/BaselineDefaults.h"
#include "risk/BaselineRisks.h"
#include "risk/EqRatioScreen.h"

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
constexpr const char* boxNames[] = {"BaseAccRat1", "BaseAccRat2", "BaselinePctInTol1", "BaselinePctInTol2"};

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
    : session_(session), kept_(session.record), storedOption_(ReadFalseAcceptConvention(session.settings)) {
    const Analysis& r = session.record;
    analysis = sideOf(r, r.FalseAcceptOption, r.UserOption, session.regional);
    const BaselineDefaults stored = ReadBaselineDefaults(session.settings, r.Base_EqRatioTarget);
    defaults = sideOf(stored.figures, stored.FalseAcceptOption, stored.UserOption, session.regional);
    opened_ = analysis;
}

double BaselineScreen::valueOf(const std::string& text) const {
    return ParseValue(text, session_.regional);
}

std::string& BaselineScreen::textOf(BaselineBox box) {
    switch (box) {
    case BaselineBox::BaseAccRat1: return analysis.AccRat1;
    case BaselineBox::BaseAccRat2: return analysis.AccRat2;
    case BaselineBox::BaselinePctInTol1: return analysis.PctInTol1;
    default: return analysis.PctInTol2;
    }
}

FieldResult BaselineScreen::lostFocus(BaselineBox box, const std::string& text) {
    std::string& shown = textOf(box);
    if (boxesLocked() || text == shown) return {false, shown};
    const bool isRatio = box == BaselineBox::BaseAccRat1 || box == BaselineBox::BaseAccRat2;
    std::string rewritten =
        FormatNumber(valueOf(text), isRatio ? ratioPicture : pctPicture, session_.regional);
    // What counts is the figure as it will be read back.
    const double value = valueOf(rewritten);
    if (!isRatio && !(value > 0 && value < 100)) {
        const bool measuring = box == BaselineBox::BaselinePctInTol1;
        return refuseEntry(session_.ui, measuring ? measuringPctRange : subjectPctRange, text);
    }
    shown = std::move(rewritten);
    return {false, shown};
}

void BaselineScreen::defaultKeyPressed() {
    tell(session_.ui, defaultKey);
}

void BaselineScreen::setZ540Figures() {
    const Regional& regional = session_.regional;
    const bool producer = analysis.FAOption == optionCaption(1);
    analysis.BaselineOption = "Z540";
    analysis.AccRat1 = FormatNumber(z540Ratio, "0.00", regional);
    analysis.AccRat2 = FormatNumber(1, "0.00", regional);
    analysis.PctInTol2 = FormatNumber(z540Subject, "0.000", regional);
    analysis.PctInTol1 = FormatNumber(z540Measuring[producer ? 1 : 0], "0.000", regional);
}

void BaselineScreen::chooseZ540() {
    setZ540Figures();
    ComputeBaselineResults();
}

void BaselineScreen::chooseUser() {
    analysis.BaselineOption = "User";
    repaint();
}

bool BaselineScreen::validate() {
    for (const BaselineBox box : {BaselineBox::BaseAccRat1, BaselineBox::BaseAccRat2,
                                  BaselineBox::BaselinePctInTol1, BaselineBox::BaselinePctInTol2}) {
        if (valueOf(textOf(box)) > 0) continue;
        tell(session_.ui, box == BaselineBox::BaselinePctInTol1   ? noMeasuringPct
                          : box == BaselineBox::BaselinePctInTol2 ? noSubjectPct
                                                                  : noRatio);
        session_.ui.focus(boxNames[static_cast<int>(box)], true);
        return false;
    }
    return true;
}

bool BaselineScreen::ComputeBaselineResults() {
    if (!validate()) {
        repaint();
        return false;
    }
    ComputeBaselineResultsCaption = computingCaption;
    repaint();
    const std::optional<Risks> risks =
        ComputeBaselineRisks(session_, {.ratio = valueOf(analysis.AccRat1) / valueOf(analysis.AccRat2),
                                        .subjectInTol = valueOf(analysis.PctInTol2) / 100,
                                        .measuringInTol = valueOf(analysis.PctInTol1) / 100});
    if (risks) showRisks(risks->falseAccept, risks->falseReject);
    ComputeBaselineResultsCaption = computeCaption;
    repaint();
    return risks.has_value();
}

void BaselineScreen::showRisks(double falseAccept, double falseReject) {
    const ShownRisk accept = shownRisk(falseAccept);
    const ShownRisk reject = shownRisk(falseReject);
    analysis.falseAccept = accept.value;
    analysis.falseReject = reject.value;
    analysis.FalseAcceptRiskUnits = accept.units;
    analysis.FalseRejectRiskUnits = reject.units;
    analysis.FalseAccept = figureText(accept, session_.regional);
    analysis.FalseReject = figureText(reject, session_.regional);
    session_.record.BaselineComputed = true;
}

void BaselineScreen::cmd_FAOption(const RunFalseAcceptScreen& run) {
    Analysis& r = session_.record;
    r.AbortFlag = false;
    FalseAcceptScreen screen(session_);
    run(screen);
    if (r.AbortFlag || !r.RisksNeedCompute) return;
    analysis.falseAcceptOption = r.FalseAcceptOption;
    analysis.FAOption = optionCaption(r.FalseAcceptOption);
    if (optZ540Baseline()) setZ540Figures();
    ComputeBaselineResults();
}

void BaselineScreen::Cmd_SetDefaultBaseline() {
    if (!validate()) return;
    defaults = analysis;
    storeDefault_ = true;
    repaint();
}

void BaselineScreen::Cmd_RetrieveDefaultBaseline() {
    const int option = analysis.falseAcceptOption;
    analysis = defaults;
    analysis.falseAcceptOption = option;
    analysis.FAOption = optionCaption(option);
    defaultUsed_ = true;
    if (optZ540Baseline())
        chooseZ540();
    else
        repaint();
}

void BaselineScreen::mnu_ShowDefaults() {
    defaultsShown = !defaultsShown;
    repaint();
}

bool BaselineScreen::changed() const {
    return storeDefault_ || analysis != opened_;
}

bool BaselineScreen::mnu_Exit() {
    if (!changed()) return true;
    switch (ask(session_.ui, retainChanges)) {
    case Answer::Yes: return cmd_OK();
    case Answer::No: kept_.restore(session_.record); return true;
    default: return false;
    }
}

bool BaselineScreen::cmd_OK() {
    if (!changed()) return true;
    if (!validate() || !confirmUsedDefault() || !confirmStoredDefault()) return false;
    if (defaultUsed_ && defaults.falseAcceptOption != session_.record.FalseAcceptOption) {
        session_.record.FalseAcceptOption = defaults.falseAcceptOption;
        session_.record.RisksNeedCompute = true;
        analysis.falseAcceptOption = defaults.falseAcceptOption;
        analysis.FAOption = optionCaption(defaults.falseAcceptOption);
        // The figures of that standard go by the option.
        if (optZ540Baseline()) chooseZ540();
    }
    if (storeDefault_) storeDefault();
    storeAnalysis();
    return true;
}

bool BaselineScreen::confirmUsedDefault() {
    const Analysis& r = session_.record;
    const bool hasRisks = r.FalseAcceptRisk != 0 || r.FalseRejectRisk != 0;
    if (!defaultUsed_ || defaults.falseAcceptOption == r.FalseAcceptOption || !hasRisks) return true;
    return ask(session_.ui, usedDefault) == Answer::Ok;
}

bool BaselineScreen::confirmStoredDefault() {
    if (!storeDefault_ || defaults.falseAcceptOption == storedOption_) return true;
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
    b.Base_FalseAccept = side.falseAccept;
    b.Base_AcceptUnits = side.FalseAcceptRiskUnits;
    b.Base_Accept_fmt = baselinePicture(side.FalseAcceptRiskUnits);
    b.Base_FalseReject = side.falseReject;
    b.Base_RejectUnits = side.FalseRejectRiskUnits;
    b.Base_Reject_fmt = baselinePicture(side.FalseRejectRiskUnits);
    return {b, side.falseAcceptOption, side.BaselineOption};
}

void BaselineScreen::storeDefault() {
    WriteFalseAcceptConvention(session_.settings, defaults.falseAcceptOption);
    WriteBaselineDefaults(session_.settings, figuresOf(defaults));
}

void BaselineScreen::storeAnalysis() {
    if (analysis == opened_) return;
    Analysis& r = session_.record;
    const bool risksChanged = r.Base_FalseAccept != analysis.falseAccept ||
                              r.Base_FalseReject != analysis.falseReject ||
                              r.Base_AcceptUnits != analysis.FalseAcceptRiskUnits ||
                              r.Base_RejectUnits != analysis.FalseRejectRiskUnits;
    static_cast<Baseline&>(r) = figuresOf(analysis).figures;
    r.UserOption = analysis.BaselineOption;
    r.FileChanged = true;
    if (risksChanged) dropEquivalentRatio(session_);
}

} // namespace metrisk
