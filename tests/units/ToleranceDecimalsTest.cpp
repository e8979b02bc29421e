#include "units/ToleranceDecimals.h"

#include <gtest/gtest.h>

#include <limits>

using namespace metrisk;

TEST(ToleranceDecimals, FollowUnitsAndMode) {
    struct Row {
        std::string area, nominal, units;
        double factor, mode;
        int subject, measuring;
    };
    const Row rows[] = {
        {"Voltage", "V", "mV", 1000, 10, 3, 3},
        {"Voltage", "V", "kV", 0.001, 10, -3, -3},
        {"Voltage", "V", "mV", 0, 10, 0, 0},
        {"Length", "m", "ft", 3.28084, 1, 1, 1},
        {"Length", "ft", "m", 0.3048, 1, 0, 0},
        {"Length", "in", "yd", 1 / 36.0, 1, -1, -1},
        {"Voltage", "V", "ppm", 200000, 5, 5, 6},
        {"Voltage", "V", "ppm", 1, -2000000, 0, 6},
        {"Voltage", "V", "ppm", 1, 1e9, -3, 6},
        {"Voltage", "V", "ppm", 1, 0, 6, 6},
        {"Voltage", "ppm", "mV", 1000, 10, 0, 0},
        {"", "V", "mV", 1000, 10, 0, 0},
        {"Voltage", "V", "mV", -1000, 10, 99, 99}, // no such factor: left alone
        {"Voltage", "V", "ppm", 1, std::numeric_limits<double>::denorm_min(), 99, 6},
    };
    for (const Row& row : rows) {
        Analysis record;
        record.MeasurementArea = row.area;
        record.NominalUnits = row.nominal;
        record.SU_ToleranceUnits = record.MTE_ToleranceUnits = row.units;
        record.SU_TolUnitsFactor = record.MTE_TolUnitsFactor = row.factor;
        record.SU_Mode = row.mode;
        record.SU_TolDecimalShift = record.SU_SigDigits = 99;
        UpdateToleranceDecimals(record);
        UpdateMTEToleranceDecimals(record);
        const std::string shown = row.nominal + " to " + row.units + " x " + std::to_string(row.factor);
        EXPECT_EQ(record.SU_TolDecimalShift, row.subject) << shown;
        EXPECT_EQ(record.SU_SigDigits, row.measuring) << shown;
    }
}
