#include "desk/units/UnitsScreen.h"

#include "base/NumberText.h"
#include "base/RelativeUnits.h"
#include "base/Text.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/links/RunMenu.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr Message noArea{"Please enter a measurement area.", "Missing Data"};
constexpr Message noPrimary{"Please enter a primary unit.", "Missing Unit"};
constexpr Message areaExists{"The Measurement Area you are attempting to add already exists in the database.",
                             "Existing Measurement Area"};
constexpr Message unitExists{"The Unit you are attempting to add already exists for this Measurement Area.",
                             "Existing Unit"};
constexpr Message noSuchArea{
    "The Measurement Area you are attempting to update does not exist in the database.", "Update Cancelled"};
constexpr Message noSuchUnit{
    "The Measurement Unit you are attempting to update does not exist for the selected Measurement Area.",
    "Update Cancelled"};
constexpr Message nothingNew{"Nothing new has been entered that could be added.", "Missing Data"};
constexpr Message noAreas{"No measurement areas found", "Empty Record Set"};
constexpr Message noMatch{"No measurement areas match found", "No Match"};
constexpr Message illegalArea{"Illegal character in measurement area.", "Metrisk"}; // of one to be deleted
constexpr const char* cancelled = "Operation Cancelled";
constexpr const char* confirm = "Confirm Action";
constexpr Question deleteTheUnit{"Are you sure you want to delete the selected Unit?", confirm,
                                 BoxButtons::YesNo, Answer::No};
constexpr Question closeDatabase{
    "Creating a new database will close the current database.\nDo you want to continue?", "Close Database?",
    BoxButtons::YesNo, Answer::No};

std::string trimmed(const std::string& text) {
    return std::string(withoutOuterBlanks(text));
}

template <class Rows, class Field>
std::vector<std::string> column(const Rows& rows, Field field) {
    std::vector<std::string> texts;
    texts.reserve(rows.size());
    for (const auto& row : rows) texts.push_back(std::string(field(row)));
    return texts;
}

template <class Rows>
int rowOf(const Rows& rows, std::int64_t key) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [key](const auto& row) { return row.key == key; });
    if (found != rows.end()) return static_cast<int>(found - rows.begin());
    return rows.empty() ? -1 : 0;
}

} // namespace

UnitsRevision::UnitsRevision(Session& session, FileChooser& chooser)
    : Worksheet("UnitsRevision", "Update Measurement Units", "units"), session_(session),
      units_(session, chooser) {
    menus = {{.control = "mnu_Return", .caption = "&Return", .run = [this] { close(Way::Ok); }},
             {.control = "mnu_Database", .caption = "&Database", .items = databaseItems()},
             {.control = "mnu_Edit", .caption = "&Edit", .items = editItems()},
             runMenu(session_),
             {.control = "mnu_Help", .caption = "&Help...", .run = [this] { session_.ui.help(helpPage); }}};
    cmd_Add.clicked = [this](bool) { Add(); };
    cmd_Add.isPrimary = true;
    cmd_Update.clicked = [this](bool) { Update(); };
    cmd_Delete.clicked = [this](bool) { Delete(); };
    bindBoxes();
    refresh();
}

void UnitsRevision::begin() {
    if (units_.openCurrent()) readAreas();
    refresh();
}

std::vector<MenuItem> UnitsRevision::databaseItems() {
    return {{.control = "mnu_NewDatabase", .caption = "&New Database", .run = [this] { NewDatabase(); }},
            {.control = "mnu_OpenDatabase",
             .caption = "&Open Database...",
             .run =
                 [this] {
                     if (units_.openAnother()) readAreas();
                 },
             .shortcut = "Ctrl+O"},
            {.control = "mnu_SaveDatabase",
             .caption = "Save Database &As...",
             .run =
                 [this] {
                     if (units_.saveAs()) readAreas(SelectedAreaKey_);
                 }},
            {.control = "mnu_CloseDatabase", .caption = "&Close Database", .run = [this] {
                 units_.close();
                 readAreas();
             }}};
}

