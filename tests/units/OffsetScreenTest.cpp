// The tolerance offset worksheet: composition, units, uncertainties, refusals, and what OK takes over.
#include "desk/offset/OffsetScreen.h"
#include "base/NumberText.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/mainscreen/MainScreen.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <cmath>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Offsets : TestSession {
    TemporaryFolder folder;
    ScriptedChooser chooser;
    std::optional<OffsetCalc> screen;

    explicit Offsets(const std::function<void(Analysis&)>& change = [](Analysis&) {}) {
        const auto path = folder / "units.mdb";
        makeUnitsDatabase(path);
        auto units = openUnitsDatabase(path);
        const auto volts = units->addArea("Voltage", {.symbol = "V"});
        units->addUnit(volts, {.symbol = "mV", .multiplier = 0.001});
        units->addUnit(volts, {.symbol = "ppm", .multiplier = 1});
        units->addArea("Length", {.symbol = "m"});
        session.places.UnitsDatabasePath = path.string();
        enter(record, Entry{});
        record.MeasurementArea = "Voltage";
        record.NominalUnits = record.SU_ToleranceUnits = record.MTE_ToleranceUnits = "V";
        record.SU_UpperFixed = record.SU_LowerFixed = 0.5;
        change(record);
        screen.emplace(session, chooser);
        screen->begin();
    }
    FieldResult type(const char* box, const std::string& text) { return testing::type(*screen, box, text); }
    void press(const char* name) { testing::press(*screen, name); }
    std::string text(const char* name) { return textOf(*screen, name); }
    double value(const char* name) { return ParseValue(text(name), session.regional); }
    void units(const char* box, const char* unit) {
        auto& choice = control<Choice>(*screen, box);
        const auto found = std::find(choice.items.begin(), choice.items.end(), unit);
        ASSERT_NE(found, choice.items.end()) << unit;
        screen->choose(choice, static_cast<int>(found - choice.items.begin()));
    }
    void ok() { EXPECT_TRUE(screen->close(Way::Ok)); }
};

TEST(Offsets, ReadingsInPpmTakeTolerancesInPpm) {
    Offsets zero([](Analysis& r) { r.SU_Mode = 0; });
    zero.units("ModeUnitsBox", "ppm");
    zero.units("SUOffsetUnitsBox", "ppm");
    zero.units("MTEOffsetUnitsBox", "ppm");
    zero.ok();
    EXPECT_EQ(zero.record.SU_ToleranceUnits, "ppm");
    EXPECT_EQ(zero.record.SU_TolUnitsFactor, 1);
}

TEST(Offsets, PicturesAloneAreTakenOver) {
    Offsets o;
    o.type("SUUpperFixedBox", "0.500");
    o.ok();
    EXPECT_EQ(o.record.SU_UpperFixed_fmt, "#,##0.000");
}

TEST(Offsets, PartsBelongToTheToleranceThatTheyMakeUp) {
    Offsets o;
    o.type("MTEFixedBox", "0.002");
    o.type("MTEPctBox", "0.01");
    o.ok();
    EXPECT_TRUE(o.record.OffsetWorksheetFlag) << "typing another tolerance elsewhere leaves them";
    EXPECT_EQ(o.record.MTE_PctReading, 0.01);
    o.screen.emplace(o.session, o.chooser);
    o.screen->begin();
    o.press("opt_MTETolerance_1");
    o.ok();
    EXPECT_FALSE(o.record.OffsetWorksheetFlag) << "an uncertainty has no parts";
}

