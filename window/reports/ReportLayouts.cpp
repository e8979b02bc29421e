#include "window/kit/Panels.h"
#include "window/kit/Widgets.h"
#include "window/reports/Layouts.h"

#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace metrisk {

namespace {

/// Rows stand close together at the top, whatever room there is.
void fromTheTop(QGroupBox* panel) {
    if (auto* grid = qobject_cast<QGridLayout*>(panel->layout()))
        grid->setRowStretch(grid->rowCount(), 1);
    else
        static_cast<QBoxLayout*>(panel->layout())->addStretch();
}

} // namespace

QWidget* layoutPrintDialog(const WidgetMaker& w) {
    QGroupBox* reports =
        group("Reports", {w("Chk_IncludeRiskAnalysis"), w("Chk_IncludePlots"), w("Chk_IncludeErled"),
                          w("Chk_IncludeErrPlot"), w("Chk_IncludeDecision")});
    QGroupBox* parameters = group("Parameter Plots", rows({{"SU Zoom", w("cbo_SUZoom")},
                                                           {"MTE Zoom", w("cbo_MTEZoom")},
                                                           {{w("opt_ParamTolerance_0"), 2}},
                                                           {{w("opt_ParamTolerance_1"), 2}}}));
    QWidget* errors = named(group("Error Plot", rows({{"Zoom", w("cbo_ErrorZoom")},
                                                      {{w("opt_ErrorTolerance_0"), 2}},
                                                      {{w("opt_ErrorTolerance_1"), 2}},
                                                      {{w("opt_ErrorTolerance_2"), 2}},
                                                      {{w("chk_IncludeMTEBias"), 2}}})),
                            "pnl_ErrPlotOptions");
    QGroupBox* font = group("Font", {w("Combo1"), w("PrintSample"), w("Chk_FontDefault")});
    QGroupBox* margins = group("Margins", rows({{"Left", w("Txt_LMargin"), w("Lbl_LUnits")},
                                                {"Top", w("Txt_TMargin"), w("Lbl_TUnits")}}));
    lineUpCaptions({static_cast<QGroupBox*>(errors), margins});
    for (QGroupBox* each : {reports, parameters, margins, font}) fromTheTop(each);
    fromTheTop(static_cast<QGroupBox*>(errors));
    QWidget* columns[] = {down({reports, font}), parameters, down({errors, margins})};
    return down({across({columns[0], columns[1], columns[2]}),
                 foot({w("cmd_Preview"), w("cmd_Print"), w("cmd_Close")})});
}

QWidget* layoutReportOptions(const WidgetMaker& w) {
    constexpr int characters = 36;
    QGroupBox* who =
        group("Report",
              rows({{"Reporting Organization", w.box("txt_Organization", characters), w("chk_Organization")},
                    {"Reporting Department", w("txt_Department"), w("chk_Department")},
                    {"Approving Department", w("txt_ApprovingDept"), w("chk_ApprovingDept")},
                    {"Submitted By:  (Name/Code)", w("txt_Submitter"), w("Chk_IncludeSub")},
                    {"Approved By:  (Name/Code)", w("txt_Approver"), w("Chk_IncludeApp")},
                    {w("chk_FileName")}}));
    QGroupBox* remarks = group("Remarks", {w("txt_Remarks"), w("chk_Remarks")});
    QGroupBox* summary = group("Data Summary", {w("Opt_TabDelimited"), w("Opt_CommaDelimited")});
    QGroupBox* defaults = group("Defaults", {w("opt_Defaults_0"), w("opt_Defaults_1")});
    return down({who, remarks, across({summary, defaults}), foot({w("cmd_OK"), w("cmd_Cancel")})});
}

QWidget* layoutPreview(const WidgetMaker& w) {
    auto* scroll = new QScrollArea;
    QWidget* page = w("vs_Print");
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setMinimumSize(300, 200);
    QWidget* bar =
        across({w("cbo_Zoom"), w("cmd_Previous"), w("pnl_Status"), w("cmd_Next"), w("pnl_Message")});
    QWidget* content = down({bar, scroll});
    static_cast<QVBoxLayout*>(content->layout())->setStretch(1, 1);
    // The width of a page, and something of the screens behind it.
    prefer(content, QSize(900, 680).boundedTo(content->screen()->availableSize() - QSize(24, 24)));
    return content;
}

} // namespace metrisk
