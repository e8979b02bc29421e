#include "cli/AnalysisRun.h"

#include "persistence/AnalysisFile.h"
#include "persistence/ClearAnalysis.h"

#include <filesystem>

namespace metrisk::cli {

Workplace::Workplace(const std::string& settingsPath)
    : settings(settingsPath.empty() ? defaultSettingsPath() : std::filesystem::path(settingsPath)) {
    ConsoleInteraction ui;
    Session session{settings, ui};
    ClearAnalysis(session);
    ClearWorksheets(session);
    newAnalysis = session.record;
}

bool AnalysisRun::open(const std::string& path) {
    record = workplace_.newAnalysis;
    record.AnalysisFileName = path;
    record.AbortFlag = false;
    ReadAnalysis(session, path);
    if (record.LimitsReformed) ui.note({"Tolerance Limits", limitsReformedText, "OK"});
    return !record.AbortFlag;
}

bool AnalysisRun::save(const std::string& path) {
    record.AbortFlag = false;
    WriteAnalysis(session, NormalizeAnalysisName(path));
    return !record.AbortFlag;
}

bool saveWouldReplace(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::exists(NormalizeAnalysisName(path), ignored);
}

} // namespace metrisk::cli
