// The screen GuardbandAnalysis.
#include "window/risk/Layouts.h"

#include "window/kit/Widgets.h"

namespace metrisk {

namespace {

QGroupBox* specifications(const WidgetMaker& w) {
    return group(
        "Subject Parameter Specifications and Process Uncertainty",
        rows(
            {{w("Lbl_Mode"), w("ModeBox"), w("Lbl_ProcessUncertainty"), w("pnl_ProcessUncertainty")},
             {w("Lbl_UpperTolerance"), w("UpperTolLimitBox"), w("Lbl_LowerTolerance"), w("LowerTolLimitBox")},
             {{}, w("LimitsOptionButton"), {}, w("OffsetsOptionButton")}}));
}

QGroupBox* multipliers(const WidgetMaker& w) {
    return group("Guardband Multipliers", rows({{w("Lbl_UpperMultiplier"), w("UpperMultiplierBox"),
                                                 w("Lbl_LowerMultiplier"), w("LowerMultiplierBox")},
                                                {{w("SymmetryCheckBox"), 4}}}));
}

QGroupBox* guardbands(const WidgetMaker& w) {
    return group("Guardbands and k-Factors",
                 rows({{w("Lbl_UpperK"), w("txt_kFactor_0"), w("Lbl_LowerK"), w("txt_kFactor_1")},
                       {{w("chk_SymmetricK"), 4}},
                       {w("Lbl_UpperGuardband"), w.box("UpperGuardbandBox", 17), w("Lbl_LowerGuardband"),
                        w.box("LowerGuardbandBox", 17)}}));
}

QGroupBox* keyOn(const WidgetMaker& w) {
    return group("Key On", {w("opt_FARisk"), w("opt_FRRisk"), w("opt_EqualizeRisks")});
}

QWidget* commands(const WidgetMaker& w) {
    QWidget* resolution = w.box("txt_DisplayedResolution", 3);
    resolution->setMaximumWidth(resolution->sizeHint().width());
    resolution->setAccessibleName("Displayed resolution");
    return down({w("cmdComputeGuardbands"), w("CmdPlot"), across({w("cmd_RoundOff"), resolution})});
}

QGroupBox* risks(const WidgetMaker& w) {
    return group("Risks", rows({{w("Lbl_FARisk"), w("FARiskBox"), w("FARiskUnitsBox")},
                                {{w("Lbl_ExactAccept"), 3}},
                                {w("Lbl_FRRisk"), w("FRRiskBox"), w("FRRiskUnitsBox")},
                                {{w("Lbl_ExactReject"), 3}},
                                {{w("Lbl_ExactSolve"), 2}, w("cmd_UseExact")},
                                {w("Lbl_EqAccRat"), w("EqAccRatBox"), w.box("EqAccRat2Box", 4)},
                                {{w("Lbl_ExactRatio"), 3}},
                                {w("IncludeEqAccRatBox"), {w("CmdCompute"), 2}}}));
}

} // namespace

QWidget* layoutGuardbandAnalysis(const WidgetMaker& w) {
    QWidget* work = down({specifications(w), multipliers(w), guardbands(w), across({keyOn(w), commands(w)}),
                          risks(w), group("Computed Risks", rows({{w("Lbl_RiskKey"), w("pnl_RiskKey")}}))});
    QWidget* text = w("txt_Procedure");
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 44);
    QWidget* procedure = named(group("Procedure", {text}), "pnl_Procedure");
    return down({across({work, procedure}), foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
