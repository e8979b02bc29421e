#include "desk/reliability/ReliabilityScreen.h"

#include "base/NumberText.h"
#include "desk/compute/Reliability.h"
#include "desk/files/Notes.h"
#include "desk/kit/Check.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "reliability/ReliabilityTexts.h"
#include "reliability/TimeUnits.h"

#include <algorithm>
#include <utility>

namespace metrisk {

namespace {

constexpr const char* screenName = "ReliabilityModelCoefficients";
constexpr const char* missingData = "Missing Data";
constexpr const char* saveChanges = "Save Changes?";
constexpr Question keepSubject{
    "Do you want to implement changes made to the subject parameter reliability model?", saveChanges,
    BoxButtons::YesNoCancel, Answer::Cancel};
constexpr Question keepMeasuring{
    "Do you want to implement changes made to the measuring parameter reliability model?", saveChanges,
    BoxButtons::YesNoCancel, Answer::Cancel};

std::size_t active(const Analysis& r) {
    return r.Rel_ActiveSlot == measuringSlot ? 1 : 0;
}

const ReliabilityModel* model(const Analysis& r) {
    return reliabilityModel(r.Rel_Model[active(r)]);
}

bool aopIsMissing(const Analysis& r) {
    return model(r)->needsAOP && r.Rel_AOP[active(r)] <= 0;
}

/// The first three are those of coefficients, all those of percentages.
constexpr std::size_t coefficientChecks = 3;
constexpr Check checks[] = {
    {[](const Analysis& r) { return !model(r); },
     {"Please specify a Reliability Model.", missingData},
     "cbo_RModels"},
    {[](const Analysis& r) { return !(r.Rel_Interval[active(r)] > 0); },
     {"Please specify a Calibration Interval.", missingData},
     "CalibrationIntervalBox"},
    {[](const Analysis& r) { return r.Rel_IntervalUnits[active(r)].empty(); },
     {"Please select the Calibration Interval units.", missingData},
     "IntervalUnitsBox"},
    {[](const Analysis& r) { return r.Rel_BOP[active(r)] < r.Rel_EOP[active(r)]; },
     {"Can't have End-of-Period reliability higher than Beginning-of-Period reliability.", missingData},
     "BOPBox"},
    {[](const Analysis& r) { return !model(r)->needsAOP && r.Rel_BOP[active(r)] <= 0; },
     {"Please input a Beginning of Period % in-tolerance", missingData},
     "BOPBox"},
    {[](const Analysis& r) { return !model(r)->needsAOP && r.Rel_EOP[active(r)] <= 0; },
     {"Please input an End of Period % in-tolerance", missingData},
     "EOPBox"},
    {aopIsMissing, {"Please input an Average over Period % in-tolerance", missingData}, "AOPBox"},
};

constexpr Question whichToCompute{.text = "Compute from the percents or from the coefficients?",
                                  .title = "Reliability Model Worksheet",
                                  .buttons = BoxButtons::YesNoCancel,
                                  .unattended = Answer::Cancel,
                                  .yesCaption = "Percents",
                                  .noCaption = "Coefficients"};

} // namespace

ReliabilityScreen::ReliabilityScreen(Session& session)
    : Worksheet(screenName, "Reliability Model Worksheet", "reliability"), session_(session),
      opened_(session.record) {
    for (const ReliabilityModel& each : reliabilityModels) cbo_RModels.items.emplace_back(each.name);
    for (const std::string_view unit : timeUnits) IntervalUnitsBox.items.emplace_back(unit);
    bind();
    load(slotNumber());
    refresh();
}

void ReliabilityScreen::bind() {
    for (Entry& entry : entries_) {
        entry.box.edited = [&entry](const std::string& text) { entry.typed = text; };
        entry.box.left = [](const std::string& text) -> FieldResult { return {false, text}; };
    }
    optParameter_0.clicked = [this](bool) { switchTo(subjectSlot); };
    optParameter_1.clicked = [this](bool) { switchTo(measuringSlot); };
    cbo_RModels.chosen = [this](int index) { chooseModel(index); };
    IntervalUnitsBox.chosen = [this](int index) {
        slot().units() = timeUnits.at(static_cast<std::size_t>(index));
    };
    Compute.clicked = [this](bool) { compute(); };
    cmdComputePct.clicked = [this](bool) { computePct(); };
    TextBox* const plotBoxes[] = {&txt_RPlotData_0, &txt_RPlotData_1, &txt_RPlotData_2};
    for (int i = 0; i < 3; ++i)
        plotBoxes[i]->left = [this, i](const std::string& text) { return leavePlotBox(i, text); };
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_0.isDefault = true;
    Compute.isPrimary = true;
    mnu_Exit_1.closes = Way::Cancel;
    menus = {
        runMenu(session_),
        notesItem(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
}

Analysis& ReliabilityScreen::record() const {
    return session_.record;
}

int ReliabilityScreen::slotNumber() const {
    return static_cast<int>(active(record()));
}

/// Shows the slot. Its coefficients stand; without any they are computed if the data allow it.
void ReliabilityScreen::load(int number) {
    record().Rel_ActiveSlot = number;
    forgetTyped();
    typedBop_.reset();
    if (const ReliabilityModel* loaded = slot().model(); loaded && loaded->takesBOP && slot().bop() > 0)
        typedBop_ = NumberEntry::read(reliabilityText(slot().bop(), slot().bopPicture(), session_.regional),
                                      session_.regional);
    caption = number == subjectSlot ? "Subject Parameter Reliability Model Worksheet"
                                    : "Measuring Parameter Reliability Model Worksheet";
    clearCurve();
    const ReliabilityModel* chosen = slot().model();
    if (chosen) slot().setModel(*chosen);
    if (chosen && !slot().theta().allZero())
        startPlot();
    else if (slot().dataComplete())
        compute();
    kept_ = record();
}

void ReliabilityScreen::switchTo(int number) {
    if (number == slotNumber()) return;
    if (changed()) {
        const Answer answer = ask(session_.ui, number == measuringSlot ? keepSubject : keepMeasuring);
        if (answer == Answer::Cancel || (answer == Answer::Yes && !commit())) return;
        static_cast<Reliability&>(record()) = kept_;
    }
    load(number);
}

void ReliabilityScreen::chooseModel(int index) {
    takeInterval();
    takePercentages();
    const ReliabilityModel* before = slot().model();
    const ReliabilityModel& chosen = reliabilityModels.at(static_cast<std::size_t>(index));
    slot().setModel(chosen);
    if (before && !before->takesBOP && chosen.takesBOP && typedBop_) {
        slot().bop() = typedBop_->value / 100;
        slot().bopPicture() = typedBop_->picture();
    }
    slot().setTheta({});
    forgetTyped();
    clearCurve();
    if (slot().dataComplete()) compute();
}

void ReliabilityScreen::takeInterval() {
    std::optional<std::string>& typed = entries_[Interval].typed;
    if (!typed) return;
    const NumberEntry entry = NumberEntry::read(*typed, session_.regional);
    slot().interval() = entry.value;
    slot().intervalPicture() = entry.picture();
    typed.reset();
}

void ReliabilityScreen::takePercentages() {
    const auto take = [this](Figure figure, double& fraction, std::string& picture) {
        std::optional<std::string>& typed = entries_[figure].typed;
        if (!typed) return;
        const NumberEntry entry = NumberEntry::read(*typed, session_.regional);
        fraction = entry.value / 100;
        picture = entry.picture();
        typed.reset();
    };
    if (entries_[Bop].typed) typedBop_ = NumberEntry::read(*entries_[Bop].typed, session_.regional);
    take(Bop, slot().bop(), slot().bopPicture());
    take(Aop, slot().aop(), slot().aopPicture());
    take(Eop, slot().eop(), slot().eopPicture());
    const ReliabilityModel* chosen = slot().model();
    if (chosen && !chosen->takesBOP) slot().bop() = 1;
}

void ReliabilityScreen::takeCoefficients() {
    Coefficients theta = slot().theta();
    double* const values[] = {&theta.a, &theta.b, &theta.c};
    for (int i = 0; i < 3; ++i) {
        std::optional<std::string>& typed =
            entries_[static_cast<std::size_t>(A) + static_cast<std::size_t>(i)].typed;
        if (typed) *values[i] = ParseValue(*typed, session_.regional);
        typed.reset();
    }
    if (!slot().model()->hasC) theta.c = 0;
    slot().setTheta(theta);
}

void ReliabilityScreen::forgetTyped() {
    pctRefused_ = false;
    for (Entry& entry : entries_) entry.typed.reset();
}

bool ReliabilityScreen::hasTyped(Figure first, Figure last) const {
    return std::any_of(entries_.begin() + first, entries_.begin() + last + 1,
                       [](const Entry& entry) { return entry.typed.has_value(); });
}

bool ReliabilityScreen::changed() const {
    return hasTyped(Interval, C) || !(kept_ == record());
}

bool ReliabilityScreen::allThere(std::size_t count) {
    const Check* broken = firstBroken(std::span(checks).first(count), record());
    if (!broken) return true;
    tell(session_.ui, broken->message);
    session_.ui.focus({screenName, broken->box});
    return false;
}

/// True if there is a curve, questionable or not.
bool ReliabilityScreen::compute() {
    takeInterval();
    takePercentages();
    if (!allThere(std::size(checks))) return false;
    const WaitPointer wait(session_.ui);
    const ReliabilityModel& chosen = *slot().model();
    if (!chosen.needsAOP) slot().aop() = 0;
    Coefficients theta;
    PeriodReliability period = slot().period();
    const SolveStatus status =
        SolveReliabilityCoefficients(session_, chosen.number, period, slot().interval(), theta);
    record().AbortFlag = false;
    slot().setTheta(theta);
    forgetTyped();
    const bool curve = status == SolveStatus::Computed || !theta.allZero();
    if (!curve) {
        clearCurve();
        return false;
    }
    slot().setPeriod(period);
    startPlot();
    return true;
}

bool ReliabilityScreen::computePct() {
    takeInterval();
    if (!allThere(coefficientChecks)) return false;
    takeCoefficients();
    forgetTyped();
    const auto period =
        ReliabilityOverPeriod(session_, slot().model()->number, slot().theta(), slot().interval());
    record().AbortFlag = false;
    // The percents of other coefficients would be taken for those of these.
    pctRefused_ = !period;
    slot().setPeriod(period.value_or(PeriodReliability{0, 0, 0}));
    if (!period) {
        clearCurve();
        return false;
    }
    startPlot();
    return true;
}

/// Before the slot is committed. Coefficients alone mean percentages, percentages alone mean coefficients.
bool ReliabilityScreen::computeWhatWasTyped() {
    if (pctRefused_ && !hasTyped(Bop, Eop)) return computePct(); // OK says why it is kept back
    if (!hasTyped(Interval, C)) return true;
    if (!hasTyped(A, C)) return compute();
    if (!hasTyped(Bop, Eop)) return computePct();
    switch (ask(session_.ui, whichToCompute)) {
    case Answer::Yes: return compute();
    case Answer::No: return computePct();
    default: return false;
    }
}

bool ReliabilityScreen::commit() {
    if (!computeWhatWasTyped()) return false;
    if (!CommitReliability(session_, slotNumber())) {
        session_.ui.focus({screenName, "EOPBox"}); // not a box of the screen behind
        return false;
    }
    kept_ = record();
    committed_ = true;
    record().FileChanged = true;
    return true;
}

bool ReliabilityScreen::mayClose(Way way) {
    if (way == Way::Ok) return commit();
    if (changed() || committed_) {
        const Answer answer = ask(session_.ui, retainChanges);
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::Yes) return commit();
    }
    const Analysis left = std::exchange(record(), opened_);
    keepName(record(), left);
    return true;
}

} // namespace metrisk