TEST(Offsets, ComposesFixedAndPercentParts) {
    Offsets o;
    o.units("SUOffsetUnitsBox", "mV");
    EXPECT_EQ(o.value("SUUpperFixedBox"), 0.5) << "what was entered stays, in the new units";
    o.type("SUUpperFixedBox", "2");
    o.type("SUUpperPctBox", "0.01");
    EXPECT_NEAR(o.value("SUUpperOffsetBox"), 3, 1e-9) << "2 mV + 0.01 % of 10 V";
    o.press("ModeUnitsButton");
    EXPECT_NEAR(o.value("SUUpperOffsetBox"), 0.003, 1e-12);
    EXPECT_NEAR(o.value("SUUpperFixedBox"), 0.002, 1e-12);
    o.type("SULowerFixedBox", "0.004");
    EXPECT_NEAR(o.value("SULowerOffsetBox"), -0.004, 1e-12) << "shown negative";
    o.press("OffsetUnitsButton");
    o.type("txt_Mode", "-20");
    EXPECT_NEAR(o.value("SUUpperOffsetBox"), 4, 1e-9) << "the size of the reading counts";
    o.press("chk_Symmetric");
    EXPECT_NEAR(o.value("SULowerOffsetBox"), -4, 1e-9);
    o.type("txt_Mode", "0");
    EXPECT_NEAR(o.value("SUUpperOffsetBox"), 2, 1e-9) << "a percent of nothing adds nothing";
    o.type("txt_Mode", "10");
    o.ok();
    EXPECT_NEAR(o.record.SU_UpperOffset, 0.003, 1e-15);
    EXPECT_NEAR(o.record.SU_UpperLimit, 10.003, 1e-14);
    EXPECT_NEAR(o.record.SU_LowerLimit, 9.997, 1e-14);
    EXPECT_EQ(o.record.SU_TolUnitsFactor, 1000);
    EXPECT_TRUE(o.record.FileChanged && o.record.ComputeNeeded);
}

TEST(Offsets, PartsPerMillionFollowTheReading) {
    Offsets o;
    o.units("SUOffsetUnitsBox", "ppm");
    o.units("MTEOffsetUnitsBox", "ppm");
    o.type("SUUpperFixedBox", "50");
    o.type("MTEFixedBox", "10");
    o.press("chk_Symmetric");
    o.type("txt_Mode", "-5");
    EXPECT_NEAR(o.value("SUUpperOffsetBox"), 50, 1e-9);
    o.ui.expectBox("Illegal Mode Value",
                   "The mode value cannot be zero when units are expressed in ppm.\n\nYou may need "
                   "to change the units on the Metrisk screen or on the Tolerance Offset Worksheet.");
    EXPECT_TRUE(o.type("txt_Mode", "0").stay);
    o.ok();
    EXPECT_NEAR(o.record.SU_UpperOffset, 50e-6 * 5, 1e-16);
    EXPECT_NEAR(o.record.MTE_Offset, 10e-6 * 5, 1e-16);
    EXPECT_NEAR(o.record.SU_TolUnitsFactor, 200000, 1e-9);

    Offsets zero([](Analysis& r) { r.SU_Mode = 0; });
    zero.ui.expectBox(
        "Undefined Relative Unit",
        "Subject Parameter units cannot be \"ppm\" when the Mode\nis zero.  Please select another unit.");
    zero.units("SUOffsetUnitsBox", "ppm");
    zero.ui.expectBox("Undefined Relative Unit",
                      "MTE units cannot be \"ppm\" when the Mode.\nis zero.  Please select another unit.");
    zero.units("MTEOffsetUnitsBox", "ppm");
    EXPECT_EQ(control<Choice>(*zero.screen, "SUOffsetUnitsBox").index, 1) << "V again";
}

TEST(Offsets, UncertaintiesAndCoverageFactors) {
    Offsets o;
    o.press("opt_MTETolerance_1");
    EXPECT_EQ(o.text("Lbl_MTEBias"), "Cov. Factor");
    EXPECT_NEAR(o.value("txt_MTEBiasUncertainty"), 1.96, 1e-3);
    o.type("MTEFixedBox", "0.1");
    EXPECT_NEAR(o.value("MTEOffsetBox"), 0.195996, 1e-6);
    o.type("txt_PctInTol_1", "100");
    EXPECT_NEAR(o.value("txt_MTEBiasUncertainty"), std::sqrt(3), 1e-5);
    o.type("MTEPctBox", "4");
    EXPECT_NEAR(o.value("txt_MTEBiasUncertainty"), std::sqrt(3), 1e-5)
        << "rectangular whatever the degrees of freedom";
    o.type("txt_PctInTol_1", "95");
    EXPECT_NEAR(o.value("txt_MTEBiasUncertainty"), 2.77645, 1e-5) << "Student's t of 4 degrees of freedom";
    EXPECT_EQ(o.text("pnl_Distribution_1"), "Student's t");
    o.type("txt_MTEBiasUncertainty", "2");
    EXPECT_NEAR(o.value("txt_PctInTol_1"), 88.3883, 1e-3) << "the confidence follows a typed factor";
    o.type("MTEPctBox", "0");
    EXPECT_NEAR(o.value("txt_PctInTol_1"), 95.44997, 1e-3);
    EXPECT_NEAR(o.value("txt_MTEBiasUncertainty"), 2, 1e-12);
    o.type("MTEOffsetBox", "0.5");
    EXPECT_NEAR(o.value("MTEFixedBox"), 0.25, 1e-12);
    o.ok();
    EXPECT_TRUE(o.record.MTE_EntryByUncertainty);
    EXPECT_NEAR(o.record.MTE_StdUncertainty, 0.25, 1e-15);
    EXPECT_NEAR(o.record.MTE_FixedOffset, 0.5, 1e-15);
    EXPECT_NEAR(o.record.MTE_Sigma, 0.25, 1e-12);

    Offsets typed;
    typed.type("MTEPctBox", "1");
    typed.type("txt_MTEBiasUncertainty", "0.05");
    EXPECT_NEAR(typed.value("MTEOffsetBox"), 0.0979982, 1e-6)
        << "a typed bias uncertainty sets the tolerance";
    EXPECT_EQ(typed.value("MTEPctBox"), 0) << "and clears the percent part";
}

