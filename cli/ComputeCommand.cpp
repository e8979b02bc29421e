// metrisk-cli compute: risks and equivalent accuracy ratio of analysis files.
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "cli/AnalysisRun.h"
#include "cli/BothConventions.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/FileList.h"
#include "cli/Json.h"
#include "cli/OrderedBatch.h"
#include "desk/compute/BaselineRisks.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/files/AnalysisFile.h"
#include "record/ToleranceUnits.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/Verified.h"

#include <cmath>
#include <exception>

namespace metrisk::cli {

namespace {

struct Options {
    FileList list;
    std::string settings;
    bool json = false;
    bool save = false;
    bool force = false;
    bool noVerify = false;
    unsigned threads = 0;
    CoverageChoice coverage{};
};

/// What this run has computed. Risks are fractions.
struct Figures {
    double falseAccept = noFigure;
    double falseReject = noFigure;
    double baselineFalseAccept = noFigure;
    double baselineFalseReject = noFigure;
    Verified verified{};                // the second figures
    std::optional<double> exactRatio{}; // of the ratio searched; none if there is none
    std::string ratioRemark{};          // where the two are shown otherwise
    bool subjectFitted = false;
    bool measuringFitted = false;
    std::optional<BothConventions> both{}; // none if there are no risks
};

std::string ratioNumber(double ratio) {
    return FormatNumber(ratio, "#,##0.00", {});
}

/// Computes afresh, whatever the file holds of earlier computes; false when the analysis is refused.
bool compute(AnalysisRun& run, Figures& figures) {
    Analysis& r = run.record;
    r.RisksNeedCompute = true;
    r.RisksComputed = false;
    r.SubjectFitValid = false;
    r.MTE_Sigma = 0;
    const bool computed = withReason(run, "no finite risk", [&] {
        ComputeResults_Click(run.session);
        return static_cast<bool>(r.RisksComputed);
    });
    figures.subjectFitted = r.SubjectFitValid;
    figures.measuringFitted = r.MTE_Sigma > 0;
    if (!computed) return false;
    figures.falseAccept = riskFraction(r.FalseAcceptRisk, r.FalseAcceptUnits);
    figures.falseReject = riskFraction(r.FalseRejectRisk, r.FalseRejectUnits);
    return true;
}

void computeBaseline(AnalysisRun& run, Figures& figures) {
    const Analysis& r = run.record;
    const std::size_t told = run.ui.messages().size();
    std::optional<Risks> risks;
    if (r.Base_AccRatNum > 0 && r.Base_AccRatDen > 0)
        risks = ComputeBaselineRisks(run.session, {.ratio = r.Base_AccRatNum / r.Base_AccRatDen,
                                                   .subjectInTol = r.Base_SUPctInTol / 100,
                                                   .measuringInTol = r.Base_MTEPctInTol / 100});
    if (risks)
        figures.baselineFalseAccept = risks->falseAccept, figures.baselineFalseReject = risks->falseReject;
    else if (run.ui.messages().size() == told)
        tell(run.ui, noBaselineRisks);
}

/// The second figures of what has been computed.
void verify(const Analysis& r, Figures& figures) {
    figures.verified = verifyRisks(r);
    if (std::isnan(figures.falseAccept))
        figures.verified.falseAccept = figures.verified.falseReject = {}, figures.verified.exact = {};
    if (std::isnan(figures.baselineFalseAccept))
        figures.verified.baselineFalseAccept = figures.verified.baselineFalseReject = {};
    if (std::isnan(figures.falseAccept) || !r.ComputeEqRatio || !figures.verified.falseReject) return;
    figures.exactRatio = exactRatio(r, figures.verified);
    figures.ratioRemark = exactRatioRemark(r.EqAccRat, ratioNumber(r.EqAccRat), figures.exactRatio, {});
}

Json verifiedJson(const Figures& figures) {
    const Verified& v = figures.verified;
    Json object = {{"FalseAccept", figureJson(v.falseAccept)},
                   {"FalseReject", figureJson(v.falseReject)},
                   {"BaselineFalseAccept", figureJson(v.baselineFalseAccept)},
                   {"BaselineFalseReject", figureJson(v.baselineFalseReject)},
                   {"EqAccRat", figures.exactRatio ? Json(*figures.exactRatio) : Json()}};
    putVerified(object, figures.both);
    return object;
}

std::string asJson(const std::string& file, int status, const AnalysisRun& run, const Figures& figures) {
    const Analysis& r = run.record;
    const auto given = [](bool there, const auto& value) { return there ? Json(value) : Json(); };
    const auto subject = [&](const auto& value) { return given(figures.subjectFitted, value); };
    const auto measuring = [&](const auto& value) { return given(figures.measuringFitted, value); };
    const bool computed = !std::isnan(figures.falseAccept);
    const bool ratio = computed && r.ComputeEqRatio;
    const std::optional<int> digits = agreeingDigits(figures.verified);
    Json object = {{"file", file},
                   {"status", statusWord(status, "computed")},
                   {"messages", messagesJson(run.ui.messages())},
                   {"FalseAccept", figures.falseAccept},
                   {"FalseReject", figures.falseReject},
                   {"BaselineFalseAccept", figures.baselineFalseAccept},
                   {"BaselineFalseReject", figures.baselineFalseReject},
                   {"SU_Distribution", subject(r.SU_Distribution)},
                   {"SU_CaseCode", subject(r.SU_CaseCode)},
                   {"SU_Sigma", subject(r.SU_Sigma)},
                   {"SU_LogSigma", subject(r.SU_LogSigma)},
                   {"SU_LogOmega", subject(r.SU_LogOmega)},
                   {"SU_ExpExponent", subject(r.SU_ExpExponent)},
                   {"SU_ExpRate", subject(r.SU_ExpRate)},
                   {"PhysicalLimit", subject(r.PhysicalLimit)},
                   {"MTE_Sigma", measuring(r.MTE_Sigma)},
                   {"MTE_kFactor", measuring(r.MTE_kFactor)},
                   {"MTE_StdUncertainty", measuring(r.MTE_StdUncertainty)},
                   {"FalseAcceptRisk", given(computed, r.FalseAcceptRisk)},
                   {"FalseAcceptUnits", given(computed, r.FalseAcceptUnits)},
                   {"FalseRejectRisk", given(computed, r.FalseRejectRisk)},
                   {"FalseRejectUnits", given(computed, r.FalseRejectUnits)},
                   {"EqAccRat", given(ratio, r.EqAccRat)},
                   {"EqAccRatDen", given(ratio, r.EqAccRatDen)},
                   {"EqAccRatAttained", given(ratio, ratioAttained(r.EqAccRat))},
                   {"FalseAcceptOption", given(status != unreadable, r.FalseAcceptOption)},
                   {"Verified", verifiedJson(figures)},
                   {"AgreeingDigits", digits ? Json(*digits) : Json()}};
    putBoth(object, figures.both);
    return jsonLine(object);
}

std::string ratioText(const Analysis& r, const Regional& regional) {
    const std::string ratio = FormatNumber(r.EqAccRat, "#,##0.00", regional) + " : " + r.EqAccRatDen;
    return ratioAttained(r.EqAccRat) ? ratio : ratio + ", " + noSuchRatioText;
}

std::string asTable(const std::string& file, int status, const AnalysisRun& run, const Figures& figures) {
    const Analysis& r = run.record;
    const Regional& regional = run.session.regional;
    std::string table = forResults(file) + "\n";
    if (status != allDone) table += tableRow("Status", statusWord(status, "computed"));
    if (status == unreadable) return table + "\n";
    const auto sigma = [&](const std::string& distribution, double value) {
        return distribution + ", sigma " +
               forResults(withUnits(GeneralText(value, regional), r.NominalUnits));
    };
    const Verified& v = figures.verified;
    if (status == allDone) {
        const bool ratioFound = r.ComputeEqRatio && r.EqAccRat > 0;
        table += tableRow("Subject parameter", sigma(r.SU_Distribution, r.SU_Sigma));
        table += tableRow("Measuring parameter", sigma("Normal", r.MTE_Sigma));
        table += tableRow("False accept option", r.FalseAcceptOption == 1 ? "Producer" : "Consumer");
        table += tableRow("False accept risk", riskCell(figures.falseAccept, riskPicture)) +
                 exactRow(v.falseAccept, riskPicture);
        table += tableRow("False reject risk", riskCell(figures.falseReject, riskPicture)) +
                 exactRow(v.falseReject, riskPicture);
        table += tableRow("Equivalent accuracy ratio", ratioFound ? ratioText(r, regional) : "not computed");
        if (!figures.ratioRemark.empty()) table += tableRow("", figures.ratioRemark);
    }
    table += tableRow("Baseline false accept risk", riskCell(figures.baselineFalseAccept, baselinePicture)) +
             exactRow(v.baselineFalseAccept, baselinePicture);
    table += tableRow("Baseline false reject risk", riskCell(figures.baselineFalseReject, baselinePicture)) +
             exactRow(v.baselineFalseReject, baselinePicture);
    if (figures.both) table += bothRows(*figures.both, r, regional);
    return table + "\n";
}

Output computeFile(Workplace& workplace, const std::string& file, const Options& options) {
    AnalysisRun run(workplace);
    Figures figures;
    int status = unreadable;
    bool saved = true;
    if (run.open(file)) {
        status = compute(run, figures) ? allDone : refused;
        computeBaseline(run, figures);
        if (!options.noVerify) verify(run.record, figures);
        if (status == allDone)
            figures.both =
                bothConventions(run, options.coverage, figures.falseAccept, figures.verified.exact);
        if (options.save && status == allDone) saved = saveResults(run, file, options.force);
    }
    return {.results = (options.json ? asJson : asTable)(file, status, run, figures),
            .diagnostics = run.diagnostics(file),
            .status = saved ? status : refused};
}

int computeAll(const Options& options) {
    if (const auto factor = coverageFactor(options.coverage, 0); !factor)
        return finish(
            refusal("", factor.refusal().title + ": " + factor.refusal().text, refused, options.json));
    Workplace workplace(options.settings);
    const std::vector<std::string>& files = options.list.files;
    Outlet outlet(files.size());
    runOrdered(
        files.size(), threadsFor(options.threads, options.save),
        [&](std::size_t i) -> Output {
            const std::string& file = files[i];
            try {
                return computeFile(workplace, file, options);
            } catch (const std::exception& fault) { // memory: the files behind it may need less
                return refusal(file, faultText(fault), refused, options.json);
            }
        },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

} // namespace

void addCompute(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("compute", "Compute risks and equivalent accuracy ratio of analysis files");
    options->list.addTo(command, "Analysis files");
    command.flag("--json", options->json, "Print one JSON object per file, each on one line");
    command.flag("--save", options->save, "Write the results back to each file");
    command.flag("--force", options->force, "With --save: replace an existing .mrk beside a .dat file");
    command.flag("--no-verify", options->noVerify, "Leave out the second figures");
    addCoverageOption(command, options->coverage);
    addSettingsOption(command, options->settings);
    command
        .count("--threads", options->threads,
               "Threads to use; 0, the default, means one a core, with --save at least eight")
        .shownAs("N");
    command.examples(
        {"compute torque-wrench-50nm.mrk", "compute --json *.mrk", "compute --save gauge-block-25mm.mrk"});
    command.then([options, &chosen] {
        options->list.check();
        chosen = [options] {
            options->list.read();
            return computeAll(*options);
        };
    });
}

} // namespace metrisk::cli
