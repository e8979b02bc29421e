// The screen of areas and units: what it adds, changes and deletes, and what it refuses.
#include "desk/units/UnitsScreen.h"
#include "tests/support/Hand.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <fstream>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Units : TestSession {
    TemporaryFolder folder;
    ScriptedChooser chooser;
    std::string path = (folder / "units.mdb").string();
    std::optional<UnitsRevision> screen;

    Units() {
        makeUnitsDatabase(path);
        auto units = openUnitsDatabase(path);
        const auto volts = units->addArea("Voltage", {.symbol = "V"});
        units->addUnit(volts,
                       {.symbol = "mV", .description = "millivolt", .group = "SI", .multiplier = 0.001});
        units->addArea("Ratio", {.symbol = "ppm"});
        session.places.UnitsDatabasePath = path;
        screen.emplace(session, chooser);
        screen->begin();
    }
    void run(const char* item) { screen->run(*findItem(screen->menus, item)); }
    void type(const char* box, const std::string& text) { testing::type(*screen, box, text); }
    void select(const char* list, int row) { screen->choose(control<ListBox>(*screen, list), row); }
    std::int64_t key(const char* area) {
        return openUnitsDatabase(session.places.UnitsDatabasePath)->FindAreaIndex(area);
    }
    std::string items(const char* list) {
        std::string all;
        for (const std::string& item : control<ListBox>(*screen, list).items) all += item + "|";
        return all;
    }
};

TEST(UnitsScreen, ListsMoveTogether) {
    Units u;
    EXPECT_EQ(u.items("List0"), "Ratio|Voltage|");
    EXPECT_EQ(textOf(*u.screen, "txt_PrimaryUnits"), "ppm") << "where there is no other";
    u.select("List0", 1);
    EXPECT_EQ(u.items("List1"), "V|mV|");
    EXPECT_EQ(u.items("List2"), "1|0.001|");
    EXPECT_EQ(u.items("List3"), "|SI|");
    EXPECT_EQ(textOf(*u.screen, "txt_PrimaryUnits"), "V");
    EXPECT_EQ(findItem(u.screen->menus, "mnu_Delete")->caption, "&Delete Measurement Area");
    u.select("List4", 1);
    EXPECT_EQ(control<ListBox>(*u.screen, "List1").index, 1);
    EXPECT_EQ(textOf(*u.screen, "UnitsBox"), "mV");
    EXPECT_EQ(textOf(*u.screen, "MultipliersBox"), "0.001");
    EXPECT_EQ(findItem(u.screen->menus, "mnu_Delete")->caption, "&Delete Unit");
}

TEST(UnitsScreen, WhatIsNotThereIsSaid) {
    Units u;
    u.ui.expectBox("Missing Data", "Nothing new has been entered that could be added.");
    u.run("mnu_Add");
    u.select("List0", 1);
    openUnitsDatabase(u.session.places.UnitsDatabasePath)->deleteArea(u.key("Voltage"));
    u.type("MeasAreaBox", "Volts");
    u.ui.expectBox("Update Cancelled",
                   "The Measurement Area you are attempting to update does not exist in the database.");
    u.run("mnu_Update");
    EXPECT_EQ(u.items("List0"), "Ratio|") << "another program has deleted it";
}

TEST(UnitsScreen, NothingIsAddedToNoDatabase) {
    Units u;
    for (const bool open : {true, false}) {
        if (!open) u.run("mnu_CloseDatabase");
        for (const char* name : {"cmd_Add", "cmd_Update", "cmd_Delete"})
            EXPECT_EQ(control<Button>(*u.screen, name).enabled, open) << name;
    }
    EXPECT_EQ(u.screen->cmd_Add.resting, "No units database is open");
}

TEST(UnitsScreen, ANewAreaIsNotDescribedByTheOneBefore) {
    Units u;
    u.select("List0", 1);
    u.select("List1", 1);
    u.type("txt_Description", "as typed");
    u.type("MeasAreaBox", "Length");
    EXPECT_EQ(textOf(*u.screen, "txt_PrimaryUnits"), "");
    EXPECT_EQ(textOf(*u.screen, "txt_UnitsGroup"), "");
    EXPECT_EQ(textOf(*u.screen, "txt_Description"), "as typed");
    u.select("List0", 1);
    u.type("MeasAreaBox", "Tension");
    u.run("mnu_Update");
    EXPECT_EQ(u.items("List0"), "Ratio|Tension|") << "a new name leaves the area its unit";
    EXPECT_EQ(textOf(*u.screen, "txt_PrimaryUnits"), "V");
}

