#include "desk/shell/MainCommands.h"

#include "desk/files/Notes.h"
#include "desk/files/Summary.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Session.h"
#include "desk/links/DDE_Form.h"
#include "desk/links/RunMenu.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/points/PointDocument.h"
#include "desk/points/PointFiles.h"
#include "desk/points/TestPointsScreen.h"
#include "desk/shell/RecentFiles.h"
#include "desk/shell/RiskOptionCommand.h"

#include <algorithm>
#include <filesystem>

namespace metrisk {

namespace {

MenuItem separated(MenuItem item) {
    item.separatorAfter = true;
    return item;
}

std::string menuText(std::string text) {
    for (std::size_t at = 0; (at = text.find('&', at)) != std::string::npos; at += 2) text.insert(at, "&");
    return text;
}

} // namespace

MainCommands::MainCommands(Session& session, MainScreen& screen, FileChooser& chooser)
    : files(session, screen, chooser), plots(session), reports(session), session_(session),
      screen_(screen), parts_{session,   &chooser,
                              &reports,  &plots,
                              &readings, {},
                              &points,   [this](const Analysis& made) { return files.openMade(made); }} {
    files.othersSettled = [this] { return changesSettled(session_.ui, parts_.files, points); };
    screen.mayExit = [this] {
        return files.ExitAnalysis(
            [this] { withErrorLedger([](DDE_Form& link) { link.removeExchangeFile(); }); });
    };
    MenuItem reading = screenItem("mnu_Reading", screens::reading, parts_);
    reading.shortcut = "Ctrl+R";
    screen.menus = {
        {.control = "FileAnalysis", .caption = "&File", .items = fileItems()},
        editMenu(),
        screenItem("mnu_Units", screens::units, parts_),
        screenItem("BaselineAnalysisScreen", screens::baseline, parts_),
        {.control = "mnu_Reliability",
         .caption = "&Reliability",
         .items = {followed("mnu_Reliability_Parameter_0", screens::reliability[0]),
                   followed("mnu_Reliability_Parameter_1", screens::reliability[1])}},
        {.control = "mnu_BiasRef",
         .caption = "% &In-Tol",
         .items = {followed("mnu_BiasRef_Parameter_0", screens::biasReference[0]),
                   separated(followed("mnu_BiasRef_Parameter_1", screens::biasReference[1])), reading,
                   followed("mnu_Strategies", screens::strategies)}},
        {.control = "PlotControl", .caption = "&Plots", .items = plotItems()},
        {.control = "UserOptions", .caption = "&Options", .items = optionItems()},
        {.control = "mnu_ToleranceLimits",
         .caption = "&Tol Ref",
         .run = [this] { screen_.openOffsets(parts_); }},
        {.control = "mnu_Uncertainty",
         .caption = "&Uncertainty",
         .run = [this] { screen_.openUncertainty(parts_); }},
        runMenu(session_),
        {.control = "mnu_View",
         .caption = "&View",
         .items = {{.control = "mnu_HideIdentification",
                    .caption = "Hide &Identification",
                    .run =
                        [this] {
                            screen_.hideIdentification(screen_.pnl_IDData.visible);
                            findItem(screen_.menus, "mnu_HideIdentification")->checked =
                                !screen_.pnl_IDData.visible;
                        },
                    .toolTip = "Leave the room of manufacturers and models to what is computed",
                    .checked = !screen_.pnl_IDData.visible}}},
        {.control = "mnu_Help", .caption = "&Help", .items = helpItems()},
    };
}

std::vector<MenuItem> MainCommands::fileItems() {
    std::vector<MenuItem> items = {
        {.control = "NewAnalysisFile",
         .caption = "&New Analysis",
         .run = [this] { files.NewAnalysisFile(); },
         .shortcut = "Ctrl+N"},
        {.control = "mnu_File_Open",
         .caption = "&Open...",
         .run = [this] { files.mnu_File_Open(); },
         .shortcut = "Ctrl+O"},
        {.control = "mnu_RecentFiles", .caption = "Recent &Files", .fill = [this] { return recentItems(); }},
        {.control = "mnu_File_Save",
         .caption = "&Save",
         .run = [this] { files.mnu_File_Save(); },
         .shortcut = "Ctrl+S"},
        {.control = "mnu_File_SaveAs",
         .caption = "Save &As...",
         .run = [this] { files.mnu_File_SaveAs(); },
         .shortcut = "Ctrl+Shift+S"},
        {.control = "mnu_FileSaveSummary",
         .caption = "Save &Data Summary...",
         .run = [this] { SaveSummary(session_); },
         .separatorAfter = true},
        {.control = "PrintAnalysisResults",
         .caption = "&Print...",
         .run = [this] { reports.openPrintDialog(); },
         .shortcut = "Ctrl+P",
         .needs = Needs::Both},
        {.control = "mnu_Preview",
         .caption = "Print Pre&view",
         .run = [this] { reports.preview(session_, reportOrigin::mainScreen); },
         .needs = Needs::Both,
         .separatorAfter = true},
        {.control = "mnu_File_RunExternal",
         .caption = "&Run External Application",
         .run = [this] { runExternal(session_); }},
        {.control = "mnu_Link",
         .caption = "&Link to ErrorLedger",
         .run =
             [this] { withErrorLedger([this](DDE_Form& link) { link.LinkToErrorLedger(importTarget()); }); }},
        {.control = "mnu_File_ImportErledData",
         .caption = "&Import ErrorLedger Data",
         .run =
             [this] {
                 withErrorLedger([this](DDE_Form& link) { link.importData(importTarget(), "erled2"); });
             }},
        {.control = "mnu_FindErled",
         .caption = "Locate &ErrorLedger",
         .run = [this] { withErrorLedger([](DDE_Form& link) { link.LocateErrorLedger(); }); },
         .separatorAfter = true},
        {.control = "mnu_Notes",
         .caption = "&Notes",
         .run = [this] { OpenNotes(session_); },
         .separatorAfter = true},
        {.control = "ExitAnalysis",
         .caption = "E&xit",
         .run = [this] { screen_.close(Way::Ok); },
         .shortcut = "Ctrl+Q"},
    };
    const auto behind = std::find_if(items.begin(), items.end(), [](const MenuItem& item) {
        return std::string_view(item.control) == "mnu_FileSaveSummary";
    });
    const std::vector<MenuItem> tables = tableItems();
    items.insert(behind + 1, tables.begin(), tables.end());
    return items;
}

std::vector<MenuItem> MainCommands::tableItems() {
    const auto shown = [this](void (TestPointsScreen::*first)()) {
        return [this, first] {
            runScreen(screens::testPoints, parts_,
                      [first](Worksheet& screen) { (static_cast<TestPointsScreen&>(screen).*first)(); });
        };
    };
    MenuItem present = screenItem("mnu_TestPoints", screens::testPoints, parts_);
    present.shortcut = "Ctrl+T";
    return {present,
            {.control = "mnu_TestPoints_Open",
             .caption = "Open Ta&ble...",
             .run = shown(&TestPointsScreen::chooseTable)},
            separated({.control = "mnu_TestPoints_New",
                       .caption = "Ne&w Table...",
                       .run = shown(&TestPointsScreen::newTable)})};
}

void MainCommands::showPoints() {
    runScreen(screens::testPoints, parts_);
}

void MainCommands::openTable(const std::string& path) {
    runScreen(screens::testPoints, parts_,
              [&path](Worksheet& screen) { static_cast<TestPointsScreen&>(screen).openTable(path); });
}

void MainCommands::openPath(const std::string& path) {
    if (isTable(path))
        openTable(path);
    else
        files.openPath(path);
}

void MainCommands::openAtStart(const std::string& path) {
    if (isTable(path))
        openTable(path);
    else
        files.openAtStart(path);
}

void MainCommands::withErrorLedger(const std::function<void(DDE_Form&)>& action) {
    if (session_.desktop && session_.desktop->errorLedger) action(*session_.desktop->errorLedger);
}

ImportTarget MainCommands::importTarget() {
    return {.screen = screen_,
            .session = session_,
            .takesTolerances = true,
            .clearEntries = [this] { return files.NewAnalysisFile(); },
            .taken = [this] { screen_.forgetLastTexts(); }};
}

std::vector<MenuItem> MainCommands::recentItems() {
    std::vector<MenuItem> items;
    for (const std::string& path : recentFiles(session_.settings)) {
        const std::string name = menuText(std::filesystem::path(path).filename().string());
        items.push_back({.control = "mnu_RecentFile",
                         .caption = "&" + std::to_string(items.size() + 1) + " " + name,
                         .run = [this, path] { files.openPath(path); },
                         .toolTip = path});
    }
    if (items.empty()) items.push_back({.control = "mnu_RecentFile", .caption = "(none)"});
    return items;
}

/// After it, the main screen follows what has changed.
MenuItem MainCommands::followed(const char* control, std::string_view name) {
    MenuItem item = screenItem(control, name, parts_);
    item.run = [this, name] { screen_.open(name, parts_); };
    return item;
}

/// The plot of that kind, with those that are compared with it.
MenuItem MainCommands::plotItem(const char* control, std::string_view name, PlotKind kind) {
    MenuItem item = screenItem(control, name, parts_);
    item.run = [this, kind] { plots.show(kind); };
    return item;
}

std::vector<MenuItem> MainCommands::plotItems() {
    return {
        plotItem("SUPlotScreenControl", "SUPlot", PlotKind::SU),
        plotItem("MTEPlotScreenControl", "MTEPlot", PlotKind::MTE),
        separated(plotItem("mnu_Plots_ProcessError", "ErrorPlot", PlotKind::Error)),
        screenItem("mnu_Plot_Risk_0", screens::riskBySubjectPct, parts_),
        screenItem("mnu_Plot_Risk_1", screens::riskByMeasuringPct, parts_),
        screenItem("mnu_Plot_RiskMap", screens::riskMap, parts_),
    };
}

std::vector<MenuItem> MainCommands::optionItems() {
    return {
        {.control = "FalseAcceptOptions",
         .caption = "&False Accept Risk",
         .run = [this] { FalseAcceptOptions_Click(session_); }},
        separated(screenItem("EqAccRatOptions", screens::ratio, parts_)),
        {.control = "PrintOptions", .caption = "&Report Format", .run = [this] { reports.openOptions(); }},
        separated(screenItem("CtrlFormColor", screens::colours, parts_)),
        followed("CtrlSURel", screens::observed),
        separated({.control = "CtrlGuardband",
                   .caption = "&Guardband",
                   .run = [this] { screen_.openGuardbands(); }}),
        {.control = "mnu_WorstCase",
         .caption = "Show &Worst Case",
         .run =
             [this] {
                 screen_.worstCase.turn(!screen_.worstCase.isOn());
                 findItem(screen_.menus, "mnu_WorstCase")->checked = screen_.worstCase.isOn();
             },
         .toolTip = "The worst false accept risk over an unknown % in-tolerance, below the computed risks",
         .checked = screen_.worstCase.isOn()},
    };
}

std::vector<MenuItem> MainCommands::helpItems() {
    const auto page = [this](const char* name) { return [this, name] { session_.ui.help(name); }; };
    return {
        {.control = "mnu_HelpContents", .caption = "&Contents", .run = page("contents"), .shortcut = "F1"},
        {.control = "mnu_Help_MainScreen", .caption = "The &Main Screen", .run = page("main-screen")},
        {.control = "mnu_Help_Using",
         .caption = "Using &Help",
         .run = page("using-help"),
         .separatorAfter = true},
        screenItem("mnu_SelfCheck", screens::selfCheck, parts_),
        screenItem("mnu_SystemInformation", screens::systemInformation, parts_),
    };
}

} // namespace metrisk