TEST(Offsets, WhatIsChosenAlreadyIsNoEntry) {
    Offsets o;
    o.type("MTEFixedBox", "0.1");
    o.type("MTEPctBox", "1");
    o.press("opt_MTETolerance_0");
    EXPECT_EQ(o.value("MTEFixedBox"), 0.1) << "the parts stay as they were entered";
    EXPECT_EQ(o.value("MTEPctBox"), 1);
}

TEST(Offsets, Refusals) {
    struct Row {
        const char* box;
        const char* text;
        const char* title;
        bool uncertainty;
        const char* message;
    };
    const char* const below100 = "Must be greater than or equal to 0 and less than 100%.";
    for (const Row& row : {Row{"txt_PctInTol_0", "100", "Illegal Entry", false, below100},
                           Row{"txt_PctInTol_0", "-1", "Illegal Entry", false, below100},
                           Row{"txt_PctInTol_1", "100", "Illegal Entry", false, below100},
                           Row{"txt_PctInTol_1", "100.1", "Illegal Entry", true,
                               "Must be greater than or equal to 0 and less than or equal to 100%."}}) {
        Offsets o;
        if (row.uncertainty) o.press("opt_MTETolerance_1");
        const std::string before = o.text(row.box);
        o.ui.expectBox(row.title, row.message);
        EXPECT_TRUE(o.type(row.box, row.text).stay);
        EXPECT_EQ(o.text(row.box), before);
    }
    for (const auto& [box, title] : {std::pair{"SUUpperFixedBox", "Subject Parameter Upper Fixed Offset"},
                                     {"SULowerFixedBox", "Subject Parameter Lower Fixed Offset"},
                                     {"MTEFixedBox", "MTE Fixed Offset"},
                                     {"SUUpperPctBox", "Subject Parameter Upper Percent of Reading Spec"},
                                     {"SULowerPctBox", "Subject Parameter Lower Percent of Reading Spec"},
                                     {"MTEPctBox", "MTE Percent of Reading Spec"}}) {
        Offsets o;
        o.type(box, "-0.1");
        o.ui.expectBox(title, "Must be greater than or equal to zero.\nTry again.");
        EXPECT_FALSE(o.screen->close(Way::Ok));
        EXPECT_EQ(o.ui.focusMoves.back(), std::string("OffsetCalc.") + box + " selected");
        EXPECT_EQ(o.record.SU_UpperOffset, 0.5) << "nothing partial reaches the record";
        o.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::No, yesNoCancel);
        EXPECT_TRUE(o.screen->close(Way::Cancel));
        EXPECT_FALSE(o.record.FileChanged);
    }
}

TEST(Offsets, SingleSidesAndPhysicalLimits) {
    Offsets o;
    o.press("opt_Tolerance_1");
    EXPECT_FALSE(o.screen->SULowerOffsetBox.visible);
    o.press("chk_PhysicalLimit");
    EXPECT_EQ(o.text("Lbl_SULower"), "Physical Limit");
    EXPECT_FALSE(o.screen->pnl_Lower.visible);
    o.type("SULowerOffsetBox", "9");
    EXPECT_EQ(o.text("pnl_Distribution_0"), "LogNormal") << "fitted at once";
    o.ok();
    EXPECT_TRUE(o.record.OptSingleUpper && o.record.PhysicalLimitEntered);
    EXPECT_EQ(o.record.PhysicalLimit, 9);
}

