// The unit boxes of the tolerance offset worksheet, and the way in and out of it.
#include "base/Picture.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/kit/Message.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/links/RunMenu.h"
#include "desk/offset/OffsetScreen.h"
#include "numerics/CoverageFactor.h"
#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/StudentsT.h"
#include "record/ComposedOffset.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "risk/SubjectFit.h"
#include "uncertainty/ProcessTotals.h"
#include "units/ToleranceDecimals.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr Message subjectPpm{
    "Subject Parameter units cannot be \"ppm\" when the Mode\nis zero.  Please select another unit.",
    "Undefined Relative Unit"};
constexpr Message measuringPpm{
    "MTE units cannot be \"ppm\" when the Mode.\nis zero.  Please select another unit.",
    "Undefined Relative Unit"};
constexpr Message noUnits{
    "Error: No units were found in this Measurement Area.\nThe Units.Inf file may be corrupt.",
    "Invalid Units.Inf Entry"};

MenuItem parameterMenu(const char* menu, const char* caption, const char* subject, const char* measuring,
                       const std::function<void(int)>& open) {
    return {.control = menu,
            .caption = caption,
            .items = {{.control = subject, .caption = "&Subject Parameter", .run = [open] { open(0); }},
                      {.control = measuring, .caption = "&Measuring Parameter", .run = [open] { open(1); }}}};
}

} // namespace

