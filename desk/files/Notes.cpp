#include "desk/files/Notes.h"

#include "base/Text.h"
#include "desk/files/AnalysisFile.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "persistence/AnalysisName.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace metrisk {

namespace {

namespace fs = std::filesystem;

constexpr Question nameNeeded{"Please enter a file name and location for the current analysis.",
                              "Enter a Metrisk file name.", BoxButtons::OkCancel, Answer::Cancel};
constexpr const char* nameTitle = "File Name for Notes";
constexpr const char* nameFilter = "(*.mrk)|*.mrk|";
constexpr const char* openTitle = "Unable to Open File";

bool isAnalysisFile(const std::string& name) {
    const std::string extension = fs::path(name).extension().string();
    return equalCaseBlind(extension, ".mrk") || equalCaseBlind(extension, ".dat");
}

/// False if the user gives none.
bool nameAnalysis(Session& session, FileChooser& files) {
    Analysis& r = session.record;
    if (ask(session.ui, nameNeeded) != Answer::Ok) return false;
    const auto chosen =
        files.chooseToSave({.title = nameTitle,
                            .filter = nameFilter,
                            .filterIndex = 1,
                            .initialName = isUntitled(r.AnalysisFileName) ? "" : r.AnalysisFileName,
                            .initialFolder = ""});
    if (!chosen) return false;
    const std::string name = NormalizeAnalysisName(*chosen);
    if (name != *chosen && !mayReplace(session.ui, name, nameTitle)) return false;
    r.AnalysisFileName = name;
    r.FileChanged = true;
    session.ui.repaintMainScreen();
    return true;
}

/// Never empties a file that is there. Empty, or why there is none.
std::string createIfMissing(const fs::path& path) {
    std::error_code none;
    if (fs::exists(path, none)) return "";
    errno = 0;
    if (std::ofstream(path, std::ios::app)) return "";
    return path.string() + ": " + std::generic_category().message(errno);
}

} // namespace

void OpenNotes(Session& session) {
    const std::string& name = session.record.AnalysisFileName;
    if (!session.desktop) return;
    if (!isAnalysisFile(name) && !nameAnalysis(session, session.desktop->files)) return;
    const fs::path path = fs::path(name).replace_extension(".rtf");
    std::string cause = createIfMissing(path);
    if (cause.empty()) cause = session.desktop->programs.openDocument(path.string());
    if (!cause.empty()) tell(session.ui, {cause, openTitle});
}

void keepName(Analysis& record, const Analysis& named) {
    if (record.AnalysisFileName == named.AnalysisFileName) return;
    record.AnalysisFileName = named.AnalysisFileName;
    record.FileChanged = true;
}

MenuItem notesItem(Session& session) {
    return {.control = "mnu_Notes", .caption = "&Notes", .run = [&session] { OpenNotes(session); }};
}

} // namespace metrisk
