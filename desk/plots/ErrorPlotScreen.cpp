#include "desk/plots/ErrorPlotScreen.h"

#include "desk/compute/FitMeasuring.h"
#include "desk/compute/FitSubject.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "desk/plots/PlotDesk.h"
#include "plots/DistributionPlots.h"

namespace metrisk {

ErrorPlot::ErrorPlot(PlotDesk& plotDesk) : PlotScreen(plotDesk, PlotKind::Error, "ErrorPlot") {
    caption = "Process Error Distribution";
    Analysis& r = session().record;
    const bool subjectMissing = r.ErrorPlot_Param == "SU" && !hasSubjectLimits(r);
    const bool toleranceMissing = r.ErrorPlot_Param == "MTE" && r.MTE_Offset == 0;
    if (subjectMissing || toleranceMissing) r.ErrorPlot_Param = totalErrorReference;
    menus = {
        returnItem("CtrlReturn"),
        partnerItem("mnu_ComparePlot", PlotKind::SU),
        {.control = "CtrlOptions",
         .caption = "&Options",
         .items = {optionItem("mnu_SUReference", "Reference to &SU tolerance limits",
                              [this] { useSubjectLimits([this] { refer("SU"); }); }),
                   optionItem("mnu_MTEReference", "Reference to &MTE tolerance limits",
                              [this] { refer("MTE"); }),
                   optionItem("mnu_TwoSigmaReference", "Reference to &2-sigma limits",
                              [this] { refer(totalErrorReference); }),
                   {.control = "mnu_InclMTEBias",
                    .caption = "&Include MTE Bias Uncertainty",
                    .run = [this] { includeBias(); }}}},
        zoomMenu(),
        redrawItem("mnu_Redraw"),
        copyItem(),
        runMenu(session()),
        helpItem(),
    };
}

void ErrorPlot::refer(const char* reference) {
    session().record.ErrorPlot_Param = reference;
    changed();
}

void ErrorPlot::includeBias() {
    Analysis& r = session().record;
    r.IncludeMTEBias = !r.IncludeMTEBias;
    changed();
}

void ErrorPlot::fit() {
    Analysis& r = session().record;
    if (r.ErrorPlot_Param == "SU") FitSubjectParameter(session());
    if (!r.AbortFlag && r.IncludeMTEBias) FitMeasuringParameter(session());
}

DistributionPlot ErrorPlot::compute() {
    return errorPlot(session().record, session().regional);
}

double& ErrorPlot::zoom() {
    return session().record.ErrorPlot_Zoom;
}

void ErrorPlot::showCommands() {
    const Analysis& r = session().record;
    item("mnu_ComparePlot").caption = desk().captionFor(*this, PlotKind::SU);
    item("mnu_ComparePlot").off = !desk().hasData(PlotKind::SU);
    check("mnu_SUReference", r.ErrorPlot_Param == "SU");
    check("mnu_MTEReference", r.ErrorPlot_Param == "MTE");
    check("mnu_TwoSigmaReference", r.ErrorPlot_Param == totalErrorReference);
    item("mnu_InclMTEBias").caption =
        r.IncludeMTEBias ? "&Exclude MTE Bias Uncertainty" : "&Include MTE Bias Uncertainty";
}

} // namespace metrisk