TEST(Offsets, UnitsThatTheDatabaseLacksAreKept) {
    Offsets o([](Analysis& r) {
        r.SU_ToleranceUnits = "uV";
        r.SU_TolUnitsFactor = 1e6;
        r.SU_UpperFixed_fmt = "#,##0.0000000";
    });
    EXPECT_NEAR(o.value("SUUpperFixedBox"), 500000, 1e-6);
    o.type("SUUpperFixedBox", "250000");
    o.ok();
    EXPECT_EQ(o.record.SU_ToleranceUnits, "uV");
    EXPECT_NEAR(o.record.SU_UpperOffset, 0.25, 1e-15);
    EXPECT_EQ(o.record.MeasurementArea, "Voltage");
}

TEST(Offsets, AnUntouchedWorksheetChangesNothing) {
    for (const bool uncertainty : {false, true}) {
        Offsets o([&](Analysis& r) {
            r.SU_UpperOffset = 0.7; // parts that do not make up the tolerance
            r.MTE_EntryByUncertainty = uncertainty;
            r.MTE_StdUncertainty = 0.0637788;
            r.MTE_DegFreedom = uncertainty ? 7 : 0;
        });
        const double offset = o.record.MTE_Offset;
        o.ok();
        EXPECT_FALSE(o.record.FileChanged) << uncertainty;
        EXPECT_EQ(o.record.SU_UpperOffset, 0.7);
        EXPECT_EQ(o.record.MTE_Offset, offset);
        EXPECT_TRUE(o.screen->closedBy());
    }
}

TEST(Offsets, ProcessErrorsFollowOtherUnits) {
    Offsets o([](Analysis& r) {
        r.ErrTableText[2] = {};
        r.ErrTableText[2][3] = "0.02";
        r.ErrTableText[2][4] = "True";
        r.ProcessUncertainty = 0.02;
    });
    o.units("MTEOffsetUnitsBox", "mV");
    o.ok();
    EXPECT_EQ(ParseValue(o.record.ErrTableText[2][3], {}), 20);
    EXPECT_NEAR(o.record.ProcessUncertainty, 0.02, 1e-15);
}

TEST(Offsets, TheMainScreenNamesTheUnitsOfItsFigures) {
    for (const auto& [units, named] : {std::pair{"mV", "mV"}, {"V", "V"}, {"", "of my own"}}) {
        Offsets o([&](Analysis& r) {
            r.MTE_ParameterUnits = "of my own";
            r.MTE_ToleranceUnits = units;
        });
        o.type("MTEFixedBox", "0.05");
        o.ok();
        MainScreen main(o.session);
        EXPECT_EQ(textOf(main, "MTEParameterUnitsBox"), named);
    }
}

TEST(Offsets, AnotherArea) {
    Offsets o;
    o.screen->choose(control<Choice>(*o.screen, "MeasAreaBox"), 0);
    EXPECT_EQ(control<Choice>(*o.screen, "ModeUnitsBox").items, (std::vector<std::string>{"m"}));
    o.ok();
    EXPECT_EQ(o.record.NominalUnits, "m");
    EXPECT_EQ(o.record.SU_TolUnitsFactor, 1);

    auto units = openUnitsDatabase(o.session.places.UnitsDatabasePath);
    const auto empty = units->addArea("Empty", {.symbol = "x"});
    units->deleteUnit(empty, units->FindUnitsIndex(empty, "x"));
    o.screen.emplace(o.session, o.chooser);
    o.screen->begin();
    o.ui.expectBox("Invalid Units.Inf Entry", "Error: No units were found in this Measurement Area.\n"
                                              "The Units.Inf file may be corrupt.");
    o.screen->choose(control<Choice>(*o.screen, "MeasAreaBox"), 0);
    o.ok();
    EXPECT_EQ(o.record.MeasurementArea, "Empty");
    EXPECT_EQ(o.record.NominalUnits, "m") << "no unit is lost to an area that has none";
}

} // namespace
} // namespace metrisk::testing
