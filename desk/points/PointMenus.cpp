// The menus of the screen TestPoints.
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/points/ColumnScreen.h"
#include "desk/points/PointDocument.h"
#include "desk/points/TestPointsScreen.h"

#include <algorithm>

namespace metrisk {

std::vector<MenuItem> TestPointsScreen::menuItems() {
    return {
        {.control = "mnu_Table", .caption = "&File", .items = tableItems()},
        {.control = "mnu_EditTable", .caption = "&Edit", .items = editItems()},
        {.control = "mnu_Rows", .caption = "&Rows", .items = rowItems()},
        {.control = "mnu_Columns", .caption = "&Columns", .items = columnItems()},
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
}

std::vector<MenuItem> TestPointsScreen::tableItems() {
    const auto printHistogram = [this] {
        if (!session_.ui.print(pic_Histogram, caption)) tell(session_.ui, notPrinted);
    };
    const auto saveResults = [this] {
        papers.saveResults();
        summarise();
    };
    const auto print = [this] {
        papers.print();
        summarise();
    };
    const auto savePdf = [this] {
        papers.savePdf();
        summarise();
    };
    return {
        {.control = "mnu_NewTable",
         .caption = "&New Table",
         .run = [this] { newTable(); },
         .shortcut = "Ctrl+N"},
        {.control = "mnu_OpenTable",
         .caption = "&Open Table...",
         .run = [this] { chooseTable(); },
         .shortcut = "Ctrl+O"},
        {.control = "mnu_SaveTable",
         .caption = "&Save Table",
         .run = [this] { saveTable(session_.ui, files_, desk_, false); },
         .shortcut = "Ctrl+S"},
        {.control = "mnu_SaveTableAs",
         .caption = "Save Table &As...",
         .run = [this] { saveTable(session_.ui, files_, desk_, true); },
         .separatorAfter = true},
        {.control = "mnu_SaveResults",
         .caption = "Save as &CSV...",
         .run = saveResults,
         .shortcut = "Ctrl+Shift+S",
         .toolTip = "The rows with their figures, as the command rows writes them"},
        {.control = "mnu_SavePdf", .caption = "Save as P&DF...", .run = savePdf},
        {.control = "mnu_PrintTable", .caption = "&Print...", .run = print, .shortcut = "Ctrl+P"},
        {.control = "mnu_PrintHistogram",
         .caption = "Print &Histogram...",
         .run = printHistogram,
         .separatorAfter = true},
        {.control = "mnu_Exit", .caption = "C&lose", .run = [this] { close(Way::Cancel); }},
    };
}

std::vector<MenuItem> TestPointsScreen::editItems() {
    const auto redo = [this] {
        desk_.sheet.redo();
        changed();
    };
    std::vector<MenuItem> items = editMenu().items;
    items.insert(
        items.begin() + 1,
        {.control = "mnu_Redo", .caption = "&Redo", .run = redo, .shortcut = "Ctrl+Y; Ctrl+Shift+Z"});
    return items;
}

std::vector<MenuItem> TestPointsScreen::rowItems() {
    const auto insert = [this] {
        const std::vector<std::size_t> rows = selectedRows();
        desk_.sheet.insertRows(rows.empty() ? desk_.sheet.size() : rows.front(),
                               std::max<std::size_t>(rows.size(), 1));
        changed();
    };
    const auto append = [this] {
        desk_.sheet.insertRows(desk_.sheet.size(), 1);
        changed();
        const int last = content_.rowCount() - 1;
        tbl_Points.selection = {last, 0, last, 0};
    };
    const auto duplicate = [this] {
        desk_.sheet.duplicateRows(selectedRows());
        changed();
    };
    const auto remove = [this] {
        desk_.sheet.removeRows(selectedRows());
        changed();
    };
    return {
        {.control = "mnu_InsertRows", .caption = "&Insert", .run = insert, .shortcut = "Ins"},
        {.control = "mnu_AppendRow", .caption = "&Append", .run = append, .shortcut = "Ctrl+Ins"},
        {.control = "mnu_DuplicateRows", .caption = "D&uplicate", .run = duplicate, .shortcut = "Ctrl+D"},
        {.control = "mnu_RemoveRows",
         .caption = "&Remove",
         .run = remove,
         .shortcut = "Ctrl+Del",
         .separatorAfter = true},
        {.control = "mnu_OpenRow",
         .caption = "&Open as Analysis",
         .run = [this] { cmd_Open.clicked(true); },
         .shortcut = "Ctrl+Return"},
    };
}

std::vector<MenuItem> TestPointsScreen::columnItems() {
    const auto remove = [this] {
        desk_.sheet.removeColumn(selectedColumn());
        changed();
    };
    const auto turnComma = [this] {
        desk_.decimalComma = !desk_.decimalComma;
        makeRules();
        changed();
    };
    return {
        {.control = "mnu_AddColumn",
         .caption = "&Add...",
         .run = [this] { addColumn(); },
         .shortcut = "Ctrl+K"},
        {.control = "mnu_RenameColumn", .caption = "Re&name...", .run = [this] { renameColumn(); }},
        {.control = "mnu_RemoveColumn", .caption = "&Remove", .run = remove, .separatorAfter = true},
        {.control = "mnu_SortRising",
         .caption = "Sort R&ising",
         .run = [this] { sort(selectedColumn(), false); }},
        {.control = "mnu_SortFalling",
         .caption = "Sort &Falling",
         .run = [this] { sort(selectedColumn(), true); },
         .separatorAfter = true},
        {.control = "mnu_DecimalComma",
         .caption = "Decimal &Comma",
         .run = turnComma,
         .toolTip = "Numbers of the table are written with a comma",
         .checked = false},
    };
}

void TestPointsScreen::addColumn() {
    ColumnScreen chooser(session_, "Add a Column", "");
    session_.ui.run(chooser);
    if (chooser.closedBy() != Way::Ok) return;
    desk_.sheet.insertColumn(std::min(selectedColumn() + 1, desk_.sheet.columns().size()), chooser.column());
    changed();
}

void TestPointsScreen::renameColumn() {
    const std::size_t column = selectedColumn();
    if (column >= desk_.sheet.columns().size()) return session_.ui.beep();
    ColumnScreen chooser(session_, "Rename the Column", desk_.sheet.columns()[column]);
    session_.ui.run(chooser);
    if (chooser.closedBy() != Way::Ok) return;
    desk_.sheet.renameColumn(column, chooser.column());
    changed();
}

} // namespace metrisk
