// metrisk-cli baseline: risks of the reference case.
#include "base/DisplayRule.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "persistence/SettingsFile.h"
#include "unattended/Json.h"
#include "unattended/UnattendedInteraction.h"

#include <memory>

namespace metrisk::cli {

namespace {

struct Options {
    double ratio = 0;
    double measuringPct = 0; // percent
    double subjectPct = 0;   // percent
    bool producer = false;
    bool json = false;
};

std::string isInTolerance(const std::string& text) {
    const auto pct = percentOf(text);
    return !pct || (*pct > 0 && *pct < 100) ? isPercent(text) : pctRangeText;
}

Json asJson(int status, const UnattendedInteraction& ui, const Risks& risks, const Verified& verified) {
    Json object = resultJson("", statusWord(status, "computed"), ui.messages());
    object["BaselineFalseAccept"] = risks.falseAccept;
    object["BaselineFalseReject"] = risks.falseReject;
    object["Verified"] = {{"BaselineFalseAccept", figureJson(verified.baselineFalseAccept)},
                          {"BaselineFalseReject", figureJson(verified.baselineFalseReject)}};
    object["AgreeingDigits"] = agreeingDigits(verified);
    return object;
}

int baseline(const Options& options) {
    SettingsFile settings(defaultSettingsPath());
    UnattendedInteraction ui;
    const SystemClock clock;
    Session session{settings, ui, clock};
    session.record.FalseAcceptOption = options.producer ? 1 : 0;
    Output output;
    const std::optional<Risks> risks =
        ComputeBaselineRisks(session, {.ratio = options.ratio,
                                       .subjectInTol = options.subjectPct / 100,
                                       .measuringInTol = options.measuringPct / 100});
    const Risks figures = risks.value_or(Risks{noFigure, noFigure});
    const Verified verified = risks ? verifyBaseline(options.ratio, options.subjectPct / 100,
                                                     options.measuringPct / 100, options.producer ? 1 : 0)
                                    : Verified{};
    if (!risks) {
        output.status = refused;
        if (ui.messages().empty()) tell(ui, noBaselineRisks);
    }
    if (options.json)
        output.results = jsonLine(asJson(output.status, ui, figures, verified));
    else if (output.status == allDone)
        output.results = "Baseline false accept risk  " + riskCell(figures.falseAccept, baselinePicture) +
                         "\n" + exactRow(verified.baselineFalseAccept, baselinePicture) +
                         "Baseline false reject risk  " + riskCell(figures.falseReject, baselinePicture) +
                         "\n" + exactRow(verified.baselineFalseReject, baselinePicture);
    output.diagnostics = diagnosticLines("baseline", ui.messages());
    return finish(output);
}

} // namespace

void addBaseline(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("baseline", "Compute the risks of a reference case");
    command.ratio("--ratio", options->ratio, "Accuracy ratio, as in 4:1 or 4").shownAs("N:1").required();
    command.percent("--mte", options->measuringPct, "Measuring parameter % in-tolerance")
        .shownAs("PERCENT")
        .required()
        .check(isInTolerance);
    command.percent("--su", options->subjectPct, "Subject parameter % in-tolerance")
        .shownAs("PERCENT")
        .required()
        .check(isInTolerance);
    command.flag("--producer", options->producer, "Producer's false accept risk instead of the Consumer's");
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.examples({"baseline --ratio 4:1 --mte 85 --su 72",
                      "baseline --ratio 10:1 --mte 95% --su 90% --producer --json"});
    command.then([options, &chosen] { chosen = [options] { return baseline(*options); }; });
}

} // namespace metrisk::cli
