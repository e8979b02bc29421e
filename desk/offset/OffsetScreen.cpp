#include "desk/offset/OffsetScreen.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "desk/compute/FollowMode.h"
#include "desk/kit/Message.h"
#include "record/ComposedOffset.h"
#include "record/KeptFields.h"
#include "record/SubjectSide.h"
#include "record/ToleranceParts.h"
#include "record/ToleranceUnits.h"
#include "units/ToleranceDecimals.h"
#include "units/UnitFactor.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* mustNotBeNegative = "Must be greater than or equal to zero.\nTry again.";

/// What the worksheet is about; a difference is a change.
using Kept =
    KeptFields<&Analysis::SU_Mode, &Analysis::SU_UpperOffset, &Analysis::SU_LowerOffset,
               &Analysis::SU_UpperFixed, &Analysis::SU_LowerFixed, &Analysis::SU_UpperPctReading,
               &Analysis::SU_LowerPctReading, &Analysis::SU_PctInTol, &Analysis::SU_ToleranceUnits,
               &Analysis::SU_TolUnitsFactor, &Analysis::NominalUnits, &Analysis::MeasurementArea,
               &Analysis::MTE_Offset, &Analysis::MTE_FixedOffset, &Analysis::MTE_PctReading,
               &Analysis::MTE_PctInTol, &Analysis::MTE_ToleranceUnits, &Analysis::MTE_TolUnitsFactor,
               &Analysis::MTE_StdUncertainty, &Analysis::MTE_DegFreedom, &Analysis::MTE_kFactor,
               &Analysis::MTE_EntryByUncertainty, &Analysis::OptTwoSided, &Analysis::OptSingleUpper,
               &Analysis::OptSingleLower, &Analysis::SymmetricTolerances, &Analysis::PhysLimitRequired,
               &Analysis::PhysicalLimit, &Analysis::PhysicalLimitEntered, &Analysis::SU_Mode_fmt,
               &Analysis::SU_UpperOffset_fmt, &Analysis::SU_LowerOffset_fmt, &Analysis::SU_UpperFixed_fmt,
               &Analysis::SU_LowerFixed_fmt, &Analysis::MTE_Offset_fmt, &Analysis::MTE_FixedOffset_fmt>;

/// Parts that do not make up the tolerance, as older files may hold them, give way to it.
void settleParts(double offset, const std::string& offsetPicture, double mode, double& fixed,
                 std::string& fixedPicture, double& pctReading) {
    if (partsMakeUp(offset, mode, fixed, pctReading)) return;
    fixed = offset;
    fixedPicture = offsetPicture;
    pctReading = 0;
}

} // namespace

OffsetCalc::OffsetCalc(Session& session, FileChooser& chooser)
    : Worksheet("OffsetCalc", "Parameter Bias Uncertainty Worksheet", "tolerance-offsets"), session_(session),
      chooser_(chooser), desk_(session), units_(session, chooser) {
    Analysis& r = desk_.record;
    for (const SubjectSide* side : {&upperSide, &lowerSide})
        settleParts(r.*side->offset, r.*side->offsetPicture, r.SU_Mode, r.*side->fixed, r.*side->fixedPicture,
                    r.*side->pctReading);
    if (!r.MTE_EntryByUncertainty)
        settleParts(r.MTE_Offset, r.MTE_Offset_fmt, r.SU_Mode, r.MTE_FixedOffset, r.MTE_FixedOffset_fmt,
                    r.MTE_PctReading);
    r.SU_TolUnitsFactor = usableFactor(r.SU_TolUnitsFactor);
    r.MTE_TolUnitsFactor = usableFactor(r.MTE_TolUnitsFactor);
    bindSubject();
    bindMeasuring();
    bindUnits();
    cmd_Form.clicked = [this](bool) { session_.ui.peekBehind(*this); };
    mnu_OK.closes = Way::Ok;
    mnu_OK.isDefault = true;
    mnu_OK.isPrimary = true;
    mnu_Cancel.closes = Way::Cancel;
    makeMenus();
    refresh();
}

void OffsetCalc::begin() {
    Analysis& r = desk_.record;
    readAreas();
    fillUnits(r.NominalUnits, r.SU_ToleranceUnits, r.MTE_ToleranceUnits);
    keepUnitsOfRecord(r, mode_, subject_, measuring_);
    fit();
    loaded_ = r;
    refresh();
}

