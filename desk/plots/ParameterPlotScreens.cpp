#include "desk/plots/ParameterPlotScreens.h"

#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "desk/plots/PlotDesk.h"
#include "plots/DistributionPlots.h"

namespace metrisk {

SUPlot::SUPlot(PlotDesk& plotDesk) : PlotScreen(plotDesk, PlotKind::SU, "SUPlot") {
    caption = "Subject Parameter Bias Distribution";
    Analysis& r = session().record;
    const auto show = [this, &r](bool offsets) {
        r.SUPlot_ShowTolerances = offsets;
        changed();
    };
    const auto limitsOf = [this, &r](bool measuring) {
        r.SUPlot_UseMTETols = measuring;
        markStale();
        redraw();
    };
    menus = {
        returnItem("Cmd_Return"),
        partnerItem("Cmd_ShowMTEPlot", PlotKind::MTE),
        partnerItem("mnu_ErrorPlot", PlotKind::Error),
        {.control = "Cmd_Options",
         .caption = "&Options",
         .items = {optionItem("Cmd_ShowTolerances", "Show &Tolerances", [show] { show(false); }),
                   optionItem("Cmd_ShowOffsets", "Show Tolerance &Limits", [show] { show(true); }),
                   optionItem("mnu_SUPlotTolOption_0", "Use &Subject Parameter Tolerances",
                              [limitsOf] { limitsOf(false); }),
                   optionItem("mnu_SUPlotTolOption_1", "Use &MTE Tolerances", [limitsOf] { limitsOf(true); }),
                   optionItem("mnu_FalseDecisions", "Show &False Decisions",
                              [this] {
                                  shaded_ = !shaded_;
                                  redraw();
                              })}},
        zoomMenu(),
        redrawItem("mnu_Refresh"),
        copyItem(),
        runMenu(session()),
        helpItem(),
    };
}

void SUPlot::fit() {
    session().record.ComputeScope = "SU";
    FitSubjectParameter(session());
}

DistributionPlot SUPlot::compute() {
    DistributionPlot plot = subjectPlot(session().record, session().regional);
    if (!shaded_) plot.falseDecisions.reset();
    return plot;
}

double& SUPlot::zoom() {
    return session().record.SUPlot_Zoom;
}

void SUPlot::afterFailedDrawing() {
    zoom() = 1;
}

void SUPlot::showCommands() {
    const Analysis& r = session().record;
    item("Cmd_ShowMTEPlot").caption = desk().captionFor(*this, PlotKind::MTE);
    item("Cmd_ShowMTEPlot").off = !desk().hasData(PlotKind::MTE);
    item("mnu_ErrorPlot").caption = desk().captionFor(*this, PlotKind::Error);
    item("mnu_ErrorPlot").off = !desk().hasData(PlotKind::Error);
    check("Cmd_ShowTolerances", !r.SUPlot_ShowTolerances);
    check("Cmd_ShowOffsets", r.SUPlot_ShowTolerances);
    check("mnu_SUPlotTolOption_0", !r.SUPlot_UseMTETols);
    check("mnu_SUPlotTolOption_1", r.SUPlot_UseMTETols);
    check("mnu_FalseDecisions", shaded_ && plot().falseDecisions);
}

MTEPlot::MTEPlot(PlotDesk& plotDesk) : PlotScreen(plotDesk, PlotKind::MTE, "MTEPlot") {
    Analysis& r = session().record;
    r.MTEPlot_Title = measuringTitle(r, true);
    const auto show = [this, &r](bool offsets) {
        r.MTEPlot_ShowOffsets = offsets;
        changed();
    };
    const auto limitsOf = [this, &r](bool subject) {
        r.MTEPlot_UseSUTols = subject;
        markStale();
        redraw();
    };
    const bool bounds = r.MTE_EntryByUncertainty;
    menus = {
        returnItem("Cmd_Return"),
        partnerItem("Cmd_ShowSUPlot", PlotKind::SU),
        partnerItem("mnu_ErrorPlot", PlotKind::Error),
        {.control = "Cmd_Options",
         .caption = "&Options",
         .items = {optionItem("Cmd_ShowTolerances", bounds ? "Show Error &Boundaries" : "Show &Tolerances",
                              [show] { show(false); }),
                   optionItem("Cmd_ShowOffsets",
                              bounds ? "Show \u00b1 Error &Limits" : "Show Tolerance &Limits",
                              [show] { show(true); }),
                   optionItem("mnu_UseMTETols",
                              bounds ? "Use MTE &Expanded Uncertainty" : "Use &MTE Tolerances",
                              [limitsOf] { limitsOf(false); }),
                   optionItem("mnu_UseSUTols", "Use &Subject Parameter Tolerances",
                              [this, limitsOf] { useSubjectLimits([limitsOf] { limitsOf(true); }); }),
                   {.control = "CmdIncludeUncertainty",
                    .caption = "&Include Process Uncertainty",
                    .run = [this] { includeUncertainty(); }}}},
        zoomMenu(),
        redrawItem("mnu_Refresh"),
        copyItem(),
        runMenu(session()),
        helpItem(),
    };
}

void MTEPlot::includeUncertainty() {
    Analysis& r = session().record;
    r.MTEPlot_IncludeUncertainty = !r.MTEPlot_IncludeUncertainty;
    r.MTEPlot_Title = measuringTitle(r, false);
    changed();
}

void MTEPlot::fit() {
    Analysis& r = session().record;
    r.ComputeScope = r.MTEPlot_UseSUTols ? "Both" : "MTE";
    if (r.MTEPlot_UseSUTols) FitSubjectParameter(session());
    if (!r.AbortFlag) FitMeasuringParameter(session());
}

DistributionPlot MTEPlot::compute() {
    return measuringPlot(session().record, session().regional);
}

double& MTEPlot::zoom() {
    return session().record.MTEPlot_Zoom;
}

void MTEPlot::afterFailedDrawing() {
    desk().comeBack(*this);
}

void MTEPlot::showCommands() {
    const Analysis& r = session().record;
    caption = r.MTEPlot_IncludeUncertainty ? "Total Measurement Error Distribution"
                                           : "Measuring Parameter Bias Distribution";
    item("Cmd_ShowSUPlot").caption = desk().captionFor(*this, PlotKind::SU);
    item("Cmd_ShowSUPlot").off = !desk().hasData(PlotKind::SU);
    item("mnu_ErrorPlot").caption = desk().captionFor(*this, PlotKind::Error);
    item("mnu_ErrorPlot").off = !desk().hasData(PlotKind::Error);
    item("CmdIncludeUncertainty").caption =
        r.MTEPlot_IncludeUncertainty ? "&Exclude Process Uncertainty" : "&Include Process Uncertainty";
    check("Cmd_ShowTolerances", !r.MTEPlot_ShowOffsets);
    check("Cmd_ShowOffsets", r.MTEPlot_ShowOffsets);
    check("mnu_UseMTETols", !r.MTEPlot_UseSUTols);
    check("mnu_UseSUTols", r.MTEPlot_UseSUTols);
}

} // namespace metrisk
