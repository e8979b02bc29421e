#include "unattended/AnalysisRun.h"

#include "base/FlagGuard.h"
#include "base/Real.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/files/OpenAnalysis.h"
#include "desk/kit/Message.h"
#include "persistence/AnalysisName.h"
#include "risk/evaluate/CurrentFigures.h"
#include "unattended/Input.h"

#include <algorithm>
#include <filesystem>
#include <span>

namespace metrisk {

namespace {

/// The window says so in its status line.
constexpr Message limitsReformed{limitsReformedText, "Tolerance Limits", BoxIcon::Information};

constexpr const char* notComputedTitle = "Not Computed";
constexpr const char* notSavedTitle = "Not Saved";

SettingsFile settingsOf(const std::string& path) {
    constexpr std::size_t largest = 1 << 22;
    if (path.empty()) return SettingsFile(defaultSettingsPath());
    if (path == standardStream) return SettingsFile(SettingsContent{readInput(path, largest)});
    readInput(path, largest); // raises what the reading of a key would pass over
    return SettingsFile(std::filesystem::path(path));
}

} // namespace

Workplace::Workplace(const std::string& settingsPath) : settings(settingsOf(settingsPath)) {
    makeNew();
}

Workplace::Workplace(const SettingsContent& content) : settings(content) {
    makeNew();
}

void Workplace::makeNew() {
    UnattendedInteraction ui;
    Session session{settings, ui, clock};
    ClearAnalysis(session);
    ClearWorksheets(session.record, session.settings);
    newAnalysis = session.record;
}

bool AnalysisRun::open(const std::string& path) {
    if (path != standardStream) {
        record = workplace_.newAnalysis;
        return told(OpenAnalysis(session, path));
    }
    try {
        return openText(readInput(path, largestAnalysis), path);
    } catch (const Unreadable& fault) {
        ui.note(fault.what());
        return false;
    }
}

bool AnalysisRun::openText(std::string content, const std::string& name) {
    record = workplace_.newAnalysis;
    return told(OpenAnalysisText(session, std::move(content), name));
}

bool AnalysisRun::told(const ReadOutcome& outcome) {
    if (record.LimitsReformed) tell(ui, limitsReformed);
    if (outcome.fault != ReadFault::None) ui.note(causeOf(outcome));
    return outcome.fault == ReadFault::None;
}

bool AnalysisRun::save(const std::string& file, const std::string& path) {
    const std::string target = NormalizeAnalysisName(path);
    const bool own = target == record.AnalysisFileName;
    bool changed = false;
    const auto holds = [&] { return !(changed = own && changedSince(session.fileStamp, target)); };
    const std::string cause = WriteAnalysis(session, target, {}, holds);
    if (changed) {
        tell(ui, {target + " changed while it was computed; not saved", notSavedTitle});
        return false;
    }
    if (!cause.empty()) {
        ui.note(target + " cannot be written: " + cause);
        return false;
    }
    if (target != file) ui.note("saved as " + target);
    return true;
}

bool AnalysisRun::settle() {
    const Analysis before = record;
    const auto stamp = session.fileStamp;
    bool held = false;
    try {
        const std::string text = AnalysisText(before);
        record = workplace_.newAnalysis;
        held = OpenAnalysisText(session, text, before.AnalysisFileName).fault == ReadFault::None;
    } catch (const RuntimeFault&) { // a number that could not be read back
        held = false;
    }
    if (!held) record = before;
    record.AnalysisFileName = before.AnalysisFileName;
    record.LastAnalysisName = before.LastAnalysisName;
    session.fileStamp = stamp;
    return held;
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
    if (file == standardStream) {
        tell(run.ui, {"What comes from the standard input cannot be saved there.", notSavedTitle});
        return false;
    }
    const std::string target = NormalizeAnalysisName(file);
    std::error_code none;
    if (target == file || force || !std::filesystem::exists(target, none)) {
        dropStaleFigures(run.session.record, run.session.regional);
        return run.save(file, file);
    }
    tell(run.ui, {target + " exists; use --force to replace it.", notSavedTitle});
    return false;
}

} // namespace metrisk
