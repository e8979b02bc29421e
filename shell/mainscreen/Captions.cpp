#include "shell/mainscreen/Captions.h"

namespace metrisk {

const std::vector<const char*>& identificationLabels() {
    static const std::vector<const char*> labels = {" Manufacturer",   " Model Number", " Description",
                                                    " Parameter Name", " Qualifier 1",  " Qualifier 2"};
    return labels;
}

const std::vector<Caption>& mainCaptions() {
    static const std::vector<Caption> captions = {
        {"cmdSU", "SUBJECT\nUNIT"},
        {"cmdMTE", "MEASURING\nSYSTEM"},
        {"pnl_NominalValueLabel", "Nominal or Reading Value"},
        {"Lbl_SUPctInTol", "% In-Tolerance"},
        {"pnl_LblSUTolerances", "Subject Parameter Tolerance Options"},
        {"TwoSideOption", "Two-Sided"},
        {"SingleUpperOption", "Single-Sided Upper"},
        {"SingleLowerOption", "Single-Sided Lower"},
        {"chk_Symmetric", " Symmetric Tolerances"},
        {"PhysLimitRequired", " Enter Physical Limit?"},
        {"pnlOffsets", "Display\nOption"},
        {"optOffsets_0", "Limits"},
        {"optOffsets_1", "Tolerances"},
        {"pnl_Units", "Units"},
        {"Lbl_Equals", "="},
        {"Lbl_Plus", "+"},
        {"pnl_RiskLabel_0", "False Accept Risk"},
        {"pnl_RiskLabel_1", "False Reject Risk"},
        {"pnl_EqAccRatLabel", "Equivalent Accuracy Ratio"},
        {"pnl_BaseRiskLabel_0", "False Accept Risk"},
        {"pnl_BaseRiskLabel_1", "False Reject Risk"},
        {"pnl_BaseAccRatLabel", "Accuracy Ratio"},
        {"ComputeResults", "&COMPUTE  RISKS"},
        {"cmd_Baseline", "COMPUTE  &BASELINE"},
        {"pnl_UncRatioLabel", "Uncertainty Ratio"},
        {"pnlTURLabel", "Test Uncertainty Ratio"},
        {"pnl_GuardbandLabel", "Guardbands"},
        {"Lbl_Guardbands_0", "Upper"},
        {"Lbl_Guardbands_1", "Lower"},
        {"optGuardbands_0", "Show Limits"},
        {"optGuardbands_1", "Show Multipliers"},
        {"chk_IncludeGuardbands", "Include "},
        {"chk_SymmetricGBands", "Symmetric"},
        {"pnl_UncertaintyLabel", "Process Uncertainty"},
        {"chk_IncludeUncertainty", "Include"},
    };
    return captions;
}

const char* captionOf(std::string_view control) {
    for (const Caption& caption : mainCaptions())
        if (control == caption.control) return caption.text;
    return "";
}

} // namespace metrisk
