#include "shell/mainscreen/MainScreen.h"

#include "model/FlagGuard.h"
#include "model/Session.h"
#include "model/SubjectSide.h"
#include "numerics/Real.h"
#include "risk/Snapshot.h"
#include "shell/mainscreen/FieldRules.h"
#include "shell/mainscreen/MainDisplay.h"

#include <algorithm>

namespace metrisk {

namespace {

using Rule = FieldResult (*)(Session&, const std::string& text, const std::string& last);

struct BoxRule {
    std::string_view box;
    Rule rule;
    bool asksAgain = false; // a key in it takes back what the user has acknowledged
};

const BoxRule boxRules[] = {
    {"ModeBox", commitMode, true},
    {"UpperLimitBox",
     [](Session& s, const std::string& text, const std::string& last) {
         return commitLimit(s, upperSide, text, last);
     },
     true},
    {"LowerLimitBox",
     [](Session& s, const std::string& text, const std::string& last) {
         return commitLimit(s, lowerSide, text, last);
     },
     true},
    {"PctInTolBox",
     [](Session& s, const std::string& text, const std::string&) { return commitPctInTol(s, text); }, true},
    {"MTEPctInTolBox",
     [](Session& s, const std::string& text, const std::string&) { return commitMTEPctInTol(s, text); }},
    {"MTEOffsetBox", [](Session& s, const std::string& text,
                        const std::string&) { return commitMeasuring(s, MeasuringBox::Offset, text); }},
    {"MTEFixedOffsetBox", [](Session& s, const std::string& text,
                             const std::string&) { return commitMeasuring(s, MeasuringBox::Fixed, text); }},
    {"MTEPctOfReadingBox",
     [](Session& s, const std::string& text, const std::string&) {
         return commitMeasuring(s, MeasuringBox::PctOfReading, text);
     }},
};

const BoxRule* ruleOf(std::string_view box) {
    const auto* found = std::find_if(std::begin(boxRules), std::end(boxRules),
                                     [&](const BoxRule& rule) { return rule.box == box; });
    return found == std::end(boxRules) ? nullptr : found;
}

} // namespace

MainScreen::MainScreen(Session& session) : session_(session), saved_(session.record) {}

void MainScreen::gotFocus(std::string_view box, std::string text) {
    lastTexts_.insert_or_assign(std::string(box), std::move(text));
}

void MainScreen::keyPressed(std::string_view box) {
    const BoxRule* rule = ruleOf(box);
    if (!rule || !rule->asksAgain) return;
    Analysis& r = session_.record;
    r.Ack100Pct = r.AckPhysLimitLow = r.AckPhysLimitHigh = false;
}

void MainScreen::edited(std::string_view box, const std::string& text) {
    commitText(session_, box, text);
}

std::optional<std::string> MainScreen::lastText(std::string_view box) const {
    const auto found = lastTexts_.find(box);
    if (found == lastTexts_.end()) return std::nullopt;
    return found->second;
}

void MainScreen::forgetLastTexts() {
    lastTexts_.clear();
}

FieldResult MainScreen::lostFocus(std::string_view box, const std::string& text) noexcept {
    const std::optional<std::string> last = lastText(box);
    if (last == text) return {false, text};
    if (commitText(session_, box, text)) return {false, entryText(text)};
    const BoxRule* rule = ruleOf(box);
    // A message of the rule at work takes the focus from whatever has it.
    if (!rule || session_.record.EntryBoxChanged) return {false, text};

    const Analysis before = session_.record;
    const FlagGuard entering(session_.record.EntryBoxChanged);
    session_.record.AbortFlag = false;
    FieldResult result;
    try {
        result = rule->rule(session_, text, last.value_or(""));
    } catch (const RuntimeFault&) {
        session_.record = before;
        result = {true, last.value_or("")};
    }
    if (result.stay) {
        session_.record.AbortFlag = true;
        return result;
    }
    const ScreenState screen = mainDisplay(session_, guardbandsAsLimits);
    result.text = screen.at(std::string(box)).text.value_or(result.text);
    lastTexts_.insert_or_assign(std::string(box), result.text);
    return result;
}

void MainScreen::TakeSavedCopy() {
    saved_ = SavedCopy(session_.record);
}

void MainScreen::DetectChanges() {
    if (saved_.differs(session_.record)) session_.record.FileChanged = true;
}

void RefreshMainScreen(Session& session) {
    Analysis& r = session.record;
    r.MTE_Mode = r.SU_Mode;
    session.ui.repaintMainScreen();
    CompareWithSnapshot(session);
    r.SymmetryChanged = false;
    if (r.FirstDisplay) {
        r.FirstDisplay = false;
        r.LoadInProgress = false;
    }
}

} // namespace metrisk
