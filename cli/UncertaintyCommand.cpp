// metrisk-cli uncertainty: the process errors table with its totals, the samples and the bias analysis.
#include "base/NumberText.h"
#include "base/Picture.h"
#include "base/Real.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "desk/compute/FitMeasuring.h"
#include "desk/compute/RunBiasAnalysis.h"
#include "record/ToleranceUnits.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Input.h"
#include "unattended/Json.h"
#include "uncertainty/ErrorMessages.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"
#include "uncertainty/SampleColumn.h"
#include "uncertainty/Samples.h"

#include <algorithm>
#include <cmath>

namespace metrisk::cli {

namespace {

constexpr const char* samplesTitle = "Samples";
constexpr std::size_t longestColumn = 1 << 24; // bytes

struct Options {
    std::string file;
    std::string settings;
    std::vector<std::string> samples;
    bool deviations = false;
    bool json = false;
    bool save = false;
    bool force = false;
};

/// "mte=FILE" or "su=FILE".
struct SampleSource {
    int slot;
    std::string path;
};

std::optional<SampleSource> sourceOf(const std::string& text) {
    for (const auto& [slot, word] : {std::pair{1, std::string_view("mte=")}, {2, std::string_view("su=")}})
        if (text.starts_with(word) && text.size() > word.size())
            return SampleSource{slot, text.substr(word.size())};
    return std::nullopt;
}

std::string isSource(const std::string& text) {
    return sourceOf(text) ? "" : "\"" + text + "\" is neither mte=FILE nor su=FILE";
}

/// False when the file holds no number. Raises Unreadable.
bool takeSamples(AnalysisRun& run, const SampleSource& source, bool deviations) {
    const std::string text = readInput(source.path, longestColumn);
    const SampleColumn column = readSampleColumn(text, run.session.regional);
    if (column.firstRow > 0) {
        tell(run.ui, {source.path + ": line " + std::to_string(column.firstRow) +
                          " has several numbers; a sample has one a line.",
                      samplesTitle});
        return false;
    }
    if (column.values.empty()) {
        tell(run.ui, {source.path + " holds no number.", samplesTitle});
        return false;
    }
    if (column.values.size() < static_cast<std::size_t>(column.given))
        tell(run.ui,
             {source.path + ": " + takenText(column.values.size(), static_cast<std::size_t>(column.given)),
              samplesTitle});
    run.record.Stat_Flag1[source.slot] = deviations ? 0 : 1;
    try {
        StoreSamples(run.record, source.slot, column.values, column.decimals, run.session.regional);
    } catch (const RuntimeFault&) {
        tell(run.ui, {source.path + " holds numbers too far apart.", samplesTitle});
        return false;
    }
    run.record.FileChanged = true;
    return true;
}

/// None if the figures have no sum.
/// No source gives it: it was typed, and counts in the risks all the same.
bool isEnteredTotal(const Analysis& r, const Totals& totals) {
    return !totals.anyProcess && r.ProcessUncertainty != 0;
}

std::optional<Totals> compute(AnalysisRun& run, const Options& options) {
    Analysis& r = run.record;
    for (const std::string& text : options.samples)
        if (!takeSamples(run, *sourceOf(text), options.deviations)) return std::nullopt;
    r.UncertaintyWorksheetOpen = true; // tolerances may well be missing
    if (r.MTE_Offset > 0 && r.MTE_PctInTol > 0) FitMeasuringParameter(run.session);
    r.AbortFlag = false;
    SumProcessUncertainty(run.session.record, run.session.regional);
    if (r.Stat_Include[1] || r.Stat_Include[2]) {
        RunBiasAnalysis(run.session);
        r.AbortFlag = false;
    }
    ShowErrorTable(r, run.session.regional);
    try {
        Totals totals = ComputeTotals(readErrorRows(r, run.session.regional), r.CorrelationMatrix);
        if (isEnteredTotal(r, totals)) {
            const double shown = measuringUnits(r).shown(r.ProcessUncertainty);
            totals.process = shown;
            totals.total = std::hypot(totals.total, shown);
            for (int* decimals : {&totals.processDecimals, &totals.totalDecimals})
                *decimals = std::max(*decimals, DecimalsOfValue(shown, 0));
        }
        return totals;
    } catch (const RuntimeFault&) {
        tell(run.ui, noTotal);
        return std::nullopt;
    }
}

Json tableJson(const Analysis& r, const Regional& regional, const Totals& totals) {
    Json table = Json::array();
    for (int row = 0; row < errorRowCount; ++row) {
        const ErrorTableRow cells = readErrorTableRow(r, row, regional);
        const auto given = [](const ErrorCell& cell) { return cell.present() ? Json(cell.value) : Json(); };
        table.push_back({{"ErrorSourceName", cells.name},
                         {"LimitsBox", given(cells.limit)},
                         {"ConfidenceBox", given(cells.confidence)},
                         {"UncertaintyBox", given(cells.uncertainty)},
                         {"IncludeBox", cells.included},
                         {"txt_DegreesFreedom", given(cells.degFreedom)},
                         {"Share", totals.shares[static_cast<std::size_t>(row)]}});
    }
    return table;
}

struct Correlation {
    int first, second; // rows of the error table
    double rho;
};

std::vector<Correlation> correlationsOf(const Analysis& r) {
    std::vector<Correlation> pairs;
    for (int i = 0; i < errorRowCount; ++i)
        for (int j = i + 1; j < errorRowCount; ++j)
            if (const double rho = r.CorrelationMatrix[correlationIndex(i)][correlationIndex(j)]; rho != 0)
                pairs.push_back({i, j, rho});
    return pairs;
}

Json correlationsJson(const Analysis& r) {
    Json pairs = Json::array();
    for (const auto& [first, second, rho] : correlationsOf(r))
        pairs.push_back(Json::array({first, second, rho}));
    return pairs;
}

std::string asJson(const std::string& file, const char* status, const AnalysisRun& run,
                   const std::optional<Totals>& totals) {
    const Analysis& r = run.record;
    Json object = run.result(file, status);
    const auto put = [&](const char* name, const auto& value) {
        object[name] = totals ? fieldJson(value) : Json();
    };
    object["ErrorTable"] = totals ? tableJson(r, run.session.regional, *totals) : Json();
    object["CorrelationMatrix"] = totals ? correlationsJson(r) : Json();
    put("IncludeUncertainty", r.IncludeUncertainty);
    put("IncludeMTEBias", r.IncludeMTEBias);
    put("ProcessUncertainty", r.ProcessUncertainty);
    put("TotalUncertainty", totals ? totals->total : 0);
    put("Contradictory", totals && totals->contradictory);
    put("Process_DegFreedom", r.Process_DegFreedom);
    put("Total_DegFreedom", r.Total_DegFreedom);
    put("MTE_ToleranceUnits", r.MTE_ToleranceUnits);
    put("MTE_TolUnitsFactor", r.MTE_TolUnitsFactor);
    put("Stat_SampleSize", r.Stat_SampleSize);
    put("Stat_SampleMean", r.Stat_SampleMean);
    put("Stat_SampleStdDev", r.Stat_SampleStdDev);
    put("Stat_Value5", r.Stat_Value5);
    put("Stat_Value6", r.Stat_Value6);
    put("Stat_tStatistic", r.Stat_tStatistic);
    put("Stat_Value8", r.Stat_Value8);
    put("Stat_Include", r.Stat_Include);
    put("Stat_Flag1", r.Stat_Flag1);
    put("Stat_Flag2", r.Stat_Flag2);
    put("SMPC_Computed", r.SMPC_Computed);
    const auto result = [&](const char* name, const auto& value) {
        object[name] = totals && r.SMPC_Computed ? fieldJson(value) : Json();
    };
    result("SMPC_TrueOffset", r.SMPC_TrueOffset);
    result("SMPC_Bias", r.SMPC_Bias);
    result("SMPC_MTEUncertainty", r.SMPC_MTEUncertainty);
    result("SMPC_SUUncertainty", r.SMPC_SUUncertainty);
    result("SMPC_Limits", r.SMPC_Limits);
    result("SMPC_InTolProb", r.SMPC_InTolProb);
    result("SMPC_Sigma", r.SMPC_Sigma);
    result("SMPC_Tolerance", r.SMPC_Tolerance);
    result("SMPC_PctInTol", r.SMPC_PctInTol);
    return jsonLine(object);
}

/// Columns of a table, each as wide as told; the first to the left, the others to the right.
std::string tableLine(std::initializer_list<std::pair<std::string, std::size_t>> cells) {
    std::string line = " ";
    bool first = true;
    for (const auto& [text, width] : cells) {
        const std::string room(width - std::min(width, countCharacters(text)), ' ');
        line += " " + (first ? text + room : room + text);
        first = false;
    }
    line.resize(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

std::string errorTable(const Analysis& r, const Regional& regional, const Totals& totals) {
    const auto line = [](const std::string& name, const std::string& limit, const std::string& confidence,
                         const std::string& uncertainty, const std::string& freedom,
                         const std::string& share) {
        return tableLine(
            {{name, 22}, {limit, 13}, {confidence, 13}, {uncertainty, 13}, {freedom, 10}, {share, 9}});
    };
    std::string text =
        line("Error Source", "Error Limits", "% Confidence", "Uncertainty", "Deg Fdm", "Share");
    for (int row = 0; row < errorRowCount; ++row) {
        const ErrorTableRow cells = readErrorTableRow(r, row, regional);
        if (!cells.uncertainty.present() && !cells.limit.present()) continue;
        const std::string freedom = cells.degFreedom.shown == infinitySign ? "inf" : cells.degFreedom.shown;
        const double share = 100 * totals.shares[static_cast<std::size_t>(row)];
        text +=
            line(forResults(cells.name), cells.limit.shown, cells.confidence.shown, cells.uncertainty.shown,
                 freedom, cells.included ? FormatNumber(share, "0.0", regional) + " %" : "left out");
    }
    return text;
}

std::string biasTable(const Analysis& r, const Regional& regional) {
    const ToleranceUnits units = measuringUnits(r);
    const auto shown = [&](double nominal) {
        const double value = units.shown(nominal);
        return forResults(withUnits(ErrorCell::readable(value, biasDecimals, regional), units.name));
    };
    std::string text = tableRow("Estimated true offset", shown(r.SMPC_TrueOffset));
    const auto parameter = [&](const char* name, int slot, double uncertainty) {
        const std::string of = name;
        text += tableRow((of + " bias").c_str(), shown(r.SMPC_Bias[slot]));
        text += tableRow((of + " uncertainty").c_str(), shown(uncertainty));
        text += tableRow((of + " confidence limits").c_str(), shown(r.SMPC_Limits[slot]));
        text += tableRow((of + " in-tol probability").c_str(),
                         FormatNumber(100 * r.SMPC_InTolProb[slot], "##0.0000", regional) + " %");
    };
    parameter("MTE", 1, r.SMPC_MTEUncertainty);
    parameter("SU", 2, r.SMPC_SUUncertainty);
    return text;
}

std::string asTable(const std::string& file, const char* status, const AnalysisRun& run,
                    const std::optional<Totals>& totals) {
    const Analysis& r = run.record;
    const Regional& regional = run.session.regional;
    std::string text = forResults(file) + "\n";
    if (!totals) return text + tableRow("Status", status) + "\n";
    const ToleranceUnits units = measuringUnits(r);
    const auto total = [&](double value, int decimals, double freedom) {
        return forResults(withUnits(ErrorCell::readable(value, decimals, regional), units.name)) +
               (freedom > 0 ? ", " + degFreedomText(freedom, regional) + " degrees of freedom" : "");
    };
    text += errorTable(r, regional, *totals);
    text += tableRow("Bias excluded", total(totals->process, totals->processDecimals, r.Process_DegFreedom) +
                                          (isEnteredTotal(r, *totals) ? ", entered as a total" : ""));
    text += tableRow("Total uncertainty", total(totals->total, totals->totalDecimals, r.Total_DegFreedom));
    if (totals->contradictory) text += tableRow("Correlations", "contradict each other");
    text += tableRow("Included in the risks", r.IncludeUncertainty ? "yes" : "no");
    for (const auto& [first, second, rho] : correlationsOf(r))
        text += tableRow("Correlation", forResults(readErrorTableRow(r, first, regional).name) + ", " +
                                            forResults(readErrorTableRow(r, second, regional).name) + ": " +
                                            GeneralText(rho, regional));
    for (int slot = 1; slot <= 2; ++slot) {
        if (r.Stat_SampleSize[slot] == 0) continue;
        const bool deviations = areDeviations(r, slot);
        const std::string_view meanUnits = deviations ? units.name : std::string_view(r.NominalUnits);
        text +=
            tableRow(slot == 1 ? "MTE samples" : "SU samples",
                     std::to_string(r.Stat_SampleSize[slot]) + ", mean " +
                         forResults(withUnits(GeneralText(r.Stat_SampleMean[slot], regional), meanUnits)) +
                         ", std deviation " +
                         forResults(withUnits(GeneralText(r.Stat_SampleStdDev[slot], regional), units.name)));
    }
    if (r.SMPC_Computed) text += biasTable(r, regional);
    return text + "\n";
}

int uncertainty(const Options& options) {
    Workplace workplace(options.settings);
    AnalysisRun run(workplace);
    int status = unreadable;
    std::optional<Totals> totals;
    if (run.open(options.file)) {
        try {
            totals = compute(run, options);
            status = totals ? allDone : refused;
        } catch (const Unreadable& fault) {
            run.ui.note(fault.file + " cannot be read: " + fault.what());
        }
        if (totals && options.save && !saveResults(run, options.file, options.force)) status = refused;
    }
    const char* word = totals ? "computed" : status == unreadable ? "unreadable" : "refused";
    return finish({.results = (options.json ? asJson : asTable)(options.file, word, run, totals),
                   .diagnostics = diagnosticLines(options.file, run.ui.messages()),
                   .status = status});
}

} // namespace

void addUncertainty(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command(
        "uncertainty", "Print uncertainty budget, samples and bias analysis of an analysis file");
    command.text("FILE", options->file, "Analysis file").shownAs(" ").isPath().required();
    const Argument samples =
        command.texts("--samples", options->samples, "Take a sample from the lines of a text file")
            .shownAs("mte=FILE|su=FILE")
            .oneEach()
            .check(isSource);
    command
        .flag("--deviations", options->deviations,
              "With --samples: deviations from the mode instead of measured values")
        .needs(samples);
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.flag("--save", options->save, "With --samples: write sample and totals back to the file")
        .needs(samples);
    command.flag("--force", options->force, "With --save: replace an existing .mrk beside a .dat file");
    addSettingsOption(command, options->settings);
    command.examples({"uncertainty thermometer-process-uncertainty.mrk",
                      "uncertainty thermometer-process-uncertainty.mrk --samples su=- --json <readings.txt"});
    command.then([options, &chosen] { chosen = [options] { return uncertainty(*options); }; });
}

} // namespace metrisk::cli
