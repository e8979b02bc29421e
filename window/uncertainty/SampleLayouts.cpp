// The screens DataEntryWorksheet, CorrelationList and BiasCalcOption.
#include "window/uncertainty/Layouts.h"

#include "window/kit/Panels.h"
#include "window/kit/ToolIcon.h"
#include "window/kit/Widgets.h"

#include <QBoxLayout>
#include <QPushButton>

namespace metrisk {

QWidget* layoutDataEntry(const WidgetMaker& w) {
    QWidget* grid = w("ss");
    grid->setAccessibleName("Measured Values");
    grid->setMinimumSize(grid->fontMetrics().averageCharWidth() * 34, grid->fontMetrics().lineSpacing() * 16);
    QWidget* picture = w("pic_Samples");
    picture->setMinimumSize(260, 140);
    QGroupBox* options = group("", rows({{{headingRow("Samples", {w("Lbl_MostSamples")}), 2}},
                                         {w("Lbl_NominalValue"), w("NominalValueBox")},
                                         {w("measOption_0"), w("measOption_1")}}));
    options->setAccessibleName("Samples");
    QGroupBox* figures = group("Statistics", rows({{w("Lbl_MeanValue"), w("MeanValuePanel")},
                                                   {w("Lbl_SampleSize"), w("SampleSizePanel")},
                                                   {w("Lbl_StdDeviation"), w("StdDeviationPanel")},
                                                   {w("Lbl_MeanSigma"), w("pnl_MeanSigma")},
                                                   {{w("chk_SamplingDistribution"), 2}}}));
    lineUpCaptions({options, figures});
    return down({across({down({grid, w("Lbl_Taken")}), down({options, figures, picture, w("Lbl_Range")})}),
                 foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

QWidget* layoutBiasCalcOption(const WidgetMaker& w) {
    QGroupBox* options = group("Estimate the % In-Tolerance at Time of Measurement",
                               rows({{w("Lbl_Interval"), w("IntervalPanel"), w("IntervalUnitsBox")},
                                     {{w("BiasOption_0"), 3}},
                                     {{w("BiasOption_1"), 3}},
                                     {w("BiasOption_2"), w("TimeBox"), w("TimeUnitsBox")},
                                     {w("Lbl_InTol"), w("InTolPanel"), "%"},
                                     {{w("Lbl_NoModel"), 3}},
                                     {{w("cmd_DefineModel"), 3}}}));
    return down({options, foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
}

QWidget* layoutCorrelationList(const WidgetMaker& w) {
    const auto table = [&w](const char* name, const char* told, int characters, int lines) {
        QWidget* made = w(name);
        made->setAccessibleName(told);
        made->setMinimumSize(made->fontMetrics().averageCharWidth() * characters,
                             made->fontMetrics().lineSpacing() * lines);
        return made;
    };
    QWidget* lists =
        across({table("lst_Variable_0", "Column 1", 20, 6), table("lst_Variable_1", "Column 2", 20, 6)});
    auto* add = static_cast<QPushButton*>(w("cmd_AddPair"));
    add->setIcon(toolIcon("down")); // from the lists above into the table below
    QWidget* between = across({w("Lbl_Hint"), add});
    static_cast<QBoxLayout*>(between->layout())->setStretch(0, 1);
    QWidget* content = down({w("pnl_Header"), lists, between, table("ss", "Correlations", 44, 5),
                             foot({w("mnu_Exit_0"), w("mnu_Exit_1")})});
    auto* column = static_cast<QBoxLayout*>(content->layout());
    column->setStretch(1, 3); // nine sources are more than most have pairs
    column->setStretch(3, 2);
    prefer(content, {0, lists->fontMetrics().lineSpacing() * 38});
    return content;
}

} // namespace metrisk