std::vector<MenuItem> UnitsRevision::editItems() {
    return {
        {.control = "mnu_Add", .caption = "&Add", .run = [this] { Add(); }, .shortcut = "Ctrl+Return"},
        {.control = "mnu_Update", .caption = "&Update", .run = [this] { Update(); }, .shortcut = "Ctrl+U"},
        {.control = "mnu_Delete",
         .caption = "&Delete",
         .run = [this] { Delete(); },
         .shortcut = "Ctrl+Delete"}};
}

void UnitsRevision::bindBoxes() {
    const auto keep = [](TextBox& box) {
        box.left = [&box](const std::string& text) {
            box.text = text;
            return FieldResult{false, text};
        };
    };
    for (TextBox* box :
         {&MeasAreaBox, &txt_PrimaryUnits, &UnitsBox, &MultipliersBox, &txt_UnitsGroup, &txt_Description}) {
        keep(*box);
        box->edited = [box](const std::string& text) { box->text = text; };
    }
    for (OfArea& entry : ofArea_)
        entry.box.edited = [&entry](const std::string& text) {
            entry.box.text = text;
            entry.typed = true;
        };
    MeasAreaBox.edited = [this](const std::string& text) {
        MeasAreaBox.text = text;
        // Another area is not described by what was shown of the one before.
        if (!EditingArea_)
            for (OfArea& entry : ofArea_)
                if (!entry.typed) entry.box.text.clear();
        EditingArea_ = true;
        focusOn(Focus::Area);
    };
    for (TextBox* box : {&UnitsBox, &MultipliersBox})
        box->edited = [this, box](const std::string& text) {
            box->text = text;
            EditingUnit_ = true;
            focusOn(Focus::Units);
        };
    List0.chosen = [this](int row) { selectArea(row); };
    for (ListBox* list : {&List1, &List2, &List3, &List4})
        list->chosen = [this](int row) { selectUnit(row); };
}

void UnitsRevision::focusOn(Focus focus) {
    ListFocus_ = focus;
    const std::string what = focus == Focus::Area ? " Measurement Area" : " Unit";
    findItem(menus, "mnu_Add")->caption = "&Add" + what;
    findItem(menus, "mnu_Update")->caption = "&Update" + what;
    findItem(menus, "mnu_Delete")->caption = "&Delete" + what;
}

void UnitsRevision::refresh() {
    const bool open = units_.UnitsDatabaseOpen();
    lbl_Database.text = open ? units_.database()->path().string() : "No units database is open.";
    for (const char* command :
         {"mnu_Edit", "mnu_Add", "mnu_Update", "mnu_Delete", "mnu_SaveDatabase", "mnu_CloseDatabase"})
        findItem(menus, command)->off = !open;
    for (Button* button : {&cmd_Add, &cmd_Update, &cmd_Delete})
        button->allow(open, "No units database is open");
    txt_PrimaryUnits.locked = !PrimaryUnit_.empty() && !EditingArea_;
}

void UnitsRevision::readAreas(std::int64_t selected) {
    areas_.clear();
    units_.perform([this](UnitsDatabase& database) { areas_ = database.areas(); });
    List0.items = column(areas_, [](const MeasurementArea& area) { return area.name; });
    selectArea(rowOf(areas_, selected));
}

void UnitsRevision::selectArea(int row) {
    List0.index = row;
    SelectedAreaKey_ = row < 0 ? 0 : areas_[static_cast<std::size_t>(row)].key;
    MeasAreaBox.text = row < 0 ? "" : areas_[static_cast<std::size_t>(row)].name;
    focusOn(Focus::Area);
    readUnits();
    clearEditing();
}

void UnitsRevision::readUnits(std::int64_t selected) {
    shown_.clear();
    if (SelectedAreaKey_ != 0)
        units_.perform([this](UnitsDatabase& database) { shown_ = database.unitsOf(SelectedAreaKey_); });
    List1.items = column(shown_, [](const MeasurementUnit& unit) { return unit.symbol; });
    List2.items = column(shown_, [this](const MeasurementUnit& unit) {
        return GeneralText(unit.multiplier, session_.regional);
    });
    List3.items = column(shown_, [](const MeasurementUnit& unit) { return unit.group; });
    List4.items = column(shown_, [](const MeasurementUnit& unit) { return unit.description; });
    FindPrimaryUnit();
    const Focus focus = ListFocus_;
    selectUnit(rowOf(shown_, selected));
    focusOn(focus);
}

