#include "shell/FileCommands.h"

#include "model/Message.h"
#include "model/Session.h"
#include "persistence/AnalysisFile.h"
#include "persistence/ClearAnalysis.h"
#include "persistence/OpenAnalysis.h"
#include "risk/CurrentFigures.h"
#include "risk/ValidateAndFit.h"
#include "shell/RecentFiles.h"
#include "shell/RiskOptionCommand.h"
#include "shell/mainscreen/MainScreen.h"

#include <filesystem>

namespace metrisk {

namespace {

constexpr const char* saveTitle = "Save Analysis";
constexpr const char* openTitle = "Open Analyis File";
constexpr const char* openFilter = "Analysis Files (*.mrk)|*.mrk|Analysis Files (*.dat)| *.dat";
constexpr const char* saveAsTitle = "Save Analysis As";
constexpr const char* saveAsFilter = "Analysis Files (*.mrk)|*.mrk";
constexpr const char* anyAnalysis = "*.mrk";
constexpr Message readOnly{"File is read only.  Cannot save changes.", "Read Only File"};
constexpr Question exitProgram{"This will end your Metrisk session.", "Exit Metrisk", BoxButtons::OkCancel,
                               Answer::Ok};

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == text.npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

/// False if the user wants to keep the analysis, or a save that was asked for did not come about.
bool FileCommands::changesSettled() {
    const Analysis& r = session_.record;
    if (!r.FileChanged || r.FileReadOnly) return true;
    switch (ask(session_.ui, {"Save changes to " + r.AnalysisFileName + "?", saveTitle,
                              BoxButtons::YesNoCancel, Answer::Cancel})) {
    case Answer::Yes: return mnu_File_Save();
    case Answer::No: return true;
    default: return false;
    }
}

bool FileCommands::NewAnalysisFile() {
    if (!changesSettled()) return false;
    ClearAnalysis(session_);
    session_.record.FileReadOnly = false;
    screen_.forgetLastTexts();
    screen_.TakeSavedCopy();
    return true;
}

bool FileCommands::mnu_File_Open() {
    screen_.DetectChanges();
    if (!changesSettled()) return false;
    const std::optional<std::string> path = chooser_.chooseToOpen({.title = openTitle,
                                                                   .filter = openFilter,
                                                                   .filterIndex = 1,
                                                                   .initialName = "",
                                                                   .initialFolder = startFolder()});
    return path && load(*path);
}

bool FileCommands::openPath(const std::string& path) {
    screen_.DetectChanges();
    return changesSettled() && load(path);
}

bool FileCommands::openAtStart(const std::string& path) {
    return load(path);
}

bool FileCommands::load(const std::string& given) {
    namespace fs = std::filesystem;
    const WaitPointer wait(session_.ui);
    Analysis& r = session_.record;
    std::error_code ignored;
    // Recent files and saves need a name that holds wherever the program is started.
    const std::string path = fs::absolute(trimmed(given), ignored).lexically_normal().string();
    if (!fs::exists(path, ignored)) {
        const std::string name = fs::path(path).filename().string();
        tell(session_.ui, {readErrorText, name});
        forgetRecentFile(session_.settings, path);
        return false;
    }
    ClearAnalysis(session_);
    ClearWorksheets(session_);
    screen_.forgetLastTexts();
    OpenAnalysis(session_, path);
    if (r.AbortFlag) {
        // What was read stays to be seen; it is nothing that the user has changed.
        screen_.TakeSavedCopy();
        session_.ui.repaintMainScreen();
        return false;
    }
    // The measuring parameter's fit comes with the file.
    r.ComputeScope = "SU";
    r.ComputeNeeded = false;
    ValidateAndFit(session_);
    session_.ui.focus("SystemIDBox");
    RefreshMainScreen(session_);
    remindOfRiskOption(session_);
    screen_.TakeSavedCopy();
    addRecentFile(session_.settings, path);
    if (r.LimitsReformed) session_.ui.status(limitsReformedText);
    return true;
}

/// Beside the current file, else where the last one was; empty: the user's documents.
std::string FileCommands::startFolder() const {
    namespace fs = std::filesystem;
    if (!isUntitled(session_.record.AnalysisFileName))
        return fs::path(session_.record.AnalysisFileName).parent_path().string();
    const std::vector<std::string> recent = recentFiles(session_.settings);
    return recent.empty() ? "" : fs::path(recent.front()).parent_path().string();
}

bool FileCommands::mnu_File_Save() {
    if (isUntitled(session_.record.AnalysisFileName)) return mnu_File_SaveAs();
    if (session_.record.FileReadOnly) {
        tell(session_.ui, readOnly);
        return false;
    }
    return saveTo(session_.record.AnalysisFileName);
}

bool FileCommands::mnu_File_SaveAs() {
    const std::optional<std::string> path = chooser_.chooseToSave(
        {.title = saveAsTitle,
         .filter = saveAsFilter,
         .filterIndex = 1,
         .initialName =
             isUntitled(session_.record.AnalysisFileName) ? anyAnalysis : session_.record.AnalysisFileName,
         .initialFolder = startFolder()});
    return path && saveTo(*path);
}

bool FileCommands::saveTo(const std::string& path) {
    Analysis& r = session_.record;
    const std::string name = NormalizeAnalysisName(path);
    if (name != path && !mayReplace(session_.ui, name, saveAsTitle)) return false;
    const std::string before = r.AnalysisFileName;
    r.AnalysisFileName = name;
    r.AbortFlag = false;
    dropStaleFigures(session_);
    WriteAnalysis(session_, name);
    if (r.AbortFlag) {
        r.AnalysisFileName = before;
        return false;
    }
    r.FileChanged = false;
    screen_.TakeSavedCopy();
    addRecentFile(session_.settings, name);
    return true;
}

bool FileCommands::ConfirmExit(const std::function<void()>& onConfirmed) {
    if (ask(session_.ui, exitProgram) != Answer::Ok) return false;
    onConfirmed();
    return true;
}

bool FileCommands::ExitAnalysis(const std::function<void()>& onConfirmed) {
    screen_.DetectChanges();
    return ConfirmExit(onConfirmed) && changesSettled();
}

} // namespace metrisk
