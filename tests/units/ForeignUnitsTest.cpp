// Units databases of other programs: what is read of them, and that no damage reaches the program.
#include "tests/support/TemporaryFolder.h"
#include "units/database/UnitsDatabase.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace metrisk::testing {
namespace {

namespace fs = std::filesystem;

const fs::path data = fs::path(METRISK_SOURCE_DIR) / "tests/units/data";

std::string contentOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string described(UnitsDatabase& units) {
    std::string all;
    for (const MeasurementArea& area : units.areas()) {
        all += area.name + ":";
        for (const MeasurementUnit& unit : units.unitsOf(area.key))
            all += " " + unit.symbol + "=" + std::to_string(unit.multiplier) + unit.group;
        all += "\n";
    }
    return all;
}

class ForeignUnitsFile : public ::testing::TestWithParam<const char*> {
  protected:
    const std::string whole = contentOf(data / GetParam());

    /// The same with one text of it written over wherever it stands.
    std::string with(std::string_view text, std::string_view other) {
        std::string changed = whole;
        for (std::size_t at = 0; (at = changed.find(text, at)) != std::string::npos; at += text.size())
            changed.replace(at, text.size(), other);
        EXPECT_TRUE(changed != whole) << text;
        return changed;
    }
    /// The name as the file has it: 1 or 2 bytes a character.
    std::string coded(std::string_view name) {
        if (std::string_view(GetParam()) == "units-jet3.mdb") return std::string(name);
        std::string wide;
        for (const char c : name) wide += {c, '\0'};
        return wide;
    }
    std::unique_ptr<UnitsDatabase> open(const std::string& content) {
        std::ofstream(path, std::ios::binary) << content;
        return openUnitsDatabase(path);
    }

    TemporaryFolder folder;
    fs::path path = folder / "foreign.mdb";
};

TEST_P(ForeignUnitsFile, IsReadAsItStands) {
    auto units = openUnitsDatabase(data / GetParam());
    const std::string wide =
        std::string(GetParam()) == "units-jet4.mdb" ? " abvolt \u03a9-free \u2126=0.000000" : "";
    EXPECT_EQ(described(*units),
              "angle: \u2033=0.000005 '=0.000291 \u00b0=0.017453 rad=1.000000\n"
              "Empty:\n"
              "Temp\u00e9rature difference: \u00b0F=0.555556 K=1.000000\n"
              "Voltage:" +
                  wide + " \u00b5V=0.000001 mV=0.001000 V=1.000000 kV=1000.000000 dBV=0.100000log\n");
    EXPECT_EQ(units->leftOut(), 1u) << "a unit of size 0";
    const auto angles = units->unitsOf("ANGLE");
    ASSERT_EQ(angles.size(), 4u);
    EXPECT_EQ(angles[0].multiplier, std::numbers::pi / 648000) << "to the last bit";
    EXPECT_EQ(angles[0].description, "arcsecond; 24\u2033 as well");
    EXPECT_EQ(units->unitsOf("Voltage")[wide.empty() ? 0 : 1].description, std::string(255, 'x'));
}

TEST_P(ForeignUnitsFile, IsCopiedIntoOurFormAndOtherwiseReadOnly) {
    auto units = openUnitsDatabase(data / GetParam());
    EXPECT_THROW(units->addArea("A", {.symbol = "a"}), UnitsError);
    EXPECT_THROW(units->deleteArea(1), UnitsError);
    units->saveAs(path);
    auto copy = openUnitsDatabase(path);
    EXPECT_EQ(described(*copy), described(*units));
    EXPECT_TRUE(copy->deleteArea(copy->FindAreaIndex("Voltage")));
    EXPECT_EQ(contentOf(data / GetParam()), whole);
}

TEST_P(ForeignUnitsFile, IsRefusedWithOtherTablesOrFields) {
    for (const auto& [name, other] : {std::pair("Measurement Area", "Measurement Aria"),
                                      {"Units Group", "Units Gruop"},
                                      {"Multipliers", "Dultipliers"}})
        EXPECT_THROW(open(with(coded(name), coded(other))), UnitsError) << name;
    EXPECT_THROW(open(with("Areas", "Xreas")), UnitsError) << "the name of a table is packed in both formats";
    EXPECT_NO_THROW(open(with("Standard Jet DB", "Standard ACE DB")));
}

TEST_P(ForeignUnitsFile, IsReadWholeOrNotAtAllWhenItIsCut) {
    const std::string all = described(*open(whole));
    int refused = 0;
    for (std::size_t size = 0; size < whole.size(); size += 509) {
        try {
            EXPECT_EQ(described(*open(whole.substr(0, size))), all) << size << " of " << whole.size();
        } catch (const UnitsError&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 20);
}

TEST_P(ForeignUnitsFile, HarmsNobodyWhenItIsDamaged) {
    std::mt19937 dice(20240607);
    const auto below = [&](std::size_t n) {
        return std::uniform_int_distribution<std::size_t>(0, n - 1)(dice);
    };
    int refused = 0;
    for (int round = 0; round < 250; ++round) {
        std::string content = whole;
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            std::size_t at = below(content.size());
            // Most of a page is empty: damage what is not.
            while (content[at] == 0) at = below(content.size());
            content[at] = static_cast<char>(below(256));
        }
        const auto start = std::chrono::steady_clock::now();
        try {
            described(*open(content));
        } catch (const UnitsError&) {
            ++refused;
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(6)) << "round " << round;
    }
    EXPECT_GT(refused, 0);
    EXPECT_LT(refused, 250);
}

INSTANTIATE_TEST_SUITE_P(, ForeignUnitsFile, ::testing::Values("units-jet3.mdb", "units-jet4.mdb"),
                         [](const auto& file) { return std::string(file.param, 6, 4); });

} // namespace
} // namespace metrisk::testing