void UnitsRevision::selectUnit(int row) {
    for (ListBox* list : {&List1, &List2, &List3, &List4}) list->index = row;
    const MeasurementUnit none;
    const MeasurementUnit& unit = row < 0 ? none : shown_[static_cast<std::size_t>(row)];
    SelectedUnitKey_ = unit.key;
    UnitsBox.text = unit.symbol;
    MultipliersBox.text = row < 0 ? "" : List2.items[static_cast<std::size_t>(row)];
    txt_UnitsGroup.text = unit.group;
    txt_Description.text = unit.description;
    focusOn(Focus::Units);
    clearEditing();
}

/// Parts per million are the primary unit only of an area that has no other.
void UnitsRevision::FindPrimaryUnit() {
    PrimaryUnit_.clear();
    for (const MeasurementUnit& unit : shown_) {
        if (GeneralText(unit.multiplier, {}) != "1") continue;
        PrimaryUnit_ = unit.symbol;
        if (!equalCaseBlind(unit.symbol, ppmUnits)) break;
    }
    txt_PrimaryUnits.text = PrimaryUnit_;
}

bool UnitsRevision::hasIllegalCharacter(const std::string& text, const char* where) {
    if (text.find_first_of("'\"") == std::string::npos) return false;
    tell(session_.ui, {where, cancelled});
    return true;
}

std::optional<double> UnitsRevision::checkedMultiplier(bool withPrimary) {
    for (TextBox* box :
         {&MeasAreaBox, &txt_PrimaryUnits, &UnitsBox, &MultipliersBox, &txt_UnitsGroup, &txt_Description})
        box->text = trimmed(box->text);
    if (hasIllegalCharacter(MeasAreaBox.text, "Illegal character in measurement area.") ||
        hasIllegalCharacter(UnitsBox.text, "Illegal character in units.") ||
        (withPrimary && hasIllegalCharacter(txt_PrimaryUnits.text, "Illegal character in units.")))
        return {};
    const std::string& text = MultipliersBox.text;
    // A multiplier can have more digits than its text: one that is still as shown is not read back.
    for (const MeasurementUnit& unit : shown_)
        if (unit.key == SelectedUnitKey_ && unit.multiplier > 0 &&
            text == GeneralText(unit.multiplier, session_.regional))
            return unit.multiplier;
    if (text.empty()) return 1;
    const double value = ParseValue(text, session_.regional);
    const bool plain = text.find_first_of("%$'\"") == std::string::npos;
    const bool noNumber =
        value == 0 && text.substr(0, text.find_first_of("eE")).find_first_of("123456789") != text.npos;
    if (plain && !noNumber && isNumeric(text, session_.regional) && std::isfinite(value) && value >= 0)
        return value == 0 ? 1 : value;
    tell(session_.ui, {"Illegal character in units multiplier.", cancelled});
    return {};
}

MeasurementUnit UnitsRevision::typedUnit(double multiplier) const {
    return {.symbol = UnitsBox.text.empty() ? ppmUnits : UnitsBox.text,
            .description = txt_Description.text,
            .group = txt_UnitsGroup.text,
            .multiplier = multiplier};
}

void UnitsRevision::Add() {
    if (trimmed(MeasAreaBox.text).empty()) return tell(session_.ui, noArea);
    bool known = false;
    const bool asked = units_.perform([&](UnitsDatabase& database) {
        const std::string area = trimmed(MeasAreaBox.text);
        if (EditingArea_ && (known = database.AreaExists(area)))
            tell(session_.ui, areaExists);
        else if (EditingUnit_ && !EditingArea_ && (known = database.UnitExists(area, trimmed(UnitsBox.text))))
            tell(session_.ui, unitExists);
    });
    if (!asked || known) return;
    const auto multiplier = checkedMultiplier(EditingArea_);
    if (!multiplier) return;
    if (EditingArea_)
        addArea(*multiplier);
    else if (EditingUnit_)
        addUnit(*multiplier);
    else
        tell(session_.ui, nothingNew);
}

