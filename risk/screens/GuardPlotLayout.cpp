// The screens GuardPlot and RiskMap.
#include "risk/screens/Layouts.h"

#include "screens/Widgets.h"

#include <QHBoxLayout>
#include <QLabel>

namespace metrisk {

namespace {

/// The bar below the chart keeps its place while nothing is computed.
QWidget* progress(const WidgetMaker& w) {
    QWidget* panel = named(across({w("Lbl_Message"), w("MessageBox1"), w("CmdCancelPlot")}), "MessagePanel");
    keepRoom(panel);
    return panel;
}

} // namespace

QWidget* layoutGuardPlot(const WidgetMaker& w) {
    QWidget* chart = w("Graph1");
    chart->setMinimumSize(480, 360);
    QWidget* range = named(group("", rows({{{w.heading("pnl_PlotPointsHdr"), 2}},
                                           {w("Lbl_LowerLimit"), w("LowerLimitBox")},
                                           {w("Lbl_UpperLimit"), w("UpperLimitBox")},
                                           {w("Lbl_NumberPoints"), w("NumberPointsBox")},
                                           {{w("optShowPct"), 2}},
                                           {{w("optShowSigma"), 2}}})),
                           "pnl_PlotPoints");
    QWidget* baseline = named(group("Baseline", rows({{w("Lbl_SUPctInTol"), w("txt_SUPctInTol")},
                                                      {w("Lbl_MTEPctInTol"), w("txt_MTEPctInTol")}})),
                              "pnl_Baseline");
    QWidget* uncertainties = w("pnl_ProcessUncertainty");
    static_cast<QLabel*>(uncertainties)->setWordWrap(true);
    QWidget* include =
        named(group("Include", {w("chk_IncludeGuardbands"), w("chk_IncludeMTESigma"), uncertainties}),
              "pnl_Include");
    QWidget* show = group("Show", {w("Opt_FalseAccept"), w("Opt_FalseReject"), w("Opt_Both"),
                                   w("Chk3D_ThickLines"), w("chk_SmoothCurve")});
    QWidget* choices = down({range, baseline, include, show, w("CmdPlotGraph")});
    static_cast<QBoxLayout*>(choices->layout())->addStretch();
    choices->setMaximumWidth(choices->fontMetrics().averageCharWidth() * 46);
    QWidget* content = across({down({chart, progress(w)}), choices});
    static_cast<QBoxLayout*>(content->layout())->setStretch(0, 1);
    return content;
}

} // namespace metrisk