TEST(UnitsScreen, AddsChangesAndDeletes) {
    Units u;
    u.type("MeasAreaBox", " Length ");
    EXPECT_EQ(findItem(u.screen->menus, "mnu_Add")->caption, "&Add Measurement Area");
    EXPECT_FALSE(control<TextBox>(*u.screen, "txt_PrimaryUnits").locked) << "a new area has one to come";
    u.type("txt_PrimaryUnits", "m");
    u.run("mnu_Add");
    EXPECT_EQ(u.items("List0"), "Length|Ratio|Voltage|");
    EXPECT_EQ(u.items("List1"), "m|");
    u.type("UnitsBox", "inch");
    u.type("MultipliersBox", "0.0254");
    u.run("mnu_Add");
    u.type("UnitsBox", "m2");
    u.type("MultipliersBox", "0");
    u.run("mnu_Add");
    EXPECT_EQ(u.items("List2"), "0.0254|1|1|") << "0 means 1";

    u.select("List1", 0);
    u.type("UnitsBox", "in");
    u.type("txt_Description", "inch of 25.4 mm");
    u.run("mnu_Update");
    EXPECT_EQ(u.items("List1"), "in|m|m2|");
    u.select("List0", 0);
    u.type("MeasAreaBox", "Lengths");
    u.run("mnu_Update");
    EXPECT_EQ(u.items("List0"), "Lengths|Ratio|Voltage|");
    EXPECT_EQ(u.items("List1"), "in|m|m2|");

    u.select("List1", 0);
    u.ui.expectBox("Confirm Action", "Are you sure you want to delete the selected Unit?", Answer::Yes);
    u.run("mnu_Delete");
    EXPECT_EQ(u.items("List1"), "m|m2|");
    u.select("List0", 2);
    u.ui.expectBox("Confirm Action", "Are you sure you want to delete the Measurement Area Voltage?",
                   Answer::Yes);
    u.run("mnu_Delete");
    EXPECT_EQ(u.items("List0"), "Lengths|Ratio|");
    EXPECT_EQ(openUnitsDatabase(u.path)->areas().size(), 2u) << "written at once";

    u.type("UnitsBox", "g");
    u.type("MultipliersBox", "0.001");
    u.type("MeasAreaBox", "Mass");
    u.type("txt_PrimaryUnits", "kg");
    u.run("mnu_Add");
    EXPECT_EQ(u.items("List1"), "g|kg|") << "an area and a unit of it in one go";
}

TEST(UnitsScreen, AMultiplierThatIsNotTypedKeepsAllItsDigits) {
    constexpr double third = 1.0 / 3;
    const auto stored = [](Units& u, const char* symbol) {
        for (const MeasurementUnit& unit : openUnitsDatabase(u.path)->unitsOf(u.key("Voltage")))
            if (unit.symbol == symbol) return unit.multiplier;
        return 0.0;
    };
    Units u;
    openUnitsDatabase(u.path)->addUnit(u.key("Voltage"), {.symbol = "u", .multiplier = third});
    u.select("List0", 1);
    u.select("List1", 0);
    ASSERT_EQ(textOf(*u.screen, "UnitsBox"), "u");
    u.type("txt_Description", "a third");
    u.run("mnu_Update");
    EXPECT_EQ(stored(u, "u"), third);
    u.type("MultipliersBox", "0.3");
    u.run("mnu_Update");
    EXPECT_EQ(stored(u, "u"), 0.3);
}