/// A unit that was typed beside the area and its primary unit is added to it.
void UnitsRevision::addArea(double multiplier) {
    if (txt_PrimaryUnits.text.empty()) return tell(session_.ui, noPrimary);
    const MeasurementUnit typed = typedUnit(multiplier);
    MeasurementUnit primary = typedUnit(1);
    primary.symbol = txt_PrimaryUnits.text;
    const bool another = EditingUnit_ && !UnitsBox.text.empty() && typed.symbol != primary.symbol;
    units_.perform([&](UnitsDatabase& database) {
        const std::int64_t area = database.addArea(MeasAreaBox.text, primary);
        readAreas(area);
        if (another) readUnits(database.addUnit(area, typed));
    });
}

void UnitsRevision::addUnit(double multiplier) {
    units_.perform([&](UnitsDatabase& database) {
        const std::int64_t area = database.FindAreaIndex(MeasAreaBox.text);
        if (area == 0) return tell(session_.ui, noMatch);
        const std::int64_t unit = database.addUnit(area, typedUnit(multiplier));
        if (area != SelectedAreaKey_) readAreas(area);
        readUnits(unit);
    });
}

void UnitsRevision::Update() {
    if (trimmed(MeasAreaBox.text).empty()) return tell(session_.ui, noArea);
    const bool area = ListFocus_ == Focus::Area;
    const auto multiplier = checkedMultiplier(area);
    if (!multiplier) return;
    if (area)
        updateArea();
    else
        updateUnit(*multiplier);
}

void UnitsRevision::updateArea() {
    // A new name leaves the area its unit.
    if (txt_PrimaryUnits.text.empty() && PrimaryUnit_.empty()) return tell(session_.ui, noPrimary);
    units_.perform([&](UnitsDatabase& database) {
        const std::int64_t other = database.FindAreaIndex(MeasAreaBox.text);
        if (other != 0 && other != SelectedAreaKey_) return tell(session_.ui, areaExists);
        if (!database.renameArea(SelectedAreaKey_, MeasAreaBox.text)) tell(session_.ui, noSuchArea);
        readAreas(SelectedAreaKey_);
    });
}

void UnitsRevision::updateUnit(double multiplier) {
    units_.perform([&](UnitsDatabase& database) {
        MeasurementUnit unit = typedUnit(multiplier);
        unit.key = SelectedUnitKey_;
        const std::int64_t other = database.FindUnitsIndex(SelectedAreaKey_, unit.symbol);
        if (other != 0 && other != unit.key) return tell(session_.ui, unitExists);
        if (!database.updateUnit(SelectedAreaKey_, unit)) tell(session_.ui, noSuchUnit);
        readUnits(unit.key);
    });
}

void UnitsRevision::Delete() {
    if (ListFocus_ == Focus::Area)
        deleteArea();
    else
        deleteUnit();
}

void UnitsRevision::deleteArea() {
    if (areas_.empty()) return tell(session_.ui, noAreas);
    const std::string area = areas_[static_cast<std::size_t>(List0.index)].name;
    if (area.find('\'') != std::string::npos) return tell(session_.ui, illegalArea);
    const std::string question = "Are you sure you want to delete the Measurement Area " + area + "?";
    if (ask(session_.ui, {question, confirm, BoxButtons::YesNo, Answer::No}) != Answer::Yes) return;
    units_.perform([&](UnitsDatabase& database) {
        if (!database.deleteArea(SelectedAreaKey_)) tell(session_.ui, noMatch);
        readAreas();
    });
}

void UnitsRevision::deleteUnit() {
    if (SelectedUnitKey_ == 0 || ask(session_.ui, deleteTheUnit) != Answer::Yes) return;
    units_.perform([&](UnitsDatabase& database) {
        database.deleteUnit(SelectedAreaKey_, SelectedUnitKey_);
        readUnits();
    });
}

void UnitsRevision::NewDatabase() {
    if (ask(session_.ui, closeDatabase) == Answer::Yes && units_.CreateUnitsDatabase()) readAreas();
}

} // namespace metrisk
