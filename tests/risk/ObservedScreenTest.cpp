// The worksheet of true and observed % in-tolerance.
#include "desk/observed/ObservedScreen.h"
#include "base/NumberText.h"
#include "desk/compute/ValidateAndFit.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Observed : TestSession {
    std::optional<ObservedScreen> screen;

    explicit Observed(void (*change)(Analysis&) = [](Analysis&) {}) {
        enter(record, Entry{});
        ValidateAndFit(session);
        change(record);
        screen.emplace(session);
    }
    void press(const char* name) { testing::press(*screen, name); }
    FieldResult type(const char* name, const char* text) { return testing::type(*screen, name, text); }
    std::string text(const char* name) { return textOf(*screen, name); }
    double value(const char* box) { return ParseValue(text(box), session.regional); }
};

TEST(ObservedScreen, ConvertsBothWays) {
    Observed o;
    EXPECT_EQ(o.text("TruePctBox"), "95.0000");
    EXPECT_EQ(o.text("ObservedPctBox"), "");
    EXPECT_TRUE(o.screen->ObsID_0.locked) << "the current unit's data are its own";
    o.press("CmdCompute");
    const double observed = o.value("ObservedPctBox");
    EXPECT_LT(observed, 95);
    o.ui.expectBox("No Change", "No changes have been made.", note);
    o.press("CmdCompute");

    o.type("ObservedPctBox", o.text("ObservedPctBox").c_str());
    EXPECT_EQ(o.text("CmdCompute"), "Compute True %");
    o.press("CmdCompute");
    EXPECT_NEAR(o.value("TruePctBox"), 95, 2e-4) << "as exact as the box shows the observed figure";
    o.press("opt_UseGuardbands_1");
    EXPECT_EQ(o.text("CmdCompute"), "Compute Observed %") << "the reverse of what typing sets";
    o.press("opt_UseGuardbands_2");
    EXPECT_EQ(o.text("CmdCompute"), "Compute Guardbands");
    o.press("CmdCompute");
    EXPECT_NEAR(o.value("ObservedPctBox"), o.value("TruePctBox"), 1e-4);
    EXPECT_GT(o.record.GB_UpperMult, 1);
    EXPECT_EQ(o.record.GB_UpperMult_fmt, "#,##0.0000000");
}

TEST(ObservedScreen, AnotherUnitIsBorrowedOnly) {
    Observed o;
    o.press("CmdCompute");
    const std::string current = o.text("ObservedPctBox");
    o.ui.expectBox("Metrisk", "Do you want to enter new ID data for the Observing Parameter?", Answer::Yes);
    o.press("ObservingUnitOption_0");
    EXPECT_FALSE(o.screen->StatsData_1.locked);
    o.type("ObsID_0", "Acme");
    o.type("StatsData_1", "0.25");
    o.type("StatsData_0", "90");
    o.press("CmdCompute");
    EXPECT_LT(o.text("ObservedPctBox"), current);
    EXPECT_TRUE(o.screen->close(Way::Ok));
    EXPECT_EQ(o.record.Obs_Manufacturer, "Acme");
    EXPECT_EQ(o.record.Obs_Offset, 0.25);
    EXPECT_EQ(o.record.Obs_AOP, 0.9);
    EXPECT_EQ(o.record.Obs_TruePct, 95);
    EXPECT_EQ(o.record.MTE_Offset, 0.125);
    EXPECT_EQ(o.record.MTE_PctInTol, 95);
    EXPECT_TRUE(o.record.FileChanged);
    EXPECT_FALSE(o.record.RisksNeedCompute) << "neither the true figure nor a guardband has changed";
    EXPECT_FALSE(o.record.ObservedWorksheetOpen);
}

TEST(ObservedScreen, RefusalsRestoreWhatWasChangedLast) {
    Observed o;
    const double sigma = o.record.SU_Sigma;
    o.type("ObservedPctBox", "99.9999");
    o.ui.expectBox("Observed % in-tolerance not feasible.", "Unrealistic observed % in-tolerance.");
    o.press("CmdCompute");
    EXPECT_EQ(o.text("TruePctBox"), "95.0000");
    EXPECT_EQ(o.record.SU_Sigma, sigma);
    o.ui.expectBox("Metrisk", "Do you want to enter new ID data for the Observing Parameter?", Answer::No);
    o.press("ObservingUnitOption_0");
    const double ofUnit = o.record.MTE_Sigma;
    o.type("ObservedPctBox", "94");
    for (const char* before : {"0.125", "0.2"}) { // at the first use of the other unit, and later
        o.type("StatsData_1", "50");
        o.ui.expectBox("Can't observe the indicated % in-tolerance.",
                       "Unrealistic measuring parameter limits.");
        o.press("CmdCompute");
        EXPECT_EQ(o.text("StatsData_1"), before);
        EXPECT_EQ(o.text("ObservedPctBox"), "94");
        EXPECT_NEAR(o.record.MTE_Sigma / ofUnit, o.value("StatsData_1") / 0.125, 1e-12);
        o.type("StatsData_1", "0.2");
        o.press("CmdCompute");
        EXPECT_NE(o.text("TruePctBox"), "95.0000");
        o.type("ObservedPctBox", "94");
    }
}

