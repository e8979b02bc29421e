// Areas and units in a file of our own: content, order, refusals, two programs, a killed program.
#include "tests/support/TemporaryFolder.h"
#include "units/database/SqliteUnits.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <cmath>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace metrisk::testing {
namespace {

namespace fs = std::filesystem;

class UnitsDatabaseFile : public ::testing::Test {
  protected:
    UnitsDatabaseFile() { makeUnitsDatabase(path); }

    std::unique_ptr<UnitsDatabase> open() { return openUnitsDatabase(path); }
    static std::string symbols(const std::vector<MeasurementUnit>& units) {
        std::string all;
        for (const MeasurementUnit& unit : units) all += unit.symbol + " ";
        return all;
    }
    std::string areaNames() {
        std::string all;
        for (const MeasurementArea& area : open()->areas()) all += area.name + "|";
        return all;
    }

    TemporaryFolder folder;
    fs::path path = folder / "units.mdb";
};

TEST_F(UnitsDatabaseFile, KeepsAreasAndUnitsInTheirOrder) {
    auto units = open();
    const auto volts = units->addArea("Voltage", {.symbol = "V"});
    units->addUnit(volts, {.symbol = "kV", .multiplier = 1000});
    units->addUnit(volts, {.symbol = "mV", .description = "millivolt", .multiplier = 0.001});
    units->addUnit(volts, {.symbol = "dBV", .group = "log", .multiplier = 1e-9});
    units->addArea("\u00e9nergie", {.symbol = "J"});
    units->addArea("\u00c9CART", {.symbol = "m"});
    EXPECT_EQ(symbols(units->unitsOf("voltage")), "mV V kV dBV ") << "groups after none, by multiplier";
    EXPECT_EQ(areaNames(), "Voltage|\u00c9CART|\u00e9nergie|") << "case-blind in any script";
    EXPECT_EQ(units->FindUnitsIndex(volts, "MV"), 0) << "units are compared exactly";
    EXPECT_TRUE(units->UnitExists("VOLTAGE", "mV"));
    EXPECT_EQ(units->unitsOf(volts)[0].description, "millivolt");

    EXPECT_TRUE(units->renameArea(volts, "DC Voltage"));
    EXPECT_EQ(SQLite::Database(path.string())
                  .execAndGet(
                      R"(SELECT group_concat(DISTINCT "Measurement Area") FROM Units WHERE "Area Index" = 1)")
                  .getString(),
              "DC Voltage");
    MeasurementUnit changed = units->unitsOf(volts)[0];
    changed.symbol = "millivolt";
    EXPECT_TRUE(units->updateUnit(volts, changed));
    EXPECT_TRUE(units->deleteUnit(volts, changed.key));
    EXPECT_FALSE(units->deleteUnit(volts, changed.key));
    EXPECT_TRUE(units->deleteArea(volts));
    EXPECT_FALSE(units->renameArea(volts, "x"));
    EXPECT_TRUE(units->unitsOf(volts).empty()) << "the units go with their area";
}

TEST_F(UnitsDatabaseFile, RefusesWhatATableCannotHold) {
    auto units = open();
    const auto area = units->addArea("A", {.symbol = "a"});
    const auto refuses = [&](const MeasurementUnit& unit) {
        EXPECT_THROW(units->addUnit(area, unit), UnitsError) << unit.symbol << unit.multiplier;
    };
    refuses({.symbol = ""});
    refuses({.symbol = std::string(81, 'x')});
    refuses({.symbol = "x", .description = std::string(256, 'x')});
    refuses({.symbol = "x", .group = std::string(11, 'x')});
    refuses({.symbol = "x", .multiplier = 0});
    refuses({.symbol = "x", .multiplier = -1});
    refuses({.symbol = "x", .multiplier = std::numeric_limits<double>::infinity()});
    refuses({.symbol = "x", .multiplier = std::nan("")});
    EXPECT_THROW(units->addArea("a", {.symbol = "b"}), UnitsError) << "there already";
    EXPECT_THROW(units->addArea(std::string(121, 'x'), {.symbol = "b"}), UnitsError);
    EXPECT_THROW(units->addArea("B", {.symbol = ""}), UnitsError);
    EXPECT_EQ(areaNames(), "A|") << "no half of an area";
    EXPECT_NO_THROW(units->addArea("'); DROP TABLE Units; --", {.symbol = std::string(80, 'x')}));
    EXPECT_NO_THROW(units->addUnit(area, {.symbol = "\u03a9'\";", .multiplier = 1e308}));
    EXPECT_EQ(units->unitsOf(area).back().symbol, "\u03a9'\u2033;")
        << "a quote would end a text of an analysis";
}

TEST_F(UnitsDatabaseFile, RefusesOtherFiles) {
    const auto write = [&](const char* name, const std::string& content) {
        std::ofstream(folder / name, std::ios::binary) << content;
        return folder / name;
    };
    std::string whole;
    {
        std::ifstream file(path, std::ios::binary);
        whole.assign(std::istreambuf_iterator<char>(file), {});
    }
    const fs::path other = folder / "other.mdb";
    SQLite::Database(other.string(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE)
        .exec(R"(CREATE TABLE Areas ("Area Index" INTEGER, "Area" TEXT))");
    for (const fs::path& bad :
         {write("empty.mdb", ""), write("text.mdb", "Measurement Units, a long text of no database"),
          write("half.mdb", whole.substr(0, whole.size() / 2)), other, folder / "none.mdb", folder.path()})
        EXPECT_THROW(openUnitsDatabase(bad), UnitsError) << bad;
}

TEST_F(UnitsDatabaseFile, TellsAFileThatIsGoneLockedOrReadOnly) {
    auto units = open();
    const auto area = units->addArea("A", {.symbol = "a"});
    {
        SQLite::Database holder(path.string(), SQLite::OPEN_READWRITE);
        SQLite::Transaction held(holder, SQLite::TransactionBehavior::EXCLUSIVE);
        EXPECT_THROW(units->addUnit(area, {.symbol = "b"}), UnitsError);
    }
    EXPECT_NO_THROW(units->addUnit(area, {.symbol = "b"}));
    fs::rename(path, folder / "elsewhere.mdb");
    EXPECT_THROW(units->addUnit(area, {.symbol = "c"}), UnitsError) << "not into the void";
    makeUnitsDatabase(path);
    EXPECT_THROW(units->areas(), UnitsError) << "another file of that name";
}

TEST_F(UnitsDatabaseFile, CopiesAsAWhole) {
    auto units = open();
    units->addArea("A", {.symbol = "a"});
    const fs::path copy = folder / "copy.mdb";
    units->saveAs(copy);
    EXPECT_EQ(symbols(openUnitsDatabase(copy)->unitsOf("A")), "a ");
    EXPECT_THROW(units->saveAs(folder / "no" / "folder.mdb"), UnitsError);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), fs::directory_iterator()), 2)
        << "nothing is left behind";
}