FieldResult OffsetCalc::runRule(TextBox& box, const std::string& text) {
    const Analysis before = desk_.record;
    try {
        const FieldResult result = box.left(text);
        if (!result.stay) fit();
        return result;
    } catch (const RuntimeFault&) {
        desk_.record = before;
        return {true, box.last.value_or("")};
    }
}

double OffsetCalc::factorOf(Parameter parameter) const {
    if (desk_.record.OffsetsInNominalUnits) return 1;
    return parameter == Parameter::Subject ? subjectUnits(desk_.record).factor
                                           : measuringUnits(desk_.record).factor;
}

void OffsetCalc::bindSubject() {
    const auto bindSide = [this](const SubjectSide& side, TextBox& offset, TextBox& fixed, TextBox& pct,
                                 std::string Analysis::*pctPicture) {
        fixed.left = [this, &side](const std::string& text) {
            return leavePart(side.fixed, side.fixedPicture, Parameter::Subject, text);
        };
        pct.left = [this, &side, pctPicture](const std::string& text) {
            return leavePct(side.pctReading, pctPicture, text);
        };
        offset.left = [this](const std::string& text) -> FieldResult { // of a physical limit
            const NumberEntry entry = NumberEntry::read(text, desk_.regional);
            desk_.record.PhysicalLimit = entry.value;
            desk_.record.PhysicalLimit_fmt = entry.picture();
            desk_.record.PhysicalLimitEntered = !entry.blank;
            return {false, text};
        };
    };
    bindSide(upperSide, SUUpperOffsetBox, SUUpperFixedBox, SUUpperPctBox, &Analysis::SU_UpperPctReading_fmt);
    bindSide(lowerSide, SULowerOffsetBox, SULowerFixedBox, SULowerPctBox, &Analysis::SU_LowerPctReading_fmt);
    txt_Mode.left = [this](const std::string& text) { return leaveMode(text); };
    txt_PctInTol_0.left = [this](const std::string& text) {
        return leaveInTol(&Analysis::SU_PctInTol, false, text);
    };
    opt_Tolerance_0.clicked = [this](bool) { chooseTolerance(0); };
    opt_Tolerance_1.clicked = [this](bool) { chooseTolerance(1); };
    opt_Tolerance_2.clicked = [this](bool) { chooseTolerance(2); };
    chk_Symmetric.clicked = [this](bool on) {
        desk_.record.SymmetricTolerances = on;
        compose();
    };
    chk_PhysicalLimit.clicked = [this](bool on) {
        desk_.record.PhysLimitRequired = on;
        fit();
    };
}

void OffsetCalc::bindMeasuring() {
    MTEOffsetBox.left = [this](const std::string& text) { return leaveExpanded(text); };
    MTEFixedBox.left = [this](const std::string& text) {
        Analysis& r = desk_.record;
        if (!r.MTE_EntryByUncertainty)
            return leavePart(&Analysis::MTE_FixedOffset, &Analysis::MTE_FixedOffset_fmt, Parameter::Measuring,
                             text);
        return leavePart(&Analysis::MTE_StdUncertainty, &Analysis::MTE_StdUncertainty_fmt,
                         Parameter::Measuring, text);
    };
    MTEPctBox.left = [this](const std::string& text) -> FieldResult {
        Analysis& r = desk_.record;
        if (!r.MTE_EntryByUncertainty)
            return leavePct(&Analysis::MTE_PctReading, &Analysis::MTE_PctReading_fmt, text);
        r.MTE_DegFreedom = std::max(0.0, ParseValue(text, desk_.regional));
        followCoverage();
        ComputeFromUncertainty();
        return {false, text};
    };
    txt_PctInTol_1.left = [this](const std::string& text) {
        return leaveInTol(&Analysis::MTE_PctInTol, desk_.record.MTE_EntryByUncertainty, text);
    };
    txt_MTEBiasUncertainty.left = [this](const std::string& text) { return leaveBiasUncertainty(text); };
    opt_MTETolerance_0.clicked = [this](bool) { chooseEntry(false); };
    opt_MTETolerance_1.clicked = [this](bool) { chooseEntry(true); };
}

FieldResult OffsetCalc::leavePart(double Analysis::*value, std::string Analysis::*picture,
                                  Parameter parameter, const std::string& text) {
    Analysis& r = desk_.record;
    const NumberEntry entry = NumberEntry::read(text, desk_.regional);
    const ToleranceUnits units = parameter == Parameter::Subject ? subjectUnits(r) : measuringUnits(r);
    r.*value = checked(entry.value / factorOf(parameter));
    r.*picture = desk_.record.OffsetsInNominalUnits ? entry.picture() : units.heldPicture(entry);
    compose();
    return {false, text};
}

