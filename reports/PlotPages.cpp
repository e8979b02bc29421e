// The plots of a report: both parameters, and the error of the measurement process.
#include "drawing/SubSurface.h"
#include "plots/DistributionPlots.h"
#include "reports/Compose.h"

#include <memory>

namespace metrisk {

namespace {

constexpr double pictureWidth = 6000;    // twips
constexpr double parameterHeight = 5500; // two go on a page
constexpr double errorHeight = 6600;     // two lines of text more
constexpr double pictureZoom = 0.875;    // no text is smaller than 7 points
constexpr const char* captionColumn = "^9360;";
constexpr Message noData{"No Data to Plot.", "No Data", BoxIcon::Information};

/// A zoom of 0 is one of 100 %.
double zoomFactor(float percent) {
    return percent > 0 ? 100.0 / static_cast<double>(percent) : 1;
}

void plotPage(Composition& c, const char* caption, double height, DistributionPlot&& computed) {
    const auto plot = std::make_shared<const DistributionPlot>(std::move(computed));
    if (!plot->holdsData()) {
        c.watch.tell(noData);
        return;
    }
    ReportDocument& d = c.document;
    c.style(12, false);
    c.lineFeed();
    d.Table(std::string(captionColumn) + caption + ";");
    c.style(10, false);
    d.DrawPicture(
        {.description = std::string(caption) + ": " + plot->title,
         .paint =
             [plot, regional = c.regional, family = d.FontName](DrawingSurface& whole) {
                 SubSurface surface(whole, {0, 0}, whole.deviceWidth(), whole.deviceHeight(), pictureZoom);
                 surface.setFamily(family);
                 DrawDistributionPlot(surface, *plot, regional);
             }},
        (d.PageWidth - pictureWidth) / 2, d.CurrentY, pictureWidth, height);
}

} // namespace

bool ComposeParameterPlots(Composition& c) {
    c.running("Measurement Decision Risk Analysis||Parameter Bias Distributions");
    Analysis& r = c.record;
    r.SUPlot_Zoom = zoomFactor(c.selection.Report_SUZoom);
    r.MTEPlot_Zoom = zoomFactor(c.selection.Report_MTEZoom);
    const bool subject = r.SU_PctInTol > 0;
    if (subject && !c.watch.fitSubject()) return false;
    plotPage(c, "Subject Parameter", parameterHeight,
             subject ? subjectPlot(r, c.regional) : DistributionPlot{});
    const bool measuring = r.MTE_PctInTol > 0;
    if (measuring && !c.watch.fitMeasuring()) return false;
    plotPage(c, "Measuring Parameter", parameterHeight,
             measuring ? measuringPlot(r, c.regional) : DistributionPlot{});
    return true;
}

bool ComposeErrorPlot(Composition& c) {
    c.running("Measurement Decision Risk Analysis||Measurement Process Error Distribution");
    c.record.ErrorPlot_Zoom = zoomFactor(c.selection.Report_ErrorZoom);
    plotPage(c, "Measurement Process Error", errorHeight, errorPlot(c.record, c.regional));
    return true;
}

} // namespace metrisk
