// metrisk-cli offcentre: risks of a process that is off centre and of a measuring bias that is not corrected.
#include "base/DisplayRule.h"
#include "base/NumberFormat.h"
#include "cli/Commands.h"
#include "cli/DecisionRun.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/OffCentre.h"

#include <memory>

namespace metrisk::cli {

namespace {

struct Options : DecisionOptions {
    OffCentre process{};
};

int offCentre(const Options& options) {
    DecisionRun run(options);
    std::optional<OffCentreRisks> found;
    if (const DecisionBasis* basis = run.basis()) {
        const auto risks = offCentreRisks(*basis, options.process);
        if (risks)
            found = *risks;
        else
            run.refuse(risks.refusal());
        if (found && basis->twoSided() && basis->subject.upperOffset != basis->subject.lowerOffset)
            run.note(
                "The process is taken as normal, where the analysis takes unequal tolerances as LogNormal.");
    }
    Json object = run.result();
    if (!found) return run.finish(object, "");
    object["ProcessMean"] = options.process.mean;
    object["MeasuringBias"] = options.process.bias;
    object["ProcessSigma"] = found->processSigma;
    putRisks(object, found->risks);
    const auto length = [&](double value) {
        return forResults(withUnits(GeneralText(value, {}, 8), run.record().NominalUnits));
    };
    std::string table = forResults(options.file) + "\n";
    table += tableRow("Process mean", length(options.process.mean));
    table += tableRow("Process sigma", length(found->processSigma));
    table += tableRow("Measuring bias", length(options.process.bias));
    table += tableRow("In tolerance", riskCell(found->risks.inTolerance, baselinePicture));
    table += tableRow("Accepted", riskCell(found->risks.accepted, baselinePicture));
    return run.finish(object, table + riskRows(found->risks) + "\n");
}

} // namespace

void addOffCentre(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command(
        "offcentre", "Compute the risks of a process that is off centre and of a measuring bias");
    options->addTo(command);
    command.number("--mean", options->process.mean, "Mean of the process, in nominal units")
        .shownAs("VALUE")
        .required();
    command.number("--bias", options->process.bias, "Bias of the readings; above 0 they are too high")
        .shownAs("VALUE");
    command
        .number("--sigma", options->process.sigma,
                "Sigma of the process; otherwise that of the % in-tolerance")
        .shownAs("VALUE");
    command.examples({"offcentre torque-wrench-50nm.mrk --mean 50.3",
                      "offcentre torque-wrench-50nm.mrk --mean 50 --bias 0.1 --json"});
    command.then([options, &chosen] { chosen = [options] { return offCentre(*options); }; });
}

} // namespace metrisk::cli
