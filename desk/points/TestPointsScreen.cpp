#include "desk/points/TestPointsScreen.h"

#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/points/PointDocument.h"
#include "desk/points/PointFiles.h"
#include "desk/points/PointPaste.h"
#include "desk/points/PointTexts.h"
#include "plots/RiskHistogram.h"
#include "record/EntryRules.h"

#include <algorithm>

namespace metrisk {

namespace {

using From = PointTemplate::From;

constexpr const char* filterNames[] = {"All rows",           "Refused or bad", "With a note",
                                       "False accept above", "TUR below",      "Not computed"};
constexpr Message noPercent{"A percentage between 0 and 100 is needed.", "Limit"};
constexpr Message noLimit{"A number of 0 or above is needed.", "Show"};
constexpr std::string_view wantTitle = "Figures";
constexpr const char* emptyState = "Type or paste test points, or open a table of them";
constexpr const char* noRowState =
    "Paste test points, insert a row (Ins) to type them, or open a table of them";
constexpr const char* filteredState = "No rows of that kind";

} // namespace

TestPointsScreen::TestPointsScreen(Session& session, FileChooser* files, PointDesk* desk)
    : Worksheet("TestPoints", "Test Points", "test-points"), desk_(desk ? *desk : own_), view_{desk_.sheet},
      papers(session, files, desk_, view_), session_(session), files_(files),
      computing_(session.ui, desk_.sheet, [this] {
          isComputing() ? summarise() : showRows();
          session_.ui.refresh(*this);
      }) {
    for (const char* each : filterNames) cbo_Filter.items.emplace_back(each);
    cbo_Filter.index = 0;
    if (!desk_.filling)
        desk_.filling = {.from = subjectEmpty(session.record) ? From::NewAnalysis : From::PresentAnalysis};
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
        computing_.start(view_.rules);
        summarise();
    };
    cmd_Compute.isPrimary = true;
    cmd_Stop.clicked = [this](bool) {
        computing_.stop();
        summarise();
    };
    cmd_Open.clicked = [this](bool) {
        if (!tbl_Points.selection.empty()) openRow(tbl_Points.selection.top);
    };
    cmd_Close.closes = Way::Cancel;
}

void TestPointsScreen::bindSheet() {
    tbl_Points.cellLeft = [this](int row, int column, const std::string& text) {
        desk_.sheet.put(view_.sheetRow(static_cast<std::size_t>(row)), static_cast<std::size_t>(column),
                        {{text}});
        // A row that passes the filter no longer stays in sight until the next look.
        computing_.start(view_.rules);
        summarise();
    };
    tbl_Points.cellsPut = [this](int row, int column, const CellBlock& cells) {
        putBlock(static_cast<std::size_t>(row), static_cast<std::size_t>(column), cells);
    };
    tbl_Points.opened = [this](int row) { openRow(row); };
    tbl_Points.headingPressed = [this](int column) { sortByHeading(static_cast<std::size_t>(column)); };
    tbl_Points.undone = [this] {
        desk_.sheet.undo();
        changed();
    };
}

void TestPointsScreen::putBlock(std::size_t row, std::size_t column, const CellBlock& cells) {
    if (desk_.sheet.isBlank() && beginsWithHeader(cells)) {
        desk_.sheet.putTable(cells);
        changed();
        return;
    }
    const std::size_t own = desk_.sheet.columns().size();
    const std::size_t figures = view_.rules ? view_.rules->columns().size() : 0;
    if (const std::size_t without = columnsWithoutPlace(cells, own - std::min(column, own), figures)) {
        tell(session_.ui, {noPlaceText(without, desk_.sheet, session_.regional), "Paste"});
        return;
    }
    std::vector<std::size_t> places(cells.size());
    for (std::size_t i = 0; i < places.size(); ++i) places[i] = view_.sheetRow(row + i);
    desk_.sheet.put(places, column, cells);
    changed();
}

void TestPointsScreen::chooseTemplate(int index) {
    if (static_cast<From>(index) == From::Kept) {
        const auto path =
            files_ ? files_->chooseToOpen({.title = "Template", .filter = "Analysis Files (*.mrk)|*.mrk"})
                   : std::nullopt;
        if (!path) return;
        auto read = readTemplate(session_, *path);
        if (!read) return; // which has been told
        desk_.filling->keep(std::move(*read), *path);
    }
    desk_.filling->from = static_cast<From>(index);
    makeRules();
    changed();
}

void TestPointsScreen::makeRules() {
    view_.rules.reset();
    view_.fault.clear();
    try {
        view_.rules = std::make_shared<const PointRules>(
            desk_.filling->analysis(session_.record), session_.regional, std::get<Want>(wantOf(desk_.want)),
            desk_.sheet.header(), NumberMarks{desk_.decimalComma});
    } catch (const HeaderFault& fault) {
        view_.fault = fault.what();
    } catch (const RowFault& fault) {
        view_.fault = "The template: " + fault.text;
    }
}

void TestPointsScreen::changed() {
    if (!view_.rules || view_.rules->header() != desk_.sheet.header()) makeRules();
    computing_.start(view_.rules);
    showRows();
}

void TestPointsScreen::showRows() {
    view_.rows = rowsPassing(desk_.sheet, view_.rules.get(), filter_, filterLimit_);
    ++tbl_Points.shape;
    Table::Range& range = tbl_Points.selection;
    if (range.bottom >= content_.rowCount() || range.right >= content_.columnCount()) range = {};
    summarise();
}

