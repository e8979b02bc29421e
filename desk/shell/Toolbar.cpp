#include "desk/shell/Toolbar.h"

namespace metrisk {

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
        {"uncertainty", "Estimate Process Uncertainty", "mnu_Uncertainty"},
        {"reading", "Decide on a Reading", "mnu_Reading"},
        {"strategies", "Compare Guardband Strategies", "mnu_Strategies", true},
        {"ID_SCREEN", "Screen Appearance", "CtrlFormColor"},
        {"spreadsheet", "Spreadsheet", "mnu_Run_Options_1"},
        {"calculator", "Calculator", "mnu_Run_Options_2", true},
        {"help", "Help", "mnu_HelpContents"},
    };
    return buttons;
}

const std::vector<const char*>& toolbarImages() {
    static const std::vector<const char*> images = {
        "exit",         "new",          "open",        "save",       "saveAs",     "print",
        "printPreview", "run",          "import",      "notes",      "reportOpts", "cut",
        "copy",         "paste",        "delete",      "units",      "plotSU",     "plotMTE",
        "plotError",    "faRisk",       "eqAccRat",    "screen",     "trueVsObs",  "guardbands",
        "uncertainty",  "help",         "reliability", "biasRef",    "undo",       "OK",
        "cancel",       "correlations", "spreadsheet", "calculator", "reading",    "strategies"};
    return images;
}

} // namespace metrisk
