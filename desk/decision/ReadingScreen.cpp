#include "desk/decision/ReadingScreen.h"

#include "base/ExactText.h"
#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "base/RelativeUnits.h"
#include "desk/decision/RuleForm.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "plots/ReadingStrip.h"
#include "risk/decision/GuardedRisks.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace metrisk {

namespace {

constexpr const char* readingTitle = "Reading";
constexpr Message noNumber{"Please enter the measured value as a number.", readingTitle};
constexpr Message noRuleValue{"Please enter a number.", "Decision Rule"};
constexpr Message noCoverage{
    "Please enter a coverage factor above 0, as in 2, or a percentage below 100, as in 95%.",
    "Coverage Factor"};
constexpr Message notPrinted{"The picture could not be printed.", "Print Picture"};
constexpr const char* noFigure = "These entries lead to no decision.";
constexpr int outcomeCounts[] = {2, 3, 4};
constexpr const char* outcomeNames[] = {"Pass, Fail", "Pass, Undecided, Fail",
                                        "Pass, Conditional pass, Conditional fail, Fail"};

/// A word alone could be overlooked, a colour not seen.
std::string signOf(Verdict verdict) {
    if (passes(verdict)) return "\u2713 ";
    return fails(verdict) ? "\u2717 " : "? ";
}

/// What the rule does to all units; none without a fit, and where nothing passes.
std::optional<GuardedRisks> acceptedRisks(const Judge& judge) {
    const DecisionBasis& basis = judge.basis();
    if (!basis.fit || !judge.acceptance()) return {};
    return guardedRisks(*basis.fit, basis.sigma, *judge.acceptance());
}

std::string reasonOf(const DecisionBasis& basis, const Decision& decision) {
    if (decision.verdict == Verdict::NoDecision) return "the uncertainty is too large for this rule";
    const Interval tolerance = basis.tolerance();
    const bool inside = decision.deviation >= tolerance.lower && decision.deviation <= tolerance.upper;
    const std::string where = inside ? "inside the tolerance" : "outside the tolerance";
    return passes(decision.verdict) == inside ? where : where + ", by the rule";
}

bool hasMiddle(RuleKind kind) {
    return kind == RuleKind::Guard || kind == RuleKind::Conformance;
}

std::string numberText(double value, bool percent, const Regional& regional) {
    return GeneralText(percent ? 100 * value : value, regional);
}

} // namespace

