// Units as a table: what is read, what is refused, and the table that the program brings.
#include "units/UnitsTable.h"
#include "tests/support/TemporaryFolder.h"
#include "units/database/UnitsDatabase.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <numbers>
#include <sstream>

namespace metrisk::testing {
namespace {

const std::string heading = "area,unit,multiplier,group,description\n";

TEST(UnitsTable, ReadsWhatItWrites) {
    const std::vector<AreaContent> content = {
        {"Voltage, DC", {{.symbol = "V"}, {.symbol = "mV", .description = "a, b\nc", .multiplier = 0.001}}},
        {"Empty", {}},
        {"\u00e9", {{.symbol = "x", .group = "other", .multiplier = std::numbers::pi / 648000}}}};
    const std::string table = writeUnitsTable(content);
    const auto again = readUnitsTable(table);
    ASSERT_EQ(again.size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(again[i].name, content[i].name);
        EXPECT_EQ(again[i].units, content[i].units) << content[i].name;
    }
    const auto spreadsheet =
        readUnitsTable("\xEF\xBB\xBF"
                       "Area,Unit,Multiplier\r\n Length , \"in\"\"\" ,0.0254\r\n\r\nLENGTH,m,1");
    ASSERT_EQ(spreadsheet.size(), 1u) << "names are compared case-blind";
    EXPECT_EQ(spreadsheet[0].units[0].symbol, "in\u2033");
    EXPECT_EQ(readUnitsTable("area,unit,multiplier\nR,k\xB5,1\n")[0].units[0].symbol, "k\u00b5")
        << "Windows-1252";
}

TEST(UnitsTable, RefusesWithTheLine) {
    const std::pair<std::string, const char*> rows[] = {
        {"", "line 1"},
        {"a,b,c\n", "line 1"},
        {heading + "A,x,1\n,y,1\n", "line 3"},
        {heading + "A,x,\n", "line 2"},
        {heading + "A,,1\n", "line 2"},
        {heading + "A,x,1/1000\n", "line 2"},
        {heading + "A,x,0\n", "line 2"},
        {heading + "A,x,-1\n", "line 2"},
        {heading + "A,x,inf\n", "line 2"},
        {heading + "A,x,1e999\n", "line 2"},
        {heading + "A,x,1,,\"two\nlines\"\nA,y,1,,,,\n", "line 4"},
        {heading + "A,\"x,1\n", "line 2"},
        {heading + "A,\"x\"y,1\n", "line 2"},
        {heading + "A,x,1\na,x,2\n", "line 3"},
        {heading + std::string(121, 'A') + ",x,1\n", "line 2"},
        {heading + "A," + std::string(81, 'x') + ",1\n", "line 2"},
        {heading + "A,x,1,elevenchars\n", "line 2"},
    };
    for (const auto& [table, line] : rows) try {
            readUnitsTable(table);
            ADD_FAILURE() << table;
        } catch (const UnitsError& fault) {
            EXPECT_TRUE(std::string(fault.what()).starts_with(line)) << fault.what() << "\n" << table;
        }
}

TEST(UnitsTable, IsMergedAsAWhole) {
    const TemporaryFolder folder;
    makeUnitsDatabase(folder / "u.mdb",
                      readUnitsTable(heading + "Voltage,V,1\nVoltage,mV,0.001\nTime,s,1\n"));
    const auto units = openUnitsDatabase(folder / "u.mdb");
    const auto counts = units->merge(readUnitsTable(heading + "VOLTAGE,mV,0.001,,millivolt\nVoltage,kV,1000\n"
                                                              "Voltage,V,1\nMass,kg,1\n"));
    EXPECT_EQ(counts.areas, 1);
    EXPECT_EQ(counts.units, 2);
    EXPECT_EQ(counts.changed, 1);
    EXPECT_EQ(writeUnitsTable(units->content()),
              heading +
                  "Mass,kg,1,,\nTime,s,1,,\nVoltage,mV,0.001,,millivolt\nVoltage,V,1,,\nVoltage,kV,1000,,\n");
    EXPECT_THROW(units->merge({{"New", {{.symbol = "x"}, {.symbol = "y", .multiplier = 0}}}}), UnitsError);
    EXPECT_FALSE(units->AreaExists("New"));
}

/// Products and quotients from left to right.
double evaluated(std::istream& expression) {
    const auto number = [&] {
        std::string token;
        expression >> token;
        return token == "pi" ? std::numbers::pi : std::stod(token);
    };
    double value = number();
    for (char sign; expression >> sign;) value = sign == '*' ? value * number() : value / number();
    return value;
}

/// By area, tab and unit: sizes that follow from the definitions of the units.
std::map<std::string, double> definitions() {
    std::map<std::string, double> all;
    std::ifstream file(METRISK_SOURCE_DIR "/tests/units/data/definitions.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        const std::size_t end = line.rfind('\t');
        std::istringstream expression(line.substr(end + 1));
        all[line.substr(0, end)] = evaluated(expression);
    }
    return all;
}

TEST(SampleUnits, HaveTheirDefinedSizes) {
    const auto areas = readUnitsTable(fileContent(METRISK_SOURCE_DIR "/data/units.csv"));
    const std::pair<std::string, double> prefixes[] = {
        {"f", 1e-15}, {"p", 1e-12}, {"n", 1e-9}, {"\u00b5", 1e-6}, {"m", 1e-3}, {"c", 1e-2},
        {"h", 1e2},   {"k", 1e3},   {"M", 1e6},  {"G", 1e9},       {"T", 1e12}};
    std::map<std::string, double> sizes = definitions();
    std::size_t count = 0, checked = 0;
    for (const AreaContent& area : areas) {
        std::string primary;
        bool hasPpm = false;
        for (const MeasurementUnit& unit : area.units) {
            hasPpm |= unit.symbol == "ppm";
            if (unit.symbol == "ppm" || unit.multiplier != 1) continue;
            // The last one is the default choice: kelvins, of differences, stand before degrees Celsius.
            EXPECT_TRUE(primary.empty() || (primary == "K" && unit.symbol == "\u00b0C"))
                << area.name << " has two primary units";
            primary = unit.symbol;
        }
        EXPECT_NE(primary, "") << area.name;
        EXPECT_TRUE(hasPpm) << area.name;
        count += area.units.size() - 1;
        for (const MeasurementUnit& unit : area.units) {
            EXPECT_EQ(unit.symbol.find('\''), unit.symbol.npos) << "the screen could not change it";
            for (const auto& [prefix, size] : prefixes)
                if (unit.symbol == prefix + primary) {
                    const int power = primary.starts_with("m\u00b2")   ? 2
                                      : primary.starts_with("m\u00b3") ? 3
                                                                       : 1;
                    EXPECT_DOUBLE_EQ(unit.multiplier, std::pow(size, power)) << unit.symbol;
                    ++checked;
                }
            const auto defined = sizes.find(area.name + "\t" + unit.symbol);
            if (defined == sizes.end()) continue;
            EXPECT_NEAR(unit.multiplier / defined->second, 1, 1e-9) << defined->first;
            sizes.erase(defined);
            ++checked;
        }
    }
    EXPECT_GE(areas.size(), 25u);
    EXPECT_GE(count, 250u);
    EXPECT_GE(checked, 200u);
    for (const auto& [unit, size] : sizes) ADD_FAILURE() << unit << " is not in the table";
}

} // namespace
} // namespace metrisk::testing
