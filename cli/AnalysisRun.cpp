#include "cli/AnalysisRun.h"

#include "model/Message.h"
#include "persistence/AnalysisFile.h"
#include "persistence/ClearAnalysis.h"
#include "persistence/OpenAnalysis.h"
#include "risk/CurrentFigures.h"

#include <filesystem>

namespace metrisk::cli {

namespace {

/// The window says so in its status line.
constexpr Message limitsReformed{limitsReformedText, "Tolerance Limits", BoxIcon::Information};

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
