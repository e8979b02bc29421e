// metrisk-cli compute: risks and equivalent accuracy ratio of analysis files.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/JsonLine.h"
#include "cli/OrderedBatch.h"
#include "cli/RiskText.h"
#include "model/DisplayRule.h"
#include "model/NumberText.h"
#include "persistence/AnalysisFile.h"
#include "risk/BaselineRisks.h"
#include "risk/ComputePipeline.h"
#include "risk/EquivalentRatio.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <unistd.h>

namespace metrisk::cli {

namespace {

constexpr double noFigure = std::numeric_limits<double>::quiet_NaN();

/// Fractions; not a number where there is no figure.
struct Figures {
    double falseAccept = noFigure;
    double falseReject = noFigure;
    double baselineFalseAccept = noFigure;
    double baselineFalseReject = noFigure;
};

const char* statusWord(int status) {
    return status == allDone ? "computed" : status == refused ? "refused" : "unreadable";
}

/// Computes afresh, whatever the snapshot in the file says; false when the analysis is refused.
bool compute(AnalysisRun& run, Figures& figures) {
    Analysis& r = run.record;
    r.RisksNeedCompute = true;
    r.RisksComputed = false;
    ComputeResults_Click(run.session);
    if (!r.RisksComputed) return false;
    figures.falseAccept = riskFraction(r.FalseAcceptRisk, r.FalseAcceptUnits);
    figures.falseReject = riskFraction(r.FalseRejectRisk, r.FalseRejectUnits);
    return true;
}

void computeBaseline(AnalysisRun& run, Figures& figures) {
    const Analysis& r = run.record;
    if (!(r.Base_AccRatNum > 0) || !(r.Base_AccRatDen > 0)) return;
    const std::optional<Risks> risks =
        ComputeBaselineRisks(run.session, {.ratio = r.Base_AccRatNum / r.Base_AccRatDen,
                                           .subjectInTol = r.Base_SUPctInTol / 100,
                                           .measuringInTol = r.Base_MTEPctInTol / 100});
    if (!risks) return;
    figures.baselineFalseAccept = risks->falseAccept;
    figures.baselineFalseReject = risks->falseReject;
}

std::string asJson(const std::string& file, int status, const AnalysisRun& run, const Figures& figures) {
    JsonLine line;
    line.add("file", file);
    line.add("status", statusWord(status));
    line.add("messages", run.ui.messages());
    line.add("FalseAccept", figures.falseAccept);
    line.add("FalseReject", figures.falseReject);
    line.add("BaselineFalseAccept", figures.baselineFalseAccept);
    line.add("BaselineFalseReject", figures.baselineFalseReject);
    const Analysis& r = run.record;
    line.add("SU_Distribution", r.SU_Distribution);
    line.add("SU_CaseCode", r.SU_CaseCode);
    line.add("SU_Sigma", r.SU_Sigma);
    line.add("SU_LogSigma", r.SU_LogSigma);
    line.add("SU_LogOmega", r.SU_LogOmega);
    line.add("SU_ExpExponent", r.SU_ExpExponent);
    line.add("SU_ExpRate", r.SU_ExpRate);
    line.add("PhysicalLimit", r.PhysicalLimit);
    line.add("MTE_Sigma", r.MTE_Sigma);
    line.add("MTE_kFactor", r.MTE_kFactor);
    line.add("MTE_StdUncertainty", r.MTE_StdUncertainty);
    line.add("FalseAcceptRisk", r.FalseAcceptRisk);
    line.add("FalseAcceptUnits", r.FalseAcceptUnits);
    line.add("FalseRejectRisk", r.FalseRejectRisk);
    line.add("FalseRejectUnits", r.FalseRejectUnits);
    line.add("EqAccRat", r.EqAccRat);
    line.add("EqAccRatDen", r.EqAccRatDen);
    if (status == allDone && r.ComputeEqRatio)
        line.add("EqAccRatAttained", ratioAttained(r.EqAccRat));
    else
        line.addNull("EqAccRatAttained");
    line.add("FalseAcceptOption", r.FalseAcceptOption);
    return line.text();
}

std::string tableRow(const char* label, const std::string& value) {
    std::string row = "  " + std::string(label);
    row.resize(30, ' ');
    return row + value + "\n";
}

std::string ratioText(const Analysis& r, const Regional& regional) {
    const std::string ratio = FormatNumber(r.EqAccRat, "#,##0.00", regional) + " : " + r.EqAccRatDen;
    return ratioAttained(r.EqAccRat) ? ratio : ratio + ", no such ratio";
}

std::string asTable(const std::string& file, int status, const AnalysisRun& run, const Figures& figures) {
    const Analysis& r = run.record;
    const Regional& regional = run.session.regional;
    std::string table = file + "\n";
    if (status == unreadable) return table + tableRow("Status", "unreadable") + "\n";
    if (status == refused) table += tableRow("Status", "refused");
    const auto withUnits = [&](double value) {
        const std::string text = GeneralText(value, regional);
        return r.NominalUnits.empty() ? text : text + " " + r.NominalUnits;
    };
    if (status == allDone) {
        const bool ratioFound = r.ComputeEqRatio && r.EqAccRat > 0;
        table += tableRow("Subject parameter", r.SU_Distribution + ", sigma " + withUnits(r.SU_Sigma));
        table += tableRow("Measuring parameter", "Normal, sigma " + withUnits(r.MTE_Sigma));
        table += tableRow("False accept option", r.FalseAcceptOption == 1 ? "Producer" : "Consumer");
        table += tableRow("False accept risk", riskCell(figures.falseAccept, riskPicture));
        table += tableRow("False reject risk", riskCell(figures.falseReject, riskPicture));
        table += tableRow("Equivalent accuracy ratio", ratioFound ? ratioText(r, regional) : "not computed");
    }
    table += tableRow("Baseline false accept risk", riskCell(figures.baselineFalseAccept, baselinePicture));
    table += tableRow("Baseline false reject risk", riskCell(figures.baselineFalseReject, baselinePicture));
    return table + "\n";
}

/// Some faults end silently in the window, whose user sees that the figures stand; here a line says so.
std::string silentFaults(const std::string& file, int status, const AnalysisRun& run,
                         const Figures& figures) {
    std::string lines;
    const auto wentOn = [](const Message& message) { return message.answer == "Yes"; };
    if (status == refused && std::ranges::all_of(run.ui.messages(), wentOn))
        lines +=
            file + ": not computed: these entries lead to no finite risk (" + run.record.SilentFault + ")\n";
    if (status != unreadable && std::isnan(figures.baselineFalseAccept))
        lines += file + ": no baseline risks: the baseline's figures allow none\n";
    return lines;
}

Output computeFile(Workplace& workplace, const std::string& file, const ComputeOptions& options) {
    Output output;
    AnalysisRun run(workplace);
    Figures figures;
    if (!run.open(file)) {
        output.status = unreadable;
    } else {
        output.status = compute(run, figures) ? allDone : refused;
        computeBaseline(run, figures);
    }
    output.diagnostics = run.diagnostics(file) + silentFaults(file, output.status, run, figures);
    output.results =
        options.json ? asJson(file, output.status, run, figures) : asTable(file, output.status, run, figures);
    if (options.save && output.status == allDone) {
        const std::string target = NormalizeAnalysisName(file);
        if (target != file && !options.force && saveWouldReplace(file)) {
            output.diagnostics += file + ": not saved: " + target + " exists; use --force to replace it\n";
            output.status = refused;
        } else if (!run.save(file)) {
            output.diagnostics += file + ": not saved\n";
            output.status = refused;
        }
    }
    return output;
}

/// A bar on stderr, when that is a terminal and there is something to wait for.
class ProgressBar {
  public:
    explicit ProgressBar(std::size_t total)
        : total_(total), shown_(total > 1 && isatty(STDERR_FILENO) != 0) {}

    void show(std::size_t done) {
        if (!shown_) return;
        const std::size_t filled = done * width / total_;
        if (filled == filled_ && done != total_) return;
        filled_ = filled;
        const std::string bar = std::string(filled, '#') + std::string(width - filled, ' ');
        std::fprintf(stderr, "\r[%s] %zu/%zu%s", bar.c_str(), done, total_, done == total_ ? "\n" : "");
    }

  private:
    static constexpr std::size_t width = 40;
    std::size_t total_;
    std::size_t filled_ = width + 1;
    bool shown_;
};

} // namespace

int computeCommand(const ComputeOptions& options) {
    Workplace workplace(options.settings);
    ProgressBar bar(options.files.size());
    return runOrdered(
        options.files.size(), options.threads,
        [&](std::size_t i) { return computeFile(workplace, options.files[i], options); },
        [&](std::size_t done) { bar.show(done); });
}

} // namespace metrisk::cli
