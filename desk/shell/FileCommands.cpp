#include "desk/shell/FileCommands.h"

#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/files/OpenAnalysis.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/shell/RecentFiles.h"
#include "desk/shell/RiskOptionCommand.h"
#include "persistence/AnalysisName.h"
#include "record/AnalysisFields.h"
#include "risk/evaluate/CurrentFigures.h"

#include <algorithm>
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

/// Recent files and saves need a name that holds wherever the program is started. A folder behind which a
/// path goes back up may be a link: the system says where that leads.
std::string absoluteName(const std::string& given) {
    namespace fs = std::filesystem;
    std::error_code ignored;
    const fs::path path = fs::absolute(given, ignored);
    const bool goesUp = std::find(path.begin(), path.end(), fs::path("..")) != path.end();
    const fs::path folder = goesUp ? fs::canonical(path.parent_path(), ignored) : fs::path();
    return (folder.empty() ? path.lexically_normal() : folder / path.filename()).string();
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
    session_.fileStamp.reset();
    session_.record.FileReadOnly = false;
    screen_.forgetLastTexts();
    screen_.TakeSavedCopy();
    settled();
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

bool FileCommands::openMade(const Analysis& made) {
    screen_.DetectChanges();
    if (!changesSettled()) return false;
    ClearAnalysis(session_);
    ClearWorksheets(session_.record, session_.settings);
    session_.fileStamp.reset();
    Analysis& r = session_.record;
    eachField([&](const Field& field, auto member) {
        if (field.source != Source::Session) r.*member = made.*member;
    });
    r.FileReadOnly = false;
    r.ComputeScope = "Both";
    ValidateAndFit(session_);
    showOpened();
    settled();
    r.FileChanged = true;
    r.RisksNeedCompute = true;
    return true;
}

bool FileCommands::openAtStart(const std::string& path) {
    return load(path);
}

bool FileCommands::load(const std::string& given) {
    namespace fs = std::filesystem;
    const WaitPointer wait(session_.ui);
    Analysis& r = session_.record;
    std::error_code ignored;
    const std::string path = absoluteName(trimmed(given));
    if (!fs::exists(path, ignored)) {
        const std::string name = fs::path(path).filename().string();
        tell(session_.ui, {readErrorText, name});
        forgetRecentFile(session_.settings, path);
        return false;
    }
    ClearAnalysis(session_);
    ClearWorksheets(session_.record, session_.settings);
    screen_.forgetLastTexts();
    OpenAnalysis(session_, path);
    if (r.AbortFlag) {
        // What was read stays to be seen; it is nothing that the user has changed.
        screen_.TakeSavedCopy();
        session_.ui.repaintMainScreen();
        return false;
    }
    showOpened();
    settled();
    addRecentFile(session_.settings, path);
    if (r.LimitsReformed) session_.ui.status(limitsReformedText);
    return true;
}

void FileCommands::showOpened() {
    // The measuring parameter's fit comes with the file.
    session_.record.ComputeScope = "SU";
    session_.record.ComputeNeeded = false;
    ValidateAndFit(session_);
    screen_.forgetLastTexts();
    session_.ui.focus("SystemIDBox");
    RefreshMainScreen(session_);
    remindOfRiskOption(session_);
    screen_.TakeSavedCopy();
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
    const std::string& name = session_.record.AnalysisFileName;
    if (!mayReplaceChanged(session_.ui, session_.fileStamp, NormalizeAnalysisName(name), saveTitle))
        return false;
    return saveTo(name);
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
    dropStaleFigures(session_.record, session_.regional);
    WriteAnalysis(session_, name);
    if (r.AbortFlag) {
        r.AnalysisFileName = before;
        return false;
    }
    r.FileChanged = false;
    screen_.TakeSavedCopy();
    addRecentFile(session_.settings, name);
    settled();
    return true;
}

void FileCommands::tellUnexpected(const char* what) {
    session_.ui.show({.text = std::string("An unexpected error has ended what was going on:\n") + what +
                              "\nThe analysis is as it was.",
                      .icon = BoxIcon::Exclamation});
    const bool save = screen_.hasChanges() && session_.ui.show({.text = "Save the analysis now?",
                                                                .icon = BoxIcon::Question,
                                                                .buttons = BoxButtons::YesNo,
                                                                .unattended = Answer::No}) == Answer::Yes;
    if (save) mnu_File_SaveAs();
}

bool FileCommands::ConfirmExit(const std::function<void()>& onConfirmed) {
    if (ask(session_.ui, exitProgram) != Answer::Ok) return false;
    onConfirmed();
    return true;
}

bool FileCommands::ExitAnalysis(const std::function<void()>& onConfirmed) {
    screen_.DetectChanges();
    return ConfirmExit(onConfirmed) && changesSettled() && othersSettled();
}

} // namespace metrisk
