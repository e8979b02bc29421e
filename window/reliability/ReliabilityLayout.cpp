// The screen ReliabilityModelCoefficients.
#include "window/reliability/Layouts.h"

#include "window/kit/Widgets.h"

namespace metrisk {

QWidget* layoutReliability(const WidgetMaker& w) {
    QWidget* parameter = across({w("optParameter_0"), w("optParameter_1")});
    QGroupBox* model = group("Model", rows({{w("Lbl_Model"), {w("cbo_RModels"), 3}},
                                            {{}, {w("ReliabilityModelCaption"), 3}},
                                            {"Cal / Test Interval ( t )", w("CalibrationIntervalBox"),
                                             "Interval Units", w.box("IntervalUnitsBox", 8)}}));
    QGroupBox* percentages = group("% In-Tolerance", rows({{w("Lbl_BOP"), w("BOPBox")},
                                                           {w("Lbl_AOP"), w("AOPBox")},
                                                           {w("Lbl_EOP"), w("EOPBox")},
                                                           {{w("Compute"), 2}}}));
    QWidget* mark = w("Lbl_Questionable");
    keepRoom(mark);
    QGroupBox* coefficients = group("Coefficients", rows({{w("Lbl_theta1"), w("theta1Box")},
                                                          {w("Lbl_theta2"), w("theta2Box")},
                                                          {w("Lbl_theta3"), w("theta3Box")},
                                                          {{w("cmdComputePct"), 2}},
                                                          {{mark, 2}}}));
    QWidget* picture = w("pic_RPlot");
    picture->setMinimumSize(300, 220);
    QWidget* data = new QWidget;
    data->setLayout(rows({{"Time ( t )", w.box("txt_RPlotData_0", 8), "Reliability",
                           w.box("txt_RPlotData_1", 8), "Plot Limit", w.box("txt_RPlotData_2", 8)}}));
    QWidget* entries = down({parameter, model, across({percentages, coefficients})});
    return down({w("pnl_Header"), across({entries, down({picture, data})}),
                 foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

} // namespace metrisk