void TestPointsScreen::summarise() {
    totals_ = totalsOf(desk_.sheet, view_.rules.get(), desk_.limit);
    const Regional regional = tableRegional();
    pic_Histogram.text = histogramText(totals_, regional);
    if (totals_.falseAccept.empty()) {
        pic_Histogram.draw({});
        return;
    }
    const auto histogram =
        std::make_shared<const RiskHistogram>(RiskHistogram{totals_.falseAccept, desk_.limit});
    pic_Histogram.draw(
        [histogram, regional](DrawingSurface& surface) { drawRiskHistogram(surface, *histogram, regional); });
}

Regional TestPointsScreen::tableRegional() const {
    return regionalOfTable(session_.regional, desk_.decimalComma);
}

std::vector<std::size_t> TestPointsScreen::selectedRows() const {
    std::vector<std::size_t> rows;
    for (int row = tbl_Points.selection.top; row <= tbl_Points.selection.bottom; ++row)
        if (static_cast<std::size_t>(row) < view_.rows.size())
            rows.push_back(view_.rows[static_cast<std::size_t>(row)]);
    return rows;
}

std::size_t TestPointsScreen::selectedColumn() const {
    return tbl_Points.selection.empty() ? desk_.sheet.columns().size() - 1
                                        : static_cast<std::size_t>(tbl_Points.selection.left);
}

void TestPointsScreen::sort(std::size_t column, bool falling) {
    const std::vector<std::size_t> order = orderBy(desk_.sheet, view_.rules.get(), column, falling);
    if (std::is_sorted(order.begin(), order.end())) return;
    desk_.sheet.reorder(order);
    changed();
}

void TestPointsScreen::sortByHeading(std::size_t column) {
    const std::vector<std::size_t> rising = orderBy(desk_.sheet, view_.rules.get(), column, false);
    sort(column, std::is_sorted(rising.begin(), rising.end()));
}

void TestPointsScreen::openRow(int row) {
    const std::size_t place = view_.sheetRow(static_cast<std::size_t>(row));
    if (!view_.rules || !openAnalysis || place >= desk_.sheet.size() || desk_.sheet[place].record.empty())
        return session_.ui.beep();
    try {
        const Analysis made = view_.rules->analysisOf(desk_.sheet[place].record);
        const Analysis former = session_.record;
        if (!openAnalysis(made)) return;
        desk_.filling->keepPresent(former);
        close(Way::Ok);
    } catch (const RowFault& fault) {
        tell(session_.ui, {fault.text, "Row " + std::to_string(place + 1)});
    }
}

bool TestPointsScreen::mayClose(Way) {
    computing_.stop();
    return true;
}

void TestPointsScreen::newTable() {
    if (!changesSettled(session_.ui, files_, desk_)) return;
    desk_.sheet = PointSheet();
    desk_.path.clear();
    desk_.stamp.reset();
    tbl_Points.selection = {0, 0, 0, 0};
    view_.rules.reset();
    changed();
}

void TestPointsScreen::chooseTable() {
    const auto path =
        files_ ? files_->chooseToOpen({.title = "Open Table", .filter = tableFilter}) : std::nullopt;
    if (path) openTable(*path);
}

bool TestPointsScreen::openTable(const std::string& path) {
    if (!changesSettled(session_.ui, files_, desk_)) return false;
    const WaitPointer wait(session_.ui);
    if (!metrisk::openTable(session_.ui, desk_, path)) return false;
    tbl_Points.selection = {};
    view_.rules.reset();
    changed();
    refresh();
    return true;
}

void TestPointsScreen::refresh() {
    const Regional& regional = session_.regional;
    const Regional marks = tableRegional();
    caption = "Test Points - " + nameOfTable(desk_) + (desk_.sheet.changed() ? " *" : "");
    cbo_Template.items = desk_.filling->names();
    cbo_Template.index = static_cast<int>(desk_.filling->from);
    txt_Want.text = desk_.want;
    txt_Limit.text = GeneralText(100 * desk_.limit, regional);
    txt_Filter.enabled = filter_ == PointFilter::FalseAcceptAbove || filter_ == PointFilter::TurBelow;
    txt_Filter.text =
        txt_Filter.enabled
            ? GeneralText(filter_ == PointFilter::TurBelow ? filterLimit_ : 100 * filterLimit_, regional)
            : "";

    if (totals_.points() > 0)
        tbl_Points.whenEmpty = view_.rows.empty() ? filteredState : "";
    else
        tbl_Points.whenEmpty = desk_.sheet.size() > 0 ? emptyState : noRowState;
    const bool selected = !tbl_Points.selection.empty();
    Lbl_State.text =
        selected && view_.rules
            ? rowText(view_, view_.sheetRow(static_cast<std::size_t>(tbl_Points.selection.top)), marks)
            : view_.fault;
    Lbl_Totals.text = totalsText(view_, totals_, marks);
    met_Progress.visible = cmd_Stop.visible = isComputing();
    met_Progress.value = computing_.progress();
    cmd_Compute.allow(view_.rules && totals_.waiting > 0 && !isComputing(),
                      isComputing() ? "The rows are being computed" : "No row waits to be computed");
    cmd_Open.allow(view_.rules && !selectedRows().empty() && openAnalysis, "No row is chosen");
    findItem(menus, "mnu_Redo")->off = !desk_.sheet.canRedo();
    findItem(menus, "mnu_SaveResults")->off = !view_.rules;
    findItem(menus, "mnu_DecimalComma")->checked = desk_.decimalComma;
}

} // namespace metrisk
