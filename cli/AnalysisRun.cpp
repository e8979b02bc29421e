#include "cli/AnalysisRun.h"

#include "model/FlagGuard.h"
#include "model/Message.h"
#include "persistence/AnalysisFile.h"
#include "persistence/ClearAnalysis.h"
#include "persistence/OpenAnalysis.h"
#include "risk/CurrentFigures.h"
#include "risk/ValidateAndFit.h"

#include <algorithm>
#include <filesystem>
#include <span>

namespace metrisk::cli {

namespace {

/// The window says so in its status line.
constexpr Message limitsReformed{limitsReformedText, "Tolerance Limits", BoxIcon::Information};

constexpr const char* notComputedTitle = "Not Computed";
constexpr const char* notSavedTitle = "Not Saved";

} // namespace

Workplace::Workplace(const std::string& settingsPath)
    : settings(settingsPath.empty() ? defaultSettingsPath() : std::filesystem::path(settingsPath)) {
    ConsoleInteraction ui;
    Session session{settings, ui, clock};
    ClearAnalysis(session);
    ClearWorksheets(session);
    newAnalysis = session.record;
}

bool AnalysisRun::open(const std::string& path) {
    record = workplace_.newAnalysis;
    const ReadOutcome outcome = OpenAnalysis(session, path);
    if (record.LimitsReformed) tell(ui, limitsReformed);
    if (outcome.fault == ReadFault::None) return true;
    notes_ += diagnosticLine(path, causeOf(outcome));
    return false;
}

bool AnalysisRun::save(const std::string& path) {
    const std::string target = NormalizeAnalysisName(path);
    WriteAnalysis(session, target);
    if (record.AbortFlag) return false;
    if (target != path) notes_ += diagnosticLine(path, "saved as " + target);
    return true;
}

std::string AnalysisRun::diagnostics(const std::string& name) const {
    return diagnosticLines(name, ui.messages()) + notes_;
}

bool fitBoth(AnalysisRun& run) {
    return withReason(run, "no fit", [&] {
        run.record.ComputeScope = "Both";
        run.record.ComputeNeeded = true;
        ValidateAndFit(run.session);
        return !run.record.AbortFlag;
    });
}

bool withReason(AnalysisRun& run, const char* what, const std::function<bool()>& work) {
    const std::size_t told = run.ui.messages().size();
    const FlagGuard speaking(run.record.Computing);
    if (work()) return true;
    // A question is no reason.
    const auto news = std::span(run.ui.messages()).subspan(told);
    if (std::ranges::any_of(news, [](const Told& message) { return !message.asked; })) return false;
    const std::string& fault = run.record.SilentFault;
    tell(run.ui, {std::string("These entries lead to ") + what + (fault.empty() ? "." : " (" + fault + ")."),
                  notComputedTitle});
    return false;
}

bool saveResults(AnalysisRun& run, const std::string& file, bool force) {
    const std::string target = NormalizeAnalysisName(file);
    std::error_code none;
    if (target == file || force || !std::filesystem::exists(target, none)) {
        dropStaleFigures(run.session);
        return run.save(file);
    }
    tell(run.ui, {target + " exists; use --force to replace it.", notSavedTitle});
    return false;
}

} // namespace metrisk::cli