TEST(UnitsScreen, Refusals) {
    struct Row {
        const char* area;
        const char* primary;
        const char* unit;
        const char* multiplier;
        const char* title;
        const char* text;
    };
    for (const Row& row : {
             Row{"", "", "x", "", "Missing Data", "Please enter a measurement area."},
             Row{"voltage", "V", "", "", "Existing Measurement Area",
                 "The Measurement Area you are attempting to add already exists in the database."},
             Row{nullptr, nullptr, "mV", "", "Existing Unit",
                 "The Unit you are attempting to add already exists for this Measurement Area."},
             Row{"Bob's", "V", "", "", "Operation Cancelled", "Illegal character in measurement area."},
             Row{"5\" discs", "V", "", "", "Operation Cancelled", "Illegal character in measurement area."},
             Row{nullptr, nullptr, "'", "", "Operation Cancelled", "Illegal character in units."},
             Row{nullptr, nullptr, "kV", "1/1000", "Operation Cancelled",
                 "Illegal character in units multiplier."},
             Row{nullptr, nullptr, "kV", "-1", "Operation Cancelled",
                 "Illegal character in units multiplier."},
             Row{nullptr, nullptr, "kV", "1e999", "Operation Cancelled",
                 "Illegal character in units multiplier."},
             Row{nullptr, nullptr, "kV", "1'", "Operation Cancelled",
                 "Illegal character in units multiplier."},
             Row{"Mass", "", "", "", "Missing Unit", "Please enter a primary unit."},
         }) {
        Units u;
        u.select("List0", 1);
        if (row.area) u.type("MeasAreaBox", row.area);
        if (row.primary) u.type("txt_PrimaryUnits", row.primary);
        if (*row.unit) u.type("UnitsBox", row.unit);
        if (*row.multiplier) u.type("MultipliersBox", row.multiplier);
        u.ui.expectBox(row.title, row.text);
        u.run("mnu_Add");
        EXPECT_EQ(u.items("List0"), "Ratio|Voltage|") << row.text;
        EXPECT_EQ(openUnitsDatabase(u.path)->unitsOf("Voltage").size(), 2u) << row.text;
    }
}

TEST(UnitsScreen, RowsThatAreGoneAndTooLongNames) {
    Units u;
    u.select("List0", 1);
    auto other = openUnitsDatabase(u.path);
    const auto volts = other->FindAreaIndex("Voltage");
    u.select("List1", 1);
    other->deleteUnit(volts, other->FindUnitsIndex(volts, "mV"));
    u.ui.expectBox("Update Cancelled", "The Measurement Unit you are attempting to update does not exist for "
                                       "the selected Measurement Area.");
    u.run("mnu_Update");
    u.select("List0", 1);
    other->deleteArea(volts);
    u.ui.expectBox("Update Cancelled",
                   "The Measurement Area you are attempting to update does not exist in the database.");
    u.run("mnu_Update");
    u.type("MeasAreaBox", std::string(121, 'x'));
    u.type("txt_PrimaryUnits", "y");
    u.ui.expectBox("Units Database Error",
                   R"(CHECK constraint failed: length("Measurement Area") BETWEEN 1 AND 120)");
    u.run("mnu_Add");
    std::filesystem::remove(u.path);
    u.ui.expectBox("Units Database Error", "the database file has been moved, deleted or replaced");
    u.run("mnu_Add");
}

TEST(UnitsScreen, DatabaseCommands) {
    Units u;
    const std::string made = (u.folder / "made.mdb").string();
    u.ui.expectBox("Close Database?",
                   "Creating a new database will close the current database.\nDo you want to continue?",
                   Answer::Yes);
    u.chooser.answers = {(u.folder / "made.dat").string()};
    u.run("mnu_NewDatabase");
    EXPECT_EQ(u.chooser.requests.back().title, "Create Units Database");
    EXPECT_EQ(u.session.places.UnitsDatabasePath, made) << "the extension is ours";
    EXPECT_EQ(u.settings.ReadSetting("Units Database", "Database Name", "", 100), made);
    EXPECT_EQ(u.items("List0"), "");
    u.ui.expectBox("Close Database?",
                   "Creating a new database will close the current database.\nDo you want to continue?",
                   Answer::Yes);
    u.chooser.answers = {made};
    u.ui.expectBox("Units Database Error", "the database is open and cannot be replaced by itself");
    u.run("mnu_NewDatabase");

    std::ofstream(u.folder / "text.mdb") << "no database, but a text of some length";
    const std::string text = (u.folder / "text.mdb").string();
    u.chooser.answers = {text, u.path, made, text};
    u.ui.expectBox("Failure Opening Database", text + "\nis not an Metrisk units database.");
    u.run("mnu_OpenDatabase");
    EXPECT_EQ(u.session.places.UnitsDatabasePath, made);
    u.run("mnu_OpenDatabase");
    EXPECT_EQ(u.items("List0"), "Ratio|Voltage|");
    u.run("mnu_SaveDatabase");
    EXPECT_EQ(u.session.places.UnitsDatabasePath, made);
    EXPECT_EQ(u.items("List0"), "Ratio|Voltage|");
    u.ui.expectBox("Units Database Error", "a file of another program is not replaced");
    u.run("mnu_SaveDatabase");
    u.chooser.answers = {made};
    u.ui.expectBox("Units Database Error", "the database is open and cannot be replaced by itself");
    u.run("mnu_SaveDatabase");

    u.run("mnu_CloseDatabase");
    EXPECT_EQ(u.items("List0"), "");
    EXPECT_FALSE(findItem(u.screen->menus, "mnu_Edit")->enabled());
    EXPECT_EQ(u.session.places.UnitsDatabasePath, "");
}

