// metrisk-cli sweep: risks of an analysis over a range of one of its quantities.
#include "base/DisplayRule.h"
#include "base/ExactText.h"
#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/PictureOutput.h"
#include "cli/Readers.h"
#include "plots/RiskChart.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"

#include <algorithm>
#include <memory>
#include <optional>

namespace metrisk::cli {

namespace {

constexpr std::size_t mostPoints = 1'000'000;
constexpr Message tooFew{"Risk could not be computed for two points of the range.", "No Risks"};

struct Over {
    const char* name;
    Swept swept;
};
constexpr Over quantities[] = {{"guardband", Swept::Multiplier},
                               {"k", Swept::KFactor},
                               {"su-pct", Swept::SubjectPct},
                               {"mte-pct", Swept::MeasuringPct},
                               {"ratio", Swept::BaselineRatio}};

struct Options {
    std::string file;
    std::string settings;
    std::string over;
    std::string fromText;
    std::string toText;
    double from = 0;
    double to = 0;
    std::size_t points = 31;
    PictureOutput picture;
    bool csv = false;
    bool json = false;

    Swept swept() const {
        return std::find_if(std::begin(quantities), std::end(quantities),
                            [this](const Over& each) { return each.name == over; })
            ->swept;
    }
    bool ofPercent() const { return swept() == Swept::SubjectPct || swept() == Swept::MeasuringPct; }
    SweepRange range() const { return {from, to, points}; }
};

/// Reads the ends of the range as its quantity is read. What is wrong with them; empty if nothing is.
std::string takeRange(Options& options) {
    const bool ratio = options.swept() == Swept::BaselineRatio;
    const auto take = [&](const char* name, const std::string& text, double& end) -> std::string {
        const std::string wrong = ratio                 ? isRatio(text)
                                  : options.ofPercent() ? isPercent(text)
                                                        : isNumber(text);
        if (!wrong.empty()) return name + wrong;
        end = *(ratio ? ratioOf(text) : options.ofPercent() ? percentOf(text) : numberOf(text));
        return {};
    };
    for (const std::string& wrong :
         {take("--from: ", options.fromText, options.from), take("--to: ", options.toText, options.to)})
        if (!wrong.empty()) return wrong;
    if (options.swept() != Swept::KFactor && !(options.from > 0)) return "--from must be greater than zero";
    if (!(options.to > options.from)) return "--to must be greater than --from";
    if (options.ofPercent() && !(options.to < 100)) return "a percent in-tolerance must be less than 100";
    return {};
}

/// With guardbands and process errors as the file includes them, and its own reference case.
RiskSweep sweepOf(const AnalysisRun& run, Swept swept) {
    const Analysis& r = run.record;
    return RiskSweep(r, run.session.regional, swept,
                     {.includeGuardbands = r.IncludeGuardbands,
                      .includeProcess = r.IncludeUncertainty,
                      .baselineSubjectPct = r.Base_SUPctInTol,
                      .baselineMeasuringPct = r.Base_MTEPctInTol});
}

/// A value with both figures of its risks.
struct Row {
    double x;
    std::optional<Risks> published; // none where it is lost in rounding
    Risks exact;
};

struct Result {
    std::vector<Row> rows;
    std::size_t skipped = 0; // before the first of them
    bool ended = false;      // before the range did
    bool complete() const { return rows.size() >= 2 && skipped == 0 && !ended; }
};

Result sweep(const RiskSweep& risks, const Options& options) {
    const auto published = risks.over(options.range(), SweepFigure::Published);
    const auto exact = risks.over(options.range(), SweepFigure::Exact);
    SweepCourse course(risks);
    Result result;
    for (std::size_t i = 0; i < exact.size() && !result.ended; ++i) {
        result.ended = !course.add(options.range().at(i), exact[i]);
        if (!exact[i] || result.ended) continue;
        const auto& told = published[i];
        result.rows.push_back(
            {exact[i]->x, told ? std::optional(told->risks) : std::nullopt, exact[i]->risks});
    }
    result.skipped = course.skipped();
    return result;
}

/// Where the exact risk is least and greatest.
struct Extreme {
    const char* word; // "Least"
    const char* risk;
    double Risks::*member;
    const Row* row;
};

std::vector<Extreme> extremesOf(const Result& result) {
    std::vector<Extreme> all;
    const auto add = [&](const char* risk, double Risks::*member) {
        const auto [least, greatest] =
            std::ranges::minmax_element(result.rows, {}, [&](const Row& row) { return row.exact.*member; });
        all.push_back({"Least", risk, member, &*least});
        all.push_back({"Greatest", risk, member, &*greatest});
    };
    if (result.rows.empty()) return all;
    add("FalseAccept", &Risks::falseAccept);
    add("FalseReject", &Risks::falseReject);
    return all;
}

void tellCourse(AnalysisRun& run, const Result& result) {
    const auto number = [](double value) { return GeneralText(value, {}); };
    if (result.complete()) return;
    if (result.rows.size() < 2) {
        tell(run.ui, tooFew);
        return;
    }
    if (result.skipped > 0) run.ui.note("no risks below " + number(result.rows.front().x));
    if (result.ended) run.ui.note("the sweep ended at " + number(result.rows.back().x) + ": no risks beyond");
}

std::string asJson(const Options& options, const AnalysisRun& run, const Result& result, const char* status) {
    Json points = Json::array();
    for (const Row& row : result.rows) {
        const Risks published = row.published.value_or(Risks{noFigure, noFigure});
        points.push_back({{"x", row.x},
                          {"FalseAccept", published.falseAccept},
                          {"FalseReject", published.falseReject},
                          {"ExactFalseAccept", row.exact.falseAccept},
                          {"ExactFalseReject", row.exact.falseReject}});
    }
    Json object = run.result(options.file, status);
    object["over"] = options.over;
    object["FalseAcceptOption"] = run.record.FalseAcceptOption;
    object["skipped"] = result.skipped;
    object["ended"] = result.ended;
    object["points"] = points;
    for (const auto& [word, risk, member, row] : extremesOf(result))
        object[std::string(word) + "Exact" + risk] = Json{{"x", row->x}, {"risk", row->exact.*member}};
    return jsonLine(object);
}

std::string asCsv(const Result& result) {
    std::string lines = "x,FalseAccept,FalseReject,ExactFalseAccept,ExactFalseReject\n";
    for (const Row& row : result.rows) {
        const auto published = [&](double Risks::*member) {
            return row.published ? exactText((*row.published).*member) : "";
        };
        lines += exactText(row.x) + "," + published(&Risks::falseAccept) + "," +
                 published(&Risks::falseReject) + "," + exactText(row.exact.falseAccept) + "," +
                 exactText(row.exact.falseReject) + "\n";
    }
    return lines;
}

std::string asTable(const Options& options, const AnalysisRun& run, const Result& result,
                    const SweepWords& words) {
    std::string table = forResults(options.file) + "\n  " + words.label + " " +
                        optionTag(run.record.FalseAcceptOption) + "\n";
    const auto column = [](const std::string& text, std::size_t width) {
        return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
    };
    const auto cells = [&](const Risks& risks) {
        return column(riskCell(risks.falseAccept, baselinePicture), 16) +
               column(riskCell(risks.falseReject, baselinePicture), 16);
    };
    const auto value = [](double x) { return GeneralText(x, {}, 8); };
    table += column("x", 14) + column("false accept", 16) + column("false reject", 16) +
             column("exact accept", 16) + column("exact reject", 16) + "\n";
    for (const Row& row : result.rows)
        table += column(value(row.x), 14) + cells(row.published.value_or(Risks{noFigure, noFigure})) +
                 cells(row.exact) + "\n";
    for (const auto& [word, risk, member, row] : extremesOf(result)) {
        const bool accept = member == &Risks::falseAccept;
        const std::string label = std::string(word) + (accept ? " false accept risk" : " false reject risk");
        table +=
            tableRow(label.c_str(), riskCell(row->exact.*member, baselinePicture) + " at " + value(row->x));
    }
    return table + "\n";
}

Chart chartOf(const Options& options, const AnalysisRun& run, const Result& result, const SweepWords& words) {
    std::vector<RiskPoint> points;
    for (const Row& row : result.rows)
        points.push_back({row.x, row.exact.falseAccept * 100, row.exact.falseReject * 100});
    const int decimals = std::max(DecimalsOfValue(options.from, 0), DecimalsOfValue(options.to, 0));
    return riskChart(points, words,
                     {.shown = ShownRisks::Both,
                      .thick = true,
                      .falseAcceptOption = run.record.FalseAcceptOption,
                      .xDecimals = std::min(decimals, 6)},
                     run.session.regional);
}

bool draw(const Options& options, AnalysisRun& run, const Result& result, const SweepWords& words,
          Output& output) {
    const Chart chart = chartOf(options, run, result, words);
    return options.picture.write(chart.title, run.ui, output, [&](DrawingSurface& surface) {
        DrawChart(surface, chart, run.session.regional);
    });
}

int run(const Options& options) {
    if (const std::string fault = options.picture.fault(options.file); !fault.empty())
        return finish(refusal(options.file, fault, wrongUsage, options.json));
    Output output;
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    Result result;
    const char* status = "unreadable";
    output.status = unreadable;
    const Swept swept = options.swept();
    if (run.open(options.file)) {
        status = "refused";
        output.status = refused;
        if (swept == Swept::BaselineRatio || fitBoth(run)) {
            result = sweep(sweepOf(run, swept), options);
            tellCourse(run, result);
            if (result.rows.size() >= 2) status = result.complete() ? "computed" : "incomplete";
            if (result.complete()) output.status = allDone;
        }
    }
    const SweepWords words = wordsOf(swept, run.record.MTE_EntryByUncertainty);
    if (!options.picture.path.empty() && result.rows.size() >= 2 &&
        !draw(options, run, result, words, output))
        output.status = refused;
    if (options.json)
        output.results = asJson(options, run, result, status);
    else if (options.csv && !result.rows.empty())
        output.results = asCsv(result);
    else if (!options.csv && options.picture.path.empty() && !result.rows.empty())
        output.results = asTable(options, run, result, words);
    output.diagnostics = diagnosticLines(options.file, run.ui.messages());
    return finish(output);
}

} // namespace

void addSweep(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("sweep", "Compute the risks of an analysis file over a range of one quantity");
    std::vector<std::string> names;
    for (const Over& each : quantities) names.emplace_back(each.name);
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
    command
        .text("--over", options->over,
              "guardband (multiplier), k (k-factor), su-pct or mte-pct (% in-tolerance), ratio (accuracy "
              "ratio of the baseline)")
        .shownAs("QUANTITY")
        .oneOf(names)
        .required();
    command.text("--from", options->fromText, "Least value").shownAs("NUMBER").required();
    command.text("--to", options->toText, "Greatest value").shownAs("NUMBER").required();
    command.count("--points", options->points, "Number of points, 2 to 1000000 (31)", 2, mostPoints)
        .shownAs("COUNT");
    const Argument csv =
        command.flag("--csv", options->csv, "Print values separated by commas instead of text");
    command.flag("--json", options->json, "Print one JSON object instead of text").excludes(csv);
    options->picture.addTo(command, false);
    addSettingsOption(command, options->settings);
    command.examples({"sweep multimeter-dc-volts.mrk --over guardband --from 0.5 --to 1",
                      "sweep torque-wrench-50nm.mrk --over su-pct --from 60% --to 99% --points 100 --csv",
                      "sweep torque-wrench-50nm.mrk --over ratio --from 1:1 --to 20:1 -o ratio.svg"});
    command.then([options, &chosen] {
        if (const std::string fault = takeRange(*options); !fault.empty()) throw WrongUsage(fault);
        options->picture.refuseBesideText(options->csv || options->json);
        chosen = [options] { return run(*options); };
    });
}

} // namespace metrisk::cli
