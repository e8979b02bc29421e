// What the tolerance offset worksheet shows.
#include "base/NumberText.h"
#include "desk/kit/RestingTips.h"
#include "desk/offset/OffsetScreen.h"
#include "numerics/CoverageFactor.h"
#include "numerics/Distribution.h"
#include "record/ComposedOffset.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"

namespace metrisk {

namespace {

constexpr const char* plusMinus = "\u00b1";

std::string number(double value, std::string_view picture, const Regional& regional) {
    return FormatNumber(value, fullPicture(value, picture), regional);
}

} // namespace

std::string OffsetCalc::offsetText(double nominal, const std::string& picture, Parameter parameter) const {
    const Analysis& r = desk_.record;
    const ToleranceUnits units = parameter == Parameter::Subject ? subjectUnits(r) : measuringUnits(r);
    const double shown = nominal * factorOf(parameter);
    return number(shown, r.OffsetsInNominalUnits ? picture : units.shownPicture(picture), desk_.regional);
}

void OffsetCalc::showSide(const SubjectSide& side) {
    const Analysis& r = desk_.record;
    const bool upper = &side == &upperSide;
    Label& label = upper ? Lbl_SUUpper : Lbl_SULower;
    TextBox& offset = upper ? SUUpperOffsetBox : SULowerOffsetBox;
    TextBox& fixed = upper ? SUUpperFixedBox : SULowerFixedBox;
    TextBox& pct = upper ? SUUpperPctBox : SULowerPctBox;
    const bool absent = r.*side.absent;
    label.visible = offset.visible = !absent || r.PhysLimitRequired;
    (upper ? pnl_Upper : pnl_Lower).visible = !absent;
    offset.locked = !absent;
    if (absent) {
        label.text = "Physical Limit";
        offset.text =
            r.PhysicalLimitEntered ? number(r.PhysicalLimit, r.PhysicalLimit_fmt, desk_.regional) : "";
        return;
    }
    label.text = upper ? "Upper Tolerance Limit" : "Lower Tolerance Limit";
    offset.text = offsetText(side.sign * r.*side.offset, r.*side.offsetPicture, Parameter::Subject);
    fixed.text = offsetText(r.*side.fixed, r.*side.fixedPicture, Parameter::Subject);
    const std::string& pctPicture = upper ? r.SU_UpperPctReading_fmt : r.SU_LowerPctReading_fmt;
    pct.text = number(r.*side.pctReading, pctPicture, desk_.regional);
    fixed.locked = pct.locked = !upper && r.OptTwoSided && r.SymmetricTolerances;
}

void OffsetCalc::showMeasuring() {
    const Analysis& r = desk_.record;
    const bool uncertainty = r.MTE_EntryByUncertainty;
    Lbl_MTE.text = uncertainty ? "Expanded Uncertainty" : std::string(plusMinus) + " Tolerance Limit";
    Lbl_MTEFixed.text = uncertainty ? "Standard Uncertainty" : "Fixed";
    Lbl_MTEPct.text = uncertainty ? "Deg. Freedom" : "% of Reading";
    Lbl_MTEPctInTol.text = uncertainty ? "Confidence (%)" : "% In-Tolerance";
    Lbl_MTEBias.text = uncertainty ? "Cov. Factor" : "Bias Uncertainty";
    Lbl_Equals.visible = Lbl_Plus.visible = !uncertainty;
    opt_MTETolerance_0.checked = !uncertainty;
    opt_MTETolerance_1.checked = uncertainty;

    MTEOffsetBox.locked = !uncertainty;
    MTEOffsetBox.text = offsetText(r.MTE_Offset, r.MTE_Offset_fmt, Parameter::Measuring);
    MTEFixedBox.text = uncertainty
                           ? offsetText(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt, Parameter::Measuring)
                           : offsetText(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt, Parameter::Measuring);
    MTEPctBox.text = uncertainty ? GeneralText(r.MTE_DegFreedom, desk_.regional)
                                 : number(r.MTE_PctReading, r.MTE_PctReading_fmt, desk_.regional);
    txt_PctInTol_1.text = number(r.MTE_PctInTol, inTolPicture, desk_.regional);
    const double bias = uncertainty ? r.MTE_kFactor : r.MTE_StdUncertainty * factorOf(Parameter::Measuring);
    txt_MTEBiasUncertainty.text = bias > 0 ? number(bias, "#,##0.0000", desk_.regional) : "";
    const bool studentsT = r.MTE_DegFreedom > 0 && r.MTE_DegFreedom < infiniteDegFreedom;
    pnl_Distribution_1.text = !(bias > 0) ? "" : studentsT ? studentsTName : normalName;
}

void OffsetCalc::refresh() {
    const Analysis& r = desk_.record;
    txt_Mode.text = number(r.SU_Mode, r.SU_Mode_fmt, desk_.regional);
    ModeUnitsButton.checked = r.OffsetsInNominalUnits;
    OffsetUnitsButton.checked = !r.OffsetsInNominalUnits;
    opt_Tolerance_0.checked = r.OptTwoSided;
    opt_Tolerance_1.checked = r.OptSingleUpper;
    opt_Tolerance_2.checked = r.OptSingleLower;
    chk_Symmetric.checked = r.SymmetricTolerances;
    chk_Symmetric.allow(r.OptTwoSided, oneToleranceTip);
    chk_PhysicalLimit.checked = r.PhysLimitRequired;
    chk_PhysicalLimit.allow(!r.OptTwoSided, noPhysicalLimitTip);
    showSide(upperSide);
    showSide(lowerSide);
    txt_PctInTol_0.text = number(r.SU_PctInTol, inTolPicture, desk_.regional);
    const double sigma = r.SU_Sigma * factorOf(Parameter::Subject);
    txt_SUBiasUncertainty.text = sigma > 0 ? number(sigma, "#,##0.0000", desk_.regional) : "";
    pnl_Distribution_0.text = r.SU_Distribution;
    showMeasuring();
}

} // namespace metrisk
