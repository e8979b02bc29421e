// metrisk-cli baseline: risks of the reference case.
#include "cli/Commands.h"
#include "cli/ConsoleInteraction.h"
#include "cli/Figures.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "model/DisplayRule.h"
#include "model/Message.h"
#include "model/Session.h"
#include "persistence/SettingsFile.h"
#include "risk/BaselineRisks.h"

#include <charconv>
#include <cmath>

namespace metrisk::cli {

namespace {

struct Options {
    double ratio = 0;
    double measuringPct = 0; // percent
    double subjectPct = 0;   // percent
    bool producer = false;
    bool json = false;
};

/// Plain digits with an optional period, above 0; else 0.
double positiveNumber(std::string_view text) {
    double value = 0;
    const auto read =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    const bool whole = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return whole && std::isfinite(value) && value > 0 ? value : 0;
}

/// Takes the quotient of "4:1", or "4" itself; else says what is wrong.
std::string takeQuotient(const std::string& text, double& quotient) {
    const std::string_view ratio = text;
    const auto colon = ratio.find(':');
    const double numerator = positiveNumber(ratio.substr(0, colon));
    const double denominator = colon == ratio.npos ? 1 : positiveNumber(ratio.substr(colon + 1));
    quotient = numerator / denominator;
    return quotient > 0 && std::isfinite(quotient) ? "" : ratioTooLowText;
}

std::string isPct(const std::string& text) {
    const double pct = positiveNumber(text);
    return pct > 0 && pct < 100 ? "" : pctRangeText;
}

int baseline(const Options& options) {
    SettingsFile settings(defaultSettingsPath());
    ConsoleInteraction ui;
    const SystemClock clock;
    Session session{settings, ui, clock};
    session.record.FalseAcceptOption = options.producer ? 1 : 0;
    Output output;
    const std::optional<Risks> risks =
        ComputeBaselineRisks(session, {.ratio = options.ratio,
                                       .subjectInTol = options.subjectPct / 100,
                                       .measuringInTol = options.measuringPct / 100});
    const auto [falseAccept, falseReject] = risks.value_or(Risks{noFigure, noFigure});
    if (!risks) {
        output.status = refused;
        if (ui.messages().empty()) tell(ui, noBaselineRisks);
    }
    if (options.json)
        output.results = jsonLine({{"BaselineFalseAccept", falseAccept},
                                   {"BaselineFalseReject", falseReject},
                                   {"messages", messagesJson(ui.messages())}});
    else if (output.status == allDone)
        output.results = "Baseline false accept risk  " + riskCell(falseAccept, baselinePicture) +
                         "\nBaseline false reject risk  " + riskCell(falseReject, baselinePicture) + "\n";
    output.diagnostics = diagnosticLines("baseline", ui.messages());
    return finish(output);
}

} // namespace

void addBaseline(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("baseline", "Compute the risks of a reference case");
    command
        .read(
            "--ratio", [options](const std::string& text) { return takeQuotient(text, options->ratio); },
            "Accuracy ratio, as in 4:1 or 4")
        .shownAs("N:1")
        .required();
    command.number("--mte", options->measuringPct, "Measuring parameter % in-tolerance")
        .shownAs("PERCENT")
        .required()
        .check(isPct);
    command.number("--su", options->subjectPct, "Subject parameter % in-tolerance")
        .shownAs("PERCENT")
        .required()
        .check(isPct);
    command.flag("--producer", options->producer, "Producer's false accept risk instead of the Consumer's");
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.then([options, &chosen] { chosen = [options] { return baseline(*options); }; });
}

} // namespace metrisk::cli
