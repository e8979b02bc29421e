// The screen ObservedPctWorksheet.
#include "window/risk/Layouts.h"

#include "window/kit/Widgets.h"

namespace metrisk {

QWidget* layoutObservedPct(const WidgetMaker& w) {
    QGroupBox* figures =
        group("% In-Tolerance",
              rows({{w("Lbl_True"), w("TruePctBox"), w("Lbl_Observed"), w("ObservedPctBox"), w("CmdCompute")},
                    {{w("Lbl_ExactFigure"), 5}}}));
    QGroupBox* use = group(
        "Guardbands",
        rows({{w("opt_UseGuardbands_0"), w("opt_UseGuardbands_1"), w("opt_UseGuardbands_2"), w("cmd_Update")},
              {w("opt_Limits_0"), w("opt_Limits_1")},
              {{}, w("Lbl_Multiplier"), w("Lbl_kFactor"), w("cmd_ShowLimit")},
              {w("Lbl_Limit_0"), w("pnl_Multiplier_0"), w("pnl_kFactor_0"), w("pnl_Limit_0")},
              {w("Lbl_Limit_1"), w("pnl_Multiplier_1"), w("pnl_kFactor_1"), w("pnl_Limit_1")}}));
    QGroupBox* unit =
        group("Observing Unit", rows({{w("ObservingUnitOption_0"), w("ObservingUnitOption_1")},
                                      {"Manufacturer", w("ObsID_0"), "Model Number", w("ObsID_1")},
                                      {"Description", w("ObsID_2"), "Parameter Name", w("ObsID_3")},
                                      {w("Lbl_Limit"), w("StatsData_1"), "Units", w("OffsetUnitsBox")},
                                      {w("Lbl_Confidence"), w("StatsData_0"), "AOP %"}}));
    return down({figures, use, unit, foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