TEST(UnitsScreen, AForeignDatabaseIsShownAndCopied) {
    Units u;
    const std::string copy = (u.folder / "copy.mdb").string();
    u.chooser.answers = {METRISK_SOURCE_DIR "/tests/units/data/units-jet4.mdb", copy};
    u.ui.expectBox(
        "Units Database",
        "Units or areas of the file left out: 1.\nThey lack a name or a multiplier above 0, or are too "
        "long.",
        note);
    u.run("mnu_OpenDatabase");
    EXPECT_EQ(u.items("List0"), "angle|Empty|Temp\u00e9rature difference|Voltage|");
    const auto addRoll = [&] {
        u.select("List0", 0);
        u.type("UnitsBox", "roll");
        u.type("MultipliersBox", "2");
        u.run("mnu_Add");
    };
    u.ui.expectBox("Units Database Error",
                   "the database is of another program and is read only; save it under another name first");
    addRoll();
    u.run("mnu_SaveDatabase");
    addRoll();
    EXPECT_TRUE(openUnitsDatabase(copy)->UnitExists("angle", "roll"));
}

TEST(UnitsFileInUse, IsAskedForWhereThereIsNone) {
    Units u;
    UnitsFile file(u.session, u.chooser);
    EXPECT_EQ(file.OpenUnitsDatabase(), (std::vector<std::string>{"Ratio", "Voltage"}));
    const std::string missing =
        "The measurement units database was not located.  To locate this database, attempt to "
        "open the Update Measurement Units screen and follow the on-screen instructions.";
    u.session.places.UnitsDatabasePath = "";
    u.ui.expectBox("Database Unavailable", "Unable to find the units database.\nPlease locate the database.",
                   Answer::Cancel, BoxKind{BoxIcon::Critical, BoxButtons::OkCancel});
    u.ui.expectBox("Missing Database", missing);
    EXPECT_TRUE(UnitsFile(u.session, u.chooser).OpenUnitsDatabase().empty());
    EXPECT_TRUE(u.record.AbortFlag);

    u.session.places.UnitsDatabasePath = "/none/x.mdb";
    u.ui.expectBox("Database Unavailable", "Unable to find /none/x.mdb.\nPlease locate the database.",
                   Answer::Ok, BoxKind{BoxIcon::Critical, BoxButtons::OkCancel});
    u.chooser.answers = {u.path};
    EXPECT_EQ(UnitsFile(u.session, u.chooser).OpenUnitsDatabase().size(), 2u);
    EXPECT_EQ(u.chooser.requests.back().title, "Locate the Measurement Units Database");

    const std::string empty = (u.folder / "empty.mdb").string();
    makeUnitsDatabase(empty);
    u.session.places.UnitsDatabasePath = empty;
    u.ui.expectBox("Loading Error", "No measurement areas found in (" + empty + ").");
    EXPECT_TRUE(UnitsFile(u.session, u.chooser).OpenUnitsDatabase().empty());
    EXPECT_TRUE(u.record.AbortFlag);
}

} // namespace
} // namespace metrisk::testing
