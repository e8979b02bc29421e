// The screen ReliabilityModelCoefficients.
#include "window/reliability/Layouts.h"

#include "window/kit/FoldingRow.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"

#include <QBoxLayout>
#include <QLabel>

namespace metrisk {

QWidget* layoutReliability(const WidgetMaker& w) {
    QWidget* parameter = across({w("optParameter_0"), w("optParameter_1")});
    static_cast<QBoxLayout*>(parameter->layout())->addStretch();
    QGroupBox* model = group("Model", rows({{w("Lbl_Model"), {w("cbo_RModels"), 3}},
                                            {{}, {w("ReliabilityModelCaption"), 3}},
                                            {"Cal / Test Interval ( t )", w.box("CalibrationIntervalBox", 8),
                                             "Interval Units", w.box("IntervalUnitsBox", 8)}}));
    constexpr int percent = 7;
    QGroupBox* percentages = group("% In-Tolerance", rows({{w("Lbl_BOP"), w.box("BOPBox", percent), "%"},
                                                           {w("Lbl_AOP"), w.box("AOPBox", percent), "%"},
                                                           {w("Lbl_EOP"), w.box("EOPBox", percent), "%"},
                                                           {{w("Compute"), 3}}}));
    QWidget* mark = w("Lbl_Questionable");
    keepRoom(mark);
    QGroupBox* coefficients = group("Coefficients", rows({{w("Lbl_theta1"), w("theta1Box")},
                                                          {w("Lbl_theta2"), w("theta2Box")},
                                                          {w("Lbl_theta3"), w("theta3Box")},
                                                          {{w("cmdComputePct"), 2}}}));
    lineUpCaptions({model, percentages});
    QWidget* picture = w("pic_RPlot");
    picture->setMinimumSize(360, 240);
    const auto pair = [](const char* name, QWidget* box, const char* unit) {
        auto* label = new QLabel(name);
        nameBy(label, box);
        return across({label, box, new QLabel(unit)});
    };
    auto* data = new FoldingRow({pair("Time ( t )", w.box("txt_RPlotData_0", 8), ""),
                                 pair("Reliability", w.box("txt_RPlotData_1", 8), "%"),
                                 pair("Plot Limit", w.box("txt_RPlotData_2", 8), "")});
    auto* solved = new FoldingRow({percentages, coefficients});
    QWidget* entries = down({parameter, model, solved, mark});
    static_cast<QBoxLayout*>(entries->layout())->addStretch();
    QWidget* plot = down({picture, data});
    static_cast<QBoxLayout*>(plot->layout())->setStretch(0, 1);
    QWidget* sides = across({entries, plot});
    static_cast<QBoxLayout*>(sides->layout())->setStretch(1, 1);
    auto* header = static_cast<QLabel*>(w("pnl_Header"));
    header->setForegroundRole(captionRole());
    QWidget* content = down({header, sides, foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
    static_cast<QBoxLayout*>(content->layout())->setStretch(1, 1);
    return content;
}

} // namespace metrisk
