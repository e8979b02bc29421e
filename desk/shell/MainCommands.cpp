#include "desk/shell/MainCommands.h"

#include "desk/appearance/ColorSchemeScreen.h"
#include "desk/baseline/BaselineScreen.h"
#include "desk/compute/ReliabilitySlot.h"
#include "desk/files/Notes.h"
#include "desk/files/Summary.h"
#include "desk/information/SystemInfoScreen.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Session.h"
#include "desk/links/DDE_Form.h"
#include "desk/links/RunMenu.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/options/EqRatioScreen.h"
#include "desk/selfcheck/SelfCheckScreen.h"
#include "desk/shell/RecentFiles.h"
#include "desk/shell/RiskOptionCommand.h"
#include "desk/sweeps/GuardPlot.h"
#include "desk/sweeps/RiskMapScreen.h"
#include "desk/units/UnitsScreen.h"

#include <filesystem>

namespace metrisk {

namespace {

/// `open` takes the reliability slot; without it there is nothing to run.
std::vector<MenuItem> parameterItems(const char* subject, const char* measuring,
                                     const std::function<void(std::size_t slot)>& open = {}) {
    const auto opened = [&open](std::size_t slot) -> std::function<void()> {
        if (!open) return {};
        return [open, slot] { open(slot); };
    };
    return {{.control = subject, .caption = "&Subject Parameter", .run = opened(0)},
            {.control = measuring, .caption = "&Measuring Parameter", .run = opened(1)}};
}

std::string menuText(std::string text) {
    for (std::size_t at = 0; (at = text.find('&', at)) != std::string::npos; at += 2) text.insert(at, "&");
    return text;
}

} // namespace

MainCommands::MainCommands(Session& session, MainScreen& screen, FileChooser& chooser)
    : files(session, screen, chooser), plots(session), reports(session), session_(session), screen_(screen),
      chooser_(chooser) {
    screen.mayExit = [this] {
        return files.ExitAnalysis(
            [this] { withErrorLedger([](DDE_Form& link) { link.removeExchangeFile(); }); });
    };
    screen.menus = {
        {.control = "FileAnalysis", .caption = "&File", .items = fileItems()},
        editMenu(),
        {.control = "mnu_Units",
         .caption = "Measurement &Units",
         .run =
             [this] {
                 UnitsRevision units(session_, chooser_);
                 session_.ui.run(units);
             }},
        {.control = "BaselineAnalysisScreen",
         .caption = "&Baseline",
         .run =
             [this] {
                 BaselineScreen baseline(session_);
                 session_.ui.run(baseline);
             }},
        {.control = "mnu_Reliability",
         .caption = "&Reliability",
         .items = {{.control = "mnu_Reliability_Parameter_0",
                    .caption = "&Subject Parameter",
                    .run = [this] { screen_.openReliability(subjectSlot); }},
                   {.control = "mnu_Reliability_Parameter_1",
                    .caption = "&Measuring Parameter",
                    .run = [this] { screen_.openReliability(measuringSlot); }}}},
        {.control = "mnu_BiasRef",
         .caption = "% &In-Tol",
         .items = parameterItems("mnu_BiasRef_Parameter_0", "mnu_BiasRef_Parameter_1",
                                 [this](std::size_t slot) { screen_.openBiasReference(slot); })},
        {.control = "PlotControl", .caption = "&Plots", .items = plotItems()},
        {.control = "UserOptions", .caption = "&Options", .items = optionItems()},
        {.control = "mnu_ToleranceLimits",
         .caption = "&Tol Ref",
         .run = [this] { screen_.openOffsets(chooser_); }},
        {.control = "mnu_Uncertainty",
         .caption = "&Uncertainty",
         .run = [this] { screen_.openUncertainty(chooser_, reports); }},
        runMenu(session_),
        {.control = "mnu_Help", .caption = "&Help", .items = helpItems()},
    };
}

std::vector<MenuItem> MainCommands::fileItems() {
    return {
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

std::vector<MenuItem> MainCommands::plotItems() {
    const auto riskPlot = [this](Swept swept) {
        return [this, swept] {
            GuardPlot plot(session_, swept);
            session_.ui.run(plot);
        };
    };
    return {
        {.control = "SUPlotScreenControl",
         .caption = "&Subject Parameter Bias Distribution",
         .run = [this] { plots.show(PlotKind::SU); },
         .needs = Needs::Subject},
        {.control = "MTEPlotScreenControl",
         .caption = "&Measuring Parameter Bias Distribution",
         .run = [this] { plots.show(PlotKind::MTE); },
         .needs = Needs::BothForPlot},
        {.control = "mnu_Plots_ProcessError",
         .caption = "&Process Error Distribution",
         .run = [this] { plots.show(PlotKind::Error); },
         .needs = Needs::BothForPlot,
         .separatorAfter = true},
        {.control = "mnu_Plot_Risk_0",
         .caption = "&Risk vs. Subject Parameter % In-Tol",
         .run = riskPlot(Swept::SubjectPct),
         .needs = Needs::BothForPlot},
        {.control = "mnu_Plot_Risk_1",
         .caption = "Risk &vs. Measuring Parameter % In-Tol",
         .run = riskPlot(Swept::MeasuringPct),
         .needs = Needs::BothForPlot},
        {.control = "mnu_Plot_RiskMap",
         .caption = "Risk &Map",
         .run =
             [this] {
                 RiskMapScreen map(session_);
                 session_.ui.run(map);
             },
         .needs = Needs::BothForPlot},
    };
}

std::vector<MenuItem> MainCommands::optionItems() {
    return {
        {.control = "FalseAcceptOptions",
         .caption = "&False Accept Risk",
         .run = [this] { FalseAcceptOptions_Click(session_); }},
        {.control = "EqAccRatOptions",
         .caption = "&Equivalent Accuracy Ratio",
         .run =
             [this] {
                 EqRatioScreen options(session_);
                 session_.ui.run(options);
             },
         .separatorAfter = true},
        {.control = "PrintOptions", .caption = "&Report Format", .run = [this] { reports.openOptions(); }},
        {.control = "CtrlFormColor",
         .caption = "Screen &Appearance",
         .run =
             [this] {
                 ColorSchemeScreen colors(session_);
                 session_.ui.run(colors);
             },
         .separatorAfter = true},
        {.control = "CtrlSURel",
         .caption = "&True vs. Observed % In-Tolerance",
         .run = [this] { screen_.openObserved(); }},
        {.control = "CtrlGuardband", .caption = "&Guardband", .run = [this] { screen_.openGuardbands(); }},
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
        {.control = "mnu_SelfCheck",
         .caption = "Self-&Check",
         .run =
             [this] {
                 SelfCheckScreen check(session_);
                 session_.ui.run(check);
             }},
        {.control = "mnu_SystemInformation",
         .caption = "System &Information",
         .run =
             [this] {
                 SystemInfoScreen information(session_);
                 session_.ui.run(information);
             }},
    };
}

} // namespace metrisk
