// The screen BaselineAnalysis: the analysis's reference case beside the default one.
#include "window/risk/Layouts.h"

#include "window/kit/Widgets.h"

namespace metrisk {

QWidget* layoutBaselineAnalysis(const WidgetMaker& w) {
    QGroupBox* analysis = group("Analysis Baseline",
                                rows({{w("optUserBaseline"), {w("optZ540Baseline"), 3}},
                                      {"Accuracy ratio", w("BaseAccRat1"), ":", w.box("BaseAccRat2", 7)},
                                      {"Measuring parameter % in-tolerance", w("BaselinePctInTol1")},
                                      {"Subject parameter % in-tolerance", w("BaselinePctInTol2")},
                                      {"False accept risk", w("BaseFalseAccept"), w("FalseAcceptRiskUnits")},
                                      {{w("Lbl_ExactAccept"), 4}},
                                      {"False reject risk", w("BaseFalseReject"), w("FalseRejectRiskUnits")},
                                      {{w("Lbl_ExactReject"), 4}},
                                      {w("pnl_FAOption"), {w("cmd_FAOption"), 3}},
                                      {{w("ComputeBaselineResults"), 4}}}));
    QGroupBox* defaults =
        group("Default Baseline",
              rows({{"Baseline option", {w("pnlDefBaselineOption"), 3}},
                    {"Accuracy ratio", w("DefAccRat1"), ":", w.box("DefAccRat2", 7)},
                    {"Measuring parameter % in-tolerance", w("DefPctInTol1")},
                    {"Subject parameter % in-tolerance", w("DefPctInTol2")},
                    {"False accept risk", w("DefFalseAccept"), w("DefFalseAcceptRiskUnits")},
                    {"False reject risk", w("DefFalseReject"), w("DefFalseRejectRiskUnits")},
                    {{w("pnl_DefaultFAOption"), 4}},
                    {{across({w("Cmd_RetrieveDefaultBaseline"), w("Cmd_SetDefaultBaseline")}), 4}}}));
    QWidget* sides = across({analysis, named(defaults, "pnl_Defaults")});
    return down({sides, foot({w("cmd_OK"), w("mnu_Exit")})});
}

} // namespace metrisk
