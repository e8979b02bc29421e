// metrisk-cli plot: a distribution of an analysis as a picture file.
#include "base/Real.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/PictureOutput.h"
#include "cli/Readers.h"
#include "desk/compute/DataGate.h"
#include "desk/kit/PlotMessages.h"
#include "drawing/Drawing.h"
#include "plots/DistributionPlots.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"

namespace metrisk::cli {

namespace {

constexpr PlotKind kinds[] = {PlotKind::SU, PlotKind::MTE, PlotKind::Error};

struct Options {
    std::string file;
    std::string kind;
    std::string zoom = "100%";
    PictureOutput picture;
    bool offsets = false;
    bool json = false;
    std::string settings;

    PlotKind plotKind() const { return kind == "su" ? kinds[0] : kind == "mte" ? kinds[1] : kinds[2]; }
    double zoomFactor() const {
        for (int i = 0; i < 7; ++i)
            if (percentOf(zoom) == percentOf(zoomNames[i])) return zoomFactors[i];
        return 1;
    }
};

DistributionPlot compute(const Analysis& record, PlotKind kind) {
    switch (kind) {
    case PlotKind::SU: return subjectPlot(record, {});
    case PlotKind::MTE: return measuringPlot(record, {});
    case PlotKind::Error: break;
    }
    return errorPlot(record, {});
}

/// None if there is nothing to draw; why has been told.
std::optional<DistributionPlot> plotOf(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    const PlotKind kind = options.plotKind();
    r.SUPlot_ShowTolerances = r.MTEPlot_ShowOffsets = r.ErrorPlot_Flag = options.offsets;
    r.SUPlot_Zoom = r.MTEPlot_Zoom = r.ErrorPlot_Zoom = options.zoomFactor();
    if (!haveData(run.session, kind == PlotKind::SU ? Needs::Subject : Needs::BothForPlot)) return {};
    const auto none = [&](const Message& why) {
        tell(run.ui, why);
        return std::nullopt;
    };
    if (!hasPlotData(r, kind)) return none(noPlotData);
    try {
        DistributionPlot plot = compute(r, kind);
        Drawing trial;
        if (!plot.holdsData()) return none(noPlotData);
        const auto unknown = DrawDistributionPlot(trial, plot, {});
        if (unknown) return none({"The distribution cannot be drawn.", noPlotData.title});
        return plot;
    } catch (const RuntimeFault&) {
        return none(noPlotData);
    }
}

int draw(const Options& options) {
    if (const std::string fault = options.picture.fault(options.file); !fault.empty())
        return finish(refusal(options.file, fault, wrongUsage, options.json));
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    output.status = unreadable;
    if (run.open(options.file)) {
        const auto plot = plotOf(run, options);
        const bool written =
            plot && options.picture.write(plot->title, run.ui, output, [&](DrawingSurface& surface) {
                DrawDistributionPlot(surface, *plot, run.session.regional);
            });
        output.status = written ? allDone : refused;
    }
    output.diagnostics = diagnosticLines(options.file, run.ui.messages());
    if (options.json) {
        Json object = run.result(options.file, statusWord(output.status, "written"));
        object["output"] = output.status == allDone ? Json(options.picture.path) : Json();
        output.results = jsonLine(object);
    }
    return finish(output);
}

std::string isZoom(const std::string& text) {
    const auto zoom = percentOf(text);
    if (!zoom) return isPercent(text);
    for (const char* name : zoomNames)
        if (zoom == percentOf(name)) return {};
    return "one of 400%, 200%, 150%, 100%, 75%, 50%, 25%";
}

} // namespace

void addPlot(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("plot", "Draw a distribution of an analysis file");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
    command.text("--kind", options->kind, "su (subject), mte (measuring) or error (total error)")
        .shownAs("KIND")
        .oneOf({"su", "mte", "error"})
        .required();
    options->picture.addTo(command, true);
    command.text("--zoom", options->zoom, "Size of the curve: 25% to 400%, as in the window")
        .shownAs("PERCENT")
        .check(isZoom);
    command.flag("--offsets", options->offsets, "Label the limits by their distance from the centre");
    command.flag("--json", options->json, "Print one JSON object");
    addSettingsOption(command, options->settings);
    command.examples({"plot thermometer-process-uncertainty.mrk --kind error -o error.svg --size 1024x768",
                      "plot torque-wrench-50nm.mrk --kind su --zoom 200% -o - >su.png"});
    command.then([options, &chosen] {
        options->picture.refuseBesideText(options->json);
        chosen = [options] { return draw(*options); };
    });
}

} // namespace metrisk::cli
