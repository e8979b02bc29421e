// metrisk-cli baseline: risks of the reference case.
#include "cli/Commands.h"
#include "cli/ConsoleInteraction.h"
#include "cli/JsonLine.h"
#include "cli/Output.h"
#include "cli/RiskText.h"
#include "model/DisplayRule.h"
#include "model/NumberText.h"
#include "model/Session.h"
#include "persistence/SettingsFile.h"
#include "risk/BaselineRisks.h"

#include <limits>

namespace metrisk::cli {

namespace {

/// Numerator over denominator of "4:1", or of a single figure; 0 when there is no such ratio.
double parseRatio(const std::string& text) {
    const auto colon = text.find(':');
    const double numerator = ParseValue(text.substr(0, colon), {});
    const double denominator = colon == std::string::npos ? 1 : ParseValue(text.substr(colon + 1), {});
    return numerator > 0 && denominator > 0 ? numerator / denominator : 0;
}

bool isPct(double pct) {
    return pct > 0 && pct < 100;
}

} // namespace

int baselineCommand(const BaselineOptions& options) {
    Output output;
    const double ratio = parseRatio(options.ratio);
    const auto refuse = [&](const std::string& text) {
        output.diagnostics = text + "\n";
        output.status = wrongUsage;
        emit(output);
        return output.status;
    };
    if (!(ratio > 0)) return refuse("--ratio: " + std::string(ratioTooLowText));
    if (!isPct(options.measuringPct)) return refuse("--mte: " + std::string(pctRangeText));
    if (!isPct(options.subjectPct)) return refuse("--su: " + std::string(pctRangeText));

    SettingsFile settings(defaultSettingsPath());
    ConsoleInteraction ui;
    Session session{settings, ui};
    session.record.FalseAcceptOption = options.producer ? 1 : 0;
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const std::optional<Risks> risks =
        ComputeBaselineRisks(session, {.ratio = ratio,
                                       .subjectInTol = options.subjectPct / 100,
                                       .measuringInTol = options.measuringPct / 100});
    const auto [falseAccept, falseReject] = risks.value_or(Risks{none, none});
    if (!risks) output.status = refused;
    if (options.json) {
        JsonLine line;
        line.add("BaselineFalseAccept", falseAccept);
        line.add("BaselineFalseReject", falseReject);
        line.add("messages", ui.messages());
        output.results = line.text();
    } else if (output.status == allDone) {
        output.results = "Baseline false accept risk  " + riskCell(falseAccept, baselinePicture) +
                         "\nBaseline false reject risk  " + riskCell(falseReject, baselinePicture) + "\n";
    }
    output.diagnostics = diagnosticLines("baseline", ui.messages());
    if (!emit(output) && output.status == allDone) output.status = refused;
    return output.status;
}

} // namespace metrisk::cli