FieldResult OffsetCalc::leavePct(double Analysis::*value, std::string Analysis::*picture,
                                 const std::string& text) {
    const NumberEntry entry = NumberEntry::read(text, desk_.regional);
    desk_.record.*value = entry.value;
    desk_.record.*picture = entry.picture();
    compose();
    return {false, text};
}

FieldResult OffsetCalc::leaveInTol(double Analysis::*value, bool to100, const std::string& text) {
    const NumberEntry entry = NumberEntry::read(text, desk_.regional);
    if (entry.value < 0 || entry.value > 100 || (entry.value == 100 && !to100)) {
        tell(session_.ui, {to100 ? "Must be greater than or equal to 0 and less than or equal to 100%."
                                 : "Must be greater than or equal to 0 and less than 100%.",
                           "Illegal Entry"});
        const double kept = desk_.record.*value;
        return {true, FormatNumber(kept, fullPicture(kept, inTolPicture), desk_.regional)};
    }
    desk_.record.*value = entry.value;
    desk_.record.MTE_KUsed = desk_.record.MTE_KUsed && value != &Analysis::MTE_PctInTol;
    followCoverage();
    ComputeFromUncertainty();
    return {false, text};
}

FieldResult OffsetCalc::leaveMode(const std::string& text) {
    Analysis& r = desk_.record;
    const NumberEntry entry = NumberEntry::read(text, desk_.regional);
    const bool relative = r.NominalUnits == ppmUnits || subjectUnits(r).isPpm() || measuringUnits(r).isPpm();
    if (entry.value == 0 && relative) {
        tell(session_.ui,
             {"The mode value cannot be zero when units are expressed in ppm.\n\nYou may need to change "
              "the units on the Metrisk screen or on the Tolerance Offset Worksheet.",
              "Illegal Mode Value"});
        return {true, txt_Mode.last.value_or("")};
    }
    const double before = r.SU_Mode;
    r.SU_Mode = r.MTE_Mode = entry.value;
    r.SU_Mode_fmt = entry.picture();
    followModeInTolerances(r, before);
    followModeInUnits(desk_);
    compose();
    return {false, text};
}

/// Typed as such, or as the coverage factor where uncertainties are entered.
FieldResult OffsetCalc::leaveBiasUncertainty(const std::string& text) {
    Analysis& r = desk_.record;
    const NumberEntry entry = NumberEntry::read(text, desk_.regional);
    if (r.MTE_EntryByUncertainty) {
        if (!(entry.value > 0)) return {true, txt_MTEBiasUncertainty.last.value_or("")};
        r.MTE_kFactor = entry.value;
        r.MTE_KUsed = true;
        followCoverage();
        ComputeFromUncertainty();
        return {false, text};
    }
    if (!(entry.value > 0) || !(r.MTE_kFactor > 0)) return {true, txt_MTEBiasUncertainty.last.value_or("")};
    r.MTE_StdUncertainty = checked(entry.value / factorOf(Parameter::Measuring));
    r.MTE_Offset = r.MTE_FixedOffset = checked(r.MTE_kFactor * r.MTE_StdUncertainty);
    r.MTE_Offset_fmt = r.MTE_FixedOffset_fmt = fullPicture(r.MTE_Offset, r.MTE_FixedOffset_fmt);
    r.MTE_PctReading = 0;
    return {false, text};
}

FieldResult OffsetCalc::leaveExpanded(const std::string& text) {
    Analysis& r = desk_.record;
    const NumberEntry entry = NumberEntry::read(text, desk_.regional);
    r.MTE_Offset = checked(entry.value / factorOf(Parameter::Measuring));
    r.MTE_Offset_fmt =
        desk_.record.OffsetsInNominalUnits ? entry.picture() : measuringUnits(r).heldPicture(entry);
    if (r.MTE_kFactor > 0) {
        r.MTE_StdUncertainty = checked(r.MTE_Offset / r.MTE_kFactor);
        r.MTE_StdUncertainty_fmt = fullPicture(r.MTE_StdUncertainty, r.MTE_Offset_fmt);
    }
    return {false, text};
}

void OffsetCalc::chooseTolerance(int kind) {
    Analysis& r = desk_.record;
    r.OptTwoSided = kind == 0;
    r.OptSingleUpper = kind == 1;
    r.OptSingleLower = kind == 2;
    if (kind == 0) {
        r.PhysLimitRequired = r.PhysicalLimitEntered = false;
        r.PhysicalLimit = 0;
    }
    compose();
    fit();
}

