#include "desk/uncertainty/BiasCalcOptionScreen.h"

#include "base/DecimalForm.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Message.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/kit/Session.h"
#include "reliability/ReliabilityModels.h"
#include "reliability/TimeUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* captions[] = {"Subject Parameter % In-Tolerance Reference",
                                    "Measuring Parameter % In-Tolerance Reference"};
constexpr const char* optionWords[] = {"EOP", "AOP", "User"};
constexpr std::size_t subject = 0;
constexpr const char* pctPicture = "#,##0.0000";
constexpr Message noProbability{"This option gives no % in-tolerance.", "% In-Tolerance Reference"};
constexpr Message notFitted{"The parameter cannot be fitted with this % in-tolerance.",
                            "% In-Tolerance Reference"};

int modelOf(const Analysis& r, std::size_t slot) {
    if (const ReliabilityModel* model = reliabilityModel(r.Rel_Model[slot])) return model->number;
    return 0;
}

/// Percent in 15 digits, as a file keeps it.
double percentOf(double fraction) {
    return DecimalForm::of(100 * fraction).value();
}

} // namespace

BiasCalcOptionScreen::BiasCalcOptionScreen(Session& session, std::size_t slot)
    : Worksheet("BiasCalcOption", captions[slot], "in-tolerance-reference"), session_(session), slot_(slot) {
    const Analysis& r = session.record;
    // Without a word of the user's a subject is tested at the end of its interval, and measured with at any
    // time of the other's.
    option_ = slot == subject ? EndOfPeriod : AverageOverPeriod;
    for (const Option option : {EndOfPeriod, AverageOverPeriod, UserTime})
        if (r.Rel_BiasOption[slot] == optionWords[option]) option_ = option;
    time_ = r.Rel_UserTime[slot];
    timeText_ = time_ == 0 ? "" : GeneralText(time_, session.regional);
    units_ = r.Rel_UserTimeUnits[slot].empty() ? r.Rel_IntervalUnits[slot] : r.Rel_UserTimeUnits[slot];
    BiasOption_0.clicked = [this](bool) { chooseOption(EndOfPeriod); };
    BiasOption_1.clicked = [this](bool) { chooseOption(AverageOverPeriod); };
    BiasOption_2.clicked = [this](bool) { chooseOption(UserTime); };
    TimeBox.left = [this](const std::string& text) -> FieldResult {
        const double time = ParseValue(text, session_.regional);
        if (time < 0) return {true, timeText_};
        time_ = time;
        timeText_ = time == 0 ? "" : text;
        probability_ = probability();
        return {false, timeText_};
    };
    cmd_DefineModel.clicked = [this](bool) {
        runScreen(screens::reliability[slot_], {session_});
        probability_ = probability();
    };
    for (const std::string_view unit : timeUnits) TimeUnitsBox.items.emplace_back(unit);
    TimeUnitsBox.chosen = [this](int index) {
        units_ = timeUnits.at(static_cast<std::size_t>(index));
        probability_ = probability();
    };
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_0.isDefault = true;
    mnu_Exit_0.isPrimary = true;
    mnu_Exit_1.closes = Way::Cancel;
    menus = {{.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }}};
    probability_ = probability();
    refresh();
}

void BiasCalcOptionScreen::chooseOption(Option option) {
    option_ = option;
    probability_ = probability();
}

std::optional<double> BiasCalcOptionScreen::probability() const {
    const Analysis& r = session_.record;
    const auto unlessNone = [](double value) { return value > 0 ? std::optional(value) : std::nullopt; };
    if (option_ == EndOfPeriod) return unlessNone(r.Rel_EOP[slot_]);
    if (option_ == AverageOverPeriod) return unlessNone(r.Rel_AOP[slot_]);
    const int model = modelOf(r, slot_);
    const Coefficients theta{r.Rel_Theta[1][slot_], r.Rel_Theta[2][slot_], r.Rel_Theta[3][slot_]};
    if (model == 0 || theta.allZero() || time_ == 0) return std::nullopt;
    try {
        return reliabilityAt(model, theta, convertedTime(time_, units_, r.Rel_IntervalUnits[slot_]));
    } catch (const RuntimeFault&) {
        return std::nullopt; // the box stays empty, and OK says so
    }
}

void BiasCalcOptionScreen::refresh() {
    const Analysis& r = session_.record;
    const Regional& regional = session_.regional;
    const double interval = r.Rel_Interval[slot_];
    IntervalPanel.text = interval == 0 ? "" : GeneralText(interval, regional);
    IntervalUnitsBox.text = r.Rel_IntervalUnits[slot_];
    BiasOption_0.checked = option_ == EndOfPeriod;
    BiasOption_1.checked = option_ == AverageOverPeriod;
    BiasOption_2.checked = option_ == UserTime;
    TimeBox.text = timeText_;
    TimeBox.locked = option_ != UserTime;
    TimeUnitsBox.enabled = option_ == UserTime;
    const auto unit = std::find(timeUnits.begin(), timeUnits.end(), units_);
    TimeUnitsBox.index = unit == timeUnits.end() ? -1 : static_cast<int>(unit - timeUnits.begin());
    Lbl_NoModel.visible = cmd_DefineModel.visible = r.Rel_Interval[slot_] == 0;
    InTolPanel.hint = "\u2013";
    InTolPanel.text = probability_ ? FormatNumber(100 * *probability_, pctPicture, regional) : "";
}

bool BiasCalcOptionScreen::mayClose(Way way) {
    if (way == Way::Cancel) return true;
    if (probability_ && *probability_ > 0 && *probability_ <= 1) return store(*probability_);
    tell(session_.ui, noProbability);
    return false;
}

/// False if the parameter cannot be fitted with it: everything is as before then.
bool BiasCalcOptionScreen::store(double fraction) {
    Analysis& r = session_.record;
    const Analysis before = r;
    const bool ofSubject = slot_ == subject;
    r.RelWorksheetTarget = ofSubject ? "SU" : "MTE";
    r.Rel_UserTime[slot_] = time_;
    r.Rel_UserTimeUnits[slot_] = units_;
    r.Rel_BiasOption[slot_] = optionWords[option_];
    if (option_ == UserTime) r.Rel_UserPct[slot_] = percentOf(fraction);
    (ofSubject ? r.SU_PctInTol : r.MTE_PctInTol) = percentOf(fraction);
    r.markChanged(ofSubject ? "SU" : "MTE");
    r.SymmetryChanged = true;
    const bool entered = ofSubject ? r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0 : r.MTE_Offset != 0;
    if (entered) ValidateAndFit(session_);
    if (r.AbortFlag) {
        r = before;
        r.AbortFlag = false;
        tell(session_.ui, notFitted);
        return false;
    }
    session_.ui.repaintMainScreen();
    return true;
}

} // namespace metrisk
