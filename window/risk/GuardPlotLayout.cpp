// The screens GuardPlot and RiskMap.
#include "window/risk/Layouts.h"

#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"

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
    chart->setMinimumSize(300, 200);
    QWidget* range = named(group("", rows({{{wrapped(w.heading("pnl_PlotPointsHdr")), 2}},
                                           {w("Lbl_LowerLimit"), w("LowerLimitBox")},
                                           {w("Lbl_UpperLimit"), w("UpperLimitBox")},
                                           {w("Lbl_NumberPoints"), w("NumberPointsBox")},
                                           {{w("optShowPct"), 2}},
                                           {{w("optShowSigma"), 2}}})),
                           "pnl_PlotPoints");
    QWidget* baseline = named(group("Baseline", rows({{w("Lbl_SUPctInTol"), w("txt_SUPctInTol")},
                                                      {w("Lbl_MTEPctInTol"), w("txt_MTEPctInTol")}})),
                              "pnl_Baseline");
    QWidget* include = named(group("Include", {w("chk_IncludeGuardbands"), w("chk_IncludeMTESigma"),
                                               wrapped(w("pnl_ProcessUncertainty"))}),
                             "pnl_Include");
    QWidget* show = group("Show", {w("Opt_FalseAccept"), w("Opt_FalseReject"), w("Opt_Both"),
                                   w("Chk3D_ThickLines"), w("chk_SmoothCurve")});
    QWidget* choices = down({range, baseline, include, show, w("CmdPlotGraph")});
    static_cast<QBoxLayout*>(choices->layout())->addStretch();
    choices->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    QWidget* content = across({down({chart, progress(w)}), choices});
    static_cast<QBoxLayout*>(content->layout())->setStretch(0, 1);
    prefer(content, {480 + choices->sizeHint().width(), 480});
    return content;
}

QWidget* layoutRiskMap(const WidgetMaker& w) {
    QWidget* map = w("pic_Map");
    map->setMinimumSize(300, 200);
    QWidget* here = w("Lbl_Here");
    static_cast<QLabel*>(here)->setWordWrap(true);
    static_cast<QLabel*>(here)->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QWidget* axes = group("Axes", rows({{w("Lbl_X"), {w("cbo_X"), 3}},
                                        {"From", w("XFromBox"), "To", w("XToBox")},
                                        {w("Lbl_Y"), {w("cbo_Y"), 3}},
                                        {"From", w("YFromBox"), "To", w("YToBox")}}));
    QWidget* others = group("Other Quantities",
                            {w("Lbl_Ratio"), w("sld_Ratio"), w("Lbl_SUPct"), w("sld_SUPct"), w("Lbl_MTEPct"),
                             w("sld_MTEPct"), w("Lbl_Multiplier"), w("sld_Multiplier"), w("cmd_Present")});
    QWidget* choices = down({group("Show", {w("Opt_FalseAccept"), w("Opt_FalseReject")}), axes, others});
    static_cast<QBoxLayout*>(choices->layout())->addStretch();
    QWidget* content = across({down({map, here}), choices});
    static_cast<QBoxLayout*>(content->layout())->setStretch(0, 1);
    prefer(content, {520 + choices->sizeHint().width(), 450});
    return content;
}

} // namespace metrisk
