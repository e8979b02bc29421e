// Units as a table: what is read, what is refused, and the table that the program brings.
#include "units/UnitsTable.h"
#include "tests/support/TemporaryFolder.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

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

/// From the definitions of the units outside the SI, by way of their chain of definitions.
const std::map<std::string, double> definitions = [] {
    const double g = 9.80665, lb = 0.45359237, ft = 0.3048, inch = ft / 12, lbf = lb * g,
                 pi = std::numbers::pi;
    const double gal = 3.785411784e-3, btu = 2326 * lb;
    return std::map<std::string, double>{
        {"Length/in", inch},
        {"Length/mil", 2.54e-5},
        {"Length/\u00b5in", 2.54e-8},
        {"Length/yd", 0.9144},
        {"Length/mi", 1609.344},
        {"Length/nmi", 1852},
        {"Area/in\u00b2", 6.4516e-4},
        {"Area/acre", 43560 * ft * ft},
        {"Area/ha", 100.0 * 100},
        {"Area/mi\u00b2", 1609.344 * 1609.344},
        {"Volume/L", 1e-3},
        {"Volume/in\u00b3", inch * inch * inch},
        {"Volume/gal", gal},
        {"Volume/fl oz", 29.5735295625e-6},
        {"Volume/pt", gal / 8},
        {"Volume/gal (UK)", 4.54609e-3},
        {"Volume/bbl", 158.987294928e-3},
        {"Volume/ft\u00b3", 1728 * inch * inch * inch},
        {"Plane Angle/\u00b0", 2 * pi / 360},
        {"Plane Angle/arcmin", 2 * pi / 21600},
        {"Plane Angle/arcsec", 2 * pi / 1296000},
        {"Plane Angle/gon", 2 * pi / 400},
        {"Plane Angle/r", 2 * pi},
        {"Solid Angle/deg\u00b2", pi * pi / 32400},
        {"Time/d", 24.0 * 60 * 60},
        {"Time/a", 365.0 * 86400},
        {"Mass/oz", 28.349523125e-3},
        {"Mass/gr", 64.79891e-6},
        {"Mass/ozt", 480 * 64.79891e-6},
        {"Mass/ct", 0.2e-3},
        {"Mass/slug", 14.59390294},
        {"Mass/ton (US)", 907.18474},
        {"Mass/ton (UK)", 1016.0469088},
        {"Density/lb/ft\u00b3", 16.01846337},
        {"Density/lb/gal", lb / gal},
        {"Force/lbf", 4.4482216152605},
        {"Force/ozf", lbf / 16},
        {"Force/kgf", g},
        {"Force/kip", 4448.2216152605},
        {"Force/pdl", 0.138254954376},
        {"Torque/lbf\u00b7in", lbf * inch},
        {"Torque/lbf\u00b7ft", 1.3558179483314},
        {"Torque/ozf\u00b7in", 7.061551814e-3},
        {"Torque/kgf\u00b7cm", g / 100},
        {"Pressure/atm", 101325},
        {"Pressure/Torr", 101325.0 / 760},
        {"Pressure/psi", 6894.757293168},
        {"Pressure/psf", lbf / ft / ft},
        {"Pressure/at", 98066.5},
        {"Pressure/mmHg", 133.322387415},
        {"Pressure/inHg", 25.4 * 133.322387415},
        {"Pressure/inH\u2082O", 249.08891},
        {"Pressure/mbar", 100},
        {"Celsius Temperature/\u00b0F", 5.0 / 9},
        {"Thermodynamic Temperature/\u00b0R", 1 / 1.8},
        {"Speed/kn", 1852.0 / 3600},
        {"Speed/mi/h", 0.44704},
        {"Speed/km/h", 1 / 3.6},
        {"Speed/ft/min", 5.08e-3},
        {"Acceleration/g\u2099", g},
        {"Acceleration/Gal", 0.01},
        {"Angular Velocity/r/min", 2 * pi / 60},
        {"Angular Velocity/\u00b0/h", 2 * pi / 360 / 3600},
        {"Energy/eV", 1.602176634e-19},
        {"Energy/cal (th)", 4.184},
        {"Energy/cal (IT)", 4.1868},
        {"Energy/Btu (IT)", btu},
        {"Energy/kW\u00b7h", 3.6e6},
        {"Energy/ft\u00b7lbf", ft * lbf},
        {"Power/hp", 745.69987158227},
        {"Power/hp (metric)", 735.49875},
        {"Power/Btu/h", btu / 3600},
        {"Electric Charge/A\u00b7h", 3600},
        {"Magnetic Flux Density/G", 1e-4},
        {"Magnetic Flux/Mx", 1e-8},
        {"Magnetic Field Strength/Oe", 250 / pi},
        {"Illuminance/fc", 1 / ft / ft},
        {"Illuminance/ph", 1e4},
        {"Luminance/fL", 1 / ft / ft / pi},
        {"Luminance/sb", 1e4},
        {"Activity/Ci", 3.7e10},
        {"Activity/\u00b5Ci", 3.7e4},
        {"Absorbed Dose/rad", 0.01},
        {"Dose Equivalent/rem", 0.01},
        {"Exposure/R", 2.58e-4},
        {"Dynamic Viscosity/cP", 1e-3},
        {"Kinematic Viscosity/cSt", 1e-6},
        {"Kinematic Viscosity/ft\u00b2/s", ft * ft},
        {"Volume Flow/L/min", 1e-3 / 60},
        {"Volume Flow/ft\u00b3/min", ft * ft * ft / 60},
        {"Volume Flow/gal/min", gal / 60},
        {"Mass Flow/lb/h", lb / 3600},
        {"Mass Flow/g/min", 1e-3 / 60},
        {"Thermal Conductivity/Btu/(h\u00b7ft\u00b7\u00b0F)", btu / 3600 / ft * 1.8}};
}();

TEST(SampleUnits, HaveTheirDefinedSizes) {
    const auto areas = readUnitsTable(fileContent(METRISK_SOURCE_DIR "/data/units.csv"));
    const std::pair<std::string, double> prefixes[] = {
        {"f", 1e-15}, {"p", 1e-12}, {"n", 1e-9}, {"\u00b5", 1e-6}, {"m", 1e-3}, {"c", 1e-2},
        {"h", 1e2},   {"k", 1e3},   {"M", 1e6},  {"G", 1e9},       {"T", 1e12}};
    std::size_t count = 0, checked = 0;
    for (const AreaContent& area : areas) {
        std::string primary;
        bool hasPpm = false;
        for (const MeasurementUnit& unit : area.units) {
            hasPpm |= unit.symbol == "ppm";
            if (unit.symbol == "ppm" || unit.multiplier != 1) continue;
            EXPECT_EQ(primary, "") << area.name << " has two primary units";
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
            const auto defined = definitions.find(area.name + "/" + unit.symbol);
            if (defined == definitions.end()) continue;
            EXPECT_NEAR(unit.multiplier / defined->second, 1, 1e-9) << defined->first;
            ++checked;
        }
    }
    EXPECT_GE(areas.size(), 25u);
    EXPECT_GE(count, 250u);
    EXPECT_GE(checked, 200u);
}

} // namespace
} // namespace metrisk::testing