ReadingScreen::ReadingScreen(Session& session, ReadingHistory* history)
    : Worksheet("Reading", "Decision on a Reading", "reading"), session_(session),
      history_(history ? *history : own_), request_(readRule(session.settings)) {
    for (const RuleOffer& offer : ruleOffers) cbo_Rule.items.emplace_back(offer.name);
    for (const char* each : outcomeNames) cbo_Outcomes.items.emplace_back(each);
    units_ = {{session.record.NominalUnits, 1}};
    Lbl_Verdict.emphasised = true;
    cmd_Close.isPrimary = true;
    tbl_History.headings = {"Time", "Parameter", "Reading", "Rule", "Verdict", "Probability"};
    tbl_History.figureColumns = {2, 5};
    tbl_History.whenEmpty = "No readings since the start";
    tbl_History.numbered = false;
    bindEntries();
    bindRule();
    cmd_Close.closes = Way::Cancel;
    cmd_CopySentence.clicked = [this](bool) { session_.ui.copyText(judgement_->sentence); };
    cmd_CopyHistory.clicked = [this](bool) {
        CellBlock cells{tbl_History.headings};
        for (const auto& row : tbl_History.rows) {
            auto& line = cells.emplace_back();
            for (const Table::Cell& cell : row) line.push_back(cell.text);
        }
        session_.ui.copyText(writeCells(cells));
    };
    menus = {
        {.control = "mnu_Exit", .caption = "&Close", .run = [this] { close(Way::Cancel); }},
        {.control = "mnu_CopyStrip",
         .caption = "Copy P&icture",
         .run = [this] { session_.ui.copyPicture(pic_Strip); },
         .shortcut = "Ctrl+Shift+C"},
        {.control = "mnu_PrintStrip",
         .caption = "&Print Picture",
         .run =
             [this] {
                 if (!session_.ui.print(pic_Strip, caption)) tell(session_.ui, notPrinted);
             },
         .shortcut = "Ctrl+P"},
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    setRule(request_);
    refresh();
}

/// The units of the area are in a file.
void ReadingScreen::begin() {
    units_.clear();
    for (OfferedUnit& unit : observingUnits(session_))
        if (unit.name != ppmUnits && unit.name != "%") units_.push_back(std::move(unit));
    if (units_.empty()) units_ = {{session_.record.NominalUnits, 1}};
    refresh();
}

double ReadingScreen::unitFactor() const {
    return units_.at(static_cast<std::size_t>(std::max(cbo_Units.index, 0))).factor;
}

void ReadingScreen::bindEntries() {
    txt_Reading.edited = [this](const std::string& text) {
        typed_ = text;
        judge();
        session_.ui.refresh(*this);
    };
    txt_Reading.left = [this](const std::string& text) -> FieldResult {
        typed_ = text;
        judge();
        if (!isNumeric(text, session_.regional)) return refuseEntry(session_.ui, noNumber, text);
        enter();
        return {false, text};
    };
    // The next one can be typed at once.
    txt_Reading.returned = [this] { session_.ui.focus({name, "txt_Reading"}, true); };
    cbo_Units.chosen = [this](int index) {
        cbo_Units.index = index;
        judge();
    };
}

void ReadingScreen::bindRule() {
    cbo_Rule.chosen = [this](int index) {
        const RuleOffer& offer = ruleOffers.at(static_cast<std::size_t>(index));
        DecisionRequest changed = request_;
        changed.rule = {.kind = offer.kind, .value = offer.usual};
        if (offer.kind == RuleKind::LargestU && judge_) changed.rule.value = judge_->basis().sigma;
        changeRule(changed);
    };
    txt_RuleValue.left = [this](const std::string& text) -> FieldResult {
        const bool percent = offerOf(request_.rule.kind).percent;
        DecisionRequest changed = request_;
        changed.rule.value = ParseValue(text, session_.regional) / (percent ? 100 : 1);
        const auto refused = refusedRule(changed.rule);
        if (!isNumeric(text, session_.regional) || refused) {
            const std::string why = refused ? refused->text : std::string(noRuleValue.text);
            return refuseEntry(session_.ui, {why, noRuleValue.title},
                               numberText(request_.rule.value, percent, session_.regional));
        }
        changeRule(changed);
        return {false, text};
    };
    cbo_Outcomes.chosen = [this](int index) {
        DecisionRequest changed = request_;
        changed.rule.outcomes = outcomeCounts[index];
        if (index == 0) changed.rule.reject.reset();
        if (const auto refused = refusedRule(changed.rule)) {
            tell(session_.ui, {refused->text, noRuleValue.title});
            return;
        }
        changeRule(changed);
    };
    txt_Reject.left = [this](const std::string& text) -> FieldResult {
        DecisionRequest changed = request_;
        changed.rule.reject.reset();
        if (!text.empty()) changed.rule.reject = ParseValue(text, session_.regional);
        const auto refused = refusedRule(changed.rule);
        if (refused) return refuseEntry(session_.ui, {refused->text, noRuleValue.title}, txt_Reject.text);
        changeRule(changed);
        return {false, text};
    };
    txt_Coverage.left = [this](const std::string& text) -> FieldResult {
        const auto choice = text.empty() ? CoverageChoice{} : coverageChoiceOf(text);
        if (!choice || !coverageFactor(*choice, 0))
            return refuseEntry(session_.ui, noCoverage, coverageText(request_.coverage));
        DecisionRequest changed = request_;
        changed.coverage = *choice;
        changeRule(changed);
        return {false, text};
    };
    chk_Prior.clicked = [this](bool on) {
        DecisionRequest changed = request_;
        changed.withPrior = on;
        changeRule(changed);
    };
}

/// What all readings are judged by.
void ReadingScreen::setRule(const DecisionRequest& request) {
    request_ = request;
    const auto found = judgeOf(session_.record, session_.regional, request_);
    judge_.reset();
    if (found)
        judge_ = *found;
    else
        refusal_ = found.refusal().told() ? found.refusal().text : noFigure;
    judge();
}

void ReadingScreen::changeRule(const DecisionRequest& request) {
    setRule(request);
    writeRule(session_.settings, request_);
}

void ReadingScreen::judge() {
    judgement_.reset();
    if (!judge_ || !isNumeric(typed_, session_.regional)) return;
    request_.reading = ParseValue(typed_, session_.regional) / unitFactor();
    if (const auto judged = judge_->judge(request_.reading)) judgement_ = *judged;
}

/// A reading that has been typed to its end.
void ReadingScreen::enter() {
    if (!judgement_) return;
    const Moment now = session_.clock.now();
    history_.readings.insert(
        history_.readings.begin(),
        PastReading{FormatNumber(now.time, "h:mm AM/PM", session_.regional), session_.record.SU_ParameterName,
                    judge_->texts().reading(request_.reading), textOf(request_.rule),
                    std::string(textOf(judgement_->decision.verdict)), judgement_->conformance});
    history_.last = request_;
    if (decided) decided(request_);
}

void ReadingScreen::refresh() {
    cbo_Units.items.clear();
    for (const OfferedUnit& unit : units_) cbo_Units.items.push_back(unit.name);
    cbo_Units.index = std::clamp(cbo_Units.index, 0, static_cast<int>(units_.size()) - 1);
    txt_Reading.text = typed_;
    showRule();
    clear();
    if (judgement_) showVerdict();
    showHistory();
}

void ReadingScreen::showRule() {
    const DecisionRule& rule = request_.rule;
    const RuleOffer& offer = offerOf(rule.kind);
    cbo_Rule.index = static_cast<int>(&offer - ruleOffers.data());
    Lbl_RuleValue.text = offer.value ? offer.value : "Parameter";
    Lbl_RuleValue.enabled = txt_RuleValue.enabled = offer.value != nullptr;
    txt_RuleValue.text = offer.value ? numberText(rule.value, offer.percent, session_.regional) : "";
    cbo_Outcomes.index = rule.outcomeCount() - 2;
    Lbl_Outcomes.enabled = cbo_Outcomes.enabled = hasMiddle(rule.kind);
    Lbl_Reject.enabled = txt_Reject.enabled = rule.kind == RuleKind::Guard && rule.outcomeCount() > 2;
    txt_Reject.text = rule.reject ? GeneralText(*rule.reject, session_.regional) : "";
    txt_Coverage.text = coverageText(request_.coverage);
    chk_Prior.checked = request_.withPrior;
}

/// What is shown without a verdict: the limits, if there are any, and why there is none.
void ReadingScreen::clear() {
    Lbl_Verdict.text = judge_ ? "-" : "No decision";
    Lbl_Verdict.tone = Label::Tone::Plain;
    Lbl_Why.text = judge_ ? "Enter a measured value" : refusal_;
    for (TextBox* box : {&box_Conforming, &box_Nonconforming, &box_FalseAccept, &box_Tolerance,
                         &box_Acceptance, &box_Uncertainty})
        box->text.clear();
    Lbl_Sentence.text.clear();
    cmd_CopySentence.allow(false, "There is no verdict yet");
    pic_Strip.text = "No reading";
    pic_Strip.draw({});
    if (!judge_) return;
    const DecisionBasis& basis = judge_->basis();
    const DecisionTexts& texts = judge_->texts();
    box_Tolerance.text = limitsText(basis, basis.tolerance(), texts);
    box_Acceptance.text = judge_->acceptance() ? limitsText(basis, *judge_->acceptance(), texts) : "none";
    if (const auto risks = acceptedRisks(*judge_))
        box_FalseAccept.text = shownPercent({risks->consumer, 1 - risks->consumer}, {}, session_.regional);
    box_Uncertainty.text = "u = " + texts.width(basis.sigma) + ", U = " + texts.width(basis.expanded()) +
                           " (k = " + GeneralText(basis.coverage, session_.regional, 4) + ")";
    box_Uncertainty.toolTip = basis.withProcess
                                  ? "With the process uncertainty of the analysis"
                                  : "Of the measuring parameter alone, without process uncertainty";
}

void ReadingScreen::showVerdict() {
    const Decision& decision = judgement_->decision;
    const Conformance& p = decision.conformance;
    Lbl_Verdict.text = signOf(decision.verdict) + std::string(textOf(decision.verdict));
    Lbl_Verdict.tone = passes(decision.verdict)  ? Label::Tone::Good
                       : fails(decision.verdict) ? Label::Tone::Bad
                                                 : Label::Tone::Warn;
    Lbl_Why.text = reasonOf(judge_->basis(), decision);
    box_Conforming.text = judgement_->conformance;
    box_Nonconforming.text = p.nonconforming > 0
                                 ? shownPercent({p.nonconforming, p.conforming}, {}, session_.regional)
                                 : std::string("0 %");
    Lbl_Sentence.text = judgement_->sentence;
    for (const std::string& note : judge_->notes()) Lbl_Sentence.text += "\n" + note;
    if (!judgement_->note.empty()) Lbl_Sentence.text += "\n" + judgement_->note;
    cmd_CopySentence.enabled = true;
    const auto strip =
        std::make_shared<const ReadingStrip>(readingStrip(*judge_, request_.reading, *judgement_));
    pic_Strip.text = strip->reading.text + ", " + strip->in + ", " + strip->out;
    pic_Strip.draw([strip](DrawingSurface& surface) { DrawReadingStrip(surface, *strip); });
}

void ReadingScreen::showHistory() {
    tbl_History.rows.clear();
    for (const PastReading& each : history_.readings) {
        auto& row = tbl_History.rows.emplace_back();
        for (const std::string* text :
             {&each.time, &each.parameter, &each.reading, &each.rule, &each.verdict, &each.conformance})
            row.push_back({.text = *text, .locked = true});
    }
    cmd_CopyHistory.allow(!history_.readings.empty(), "No readings since the start");
}

} // namespace metrisk
