// The screen ObservedPctWorksheet.
#include "window/risk/Layouts.h"

#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"

#include <QLabel>

namespace metrisk {

namespace {

constexpr int figure = 12;

QWidget* overBox(QWidget* label) {
    auto* heading = static_cast<QLabel*>(label);
    heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    heading->setContentsMargins(0, 0, figureMargin, 0);
    heading->setForegroundRole(captionRole());
    return heading;
}

} // namespace

QWidget* layoutObservedPct(const WidgetMaker& w) {
    QGroupBox* figures =
        group("% In-Tolerance", rows({{w("Lbl_True"), w.box("TruePctBox", figure), "%", w("Lbl_Observed"),
                                       w.box("ObservedPctBox", figure), "%"},
                                      {{w("Lbl_ExactFigure"), 3}, {w("CmdCompute"), 3}}}));
    QGridLayout* choices =
        rows({{w("opt_UseGuardbands_0"), w("opt_UseGuardbands_1"), w("opt_UseGuardbands_2"), w("cmd_Update")},
              {w("opt_Limits_0"), w("opt_Limits_1"), {}, w("cmd_ShowLimit")}});
    choices->setContentsMargins(0, 0, 0, 0);
    auto* options = new QWidget;
    options->setLayout(choices);
    QGroupBox* use =
        group("Guardbands",
              rows({{{options, 4}},
                    {{}, overBox(w("Lbl_Multiplier")), overBox(w("Lbl_kFactor")), overFigures("Guardband")},
                    {w("Lbl_Limit_0"), w.box("pnl_Multiplier_0", figure), w.box("pnl_kFactor_0", figure),
                     w.box("pnl_Limit_0", figure)},
                    {w("Lbl_Limit_1"), w.box("pnl_Multiplier_1", figure), w.box("pnl_kFactor_1", figure),
                     w.box("pnl_Limit_1", figure)}}));
    QGroupBox* unit =
        group("Observing Unit", rows({{w("ObservingUnitOption_0"), w("ObservingUnitOption_1")},
                                      {"Manufacturer", w("ObsID_0"), "Model Number", w("ObsID_1")},
                                      {"Description", w("ObsID_2"), "Parameter Name", w("ObsID_3")},
                                      {w("Lbl_Limit"), w("StatsData_1"), "Units", w("OffsetUnitsBox")},
                                      {w("Lbl_Confidence"), w("StatsData_0"), {"AOP %", 2}}}));
    lineUpCaptions({figures, use, unit});
    return down({figures, use, unit, foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
