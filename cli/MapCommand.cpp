// metrisk-cli map: risks of an analysis over two of its quantities.
#include "cli/Commands.h"
#include "cli/PictureOutput.h"
#include "cli/SweepInput.h"
#include "model/Message.h"
#include "risk/sweeps/RiskMapPicture.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace metrisk::cli {

namespace {

constexpr std::size_t mostSide = 2000;
constexpr Message noRisks{"There are no risks on this map.", "No Risks"};

struct Named {
    const char* name;
    MapQuantity quantity;
};
constexpr Named quantities[] = {{"ratio", MapQuantity::Ratio},
                                {"su-pct", MapQuantity::SubjectPct},
                                {"mte-pct", MapQuantity::MeasuringPct},
                                {"guardband", MapQuantity::Multiplier}};

/// "QUANTITY=FROM:TO"; none for anything else.
std::optional<MapAxis> axisOf(std::string_view text) {
    for (const Named& each : quantities) {
        const std::string_view name = each.name;
        if (!text.starts_with(name) || text.size() <= name.size() || text[name.size()] != '=') continue;
        MapAxis axis{each.quantity, 0, 0};
        const char* end = text.data() + text.size();
        const auto from = std::from_chars(text.data() + name.size() + 1, end, axis.from);
        if (from.ec != std::errc{} || from.ptr == end || *from.ptr != ':') return std::nullopt;
        const auto to = std::from_chars(from.ptr + 1, end, axis.to);
        const bool read = to.ec == std::errc{} && to.ptr == end && axis.from < axis.to;
        const bool valid = isMapValue(axis.quantity, axis.from) && isMapValue(axis.quantity, axis.to);
        return read && valid ? std::optional(axis) : std::nullopt;
    }
    return std::nullopt;
}

std::string isAxis(const std::string& text) {
    return axisOf(text) ? "" : text + " is no range such as ratio=1:20 or su-pct=50:99";
}

struct Options {
    std::string file;
    std::string settings;
    std::string x;
    std::string y;
    std::string risk = "fa";
    std::size_t columns = 200;
    std::size_t rows = 200;
    PictureOutput picture;
    bool csv = false;
};

std::string asCsv(const RiskGrid& grid, const MapRequest& request) {
    const auto number = [](float value) {
        return std::isnan(value) ? std::string() : exactNumber(static_cast<double>(value));
    };
    std::string lines = "x,y,FalseAccept,FalseReject\n";
    for (std::size_t row = 0; row < grid.rows; ++row) {
        const std::string y = exactNumber(request.y.at(row, grid.rows));
        for (std::size_t column = 0; column < grid.columns; ++column) {
            const std::size_t i = row * grid.columns + column;
            lines += exactNumber(request.x.at(column, grid.columns)) + "," + y + "," +
                     number(grid.falseAccept[i]) + "," + number(grid.falseReject[i]) + "\n";
        }
    }
    return lines;
}

/// The exit status.
int compute(AnalysisRun& run, const Options& options, Output& output) {
    if (!fitBoth(run)) return refused;
    const RiskMap map(run.record, run.session.regional);
    const MapRequest request{*axisOf(options.x), *axisOf(options.y), options.columns, options.rows,
                             map.present()};
    const RiskGrid grid = map.grid(request);
    const auto isNone = [](float value) { return std::isnan(value); };
    if (std::all_of(grid.falseAccept.begin(), grid.falseAccept.end(), isNone)) {
        tell(run.ui, noRisks);
        return refused;
    }
    if (options.csv) output.results = asCsv(grid, request);
    if (options.picture.path.empty()) return allDone;
    const auto here = map.isLopsided() ? std::nullopt : std::optional(map.present());
    const ContourMap picture = riskMapPicture(
        grid, request, options.risk == "fa" ? MappedRisk::FalseAccept : MappedRisk::FalseReject,
        run.record.FalseAcceptOption, here);
    return options.picture.write(picture.title, output.diagnostics, [&](DrawingSurface& surface) {
        DrawContourMap(surface, picture, run.session.regional);
    });
}

int run(const Options& options) {
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    output.status = unreadable;
    if (run.open(options.file)) output.status = compute(run, options, output);
    output.diagnostics = run.diagnostics(options.file) + output.diagnostics;
    return finish(output);
}

} // namespace

void addMap(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("map", "Compute or draw the risks of an analysis file over two quantities");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").required();
    constexpr const char* quantity = "ratio, su-pct, mte-pct or guardband and its range, as in ratio=1:20";
    for (const auto& [name, text] : {std::pair{"--x", &options->x}, std::pair{"--y", &options->y}})
        command.text(name, *text, quantity).shownAs("QUANTITY=FROM:TO").check(isAxis).required();
    command.text("--risk", options->risk, "fa (false accept) or fr (false reject) is drawn (fa)")
        .shownAs("RISK")
        .oneOf({"fa", "fr"});
    command
        .read(
            "--size",
            [options](const std::string& text) -> std::string {
                int used = 0;
                const bool read =
                    std::sscanf(text.c_str(), "%5zux%5zu%n", &options->columns, &options->rows, &used) == 2;
                const auto fits = [](std::size_t side) { return side >= 2 && side <= mostSide; };
                if (read && text[static_cast<std::size_t>(used)] == '\0' && fits(options->columns) &&
                    fits(options->rows))
                    return {};
                return "COLUMNSxROWS, 2 to 2000 each, as in 200x200";
            },
            "Points across and up (200x200)")
        .shownAs("COLUMNSxROWS");
    options->picture.addTo(command, false, "--picture-size");
    command.flag("--csv", options->csv, "Print the risks of all points, separated by commas");
    addSettingsOption(command, options->settings);
    command.then([options, &chosen] {
        if (axisOf(options->x)->quantity == axisOf(options->y)->quantity)
            throw WrongUsage("--x and --y must be two quantities");
        if (!options->csv && options->picture.path.empty())
            throw WrongUsage("one of --csv and -o is required");
        chosen = [options] { return run(*options); };
    });
}

} // namespace metrisk::cli
