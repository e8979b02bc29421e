#include "desk/uncertainty/CorrelationScreen.h"

#include "base/NumberText.h"
#include "base/Text.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"
#include "uncertainty/ErrorMessages.h"
#include "uncertainty/ErrorTable.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr int coefficientColumn = 2;

/// Equal names are told apart by their rows.
std::array<std::string, errorRowCount> distinctNames(const Analysis& record, const Regional& regional) {
    std::array<std::string, errorRowCount> names;
    for (int row = 0; row < errorRowCount; ++row)
        names[static_cast<std::size_t>(row)] = readErrorTableRow(record, row, regional).name;
    const auto given = names;
    for (std::size_t row = 0; row < names.size(); ++row)
        if (std::count(given.begin(), given.end(), given[row]) > 1)
            names[row] += " (row " + std::to_string(row) + ")";
    return names;
}

std::vector<std::vector<Table::Cell>> listOf(const std::array<std::string, errorRowCount>& names) {
    std::vector<std::vector<Table::Cell>> rows;
    rows.reserve(names.size());
    for (const std::string& name : names) rows.push_back({{.text = name, .locked = true}});
    return rows;
}

double& coefficientOf(Analysis& record, int first, int second) {
    return record.CorrelationMatrix[correlationIndex(first)][correlationIndex(second)];
}

} // namespace

CorrelationScreen::CorrelationScreen(Session& session)
    : Worksheet("CorrelationList", "Correlation Coefficient Worksheet", "correlations"), session_(session),
      names_(distinctNames(session.record, session.regional)) {
    for (int i = 0; i < errorRowCount; ++i)
        for (int j = i + 1; j < errorRowCount; ++j)
            if (const double rho = coefficientOf(session.record, i, j); rho != 0)
                pairs_.push_back({i, j, rho});
    for (Table* list : {&lst_Variable_0, &lst_Variable_1}) {
        list->headings = {list == &lst_Variable_0 ? "Column 1" : "Column 2"};
        list->rows = listOf(names_);
        list->numbered = false;
    }
    lst_Variable_0.dragged = true;
    lst_Variable_1.dropped = [this](const Table&, int fromRow, int row) { correlate(fromRow, row); };
    cmd_AddPair.isPrimary = true;
    cmd_AddPair.clicked = [this](bool) {
        if (!lst_Variable_0.selection.empty() && !lst_Variable_1.selection.empty())
            correlate(lst_Variable_0.selection.top, lst_Variable_1.selection.top);
    };
    ss.headings = {"Variable 1", "Variable 2", "Correlation"};
    ss.figureColumns = {2};
    ss.whenEmpty = "No pairs yet";
    ss.cellLeft = [this](int row, int, const std::string& text) { enterCoefficient(row, text); };
    ss.cellsPut = [this](int row, int column, const CellBlock& cells) {
        const int at = coefficientColumn - column;
        for (std::size_t i = 0; i < cells.size(); ++i)
            if (at >= 0 && at < static_cast<int>(cells[i].size()) &&
                row + static_cast<int>(i) < static_cast<int>(pairs_.size()))
                enterCoefficient(row + static_cast<int>(i), cells[i][static_cast<std::size_t>(at)]);
    };
    ss.menu = {{.control = "mnu_Clear", .caption = "Clear", .run = [this] { clearSelected(); }}};
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_1.closes = Way::Cancel;
    menus = {
        {.control = "mnu_Edit",
         .caption = "&Edit",
         .items =
             {
                 {.control = "mnu_Edit_Action_0",
                  .caption = "Cu&t",
                  .shortcut = "Ctrl+X",
                  .editing = Editing::Cut},
                 {.control = "mnu_Edit_Action_1",
                  .caption = "&Copy",
                  .shortcut = "Ctrl+C",
                  .editing = Editing::Copy},
                 {.control = "mnu_Edit_Action_2",
                  .caption = "&Paste",
                  .shortcut = "Ctrl+V",
                  .editing = Editing::Paste},
                 {.control = "mnu_Edit_Action_3",
                  .caption = "&Delete",
                  .editing = Editing::Delete,
                  .separatorAfter = true},
                 {.control = "mnu_ClearPair",
                  .caption = "Clea&r",
                  .run = [this] { clearSelected(); },
                  .shortcut = "Ctrl+-"},
             }},
        runMenu(session_),
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    refresh();
}

/// Each pair has one entry; that of a pair that is there already is selected.
void CorrelationScreen::correlate(int one, int other) {
    if (one == other) return;
    const Pair pair{std::min(one, other), std::max(one, other)};
    auto found = std::find_if(pairs_.begin(), pairs_.end(), [&](const Pair& each) {
        return each.first == pair.first && each.second == pair.second;
    });
    if (found == pairs_.end()) found = pairs_.insert(pairs_.end(), pair);
    const auto row = static_cast<int>(found - pairs_.begin());
    ss.selection = {row, coefficientColumn, row, coefficientColumn};
    session_.ui.focus({name, ss.name});
}

void CorrelationScreen::enterCoefficient(int row, const std::string& text) {
    double& coefficient = pairs_.at(static_cast<std::size_t>(row)).coefficient;
    coefficient = 0;
    if (withoutOuterBlanks(text).empty()) return;
    const double value = ParseValue(text, session_.regional);
    if (isNumeric(text, session_.regional) && std::fabs(value) <= 1)
        coefficient = value;
    else
        tell(session_.ui, unlawfulCorrelation);
}

void CorrelationScreen::clearSelected() {
    const Table::Range range = ss.selection;
    const int last = std::min(range.bottom + 1, static_cast<int>(pairs_.size()));
    if (!range.empty() && range.top < last) pairs_.erase(pairs_.begin() + range.top, pairs_.begin() + last);
    ss.selection = {};
}

void CorrelationScreen::refresh() {
    ss.rows.clear();
    for (const Pair& pair : pairs_) {
        const double rho = pair.coefficient;
        const std::string text =
            rho == 0 ? "" : FormatNumber(rho, PictureForDecimals(DecimalsOfValue(rho, 3)), session_.regional);
        ss.rows.push_back({{.text = names_[static_cast<std::size_t>(pair.first)], .locked = true},
                           {.text = names_[static_cast<std::size_t>(pair.second)], .locked = true},
                           {.text = text}});
    }
}

void CorrelationScreen::store() {
    session_.record.CorrelationMatrix = {};
    for (const Pair& pair : pairs_)
        coefficientOf(session_.record, pair.first, pair.second) = pair.coefficient;
}

bool CorrelationScreen::mayClose(Way way) {
    if (way == Way::Ok) store();
    return true;
}

} // namespace metrisk
