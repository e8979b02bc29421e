// The menus and the toolbar of the process uncertainty worksheet.
#include "desk/uncertainty/MTEErrorScreen.h"

#include "desk/files/Notes.h"
#include "desk/kit/Desktop.h"
#include "desk/links/DDE_Form.h"
#include "desk/links/RunMenu.h"

namespace metrisk {

void MTEErrorScreen::importErrors() {
    if (!session_.desktop || !session_.desktop->errorLedger) return;
    session_.desktop->errorLedger->importData(
        {.screen = *this, .session = desk_, .taken = [this] { tableChanged(); }}, "erled1");
}

void MTEErrorScreen::makeMenus() {
    menus = {
        {.control = "mnu_File",
         .caption = "&File",
         .items = {{.control = "mnu_Print",
                    .caption = "&Print...",
                    .run = [this] { report(printReport); },
                    .shortcut = "Ctrl+P"},
                   {.control = "mnu_Preview",
                    .caption = "Print Pre&view",
                    .run = [this] { report(previewReport); },
                    .separatorAfter = true},
                   {.control = "mnu_Import",
                    .caption = "&Import from ErrorLedger",
                    .run = [this] { importErrors(); }}}},
        editMenu(),
        {.control = "mnu_Correlations", .caption = "Co&rrelations", .run = [this] { correlate(); }},
        {.control = "mnu_ViewDistribution", .caption = "Plo&t", .run = [this] { viewDistribution(); }},
        runMenu(session_),
        notesItem(desk_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    toolbarName = "tb_Sigma";
    toolbar = {
        {"OK", "Accept Changes", "mnu_Exit_0"},
        {"cancel", "Cancel Changes", "mnu_Exit_1", true},
        {"print", "Print Report", "mnu_Print"},
        {"printPreview", "Preview Report", "mnu_Preview", true},
        {"undo", "Undo", "mnu_Edit_Undo"},
        {"cut", "Cut", "mnu_Edit_Cut"},
        {"copy", "Copy", "mnu_Edit_Copy"},
        {"paste", "Paste", "mnu_Edit_Paste"},
        {"delete", "Delete", "mnu_Edit_Delete", true},
        {"notes", "View Notes", "mnu_Notes"},
        {"correlations", "Account for Correlations", "mnu_Correlations"},
        {"import", "Import from ErrorLedger", "mnu_Import"},
        {"plotError", "Plot Process Error Distribution", "mnu_ViewDistribution", true},
        {"run", "Run External Application", "mnu_Run_Options_0"},
        {"spreadsheet", "Run External Spreadsheet", "mnu_Run_Options_1"},
        {"calculator", "Run External Calculator", "mnu_Run_Options_2", true},
        {"help", "Help", "mnu_Help"},
    };
}

} // namespace metrisk
