#include "shell/Menus.h"

namespace metrisk {

namespace {

constexpr bool built = true;
constexpr bool notBuilt = false;

MenuItem entry(const char* control, const char* caption, const char* shortcut = "", bool hasScreen = built) {
    return {control, caption, shortcut, hasScreen};
}

MenuItem ended(MenuItem item) {
    item.separatorAfter = true;
    return item;
}

MenuItem menu(const char* control, const char* caption, std::vector<MenuItem> items) {
    return {control, caption, "", built, std::move(items)};
}

std::vector<MenuItem> fileItems() {
    return {
        entry("NewAnalysisFile", "&New Analysis", "Ctrl+N"),
        entry("mnu_File_Open", "&Open...", "Ctrl+O"),
        entry("mnu_File_Save", "&Save", "Ctrl+S"),
        entry("mnu_File_SaveAs", "Save &As...", "Ctrl+Shift+S"),
        ended(entry("mnu_FileSaveSummary", "Save &Data Summary...", "", notBuilt)),
        entry("PrintAnalysisResults", "&Print...", "Ctrl+P", notBuilt),
        ended(entry("mnu_Preview", "Print Pre&view", "", notBuilt)),
        entry("mnu_File_RunExternal", "&Run External Application", "", notBuilt),
        entry("mnu_Link", "&Link to ErrorLedger", "", notBuilt),
        entry("mnu_File_ImportErledData", "&Import ErrorLedger Data", "", notBuilt),
        entry("mnu_FindErled", "Locate &ErrorLedger", "", notBuilt),
        ended(entry("mnu_Notes", "&Notes", "", notBuilt)),
        entry("ExitAnalysis", "E&xit", "Ctrl+Q"),
    };
}

std::vector<MenuItem> editItems() {
    return {
        ended(entry("mnu_Edit_Undo", "&Undo", "Ctrl+Z")),
        entry("mnu_Edit_Cut", "Cu&t", "Ctrl+X"),
        entry("mnu_Edit_Copy", "&Copy", "Ctrl+C"),
        entry("mnu_Edit_Paste", "&Paste", "Ctrl+V"),
        entry("mnu_Edit_Delete", "&Delete"),
    };
}

std::vector<MenuItem> plotItems() {
    return {
        entry("SUPlotScreenControl", "&Subject Parameter Bias Distribution", "", notBuilt),
        entry("MTEPlotScreenControl", "&Measuring Parameter Bias Distribution", "", notBuilt),
        ended(entry("mnu_Plots_ProcessError", "&Process Error Distribution", "", notBuilt)),
        entry("mnu_Plot_Risk_0", "&Risk vs. Subject Parameter % In-Tol", "", notBuilt),
        entry("mnu_Plot_Risk_1", "Risk &vs. Measuring Parameter % In-Tol", "", notBuilt),
    };
}

std::vector<MenuItem> optionItems() {
    return {
        entry("FalseAcceptOptions", "&False Accept Risk"),
        ended(entry("EqAccRatOptions", "&Equivalent Accuracy Ratio")),
        entry("PrintOptions", "&Report Format", "", notBuilt),
        ended(entry("CtrlFormColor", "Screen &Appearance", "", notBuilt)),
        entry("CtrlSURel", "&True vs. Observed % In-Tolerance", "", notBuilt),
        entry("CtrlGuardband", "&Guardband", "", notBuilt),
    };
}

std::vector<MenuItem> runItems() {
    return {
        entry("mnu_Run_Options_0", "&External Application", "", notBuilt),
        entry("mnu_Run_Options_1", "&Spreadsheet", "", notBuilt),
        entry("mnu_Run_Options_2", "&Calculator", "", notBuilt),
        menu("mnu_Run_Options_3", "Se&lect",
             {entry("mnu_RunSetup_0", "Spreadsheet", "", notBuilt), entry("mnu_RunSetup_1", "Calculator", "", notBuilt)}),
    };
}

std::vector<MenuItem> menus() {
    return {
        menu("FileAnalysis", "&File", fileItems()),
        menu("mnu_Edit", "&Edit", editItems()),
        entry("mnu_Units", "Measurement &Units", "", notBuilt),
        entry("BaselineAnalysisScreen", "&Baseline"),
        menu("mnu_Reliability", "&Reliability",
             {entry("mnu_Reliability_Parameter_0", "&Subject Parameter", "", notBuilt),
              entry("mnu_Reliability_Parameter_1", "&Measuring Parameter", "", notBuilt)}),
        menu("mnu_BiasRef", "% &In-Tol",
             {entry("mnu_BiasRef_Parameter_0", "&Subject Parameter", "", notBuilt),
              entry("mnu_BiasRef_Parameter_1", "&Measuring Parameter", "", notBuilt)}),
        menu("PlotControl", "&Plots", plotItems()),
        menu("UserOptions", "&Options", optionItems()),
        entry("mnu_ToleranceLimits", "&Tol Ref", "", notBuilt),
        entry("mnu_Uncertainty", "&Uncertainty", "", notBuilt),
        menu("mnu_Run", "Ru&n", runItems()),
        menu("mnu_Help", "&Help",
             {entry("mnu_HelpContents", "&Contents", "F1"), entry("mnu_Help_MainScreen", "The &Main Screen"),
              entry("mnu_Help_Using", "Using &Help")}),
    };
}

const MenuItem* find(const std::vector<MenuItem>& items, std::string_view control) {
    for (const MenuItem& item : items) {
        if (control == item.control) return &item;
        if (const MenuItem* below = find(item.items, control)) return below;
    }
    return nullptr;
}

} // namespace

const std::vector<MenuItem>& mainMenu() {
    static const std::vector<MenuItem> all = menus();
    return all;
}

const MenuItem* menuItem(std::string_view control) { return find(mainMenu(), control); }

std::string ToolButton::image() const {
    const std::string_view name = key;
    if (name == "ID_LINK") return "link";
    if (name == "ID_SCREEN") return "screen";
    return key;
}

const std::vector<ToolButton>& mainToolbar() {
    static const std::vector<ToolButton> buttons = {
        {"exit", "Exit", "ExitAnalysis"},
        {"new", "New Analysis", "NewAnalysisFile"},
        {"open", "Open Analysis File", "mnu_File_Open"},
        {"save", "Save Analysis", "mnu_File_Save"},
        {"saveAs", "Save Analysis As...", "mnu_File_SaveAs", true},
        {"reportOpts", "Format Report", "PrintOptions"},
        {"printPreview", "Preview Report", "mnu_Preview"},
        {"print", "Print Report", "PrintAnalysisResults", true},
        {"undo", "Undo", "mnu_Edit_Undo"},
        {"cut", "Cut", "mnu_Edit_Cut"},
        {"copy", "Copy", "mnu_Edit_Copy"},
        {"paste", "Paste", "mnu_Edit_Paste"},
        {"delete", "Delete", "mnu_Edit_Delete", true},
        {"units", "Update Units", "mnu_Units"},
        {"run", "Run External Application", "mnu_File_RunExternal"},
        {"ID_LINK", "Link to ErrorLedger", "mnu_Link"},
        {"import", "Import from ErrorLedger", "mnu_File_ImportErledData"},
        {"notes", "View Notes", "mnu_Notes", true},
        {"plotSU", "Plot SU Distribution", "SUPlotScreenControl"},
        {"plotMTE", "Plot MTE Distribution", "MTEPlotScreenControl"},
        {"plotError", "Plot Process Error Distribution", "mnu_Plots_ProcessError", true},
        {"reliability", "Define Reliability Model", "mnu_Reliability_Parameter_0"},
        {"biasRef", "Set Bias Reference", "mnu_BiasRef_Parameter_0"},
        {"faRisk", "Select False Accept Risk Option", "FalseAcceptOptions"},
        {"eqAccRat", "Select Equivalent Accuracy Ratio Key", "EqAccRatOptions"},
        {"trueVsObs", "Compute True vs. Observed % In-tol", "CtrlSURel"},
        {"guardbands", "Establish Guardbands", "CtrlGuardband"},
        {"uncertainty", "Estimate Process Uncertainty", "mnu_Uncertainty", true},
        {"ID_SCREEN", "Screen Appearance", "CtrlFormColor"},
        {"spreadsheet", "Spreadsheet", "mnu_Run_Options_1"},
        {"calculator", "Calculator", "mnu_Run_Options_2", true},
        {"help", "Help", "mnu_HelpContents"},
    };
    return buttons;
}

const std::vector<const char*>& toolbarImages() {
    static const std::vector<const char*> images = {
        "exit",       "new",         "open",      "save",    "saveAs",     "print",    "printPreview",
        "run",        "import",      "notes",     "reportOpts", "cut",     "copy",     "paste",
        "delete",     "units",       "plotSU",    "plotMTE", "plotError",  "faRisk",   "eqAccRat",
        "screen",     "trueVsObs",   "guardbands", "uncertainty", "help",  "reliability", "biasRef",
        "undo",       "OK",          "cancel",    "correlations", "spreadsheet", "calculator"};
    return images;
}

} // namespace metrisk