/// No figure stands that another unit, or none, has observed.
TEST(ObservedScreen, RefusesWhatNoFitCanBeMadeOf) {
    Observed o;
    o.press("CmdCompute");
    o.ui.expectBox("Metrisk", "Do you want to enter new ID data for the Observing Parameter?", Answer::No);
    o.press("ObservingUnitOption_0");
    struct Row {
        const char *box, *text, *title, *said;
    };
    for (const Row& row : {Row{"StatsData_0", "", "MTE % In-Tolerance", "Must be greater than zero."},
                           {"StatsData_0", "abc", "MTE % In-Tolerance", "Must be greater than zero."},
                           {"StatsData_0", "150", "MTE % In-Tolerance", "Must be less than 100%."},
                           {"StatsData_1", "-0.1", "MTE Tolerance Offset", "Must be greater than zero."},
                           {"StatsData_1", "none", "MTE Tolerance Offset", "Must be greater than zero."}}) {
        const std::string before = o.text(row.box);
        const double sigma = o.record.MTE_Sigma;
        o.ui.expectBox(row.title, row.said);
        const FieldResult refused = o.type(row.box, row.text);
        EXPECT_TRUE(refused.stay);
        EXPECT_EQ(refused.text, before);
        EXPECT_EQ(o.record.MTE_Sigma, sigma);
    }
    o.type("StatsData_1", "0.25");
    EXPECT_TRUE(o.screen->ObservedPctBox.faded) << "of the unit before";
    o.press("CmdCompute");
    EXPECT_FALSE(o.screen->ObservedPctBox.faded);

    for (const double pct : {0.0, 1.5}) {
        Observed file([](Analysis& r) {
            r.Obs_ObservingUnitOption = 0;
            r.Obs_Offset = 0.2;
            r.Obs_PctInTol = 89;
        });
        file.record.Obs_AOP = pct;
        file.screen.emplace(file.session);
        EXPECT_EQ(file.text("StatsData_0"), pct == 0 ? "" : "150.0000") << "as the file has it";
        EXPECT_EQ(file.text("ObservedPctBox"), "");
        file.ui.expectBox("MTE % In-Tolerance",
                          pct == 0 ? "Must be greater than zero." : "Must be less than 100%.");
        file.press("CmdCompute");
        EXPECT_EQ(file.text("ObservedPctBox"), "");
    }
}

TEST(ObservedScreen, StatesTheTolerancesInUnitsThatItKnows) {
    Observed o([](Analysis& r) {
        r.NominalUnits = "V";
        r.MTE_ToleranceUnits = "mV";
        r.MTE_TolUnitsFactor = 1000;
    });
    o.ui.expectBox("Metrisk", "Do you want to enter new ID data for the Observing Parameter?", Answer::No);
    o.press("ObservingUnitOption_0");
    EXPECT_EQ(o.screen->OffsetUnitsBox.items, (std::vector<std::string>{"V", "mV"}));
    EXPECT_EQ(o.text("StatsData_1"), "125");
    o.screen->choose(o.screen->OffsetUnitsBox, 0);
    EXPECT_EQ(o.text("StatsData_1"), "125") << "the number typed, in another unit";
    EXPECT_EQ(o.record.Obs_Offset, 125);
    o.type("StatsData_1", "0.25");
    EXPECT_EQ(o.record.Obs_Offset, 0.25);
    EXPECT_EQ(o.record.Obs_Units, "V");
}

TEST(ObservedScreen, ATextThatIsNoNumberIsRefused) {
    Observed o;
    for (const char* text : {"abc", ""}) {
        EXPECT_TRUE(o.type("TruePctBox", text).stay);
        EXPECT_EQ(o.text("TruePctBox"), "95.0000");
    }
    EXPECT_TRUE(o.screen->close(Way::Ok));
    EXPECT_EQ(o.record.SU_PctInTol, 95);
}

TEST(ObservedScreen, LeavingPutsBackOrTakesTheTrueFigure) {
    EXPECT_TRUE(Observed().screen->close(Way::Cancel)) << "nothing was changed, so nothing is asked";
    Observed o;
    o.type("TruePctBox", "90");
    o.press("CmdCompute");
    EXPECT_EQ(o.record.SU_PctInTol, 90);
    o.ui.expectBox("Change Made", "Do you want to retain changes?", Answer::No);
    EXPECT_TRUE(o.screen->close(Way::Cancel));
    EXPECT_EQ(o.record.SU_PctInTol, 95);
    Observed kept;
    kept.type("TruePctBox", "90");
    kept.press("CmdCompute");
    EXPECT_TRUE(kept.screen->close(Way::Ok));
    EXPECT_EQ(kept.record.SU_PctInTol, 90);
    EXPECT_TRUE(kept.record.RisksNeedCompute);
    EXPECT_TRUE(kept.record.GB_RisksStale);
}

} // namespace
} // namespace metrisk::testing