void OffsetCalc::chooseEntry(bool byUncertainty) {
    Analysis& r = desk_.record;
    r.MTE_EntryByUncertainty = byUncertainty;
    r.OffsetWorksheetFlag = false;
    if (!byUncertainty) {
        r.MTE_KUsed = false;
        r.MTE_DegFreedom = 0;
        r.MTE_FixedOffset = r.MTE_Offset;
        r.MTE_FixedOffset_fmt = r.MTE_Offset_fmt;
        r.MTE_PctReading = 0;
    }
    followCoverage();
    if (byUncertainty && r.MTE_kFactor > 0) {
        r.MTE_StdUncertainty = r.MTE_Offset / r.MTE_kFactor;
        r.MTE_StdUncertainty_fmt = fullPicture(r.MTE_StdUncertainty, r.MTE_Offset_fmt);
    }
    fit();
}

void OffsetCalc::compose() {
    ComposeSUTolerance();
    ComposeMTETolerance();
    UpdateToleranceDecimals(desk_.record);
    UpdateMTEToleranceDecimals(desk_.record);
}

void OffsetCalc::ComposeSUTolerance() {
    Analysis& r = desk_.record;
    if (r.SymmetricTolerances && r.OptTwoSided) {
        r.SU_LowerFixed = r.SU_UpperFixed;
        r.SU_LowerFixed_fmt = r.SU_UpperFixed_fmt;
        r.SU_LowerPctReading = r.SU_UpperPctReading;
        r.SU_LowerPctReading_fmt = r.SU_UpperPctReading_fmt;
    }
    const auto composeSide = [&r](const SubjectSide& side, const std::string& pctPicture) {
        const auto [value, picture] =
            composeOffset({r.*side.fixed, r.*side.pctReading, r.*side.fixedPicture, pctPicture}, r.SU_Mode);
        r.*side.offset = value;
        r.*side.offsetPicture = picture;
        r.*side.limit = checked(r.SU_Mode + side.sign * value);
    };
    composeSide(upperSide, r.SU_UpperPctReading_fmt);
    composeSide(lowerSide, r.SU_LowerPctReading_fmt);
}

void OffsetCalc::ComposeMTETolerance() {
    Analysis& r = desk_.record;
    if (r.MTE_EntryByUncertainty) {
        ComputeFromUncertainty();
        return;
    }
    const auto [value, picture] = composeOffset(
        {r.MTE_FixedOffset, r.MTE_PctReading, r.MTE_FixedOffset_fmt, r.MTE_PctReading_fmt}, r.SU_Mode);
    r.MTE_Offset = value;
    r.MTE_Offset_fmt = picture;
}

bool OffsetCalc::ValidateOffsets() {
    struct Part {
        double Analysis::*value;
        const char* title;
        const char* box;
    };
    static constexpr Part parts[] = {
        {&Analysis::SU_UpperFixed, "Subject Parameter Upper Fixed Offset", "SUUpperFixedBox"},
        {&Analysis::SU_LowerFixed, "Subject Parameter Lower Fixed Offset", "SULowerFixedBox"},
        {&Analysis::MTE_FixedOffset, "MTE Fixed Offset", "MTEFixedBox"},
        {&Analysis::SU_UpperPctReading, "Subject Parameter Upper Percent of Reading Spec", "SUUpperPctBox"},
        {&Analysis::SU_LowerPctReading, "Subject Parameter Lower Percent of Reading Spec", "SULowerPctBox"},
        {&Analysis::MTE_PctReading, "MTE Percent of Reading Spec", "MTEPctBox"}};
    const Analysis& r = desk_.record;
    for (const Part& part : parts) {
        double value = r.*part.value;
        if (part.value == &Analysis::MTE_FixedOffset && r.MTE_EntryByUncertainty)
            value = std::min(r.MTE_StdUncertainty, r.MTE_Offset);
        if (value >= 0) continue;
        tell(session_.ui, {mustNotBeNegative, part.title});
        session_.ui.focus({name, part.box}, true);
        return false;
    }
    return true;
}

bool OffsetCalc::changed() const {
    return Kept(loaded_).differ(desk_.record);
}

bool OffsetCalc::mayClose(Way way) {
    if (way == Way::Cancel) {
        if (!changed()) return true;
        const Answer answer = ask(session_.ui, retainChanges);
        if (answer != Answer::Yes) return answer == Answer::No;
    }
    if (!ValidateOffsets()) return false;
    store();
    return true;
}

} // namespace metrisk
