// Boxes of units and the factors that follow from them.
#include "desk/files/UnitSelection.h"
#include "desk/kit/Worksheet.h"
#include "record/Analysis.h"
#include "units/UnitFactor.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Boxes : Worksheet {
    Boxes() : Worksheet("Boxes", "", "") {}
    void refresh() override {}
    Choice modeChoice{*this, "mode", ""}, subjectChoice{*this, "subject", ""},
        measuringChoice{*this, "measuring", ""};
    UnitsBox mode{modeChoice}, subject{subjectChoice}, measuring{measuringChoice};
};

void offer(UnitsBox& box, const char* selected) {
    box.choice.items = {"ppm", "mV", "V", "inch", "mm", "h", "s"};
    box.UnitMultipliers = {1, 0.001, 1, 0.0254, 0.001, 3600, 1};
    SelectUnit(box, selected);
}

TEST(UnitSelection, Factors) {
    struct Row {
        const char* area;
        double mode;
        const char* from;
        const char* to;
        double factor;
    };
    for (const Row& row :
         {Row{"Voltage", 5, "V", "mV", 1000}, Row{"Length", 5, "inch", "mm", 25.4},
          Row{"Time", 5, "h", "s", 3600}, Row{"Voltage", 5, "V", "ppm", 200000},
          Row{"Voltage", -5, "V", "ppm", 200000}, Row{"Voltage", 0, "V", "ppm", 1},
          Row{"Voltage", 5, "ppm", "mV", 1}, Row{"", 5, "V", "mV", 1}, Row{"Voltage", 5, "mV", "V", 0.001}}) {
        Boxes boxes;
        offer(boxes.mode, row.from);
        offer(boxes.subject, row.to);
        const auto factor = toleranceFactor(row.area, row.mode, boxes.mode, boxes.subject);
        ASSERT_TRUE(factor) << row.to;
        EXPECT_NEAR(*factor / row.factor, 1, 1e-12) << row.area << row.from << row.to << row.mode;
    }
    Boxes boxes;
    offer(boxes.mode, "V");
    offer(boxes.subject, "None");
    EXPECT_FALSE(toleranceFactor("Voltage", 5, boxes.mode, boxes.subject)) << "keeps its value";
    EXPECT_EQ(usableFactor(-4), 4);
    EXPECT_EQ(usableFactor(0), 1);
    EXPECT_EQ(unitFactor(5, "V", 1, "mV", -0.001), 1) << "a multiplier that is none";
}

TEST(UnitSelection, UnitsThatTheDatabaseLacksKeepTheirFactors) {
    for (const auto& [mode, subject] :
         {std::pair{"V", "uV"}, {"kV", "mV"}, {"kV", "uV"}, {"kV", "ppm"}, {"V", "mV"}}) {
        Analysis r;
        r.MeasurementArea = "Voltage";
        r.SU_Mode = 5;
        r.NominalUnits = mode;
        r.SU_ToleranceUnits = subject;
        r.MTE_ToleranceUnits = "nV";
        r.SU_TolUnitsFactor = subject == std::string("ppm") ? 200000 : 1e6;
        r.MTE_TolUnitsFactor = 1e9;
        if (subject == std::string("mV") && mode == std::string("V")) r.SU_TolUnitsFactor = 1000;
        Boxes boxes;
        for (UnitsBox* box : {&boxes.mode, &boxes.subject, &boxes.measuring}) offer(*box, "");
        keepUnitsOfRecord(r, boxes.mode, boxes.subject, boxes.measuring);
        EXPECT_EQ(boxes.mode.unit(), mode);
        EXPECT_EQ(boxes.subject.unit(), subject);
        EXPECT_NEAR(*toleranceFactor("Voltage", 5, boxes.mode, boxes.subject) / r.SU_TolUnitsFactor, 1, 1e-12)
            << mode << subject;
        EXPECT_NEAR(*toleranceFactor("Voltage", 5, boxes.mode, boxes.measuring) / r.MTE_TolUnitsFactor, 1,
                    1e-12)
            << mode << subject;
    }
}

} // namespace
} // namespace metrisk::testing
