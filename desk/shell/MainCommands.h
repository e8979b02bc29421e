// The main screen's menus, and what each of their commands does.
#pragma once

#include "desk/decision/ReadingHistory.h"
#include "desk/kit/ScreenEntry.h"
#include "desk/plots/PlotDesk.h"
#include "desk/points/PointDesk.h"
#include "desk/reports/ReportDesk.h"
#include "desk/shell/FileCommands.h"

#include <functional>
#include <vector>

namespace metrisk {

class DDE_Form;
class MainScreen;
struct ImportTarget;
struct MenuItem;
struct Session;

/// Gives the main screen its menus. A command whose screen is not part of the program has nothing to run.
class MainCommands {
  public:
    MainCommands(Session& session, MainScreen& screen, FileChooser& chooser);
    MainCommands(const MainCommands&) = delete;
    MainCommands& operator=(const MainCommands&) = delete;

    FileCommands files;
    PlotDesk plots;
    ReportDesk reports;
    ReadingHistory readings;
    PointDesk points;

    /// Opens an analysis, or a table of test points; asks first what becomes of changes.
    void openPath(const std::string& path);
    /// The table of test points as it stands.
    void showPoints();
    /// The file named on the command line: there is nothing to be saved yet.
    void openAtStart(const std::string& path);

  private:
    Session& session_;
    MainScreen& screen_;
    const DeskParts parts_;

    /// Nothing where there is no such link.
    void withErrorLedger(const std::function<void(DDE_Form&)>& action);
    ImportTarget importTarget();
    std::vector<MenuItem> tableItems();
    void openTable(const std::string& path);
    MenuItem followed(const char* control, std::string_view name);
    MenuItem plotItem(const char* control, std::string_view name, PlotKind kind);
    std::vector<MenuItem> fileItems();
    std::vector<MenuItem> recentItems();
    std::vector<MenuItem> plotItems();
    std::vector<MenuItem> optionItems();
    std::vector<MenuItem> helpItems();
};

} // namespace metrisk
