// Units behind numbers: those of the tables, those with a prefix, and those of another quantity.
#include "rows/UnitFactors.h"

#include "units/UnitsTable.h"

#include <gtest/gtest.h>

namespace metrisk::testing {

namespace {

constexpr double none = 0;

/// Cell units per nominal unit; `none` where the one cannot be told in the other.
double factorOf(const UnitFactors& units, const char* nominal, const char* unit, const char* area = "") {
    try {
        return units.factor(nominal, unit, area);
    } catch (const RowFault&) {
        return none;
    }
}

TEST(UnitFactors, ReadAPrefixOnlyBeforeAUnitOfTheSameQuantity) {
    const struct {
        const char *nominal, *unit;
        double factor;
        const char* area = "";
    } cases[] = {// of another quantity, though the letters fit
                 {"min", "in", none},
                 {"in", "min", none},
                 {"min", "in", none, "Time"},
                 {"min", "in", none, "Length"},
                 {"cd", "d", none},
                 {"t", "ft", none},
                 {"PS", "S", none},
                 {"Gy", "y", none},
                 {"yd", "d", none},
                 {"mph", "kph", none},
                 {"Gal", "cal", none},
                 {"min/s", "in/s", none},
                 // of the tables
                 {"V", "mV", 1e3},
                 {"min", "s", 60},
                 {"h", "min", 60, "Time"},
                 // with a prefix that no table has, before units of every form
                 {"V", "daV", 0.1},
                 {"daV", "mV", 1e4, "DC Voltage"},
                 {"min", "µmin", 1e6},
                 {"Pa", "µPa", 1e6, "Pressure"},
                 {"bar", "µbar", 1e6, "Pressure"},
                 {"mA", "aA", 1e15},
                 {"am", "dam", 1e-19},
                 {"mg/L", "g/L", 1e-3},
                 {"m/h", "km/h", 1e-3},
                 {"kgf·m", "gf·m", 1e3},
                 {"m³", "dm³", 1e3},
                 {"m2", "dm2", 100},
                 {"m³/h", "dm³/h", 1e3},
                 // of units that no table has
                 {"mkat", "nkat", 1e6},
                 {"foo", "mfoo", 1e3},
                 {"kfoo", "foo", 1e3},
                 {"mmHg", "cmHg", 0.1},
                 {"cmH2O", "mmH2O", 10},
                 {"foo", "bar", none}};
    const UnitFactors& shipped = UnitFactors::shipped();
    // A table of one's own need not know what "min" is.
    const UnitFactors own(readUnitsTable("area,unit,multiplier\nVolts,V,1\nLength,in,0.0254\nLength,m,1\n"));
    for (const auto& one : cases) {
        const double factor = factorOf(shipped, one.nominal, one.unit, one.area);
        EXPECT_NEAR(factor, one.factor, 1e-12 * one.factor)
            << one.nominal << " " << one.unit << " " << one.area;
        if (one.factor != none) continue;
        EXPECT_EQ(factorOf(own, one.nominal, one.unit), none) << one.nominal << " " << one.unit;
    }
    EXPECT_EQ(factorOf(own, "V", "mV", "Volts"), 1e3);
}

} // namespace

} // namespace metrisk::testing
