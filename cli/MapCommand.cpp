// metrisk-cli map: risks of an analysis over two of its quantities.
#include "base/ExactText.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/PictureOutput.h"
#include "cli/Readers.h"
#include "desk/kit/Message.h"
#include "plots/RiskMapPicture.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"

#include <algorithm>
#include <cmath>

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
        const std::string_view range = text.substr(name.size() + 1);
        const auto colon = range.find(':');
        if (colon == range.npos) return std::nullopt;
        const bool percent =
            each.quantity == MapQuantity::SubjectPct || each.quantity == MapQuantity::MeasuringPct;
        const auto number = percent ? percentOf : numberOf;
        const auto from = number(range.substr(0, colon));
        const auto to = number(range.substr(colon + 1));
        const bool valid =
            from && to && *from < *to && isMapValue(each.quantity, *from) && isMapValue(each.quantity, *to);
        return valid ? std::optional(MapAxis{each.quantity, *from, *to}) : std::nullopt;
    }
    return std::nullopt;
}

std::string isAxis(const std::string& text) {
    return axisOf(text) ? "" : "\"" + text + "\" is not a range such as ratio=1:20 or su-pct=50:99";
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
    bool json = false;
};

std::string asCsv(const RiskGrid& grid, const MapRequest& request) {
    const auto number = [](double value) { return std::isnan(value) ? std::string() : exactText(value); };
    std::string lines = "x,y,FalseAccept,FalseReject\n";
    for (std::size_t row = 0; row < grid.rows; ++row) {
        const std::string y = exactText(request.y.at(row, grid.rows));
        for (std::size_t column = 0; column < grid.columns; ++column) {
            const std::size_t i = row * grid.columns + column;
            lines += exactText(request.x.at(column, grid.columns)) + "," + y + "," +
                     number(grid.falseAccept[i]) + "," + number(grid.falseReject[i]) + "\n";
        }
    }
    return lines;
}

struct Computed {
    MapRequest request;
    RiskGrid grid;
};

/// None if there are no risks, which has been told.
std::optional<Computed> compute(AnalysisRun& run, const RiskMap& map, const Options& options) {
    const MapRequest request{*axisOf(options.x), *axisOf(options.y), options.columns, options.rows,
                             map.present()};
    Computed computed{request, map.grid(request)};
    const auto isNone = [](auto value) { return std::isnan(value); };
    if (!std::ranges::all_of(computed.grid.falseAccept, isNone)) return computed;
    tell(run.ui, noRisks);
    return std::nullopt;
}

bool draw(AnalysisRun& run, const RiskMap& map, const Computed& computed, const Options& options,
          Output& output) {
    const auto here = map.isLopsided() ? std::nullopt : std::optional(map.present());
    const ContourMap picture =
        riskMapPicture(computed.grid, computed.request,
                       options.risk == "fa" ? MappedRisk::FalseAccept : MappedRisk::FalseReject,
                       run.record.FalseAcceptOption, here);
    return options.picture.write(picture.title, run.ui, output, [&](DrawingSurface& surface) {
        DrawContourMap(surface, picture, run.session.regional);
    });
}

Json asJson(const AnalysisRun& run, const Options& options, const char* status, const Computed* computed) {
    Json object = run.result(options.file, status);
    const auto axis = [&](const MapAxis& of, std::size_t count) {
        Json values = Json::array();
        for (std::size_t i = 0; i < count; ++i) values.push_back(of.at(i, count));
        return values;
    };
    const auto rows = [&](const auto& risks) {
        Json all = Json::array();
        for (std::size_t row = 0; row < options.rows; ++row) {
            Json one = Json::array();
            for (std::size_t column = 0; column < options.columns; ++column)
                one.push_back(risks[row * options.columns + column]);
            all.push_back(one);
        }
        return all;
    };
    object["FalseAcceptOption"] = computed ? Json(run.record.FalseAcceptOption) : Json();
    object["x"] = computed ? axis(computed->request.x, options.columns) : Json();
    object["y"] = computed ? axis(computed->request.y, options.rows) : Json();
    object["FalseAccept"] = computed ? rows(computed->grid.falseAccept) : Json();
    object["FalseReject"] = computed ? rows(computed->grid.falseReject) : Json();
    return object;
}

int run(const Options& options) {
    if (const std::string fault = options.picture.fault(options.file); !fault.empty())
        return finish(refusal(options.file, fault, wrongUsage, options.json));
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    output.status = unreadable;
    std::optional<Computed> computed;
    if (run.open(options.file)) {
        output.status = refused;
        if (fitBoth(run)) {
            const RiskMap map(run.record, run.session.regional);
            computed = compute(run, map, options);
            const bool drawn =
                options.picture.path.empty() || (computed && draw(run, map, *computed, options, output));
            if (computed && drawn) output.status = allDone;
        }
    }
    if (options.csv && computed) output.results = asCsv(computed->grid, computed->request);
    if (options.json)
        output.results = jsonLine(
            asJson(run, options, statusWord(output.status, "computed"), computed ? &*computed : nullptr));
    output.diagnostics = diagnosticLines(options.file, run.ui.messages());
    return finish(output);
}

} // namespace

void addMap(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("map", "Compute or draw the risks of an analysis file over two quantities");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
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
                const auto sides = sidesOf(text, 2, mostSide);
                if (!sides) return "COLUMNSxROWS, 2 to 2000 each, as in 200x200";
                options->columns = sides->across;
                options->rows = sides->up;
                return {};
            },
            "Points across and up (200x200)")
        .shownAs("COLUMNSxROWS");
    options->picture.addTo(command, false, "--picture-size");
    const Argument csv =
        command.flag("--csv", options->csv, "Print the risks of all points, separated by commas");
    command.flag("--json", options->json, "Print one JSON object instead of text").excludes(csv);
    addSettingsOption(command, options->settings);
    command.examples({"map multimeter-dc-volts.mrk --x ratio=1:20 --y su-pct=50%:99% -o map.png",
                      "map multimeter-dc-volts.mrk --x guardband=0.5:1 --y ratio=1:10 --size 20x20 --csv"});
    command.then([options, &chosen] {
        if (axisOf(options->x)->quantity == axisOf(options->y)->quantity)
            throw WrongUsage("--x and --y must be two quantities");
        if (!options->csv && !options->json && options->picture.path.empty())
            throw WrongUsage("one of --csv, --json and -o is required");
        options->picture.refuseBesideText(options->csv || options->json);
        chosen = [options] { return run(*options); };
    });
}

} // namespace metrisk::cli
