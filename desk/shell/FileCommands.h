// The commands of the file menu and the end of the program.
#pragma once

#include "desk/kit/FileChooser.h"

#include <functional>
#include <string>

namespace metrisk {

class MainScreen;
struct Analysis;
struct Session;

/// The caller commits the entry being made before each command and afterwards sets the caption
/// (mainCaption) and the list of recent files anew. A command that is refused, cancelled or fails
/// returns false.
class FileCommands {
  public:
    FileCommands(Session& session, MainScreen& screen, FileChooser& chooser)
        : session_(session), screen_(screen), chooser_(chooser) {}

    bool NewAnalysisFile();
    bool mnu_File_Open();
    /// Opens a dropped or recent file; asks to save first like mnu_File_Open.
    bool openPath(const std::string& path);
    /// Opens the file named on the command line: there is nothing to be saved yet.
    bool openAtStart(const std::string& path);
    bool mnu_File_Save();
    bool mnu_File_SaveAs();

    /// Takes an analysis that has been made elsewhere, once what is there is settled.
    bool openMade(const Analysis& made);

    /// The analysis has been replaced as a whole, by one that has been fitted or not: shows it.
    void showOpened();

    /// An exception that nothing has caught has ended an action: tells so, and saves under another name if
    /// asked.
    void tellUnexpected(const char* what);

    /// Called when unsaved work has been saved or is not wanted.
    std::function<void()> settled = [] {};
    /// Asked at the end whether there is other work to be saved; false keeps the program.
    std::function<bool()> othersSettled = [] { return true; };

    /// Asks whether the program is to end; on OK `onConfirmed` removes what the program left behind.
    bool ConfirmExit(const std::function<void()>& onConfirmed = [] {});
    /// The whole way out: confirmation, then the save question. True when the program may end.
    bool ExitAnalysis(const std::function<void()>& onConfirmed = [] {});

  private:
    Session& session_;
    MainScreen& screen_;
    FileChooser& chooser_;

    bool changesSettled();
    /// A file that is not there leaves the analysis as it is.
    bool load(const std::string& given);
    std::string startFolder() const;
    bool saveTo(const std::string& path);
};

} // namespace metrisk