void OffsetCalc::makeMenus() {
    menus = {
        editMenu(),
        {.control = "mnu_Units", .caption = "Measurement &Units", .run = [this] { openUnits(); }},
        parameterMenu("mnu_Bias", "% &In-Tol", "mnu_Bias_0", "mnu_Bias_1",
                      [this](int slot) { openBiasReference(slot); }),
        parameterMenu("mnu_Reliability", "&Reliability", "mnu_Reliability_0", "mnu_Reliability_1",
                      [this](int slot) { openReliability(slot); }),
        runMenu(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    toolbar = {{"OK", "Accept Changes", "mnu_OK"},
               {"cancel", "Cancel Changes", "mnu_Cancel", true},
               {"undo", "Undo", "mnu_Edit_Undo"},
               {"cut", "Cut", "mnu_Edit_Cut"},
               {"copy", "Copy", "mnu_Edit_Copy"},
               {"paste", "Paste", "mnu_Edit_Paste"},
               {"delete", "Delete", "mnu_Edit_Delete", true},
               {"units", "Update Units", "mnu_Units"}};
}

/// A screen above writes its % in-tolerance and its model; the model stays even if this worksheet is
/// cancelled.
void OffsetCalc::openReliability(int slot) {
    runScreen(screens::reliability[slot], {desk_});
    keepReliability();
}

void OffsetCalc::openBiasReference(int slot) {
    runScreen(screens::biasReference[slot], {desk_});
    keepReliability();
}

void OffsetCalc::keepReliability() {
    Reliability& kept = session_.record;
    const Reliability& now = desk_.record;
    if (!(kept == now)) session_.record.FileChanged = true;
    kept = now;
    followCoverage();
    fit();
}

void OffsetCalc::openUnits() {
    runScreen(screens::units, {session_, &chooser_});
    const Analysis& r = desk_.record;
    readAreas();
    fillUnits(r.NominalUnits, r.SU_ToleranceUnits, r.MTE_ToleranceUnits);
    keepUnitsOfRecord(r, mode_, subject_, measuring_);
}

void OffsetCalc::readAreas() {
    const std::string& area = desk_.record.MeasurementArea;
    std::vector<std::string>& items = MeasAreaBox.items;
    items = units_.OpenUnitsDatabase();
    session_.record.AbortFlag = false;
    auto found = std::find(items.begin(), items.end(), area);
    if (found == items.end() && !withoutOuterBlanks(area).empty()) found = items.insert(items.end(), area);
    MeasAreaBox.index = found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void OffsetCalc::fillUnits(const std::string& mode, const std::string& subject,
                           const std::string& measuring) {
    const std::string& area = desk_.record.MeasurementArea;
    FillUnitsBox(units_, mode_, area, mode);
    FillUnitsBox(units_, subject_, area, subject);
    FillUnitsBox(units_, measuring_, area, measuring);
}

void OffsetCalc::chooseArea(int index) {
    Analysis& r = desk_.record;
    MeasAreaBox.index = index;
    r.MeasurementArea = MeasAreaBox.items[static_cast<std::size_t>(index)];
    fillUnits("", "", "");
    if (ModeUnitsBox.items.empty()) tell(session_.ui, noUnits);
    // What the area offers nothing for stays, as the factors do.
    const auto take = [](std::string& unit, const UnitsBox& box) {
        if (box.choice.index >= 0) unit = box.unit();
    };
    take(r.NominalUnits, mode_);
    take(r.SU_ToleranceUnits, subject_);
    take(r.MTE_ToleranceUnits, measuring_);
    UpdateToleranceFactors();
}

void OffsetCalc::chooseUnits(UnitsBox& box, std::string Analysis::*field, int index) {
    Analysis& r = desk_.record;
    const int before = box.choice.index;
    box.choice.index = index;
    // Of a reading that is itself in ppm, ppm is no relative unit.
    if (box.unit() == ppmUnits && r.SU_Mode == 0 && &box != &mode_ && mode_.unit() != ppmUnits) {
        tell(session_.ui, &box == &subject_ ? subjectPpm : measuringPpm);
        box.choice.index = before;
        return;
    }
    r.*field = box.unit();
    UpdateToleranceFactors();
}

namespace {

/// What was entered in tolerance units stays as it was entered.
void rescale(std::initializer_list<double*> values, double before, double after) {
    for (double* value : values) *value = checked(*value * before / after);
}

} // namespace

void OffsetCalc::UpdateToleranceFactors() {
    Analysis& r = desk_.record;
    const double subjectBefore = subjectUnits(r).factor;
    const double measuringBefore = measuringUnits(r).factor;
    r.SU_TolUnitsFactor =
        toleranceFactor(r.MeasurementArea, r.SU_Mode, mode_, subject_).value_or(subjectBefore);
    r.MTE_TolUnitsFactor =
        toleranceFactor(r.MeasurementArea, r.SU_Mode, mode_, measuring_).value_or(measuringBefore);
    const int subjectShift = r.SU_TolDecimalShift;
    const int measuringShift = r.SU_SigDigits;
    UpdateToleranceDecimals(r);
    UpdateMTEToleranceDecimals(r);
    if (!r.OffsetsInNominalUnits) {
        rescale({&r.SU_UpperFixed, &r.SU_LowerFixed}, subjectBefore, r.SU_TolUnitsFactor);
        rescale({&r.MTE_FixedOffset, &r.MTE_StdUncertainty}, measuringBefore, r.MTE_TolUnitsFactor);
        const auto move = [](std::string& picture, int decimals) {
            picture = PictureForDecimals(PictureDecimals(picture) + decimals);
        };
        move(r.SU_UpperFixed_fmt, r.SU_TolDecimalShift - subjectShift);
        move(r.SU_LowerFixed_fmt, r.SU_TolDecimalShift - subjectShift);
        move(r.MTE_FixedOffset_fmt, r.SU_SigDigits - measuringShift);
        move(r.MTE_StdUncertainty_fmt, r.SU_SigDigits - measuringShift);
    }
    compose();
    fit();
}

void OffsetCalc::bindUnits() {
    MeasAreaBox.chosen = [this](int index) { chooseArea(index); };
    ModeUnitsBox.chosen = [this](int index) { chooseUnits(mode_, &Analysis::NominalUnits, index); };
    SUOffsetUnitsBox.chosen = [this](int index) {
        chooseUnits(subject_, &Analysis::SU_ToleranceUnits, index);
    };
    MTEOffsetUnitsBox.chosen = [this](int index) {
        chooseUnits(measuring_, &Analysis::MTE_ToleranceUnits, index);
    };
    ModeUnitsButton.clicked = [this](bool) { desk_.record.OffsetsInNominalUnits = true; };
    OffsetUnitsButton.clicked = [this](bool) { desk_.record.OffsetsInNominalUnits = false; };
}

void OffsetCalc::followCoverage() {
    Analysis& r = desk_.record;
    try {
        if (!r.MTE_KUsed) {
            r.MTE_kFactor = r.MTE_PctInTol > 0 ? CoverageFactor(r.MTE_PctInTol, r.MTE_DegFreedom) : 0;
        } else if (r.MTE_kFactor > 0) {
            const bool infinite = r.MTE_DegFreedom <= 0 || r.MTE_DegFreedom >= infiniteDegFreedom;
            r.MTE_PctInTol = 100 * (infinite ? 2 * Normal(r.MTE_kFactor) - 1
                                             : tDistribution(r.MTE_kFactor, r.MTE_DegFreedom));
        }
    } catch (const RuntimeFault&) {
        r.MTE_kFactor = 0;
    }
}

void OffsetCalc::ComputeFromUncertainty() {
    Analysis& r = desk_.record;
    if (!r.MTE_EntryByUncertainty || r.MTE_StdUncertainty == 0) return;
    // Without a confidence there is no expanded uncertainty; the last one was of another.
    r.MTE_Offset = !(r.MTE_kFactor > 0) ? 0 : checked(r.MTE_kFactor * r.MTE_StdUncertainty);
    r.MTE_Offset_fmt = fullPicture(r.MTE_Offset, r.MTE_StdUncertainty_fmt);
}

/// Quietly, for the worksheet's own display: what cannot be fitted yet shows nothing.
void OffsetCalc::fit() {
    Analysis& r = desk_.record;
    r.SU_Sigma = 0;
    r.SU_Distribution.clear();
    try {
        if (r.SU_PctInTol > 0) static_cast<SubjectParameter&>(r) = fitSubject(r, desk_.regional);
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    }
    followCoverage();
    if (!r.MTE_EntryByUncertainty)
        r.MTE_StdUncertainty = r.MTE_kFactor > 0 ? r.MTE_Offset / r.MTE_kFactor : 0;
}

void OffsetCalc::store() {
    Analysis& kept = session_.record;
    const Analysis& r = desk_.record;
    kept.OffsetsInNominalUnits = r.OffsetsInNominalUnits;
    if (!changed()) return;
    const double factorBefore = measuringUnits(kept).factor;
    const bool otherUnits =
        kept.MTE_ToleranceUnits != r.MTE_ToleranceUnits || kept.NominalUnits != r.NominalUnits;
    static_cast<SubjectParameter&>(kept) = r;
    static_cast<MeasuringParameter&>(kept) = r;
    kept.MTE_KUsed = r.MTE_KUsed;
    // The main screen shows the figures in these units; a name of the user's own stays where there are none.
    if (!r.MTE_ToleranceUnits.empty()) kept.MTE_ParameterUnits = r.MTE_ToleranceUnits;
    for (const SubjectSide* side : {&upperSide, &lowerSide})
        kept.*side->limit = kept.SU_Mode + side->sign * kept.*side->offset;
    // The parts were told there: another tolerance typed elsewhere does not make them up.
    kept.OffsetWorksheetFlag = !kept.MTE_EntryByUncertainty;
    kept.MTE_Mode = kept.SU_Mode;
    kept.MTE_UpperLimit = kept.SU_Mode + kept.MTE_Offset;
    kept.MTE_LowerLimit = kept.SU_Mode - kept.MTE_Offset;
    if (kept.MTE_EntryByUncertainty) {
        kept.MTE_FixedOffset = kept.MTE_Offset;
        kept.MTE_FixedOffset_fmt = kept.MTE_Offset_fmt;
        kept.MTE_PctReading = 0;
    }
    const double factor = measuringUnits(kept).factor;
    if (factor != factorBefore) {
        // Other units: the process errors are the same in them. A relative unit of another reading: they are
        // parts of the reading, and stay so.
        if (otherUnits) RescaleProcessTable(kept, factor / factorBefore, session_.regional);
        SumProcessUncertainty(session_.record, session_.regional);
    }
    kept.markChanged("Both");
    if (kept.SU_PctInTol > 0 && kept.SU_Sigma > 0) FitSubjectParameter(session_);
    if (kept.MTE_Offset > 0 && kept.MTE_PctInTol > 0) FitMeasuringParameter(session_);
    kept.ComputeNeeded = true;
    kept.AbortFlag = false;
}

} // namespace metrisk
