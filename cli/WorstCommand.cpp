// metrisk-cli worst: the largest false accept risk over an unknown % in-tolerance.
#include "base/DisplayRule.h"
#include "base/NumberFormat.h"
#include "cli/Commands.h"
#include "cli/DecisionRun.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "risk/decision/WorstCase.h"

#include <memory>

namespace metrisk::cli {

namespace {

struct Options : DecisionOptions {
    std::optional<double> from{}, to{}; // percent
    std::optional<std::string> target{};
};

Json worstJson(const WorstCase& worst) {
    return {{"WorstFalseAccept", worst.falseAccept},
            {"WorstPctInTol", worst.pctInTol},
            {"AtEndOfRange", worst.atEndOfRange},
            {"FalseReject", worst.risks.falseReject}};
}

const char* nameOf(Convention convention) {
    return convention == Convention::Producer ? "Producer" : "Consumer";
}

std::string worstRows(Convention convention, const WorstCase& worst) {
    const bool joint = convention == Convention::Producer;
    const std::string place = " at " + GeneralText(worst.pctInTol, {}, 6) + " % in-tolerance" +
                              (worst.atEndOfRange ? ", the end of the range" : "");
    return tableRow(joint ? "Worst joint false accept" : "Worst conditional one",
                    riskCell(worst.falseAccept, baselinePicture) + place);
}

void tellSearch(DecisionRun& run, const WorstCase& worst) {
    if (run.basis()->subject.pctInTol == 100)
        run.note("The entered 100 % means a uniform parameter; the search is over normal ones.");
    if (worst.skipped > 0)
        run.note("Percentages of the range without a fit are left out: " + std::to_string(worst.skipped) +
                 " of 97 places.");
}

void computeTarget(DecisionRun& run, const Options& options, Convention convention, PctRange range,
                   Json& object, std::string& table) {
    const DecisionBasis& basis = *run.basis();
    const double target = *riskOf(*options.target);
    const auto width = leastGuardband(basis, convention, target, range);
    if (!width) {
        run.refuse(width.refusal());
        return;
    }
    const Interval limits = basis.narrowed(*width, *width);
    const auto multiplier = [&](bool there, double offset) {
        return there && offset > 0 ? Json(1 - *width / offset) : Json();
    };
    object["Target"] = target;
    object["GuardBand"] = *width;
    object["UpperMult"] = multiplier(basis.hasUpper(), basis.subject.upperOffset);
    object["LowerMult"] = multiplier(basis.hasLower(), basis.subject.lowerOffset);
    object["AcceptLower"] = limitJson(basis, limits.lower);
    object["AcceptUpper"] = limitJson(basis, limits.upper);
    table += tableRow("Least guardband", forResults(run.texts().width(*width)) + " for at most " +
                                             riskCell(target, baselinePicture));
    table += tableRow("Acceptance limits", run.limitsCell(limits));
}

int worst(const Options& options) {
    DecisionRun run(options);
    Json figures;
    std::string table = forResults(options.file) + "\n";
    if (const DecisionBasis* basis = run.basis()) {
        const PctRange whole = wholeRange(*basis);
        const PctRange range{options.from.value_or(whole.from), options.to.value_or(whole.to)};
        const Convention convention = options.convention.value_or(Convention::Producer);
        const Convention other =
            convention == Convention::Producer ? Convention::Consumer : Convention::Producer;
        const auto found = worstCase(*basis, convention, range);
        const auto second = worstCase(*basis, other, range);
        if (!found) {
            run.refuse(found.refusal());
        } else {
            tellSearch(run, *found);
            figures = worstJson(*found);
            figures["Convention"] = nameOf(convention);
            figures["FromPct"] = range.from;
            figures["ToPct"] = range.to;
            figures["Skipped"] = found->skipped;
            table += worstRows(convention, *found);
            if (second) {
                figures[nameOf(other)] = worstJson(*second);
                table += worstRows(other, *second);
            }
            table += tableRow("False reject risk there", riskCell(found->risks.falseReject, baselinePicture));
            if (options.target) computeTarget(run, options, convention, range, figures, table);
        }
    }
    Json object = run.result();
    object = joined(std::move(object), figures);
    const bool any = std::holds_alternative<Json::Object>(figures.value());
    return run.finish(object, any ? table + "\n" : "");
}

} // namespace

void addWorst(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("worst", "Find the worst false accept risk over an unknown % in-tolerance");
    options->addTo(command);
    command
        .percent("--from", options->from, "Least % in-tolerance; otherwise 1, or 50.001 where a fit needs it")
        .shownAs("PERCENT");
    command.percent("--to", options->to, "Greatest % in-tolerance; otherwise 99.9").shownAs("PERCENT");
    command
        .text("--target", options->target, "Also the least guardband that keeps it below, as in 2% or 500ppm")
        .shownAs("RISK")
        .check(isRisk);
    command.examples({"worst multimeter-dc-volts.mrk", "worst torque-wrench-50nm.mrk --target 2% --json"});
    command.then([options, &chosen] { chosen = [options] { return worst(*options); }; });
}

} // namespace metrisk::cli
