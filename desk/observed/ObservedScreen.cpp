#include "desk/observed/ObservedScreen.h"

#include "base/NumberEntry.h"
#include "base/NumberText.h"
#include "base/Text.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/ObservedPct.h"
#include "desk/compute/ObservingUnit.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/Notes.h"
#include "desk/kit/Message.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "record/EntryRules.h"
#include "record/KeptFields.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "risk/RiskMessages.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/guardband/GuardbandTexts.h"
#include "risk/observed/ObservingEntries.h"

#include <algorithm>
#include <utility>

namespace metrisk {

namespace {

constexpr const char* trueCaption = "Compute True %";
constexpr const char* observedCaption = "Compute Observed %";
constexpr const char* guardbandCaption = "Compute Guardbands";
constexpr Message noChange{"No changes have been made.", "No Change", BoxIcon::Information};
constexpr Question newUnit{"Do you want to enter new ID data for the Observing Parameter?", "Metrisk",
                           BoxButtons::YesNo, Answer::No};
constexpr Question retainChange{"Do you want to retain changes?", "Change Made", BoxButtons::YesNo,
                                Answer::No};

std::string Analysis::*const idFields[] = {&Analysis::Obs_Manufacturer, &Analysis::Obs_ModelNumber,
                                           &Analysis::Obs_Description, &Analysis::Obs_ParameterName};

/// What the observing unit borrows of the measuring parameter.
using Measuring = KeptFields<&Analysis::MTE_PctInTol, &Analysis::MTE_Offset, &Analysis::MTE_TolUnitsFactor,
                             &Analysis::MTE_Sigma, &Analysis::MTE_kFactor, &Analysis::MTE_StdUncertainty>;
/// What the screen is about.
using Figures =
    KeptFields<&Analysis::SU_PctInTol, &Analysis::Obs_PctInTol, &Analysis::Obs_AOP, &Analysis::Obs_Offset,
               &Analysis::Obs_Units, &Analysis::Obs_ObservingUnitOption, &Analysis::Obs_Manufacturer,
               &Analysis::Obs_ModelNumber, &Analysis::Obs_Description, &Analysis::Obs_ParameterName,
               &Analysis::GB_UpperMult, &Analysis::GB_LowerMult>;

std::string pctText(double pct, const std::string& picture, const Regional& regional) {
    return pct == 0 ? "" : FormatNumber(pct, picture, regional);
}

} // namespace

ObservedScreen::ObservedScreen(Session& session)
    : Worksheet("ObservedPctWorksheet", "% In-Tolerance Worksheet", "observed"), session_(session),
      opened_(session.record) {
    Analysis& r = session.record;
    r.ObservedWorksheetOpen = true;
    use_ = r.IncludeGuardbands ? 1 : 0;
    r.ObservedIgnoresGuardbands = use_ == 0;
    asLimits_ = r.GB_ShowLimits;
    if (r.Obs_Offset == 0) r.Obs_ObservingUnitOption = currentUnit;
    if (r.Obs_ObservingUnitOption == currentUnit) useCurrentUnit();
    offerUnits();
    const bool observedStands = currentFigures(session.record, session.regional).observed;
    fitObservingUnit();
    loaded_ = session.record;
    changed_ = true; // nothing has been computed here yet
    showFigures();
    // Without a fit there is no figure; one that is not of these entries is none either.
    if (!fitted_ || !observedStands) observedText_.clear();
    figureStands_ = true;
    bindFigures();
    bindObservingUnit();
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_0.isDefault = true;
    CmdCompute.isPrimary = true;
    mnu_Exit_1.closes = Way::Cancel;
    menus = {
        runMenu(session_),
        notesItem(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    refresh();
}

ObservedScreen::~ObservedScreen() {
    session_.record.ObservedWorksheetOpen = false;
}

void ObservedScreen::bindFigures() {
    const auto bind = [this](TextBox& box, std::string& text, bool solvesTrue) {
        box.edited = [this, &text, solvesTrue](const std::string& typed) {
            text = typed;
            computeTruePct_ = solvesTrue;
            CmdCompute.text = solvesTrue ? trueCaption : observedCaption;
            lastChanged_ = LastChanged::Percentage;
            markChanged();
        };
        box.left = [this, &box, &text](const std::string& typed) -> FieldResult {
            const bool number = isNumeric(typed, session_.regional);
            text = number ? typed : box.last.value_or("");
            return {!number, text};
        };
    };
    bind(TruePctBox, trueText_, false);
    bind(ObservedPctBox, observedText_, true);
    CmdCompute.clicked = [this](bool) { compute(); };
    opt_UseGuardbands_0.clicked = [this](bool) { chooseUse(0); };
    opt_UseGuardbands_1.clicked = [this](bool) { chooseUse(1); };
    opt_UseGuardbands_2.clicked = [this](bool) { chooseUse(2); };
    cmd_ShowLimit.clicked = [this](bool) { asLimits_ = !asLimits_; };
    opt_Limits_0.clicked = [this](bool) { asLimits_ = true; };
    opt_Limits_1.clicked = [this](bool) { asLimits_ = false; };
    cmd_Update.clicked = [this](bool) {
        const Figures before(session_.record);
        runScreen(screens::guardbands, {session_});
        if (before.differ(session_.record)) markChanged();
    };
}

void ObservedScreen::bindObservingUnit() {
    ObservingUnitOption_0.clicked = [this](bool) { askForOtherUnit(); };
    ObservingUnitOption_1.clicked = [this](bool) {
        session_.record.Obs_ObservingUnitOption = currentUnit;
        useCurrentUnit();
        fitObservingUnit();
    };
    TextBox* const ids[] = {&ObsID_0, &ObsID_1, &ObsID_2, &ObsID_3};
    for (std::size_t i = 0; i < 4; ++i)
        ids[i]->left = [this, field = idFields[i]](const std::string& text) -> FieldResult {
            session_.record.*field = withoutQuotes(text);
            return {false, text};
        };
    OffsetUnitsBox.chosen = [this](int index) {
        // The number typed stays; it means another tolerance now.
        Analysis& r = session_.record;
        const double shown = r.Obs_Offset * unitsFactor();
        if (!offsetBefore_) offsetBefore_ = r.Obs_Offset;
        r.Obs_Units = units_.at(static_cast<std::size_t>(index)).name;
        r.Obs_Offset = shown / unitsFactor();
        lastChanged_ = LastChanged::MTELimBox;
        fitObservingUnit();
    };
    StatsData_0.left = [this](const std::string& text) {
        const double pct = ParseValue(text, session_.regional);
        return leaveUnitBox(StatsData_0, &Analysis::Obs_AOP, aopBefore_, pct / 100,
                            refusedMeasuringPct(pct, session_.record.MTE_EntryByUncertainty),
                            LastChanged::MTEPctBox, text);
    };
    StatsData_1.left = [this](const std::string& text) {
        const double shown = ParseValue(text, session_.regional);
        return leaveUnitBox(StatsData_1, &Analysis::Obs_Offset, offsetBefore_, shown / unitsFactor(),
                            refusedMeasuringOffset(shown), LastChanged::MTELimBox, text);
    };
}

/// An entry that no fit can be made of goes back to what the box held.
FieldResult ObservedScreen::leaveUnitBox(const TextBox& box, double Analysis::*field,
                                         std::optional<double>& before, double value,
                                         const std::optional<Message>& refused, LastChanged what,
                                         const std::string& text) {
    Analysis& r = session_.record;
    if (refused) {
        tell(session_.ui, *refused);
        return {true, box.last.value_or("")};
    }
    const double held = std::exchange(r.*field, value);
    fitObservingUnit();
    if (!fitted_ && r.Obs_Offset > 0 && r.Obs_AOP > 0) { // the fit has said why
        r.*field = held;
        fitObservingUnit();
        return {true, box.last.value_or("")};
    }
    if (!before) before = held;
    lastChanged_ = what;
    return {false, text};
}

void ObservedScreen::offerUnits() {
    units_ = observingUnits(session_);
    OffsetUnitsBox.items.clear();
    for (const OfferedUnit& unit : units_) OffsetUnitsBox.items.push_back(unit.name);
}

/// Of the offset's units.
double ObservedScreen::unitsFactor() const {
    const auto found = std::ranges::find(units_, session_.record.Obs_Units, &OfferedUnit::name);
    return found == units_.end() ? measuringUnits(opened_).factor : found->factor;
}

void ObservedScreen::useCurrentUnit() {
    Analysis& r = session_.record;
    r.Obs_Manufacturer = r.MTE_Manufacturer;
    r.Obs_ModelNumber = r.MTE_ModelNumber;
    r.Obs_Description = r.MTE_Description;
    r.Obs_ParameterName = r.MTE_ParameterName;
    r.Obs_AOP = opened_.MTE_PctInTol / 100;
    r.Obs_Offset = opened_.MTE_Offset;
    r.Obs_Units = opened_.MTE_ToleranceUnits;
    offsetBefore_.reset();
    aopBefore_.reset();
    lastChanged_ = LastChanged::Percentage;
}

void ObservedScreen::askForOtherUnit() {
    Analysis& r = session_.record;
    if (r.Obs_ObservingUnitOption == otherUnit) return;
    r.Obs_ObservingUnitOption = otherUnit;
    if (ask(session_.ui, newUnit) == Answer::Yes)
        for (const auto field : idFields) (r.*field).clear();
}

void ObservedScreen::fitObservingUnit() {
    Analysis& r = session_.record;
    markChanged();
    exactText_.clear();
    restoreMeasuring();
    fitted_ = r.Obs_ObservingUnitOption == currentUnit || FitObservingUnit(session_);
    if (fitted_) return;
    restoreMeasuring();
    observedText_.clear();
}

void ObservedScreen::chooseUse(int index) {
    use_ = index;
    session_.record.ObservedIgnoresGuardbands = index == 0;
    markChanged();
    if (index == 2) CmdCompute.text = guardbandCaption;
    // The reverse of what typing sets; it has always been so.
    if (index == 1) CmdCompute.text = computeTruePct_ ? observedCaption : trueCaption;
}

void ObservedScreen::refresh() {
    const Analysis& r = session_.record;
    const Regional& regional = session_.regional;
    TruePctBox.text = trueText_;
    ObservedPctBox.text = observedText_;
    // The figure that follows is of the entries before, as long as it has not been computed again.
    TextBox& result = computeTruePct_ ? TruePctBox : ObservedPctBox;
    for (TextBox* box : {&TruePctBox, &ObservedPctBox}) {
        box->faded = box == &result && !figureStands_ && !box->text.empty();
        box->toolTip = box->faded           ? notComputedTip
                       : box == &TruePctBox ? "Percent of the subject parameters that are in tolerance"
                                            : "Percent of the subject parameters that pass the test";
    }
    setRemark(result, Lbl_ExactFigure, figureStands_ ? exactText_ : "");
    (computeTruePct_ ? ObservedPctBox : TruePctBox).mark.clear();
    cmd_ShowLimit.text = asLimits_ ? "Show Guardband" : "Show Test Limit";
    opt_UseGuardbands_0.checked = use_ == 0;
    opt_UseGuardbands_1.checked = use_ == 1;
    opt_UseGuardbands_2.checked = use_ == 2;
    opt_Limits_0.checked = asLimits_;
    opt_Limits_1.checked = !asLimits_;
    Lbl_Limit_0.text = asLimits_ ? "Upper Limit" : "Upper Guardband";
    Lbl_Limit_1.text = asLimits_ ? "Lower Limit" : "Lower Guardband";
    const auto showSide = [&](const SubjectSide& side, TextBox& multiplier, TextBox& k, TextBox& limit) {
        const bool there = !(r.*side.absent);
        const GuardbandTexts texts = guardbandTexts(r, side, regional, guardbandBoxDigits);
        const GuardbandTexts full = guardbandTexts(r, side, regional);
        multiplier.text = there ? FormatNumber(r.*side.multiplier, r.*side.multiplierPicture, regional) : "";
        k.text = there ? kFactorText(r, side, regional) : "";
        limit.text = !there ? "" : asLimits_ ? texts.limit : texts.offset;
        const std::string& whole = asLimits_ ? full.limit : full.offset;
        limit.toolTip = there && whole != limit.text ? whole
                        : &side == &upperSide        ? "Upper test limit"
                                                     : "Lower test limit";
    };
    showSide(upperSide, pnl_Multiplier_0, pnl_kFactor_0, pnl_Limit_0);
    showSide(lowerSide, pnl_Multiplier_1, pnl_kFactor_1, pnl_Limit_1);

    const bool current = r.Obs_ObservingUnitOption == currentUnit;
    ObservingUnitOption_0.checked = !current;
    ObservingUnitOption_1.checked = current;
    TextBox* const ids[] = {&ObsID_0, &ObsID_1, &ObsID_2, &ObsID_3};
    for (std::size_t i = 0; i < 4; ++i) ids[i]->text = r.*idFields[i];
    for (TextBox* box : {&ObsID_0, &ObsID_1, &ObsID_2, &ObsID_3, &StatsData_0, &StatsData_1})
        box->locked = current;
    OffsetUnitsBox.enabled = !current;
    const auto unit = std::ranges::find(units_, r.Obs_Units, &OfferedUnit::name);
    OffsetUnitsBox.index = unit == units_.end() ? -1 : static_cast<int>(unit - units_.begin());
    StatsData_0.text = r.Obs_AOP == 0 ? "" : FormatNumber(100 * r.Obs_AOP, "#0.0000", regional);
    const double offset = r.Obs_Offset * unitsFactor();
    StatsData_1.text =
        offset == 0 ? "" : FormatNumber(offset, PictureForDecimals(DecimalsOfValue(offset, 0)), regional);
}

/// The boxes of both percentages as the record has them.
void ObservedScreen::showFigures() {
    const Analysis& r = session_.record;
    trueText_ = pctText(r.SU_PctInTol, r.SU_PctInTol_fmt, session_.regional);
    observedText_ = pctText(r.Obs_PctInTol, r.Obs_PctInTol_fmt, session_.regional);
}

void ObservedScreen::compute() {
    Analysis& r = session_.record;
    if (!changed_) {
        tell(session_.ui, noChange);
        return;
    }
    if (!unitIsThere()) return;
    if (r.SU_Distribution.empty()) {
        r.ComputeScope = "Both";
        r.ComputeNeeded = true;
        ValidateAndFit(session_);
        if (r.AbortFlag) return;
    }
    r.ObservedIgnoresGuardbands = use_ == 0;
    const WaitPointer wait(session_.ui);
    if (computeFigures()) {
        showFigures();
        changed_ = false;
        figureStands_ = true;
        offsetBefore_.reset();
        aopBefore_.reset();
    } else {
        restoreRefused();
    }
    r.AbortFlag = r.SearchAbort = false;
}

/// Tells which entry of the observing unit is missing.
bool ObservedScreen::unitIsThere() {
    if (fitted_) return true;
    const Analysis& r = session_.record;
    if (const auto refused = refusedMeasuringOffset(r.Obs_Offset)) {
        tell(session_.ui, *refused);
        session_.ui.focus({name, StatsData_1.name});
    } else if (const auto pct = refusedMeasuringPct(100 * r.Obs_AOP, r.MTE_EntryByUncertainty)) {
        tell(session_.ui, *pct);
        session_.ui.focus({name, StatsData_0.name});
    } else {
        tell(session_.ui, noRisks);
    }
    return false;
}

/// Where exact integration shows the computed figure otherwise.
std::string ObservedScreen::exactRemarkOf(const ObservedModel& model, bool solvedTrue) const {
    const Analysis& r = session_.record;
    const double x = r.SU_PctInTol / 100;
    std::optional<double> exact;
    if (solvedTrue)
        exact = model.exactTrueAt(r.Obs_PctInTol / 100, x);
    else if (const auto observed = model.exactObservedAt(x))
        exact = observed->value;
    if (!exact) return "";
    const std::string& picture = solvedTrue ? r.SU_PctInTol_fmt : r.Obs_PctInTol_fmt;
    const double told = solvedTrue ? r.SU_PctInTol : r.Obs_PctInTol;
    const std::string text = FormatNumber(100 * *exact, picture, session_.regional);
    return text == FormatNumber(told, picture, session_.regional) ? ""
                                                                  : "Exact integration gives " + text + " %.";
}

bool ObservedScreen::computeFigures() {
    const Regional& regional = session_.regional;
    const GuardbandUse use = use_ == 0 ? GuardbandUse::Ignore : GuardbandUse::Use;
    const auto done = [&](bool computed, bool solvedTrue) {
        exactText_ = computed ? exactRemarkOf(ObservedModel(session_.record, use, regional), solvedTrue) : "";
        return computed;
    };
    if (use_ == 2) return done(ObservedFromTrue(session_, GuardbandUse::Equalize, trueText_), false);
    if (!computeTruePct_) {
        const double pct = ParseValue(trueText_, regional);
        return pct >= 0 && pct <= 100 && done(ObservedFromTrue(session_, use, trueText_), false);
    }
    const double pct = ParseValue(observedText_, regional);
    if (!(pct > 0 && pct < 100)) return done(ObservedFromTrue(session_, use, trueText_), false);
    const ObservedEntry blamed = lastChanged_ == LastChanged::MTELimBox   ? ObservedEntry::MeasuringLimit
                                 : lastChanged_ == LastChanged::MTEPctBox ? ObservedEntry::MeasuringPct
                                                                          : ObservedEntry::ObservedPct;
    return done(TrueFromObserved(session_, use, observedText_, blamed), true);
}

void ObservedScreen::markChanged() {
    changed_ = true;
    figureStands_ = false;
}

/// What was changed last goes back to what it was before: the box, the unit's sigma and the figures typed.
void ObservedScreen::restoreRefused() {
    Analysis& r = session_.record;
    if (lastChanged_ == LastChanged::Percentage) {
        showFigures();
        return;
    }
    const std::string typed = observedText_;
    if (lastChanged_ == LastChanged::MTELimBox)
        r.Obs_Offset = std::exchange(offsetBefore_, std::nullopt).value_or(opened_.MTE_Offset);
    else
        r.Obs_AOP = std::exchange(aopBefore_, std::nullopt).value_or(opened_.MTE_PctInTol / 100);
    fitObservingUnit();
    observedText_ = typed;
}

bool ObservedScreen::differs() const {
    return Figures(loaded_).differ(session_.record) ||
           trueText_ !=
               pctText(session_.record.SU_PctInTol, session_.record.SU_PctInTol_fmt, session_.regional);
}

bool ObservedScreen::mayClose(Way way) {
    Analysis& r = session_.record;
    if (way == Way::Ok || (differs() && ask(session_.ui, retainChange) == Answer::Yes)) {
        store();
        return true;
    }
    const Analysis left = std::exchange(r, opened_);
    keepName(r, left);
    return true;
}

void ObservedScreen::restoreMeasuring() {
    Measuring(opened_).restore(session_.record);
}

void ObservedScreen::store() {
    Analysis& r = session_.record;
    const NumberEntry typed = NumberEntry::read(trueText_, session_.regional);
    if (typed.value > 0 && typed.value <= 100 &&
        trueText_ != pctText(r.SU_PctInTol, r.SU_PctInTol_fmt, session_.regional)) {
        r.SU_PctInTol = typed.value;
        r.SU_PctInTol_fmt = typed.picture();
    }
    r.Obs_TruePct = r.SU_PctInTol;
    r.Obs_TruePct_fmt = r.SU_PctInTol_fmt;
    const bool changed = Figures(loaded_).differ(r);
    restoreMeasuring();
    r.GB_RisksStale = opened_.GB_RisksStale;
    using Risked = KeptFields<&Analysis::SU_PctInTol, &Analysis::GB_UpperMult, &Analysis::GB_LowerMult>;
    if (Risked(opened_).differ(r)) r.GB_RisksStale = r.RisksNeedCompute = true;
    if (changed) {
        r.FileChanged = true;
        r.ComputeScope = "Both";
        ValidateAndFit(session_);
    }
    r.ObservedWorksheetOpen = false;
    r.AbortFlag = false;
}

} // namespace metrisk