/// Adds areas until it is killed, at the latest with its parent.
[[noreturn]] void addForEver(const fs::path& path, const std::string& prefix) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (int i = 0;; ++i) {
        try {
            auto units = openUnitsDatabase(path);
            const auto area = units->addArea(prefix + std::to_string(i), {.symbol = "a"});
            units->renameArea(area, prefix + std::to_string(i) + " renamed");
        } catch (const UnitsError&) {
        }
    }
}

TEST_F(UnitsDatabaseFile, AKilledProgramLeavesWholeChanges) {
    for (int round = 0; round < 6; ++round) {
        pid_t writers[2];
        for (int i = 0; i < 2; ++i) {
            writers[i] = fork();
            if (writers[i] == 0)
                addForEver(path, "round " + std::to_string(round) + " writer " + std::to_string(i) + " ");
        }
        // Not before a change has come about, however busy the machine is.
        const auto begun = [&] {
            try {
                return round > 0 || !open()->areas().empty();
            } catch (const UnitsError&) { // the writers are at it
                return false;
            }
        };
        for (int wait = 0; wait < 1000 && !begun(); ++wait) usleep(10'000);
        usleep(40'000 + 7'000 * static_cast<useconds_t>(round));
        for (const pid_t writer : writers) {
            kill(writer, SIGKILL);
            waitpid(writer, nullptr, 0);
        }
        auto units = open();
        const auto areas = units->areas();
        EXPECT_FALSE(areas.empty());
        for (const MeasurementArea& area : areas) EXPECT_EQ(units->unitsOf(area.key).size(), 1u) << area.name;
        EXPECT_EQ(SQLite::Database(path.string()).execAndGet("PRAGMA integrity_check").getString(), "ok");
    }
}

TEST_F(UnitsDatabaseFile, AKilledImportLeavesAWholeFileOrNone) {
    const std::vector<AreaContent> content{{"A", std::vector<MeasurementUnit>(300, {.symbol = "a"})}};
    const fs::path made = folder / "made.mdb";
    for (int round = 0; round < 12; ++round) {
        fs::remove(made);
        const pid_t writer = fork();
        if (writer == 0) _exit(makeNewUnitsDatabase(made, content) ? 0 : 1);
        usleep(static_cast<useconds_t>(round) * 700);
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        if (fs::exists(made)) {
            EXPECT_EQ(openUnitsDatabase(made)->unitsOf("A").size(), 300u) << round;
        }
    }
    for (const auto& entry : fs::directory_iterator(folder.path()))
        EXPECT_TRUE(entry.path() == path || entry.path() == made ||
                    entry.path().filename().string().starts_with(".metrisk-"))
            << entry.path() << " is never cleaned up";
}

TEST_F(UnitsDatabaseFile, AReplacedFileKeepsItsLinkAndPermissions) {
    fs::permissions(path, fs::perms(0640));
    fs::create_symlink("units.mdb", folder / "link.mdb");
    makeUnitsDatabase(folder / "link.mdb", {{"A", {{.symbol = "a"}}}});
    EXPECT_TRUE(fs::is_symlink(folder / "link.mdb"));
    EXPECT_EQ(areaNames(), "A|");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_FALSE(makeNewUnitsDatabase(path, {})) << "there is one";
    EXPECT_EQ(areaNames(), "A|");
}

} // namespace
} // namespace metrisk::testing
