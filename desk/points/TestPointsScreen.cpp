#include "desk/points/TestPointsScreen.h"

#include "base/AtomicFile.h"
#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/points/ColumnScreen.h"
#include "desk/points/PointFiles.h"
#include "persistence/NewAnalysis.h"
#include "plots/RiskHistogram.h"
#include "record/EntryRules.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numeric>

namespace metrisk {

namespace {

constexpr const char* filterNames[] = {"All rows",           "Refused or bad", "With a note",
                                       "False accept above", "TUR below",      "Not computed"};
constexpr const char* templateNames[] = {"New analysis", "Present analysis", "File..."};
constexpr Message noPercent{"A percentage between 0 and 100 is needed.", "Limit"};
constexpr Message noLimit{"A number of 0 or above is needed.", "Show"};
constexpr Message notPrinted{"Nothing could be printed.", "Test Points"};
constexpr Message tooManyRows{"More than 10,000 rows are no document: show fewer of them.", "Test Points"};
constexpr const char* emptyState = "Type or paste test points, or open a table of them.";
constexpr std::string_view wantTitle = "Figures";
/// Rows are computed while the user waits for so long, the rest beside the screen.
constexpr auto patience = std::chrono::milliseconds(30);
constexpr std::size_t chunkSize = 4096;

/// "12,345".
std::string count(std::size_t number, const Regional& regional) {
    return FormatNumber(static_cast<double>(number), "#,##0", regional);
}

bool isFault(const PointAnswer& answer) {
    return answer.status == PointStatus::Refused || answer.status == PointStatus::Bad;
}

std::string percent(double fraction, const Regional& regional) {
    return GeneralText(100 * fraction, regional, 4) + " %";
}

} // namespace

TestPointsScreen::TestPointsScreen(Session& session, FileChooser* files, PointDesk* desk)
    : Worksheet("TestPoints", "Test Points", "test-points"), session_(session), files_(files),
      desk_(desk ? *desk : own_), background_(session.ui) {
    for (const char* each : templateNames) cbo_Template.items.emplace_back(each);
    for (const char* each : filterNames) cbo_Filter.items.emplace_back(each);
    cbo_Filter.index = 0;
    if (!desk_.from)
        desk_.from =
            subjectEmpty(session.record) ? PointTemplate::NewAnalysis : PointTemplate::PresentAnalysis;
    bindEntries();
    bindSheet();
    menus = menuItems();
    tbl_Points.menu = findItem(menus, "mnu_Rows")->items;
    makeRules();
    showRows();
    refresh();
}

void TestPointsScreen::begin() {
    changed();
    refresh();
}

void TestPointsScreen::bindEntries() {
    cbo_Template.chosen = [this](int index) { chooseTemplate(index); };
    txt_Want.left = [this](const std::string& text) -> FieldResult {
        const auto want = wantOf(text);
        if (const auto* wrong = std::get_if<std::string>(&want))
            return refuseEntry(session_.ui, {*wrong, wantTitle}, desk_.want);
        desk_.want = text;
        makeRules();
        changed();
        return {false, text};
    };
    txt_Limit.left = [this](const std::string& text) -> FieldResult {
        const double limit = ParseValue(text, session_.regional);
        if (!isNumeric(text, session_.regional) || !(limit >= 0 && limit <= 100))
            return refuseEntry(session_.ui, noPercent, GeneralText(100 * desk_.limit, session_.regional));
        desk_.limit = limit / 100;
        summarise();
        return {false, text};
    };
    cbo_Filter.chosen = [this](int index) {
        cbo_Filter.index = index;
        filter_ = static_cast<PointFilter>(index);
        filterLimit_ = filter_ == PointFilter::TurBelow ? 4 : desk_.limit;
        showRows();
    };
    txt_Filter.left = [this](const std::string& text) -> FieldResult {
        const double limit = ParseValue(text, session_.regional);
        if (!isNumeric(text, session_.regional) || limit < 0)
            return refuseEntry(session_.ui, noLimit, txt_Filter.text);
        filterLimit_ = filter_ == PointFilter::TurBelow ? limit : limit / 100;
        showRows();
        return {false, text};
    };
    cmd_Compute.clicked = [this](bool) {
        stopped_ = false;
        computeWaiting();
    };
    cmd_Compute.isPrimary = true;
    cmd_Stop.clicked = [this](bool) {
        stopped_ = true;
        background_.stop();
        summarise();
    };
    cmd_Open.clicked = [this](bool) {
        if (!tbl_Points.selection.empty()) openRow(tbl_Points.selection.top);
    };
    cmd_Close.closes = Way::Cancel;
}

void TestPointsScreen::bindSheet() {
    tbl_Points.selected = [] {};
    tbl_Points.cellLeft = [this](int row, int column, const std::string& text) {
        desk_.sheet.put(tableRow(row), static_cast<std::size_t>(column), {{text}});
        // A row that passes the filter no longer stays in sight until the next look.
        stopped_ = false;
        computeWaiting();
        summarise();
    };
    tbl_Points.cellsPut = [this](int row, int column, const CellBlock& cells) {
        std::vector<std::size_t> places(cells.size());
        for (std::size_t i = 0; i < places.size(); ++i) {
            const std::size_t seen = static_cast<std::size_t>(row) + i;
            // Behind the rows in sight the table grows.
            places[i] = seen < visible_.size() ? visible_[seen] : desk_.sheet.size() + seen - visible_.size();
        }
        desk_.sheet.put(places, static_cast<std::size_t>(column), cells);
        changed();
    };
    tbl_Points.opened = [this](int row) { openRow(row); };
    tbl_Points.headingPressed = [this](int column) { sort(static_cast<std::size_t>(column), false); };
    tbl_Points.undone = [this] {
        desk_.sheet.undo();
        changed();
    };
}

std::vector<MenuItem> TestPointsScreen::menuItems() {
    const auto rows = [this](auto work) {
        return [this, work] {
            work(selectedRows());
            changed();
        };
    };
    const auto append = [this](const std::vector<std::size_t>& selected) {
        desk_.sheet.insertRows(selected.empty() ? desk_.sheet.size() : selected.front(),
                               std::max<std::size_t>(selected.size(), 1));
    };
    std::vector<MenuItem> rowItems = {
        {.control = "mnu_InsertRows", .caption = "&Insert", .run = rows(append), .shortcut = "Ins"},
        {.control = "mnu_AppendRow",
         .caption = "&Append",
         .run =
             [this] {
                 desk_.sheet.insertRows(desk_.sheet.size(), 1);
                 changed();
                 const int last = content_.rowCount() - 1;
                 tbl_Points.selection = {last, 0, last, 0};
             },
         .shortcut = "Ctrl+Ins"},
        {.control = "mnu_DuplicateRows",
         .caption = "D&uplicate",
         .run = rows([this](const auto& selected) { desk_.sheet.duplicateRows(selected); }),
         .shortcut = "Ctrl+D"},
        {.control = "mnu_RemoveRows",
         .caption = "&Remove",
         .run = rows([this](const auto& selected) { desk_.sheet.removeRows(selected); }),
         .shortcut = "Ctrl+Del",
         .separatorAfter = true},
        {.control = "mnu_OpenRow",
         .caption = "&Open as Analysis",
         .run = [this] { cmd_Open.clicked(true); },
         .shortcut = "Ctrl+Return"},
    };
    std::vector<MenuItem> editItems = editMenu().items;
    editItems.insert(editItems.begin() + 1, {.control = "mnu_Redo",
                                             .caption = "&Redo",
                                             .run =
                                                 [this] {
                                                     desk_.sheet.redo();
                                                     changed();
                                                 },
                                             .shortcut = "Ctrl+Y; Ctrl+Shift+Z"});
    return {
        {.control = "mnu_Table",
         .caption = "&File",
         .items = {{.control = "mnu_NewTable",
                    .caption = "&New Table",
                    .run = [this] { newTable(); },
                    .shortcut = "Ctrl+N"},
                   {.control = "mnu_OpenTable",
                    .caption = "&Open Table...",
                    .run = [this] { chooseTable(); },
                    .shortcut = "Ctrl+O"},
                   {.control = "mnu_SaveTable",
                    .caption = "&Save Table",
                    .run = [this] { saveTable(false); },
                    .shortcut = "Ctrl+S"},
                   {.control = "mnu_SaveTableAs",
                    .caption = "Save Table &As...",
                    .run = [this] { saveTable(true); },
                    .separatorAfter = true},
                   {.control = "mnu_SaveResults",
                    .caption = "Save as &CSV...",
                    .run = [this] { saveResults(); },
                    .shortcut = "Ctrl+Shift+S",
                    .toolTip = "The rows with their figures, as the command rows writes them"},
                   {.control = "mnu_SavePdf", .caption = "Save as P&DF...", .run = [this] { savePdf(); }},
                   {.control = "mnu_PrintTable",
                    .caption = "&Print...",
                    .run = [this] { print(); },
                    .shortcut = "Ctrl+P"},
                   {.control = "mnu_PrintHistogram",
                    .caption = "Print &Histogram...",
                    .run =
                        [this] {
                            if (!session_.ui.print(pic_Histogram, caption)) tell(session_.ui, notPrinted);
                        },
                    .separatorAfter = true},
                   {.control = "mnu_Exit", .caption = "C&lose", .run = [this] { close(Way::Cancel); }}}},
        {.control = "mnu_EditTable", .caption = "&Edit", .items = std::move(editItems)},
        {.control = "mnu_Rows", .caption = "&Rows", .items = std::move(rowItems)},
        {.control = "mnu_Columns",
         .caption = "&Columns",
         .items = {{.control = "mnu_AddColumn",
                    .caption = "&Add...",
                    .run = [this] { addColumn(); },
                    .shortcut = "Ctrl+K"},
                   {.control = "mnu_RenameColumn",
                    .caption = "Re&name...",
                    .run = [this] { renameColumn(); }},
                   {.control = "mnu_RemoveColumn",
                    .caption = "&Remove",
                    .run =
                        [this] {
                            desk_.sheet.removeColumn(selectedColumn());
                            changed();
                        },
                    .separatorAfter = true},
                   {.control = "mnu_SortRising",
                    .caption = "Sort &Rising",
                    .run = [this] { sort(selectedColumn(), false); }},
                   {.control = "mnu_SortFalling",
                    .caption = "Sort &Falling",
                    .run = [this] { sort(selectedColumn(), true); },
                    .separatorAfter = true},
                   {.control = "mnu_DecimalComma",
                    .caption = "Decimal &Comma",
                    .run =
                        [this] {
                            desk_.decimalComma = !desk_.decimalComma;
                            makeRules();
                            changed();
                        },
                    .toolTip = "Numbers of the table are written with a comma",
                    .checked = false}}},
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
}

Analysis TestPointsScreen::templateAnalysis() const {
    switch (*desk_.from) {
    case PointTemplate::PresentAnalysis: return session_.record;
    case PointTemplate::File:
        if (desk_.file) return *desk_.file;
        break;
    case PointTemplate::NewAnalysis: break;
    }
    return newAnalysis();
}

void TestPointsScreen::chooseTemplate(int index) {
    const auto from = static_cast<PointTemplate>(index);
    if (from == PointTemplate::File) {
        const auto path =
            files_ ? files_->chooseToOpen({.title = "Template", .filter = "Analysis Files (*.mrk)|*.mrk"})
                   : std::nullopt;
        if (!path) return;
        auto read = readTemplate(session_, *path);
        if (!read) return; // which has been told
        desk_.file = std::move(*read);
        desk_.fileName = *path;
    }
    desk_.from = from;
    makeRules();
    changed();
}

void TestPointsScreen::makeRules() {
    try {
        rules_ = std::make_shared<const PointRules>(templateAnalysis(), session_.regional,
                                                    std::get<Want>(wantOf(desk_.want)), desk_.sheet.header(),
                                                    NumberMarks{desk_.decimalComma});
        fault_.clear();
    } catch (const HeaderFault& fault) {
        rules_.reset();
        fault_ = fault.what();
    } catch (const RowFault& fault) {
        rules_.reset();
        fault_ = "The template: " + fault.text;
    }
}

void TestPointsScreen::changed() {
    if (!rules_ || rules_->header() != desk_.sheet.header()) makeRules();
    stopped_ = false;
    computeWaiting();
    showRows();
}

void TestPointsScreen::showRows() {
    visible_ = rowsPassing(desk_.sheet, rules_.get(), filter_, filterLimit_);
    ++tbl_Points.shape;
    const int last = content_.rowCount() - 1;
    Table::Range& range = tbl_Points.selection;
    if (range.bottom > last || range.right >= content_.columnCount()) range = {};
    summarise();
}

void TestPointsScreen::computeWaiting() {
    background_.stop();
    done_ = wanted_ = 0;
    if (!rules_) return;
    std::vector<std::size_t> waiting;
    for (std::size_t row = 0; row < desk_.sheet.size(); ++row)
        if (!desk_.sheet[row].record.empty() && !answerOf(desk_.sheet, rules_.get(), row))
            waiting.push_back(row);
    RowScratch scratch;
    const auto until = std::chrono::steady_clock::now() + patience;
    auto next = waiting.begin();
    for (; next != waiting.end() && std::chrono::steady_clock::now() < until; ++next)
        desk_.sheet.answer(*next, rules_->answer(desk_.sheet[*next].record, scratch));
    waiting.erase(waiting.begin(), next);
    if (waiting.empty()) return;
    wanted_ = waiting.size();
    computeChunk(std::move(waiting));
}

/// The first of the rows beside the screen, then the others.
void TestPointsScreen::computeChunk(std::vector<std::size_t> rows) {
    const auto size = static_cast<std::ptrdiff_t>(std::min(rows.size(), chunkSize));
    std::vector<std::size_t> now(rows.begin(), rows.begin() + size);
    rows.erase(rows.begin(), rows.begin() + size);
    std::vector<std::string> records;
    records.reserve(now.size());
    for (const std::size_t row : now) records.push_back(desk_.sheet[row].record);
    background_.start([this, now = std::move(now), rest = std::move(rows), records = std::move(records),
                       rules = rules_,
                       state = desk_.sheet.state()](const std::stop_token& stop) -> Background::Delivery {
        std::vector<PointAnswer> answers;
        RowScratch scratch;
        for (const std::string& record : records) {
            if (stop.stop_requested()) return {};
            answers.push_back(rules->answer(record, scratch));
        }
        return [this, now, rest, answers = std::move(answers), rules, state]() mutable {
            if (state != desk_.sheet.state() || rules != rules_) return;
            for (std::size_t i = 0; i < now.size(); ++i) desk_.sheet.answer(now[i], std::move(answers[i]));
            done_ += now.size();
            if (rest.empty())
                showRows();
            else
                computeChunk(std::move(rest));
            summarise();
            session_.ui.refresh(*this);
        };
    });
}

void TestPointsScreen::summarise() {
    totals_ = totalsOf(desk_.sheet, rules_.get(), desk_.limit);
    drawHistogram();
}

void TestPointsScreen::drawHistogram() {
    if (totals_.falseAccept.empty()) {
        pic_Histogram.text = "No false accept risks";
        pic_Histogram.draw({});
        return;
    }
    pic_Histogram.text = "False accept risks of " + count(totals_.falseAccept.size(), session_.regional) +
                         " rows, " + count(totals_.above, session_.regional) + " above " +
                         percent(desk_.limit, session_.regional);
    const auto histogram =
        std::make_shared<const RiskHistogram>(RiskHistogram{totals_.falseAccept, desk_.limit});
    pic_Histogram.draw([histogram, regional = session_.regional](DrawingSurface& surface) {
        drawRiskHistogram(surface, *histogram, regional);
    });
}

std::size_t TestPointsScreen::tableRow(int row) const {
    const auto seen = static_cast<std::size_t>(row);
    return seen < visible_.size() ? visible_[seen] : desk_.sheet.size();
}

std::vector<std::size_t> TestPointsScreen::selectedRows() const {
    std::vector<std::size_t> rows;
    for (int row = tbl_Points.selection.top; row <= tbl_Points.selection.bottom; ++row)
        if (static_cast<std::size_t>(row) < visible_.size())
            rows.push_back(visible_[static_cast<std::size_t>(row)]);
    return rows;
}

std::size_t TestPointsScreen::selectedColumn() const {
    return tbl_Points.selection.empty() ? desk_.sheet.columns().size() - 1
                                        : static_cast<std::size_t>(tbl_Points.selection.left);
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

/// By a heading rising, and falling where it is rising already.
void TestPointsScreen::sort(std::size_t column, bool falling) {
    std::vector<std::size_t> order = orderBy(desk_.sheet, rules_.get(), column, falling);
    if (std::is_sorted(order.begin(), order.end())) order = orderBy(desk_.sheet, rules_.get(), column, true);
    if (std::is_sorted(order.begin(), order.end())) return;
    desk_.sheet.reorder(order);
    changed();
}

void TestPointsScreen::openRow(int row) {
    const std::size_t place = tableRow(row);
    if (!rules_ || place >= desk_.sheet.size() || desk_.sheet[place].record.empty())
        return session_.ui.beep();
    try {
        if (openAnalysis && openAnalysis(rules_->analysisOf(desk_.sheet[place].record))) close(Way::Ok);
    } catch (const RowFault& fault) {
        tell(session_.ui, {fault.text, "Row " + std::to_string(place + 1)});
    }
}

bool TestPointsScreen::mayClose(Way) {
    background_.stop();
    return true;
}

std::string TestPointsScreen::nameOfTable() const {
    return desk_.path.empty() ? "New table" : desk_.path.substr(desk_.path.rfind('/') + 1);
}

bool TestPointsScreen::changesSettled() {
    if (!desk_.sheet.changed()) return true;
    switch (askToSave(session_.ui, nameOfTable())) {
    case Answer::Yes: return saveTable(false);
    case Answer::No: return true;
    default: return false;
    }
}

void TestPointsScreen::newTable() {
    if (!changesSettled()) return;
    desk_.sheet = PointSheet();
    desk_.path.clear();
    tbl_Points.selection = {0, 0, 0, 0};
    rules_.reset();
    changed();
}

void TestPointsScreen::chooseTable() {
    const auto path =
        files_ ? files_->chooseToOpen({.title = "Open Table", .filter = tableFilter}) : std::nullopt;
    if (path) openTable(*path);
}

bool TestPointsScreen::openTable(const std::string& path) {
    if (!changesSettled()) return false;
    const WaitPointer wait(session_.ui);
    try {
        desk_.sheet = readTable(path);
    } catch (const std::runtime_error& fault) {
        tell(session_.ui, {fault.what(), path});
        return false;
    }
    desk_.path = path;
    tbl_Points.selection = {};
    rules_.reset();
    changed();
    refresh();
    return true;
}

bool TestPointsScreen::saveTable(bool underAnotherName) {
    std::string path = desk_.path;
    if (path.empty() || underAnotherName) {
        const auto chosen = files_ ? files_->chooseToSave({.title = "Save Table",
                                                           .filter = tableFilter,
                                                           .initialName = path.empty() ? "points.csv" : path})
                                   : std::nullopt;
        if (!chosen) return false;
        path = *chosen;
    }
    if (!writeTable(session_.ui, path, desk_.sheet.text())) return false;
    desk_.path = path;
    desk_.sheet.markSaved();
    return true;
}

std::string TestPointsScreen::resultText() {
    std::string all = rules_->outputHeader();
    RowScratch scratch;
    for (std::size_t row = 0; row < desk_.sheet.size(); ++row) {
        if (!desk_.sheet[row].record.empty()) {
            if (!answerOf(desk_.sheet, rules_.get(), row))
                desk_.sheet.answer(row, rules_->answer(desk_.sheet[row].record, scratch));
            all += *desk_.sheet[row].answer.record;
        }
        all += '\n';
    }
    return all;
}

void TestPointsScreen::saveResults() {
    if (!rules_) {
        tell(session_.ui, {fault_, "Save as CSV"});
        return;
    }
    const auto path = files_
                          ? files_->chooseToSave(
                                {.title = "Save as CSV", .filter = tableFilter, .initialName = "risks.csv"})
                          : std::nullopt;
    if (!path) return;
    const WaitPointer wait(session_.ui);
    writeTable(session_.ui, *path, resultText());
    summarise();
}

std::optional<TableReport> TestPointsScreen::report() {
    if (!rules_ || visible_.empty()) {
        tell(session_.ui, {fault_.empty() ? "There are no rows." : fault_, "Test Points"});
        return std::nullopt;
    }
    if (visible_.size() > mostPrintedRows) {
        tell(session_.ui, tooManyRows);
        return std::nullopt;
    }
    const std::string results = resultText();
    summarise();
    refresh();
    return pointReport(desk_.sheet, *rules_, visible_,
                       {nameOfTable(), cbo_Template.items[static_cast<std::size_t>(cbo_Template.index)],
                        Lbl_Totals.text, session_.clock.now()},
                       results, session_.regional);
}

void TestPointsScreen::print() {
    const auto table = report();
    if (table && !(printTable && printTable(*table))) tell(session_.ui, notPrinted);
}

void TestPointsScreen::savePdf() {
    const auto table = report();
    if (!table) return;
    const auto path =
        files_ ? files_->chooseToSave(
                     {.title = "Save as PDF", .filter = "Pages (*.pdf)|*.pdf", .initialName = "points.pdf"})
               : std::nullopt;
    if (!path) return;
    const WaitPointer wait(session_.ui);
    const auto pages = tablePdf ? tablePdf(*table) : std::nullopt;
    if (pages)
        writeTable(session_.ui, *path, *pages);
    else
        tell(session_.ui, notPrinted);
}

void TestPointsScreen::refresh() {
    caption = "Test Points - " + nameOfTable() + (desk_.sheet.changed() ? " *" : "");
    cbo_Template.items[2] =
        desk_.file ? desk_.fileName.substr(desk_.fileName.rfind('/') + 1) : templateNames[2];
    cbo_Template.index = static_cast<int>(*desk_.from);
    txt_Want.text = desk_.want;
    txt_Limit.text = GeneralText(100 * desk_.limit, session_.regional);
    const bool limited = filter_ == PointFilter::FalseAcceptAbove || filter_ == PointFilter::TurBelow;
    txt_Filter.enabled = limited;
    txt_Filter.text = limited
                          ? GeneralText(filter_ == PointFilter::TurBelow ? filterLimit_ : 100 * filterLimit_,
                                        session_.regional)
                          : "";

    const Regional& regional = session_.regional;
    const bool empty = totals_.counts.rows() + totals_.waiting == 0;
    Lbl_State.text = !fault_.empty() ? fault_ : empty ? emptyState : "";
    if (fault_.empty() && !tbl_Points.selection.empty()) {
        const std::size_t row = tableRow(tbl_Points.selection.top);
        const PointAnswer* answer =
            row < desk_.sheet.size() ? answerOf(desk_.sheet, rules_.get(), row) : nullptr;
        const std::string message = answer ? rules_->message(*answer) : "";
        if (!message.empty()) Lbl_State.text = "Row " + count(row + 1, regional) + ": " + message;
    }
    const RowCounts& counts = totals_.counts;
    Lbl_Totals.text = count(counts.rows() + totals_.waiting, regional) +
                      " rows: " + count(counts.ok, regional) + " ok, " + count(counts.note, regional) +
                      " note, " + count(counts.refused, regional) + " refused, " +
                      count(counts.bad, regional) + " bad";
    if (totals_.waiting > 0) Lbl_Totals.text += ", " + count(totals_.waiting, regional) + " not computed";
    if (totals_.worst) {
        const double worst = desk_.sheet[*totals_.worst].answer.falseAccept;
        Lbl_Totals.text +=
            "\nWorst false accept risk " + percent(worst, regional) + " in row " +
            count(*totals_.worst + 1, regional) + "; " +
            percent(static_cast<double>(totals_.above) / static_cast<double>(totals_.falseAccept.size()),
                    regional) +
            " of the rows above " + percent(desk_.limit, regional);
    }
    if (visible_.size() != desk_.sheet.size())
        Lbl_Totals.text += "\n" + count(visible_.size(), regional) + " rows are shown";
    const bool busy = isComputing();
    met_Progress.visible = cmd_Stop.visible = busy;
    met_Progress.value = wanted_ > 0 ? 100.0 * static_cast<double>(done_) / static_cast<double>(wanted_) : 0;
    cmd_Compute.enabled = rules_ && totals_.waiting > 0 && !busy;
    cmd_Open.enabled = rules_ && !selectedRows().empty() && openAnalysis;
    findItem(menus, "mnu_Redo")->off = !desk_.sheet.canRedo();
    findItem(menus, "mnu_SaveResults")->off = !rules_;
    findItem(menus, "mnu_DecimalComma")->checked = desk_.decimalComma;
}

int TestPointsScreen::Content::rowCount() const {
    return static_cast<int>(screen_.visible_.size());
}

int TestPointsScreen::Content::columnCount() const {
    const std::size_t computed = screen_.rules_ ? screen_.rules_->columns().size() : 0;
    return static_cast<int>(screen_.desk_.sheet.columns().size() + computed);
}

std::string TestPointsScreen::Content::heading(int column) const {
    const auto& own = screen_.desk_.sheet.columns();
    const auto place = static_cast<std::size_t>(column);
    if (place < own.size()) return own[place];
    return screen_.rules_ ? screen_.rules_->columns()[place - own.size()] : "";
}

std::string TestPointsScreen::Content::headingTip(int column) const {
    const std::string name = heading(column);
    const std::string bare(trimmedCell(name.substr(0, name.find('['))));
    if (static_cast<std::size_t>(column) < screen_.desk_.sheet.columns().size()) {
        const auto entry = entryNamed(bare);
        return entry ? std::string(infoOf(*entry).about) : "Passed through";
    }
    for (const WantInfo& info : wantTable())
        for (const FigureColumn& figure : info.columns)
            if (figure.name == bare) return std::string(figure.about);
    return "";
}

std::string TestPointsScreen::Content::rowName(int row) const {
    return std::to_string(screen_.tableRow(row) + 1);
}

std::string TestPointsScreen::Content::rowFault(int row) const {
    const std::size_t at = screen_.tableRow(row);
    if (at >= screen_.desk_.sheet.size()) return "";
    const PointAnswer* answer = answerOf(screen_.desk_.sheet, screen_.rules_.get(), at);
    return answer && isFault(*answer) ? screen_.rules_->message(*answer) : "";
}

SheetCell TestPointsScreen::Content::cell(int row, int column) const {
    const PointSheet& sheet = screen_.desk_.sheet;
    const std::size_t at = screen_.tableRow(row);
    if (at >= sheet.size()) return {};
    const auto place = static_cast<std::size_t>(column);
    const std::size_t own = sheet.columns().size();
    const PointAnswer* answer = answerOf(sheet, screen_.rules_.get(), at);
    const bool refused = answer && isFault(*answer);
    if (place < own) {
        SheetCell cell{.text = sheet.cell(at, place)};
        if (!refused) return cell;
        // The message begins with the column it is about, or with its unit, if it is about one.
        const std::string message = screen_.rules_->message(*answer);
        const std::string name = sheet.columns()[place].substr(0, sheet.columns()[place].find('['));
        const auto read = quantityOf(cell.text, screen_.rules_->marks());
        const bool unit = read && !read->unit.empty() && message.starts_with(std::string(read->unit) + " ");
        if (unit || message.starts_with("column " + name + ":")) {
            cell.look = SheetCell::Look::Fault;
            cell.tip = message;
        }
        return cell;
    }
    SheetCell cell{.look = SheetCell::Look::Result, .locked = true};
    if (!answer) return cell;
    cell.text = screen_.rules_->cell(*answer, place - own);
    cell.isFigure = plainNumberOf(cell.text, screen_.rules_->marks()).has_value();
    if (refused) {
        cell.look = SheetCell::Look::Fault;
        cell.tip = screen_.rules_->message(*answer);
    } else if (answer->status == PointStatus::Note) {
        cell.tip = screen_.rules_->message(*answer);
    }
    return cell;
}

} // namespace metrisk
