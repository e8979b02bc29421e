// Typing into the boxes of the main screen: what is kept, how it is shown again, what is refused.
#include "desk/mainscreen/MainScreen.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk::testing {
namespace {

constexpr const char* zeroOrAbove = "Must be greater than or equal to zero.";
constexpr const char* subjectPct =
    "The Subject Parameter % In-Tolerance must be greater than 0 and less than or "
    "equal to 100.";
constexpr const char* measuringPct =
    "The Measuring Parameter % In-Tolerance must be greater than 0 and less than 100.";
constexpr const char* noCounts =
    "Must be two whole numbers, the passed ones of the tested ones: 0 or more of 1 to "
    "1,000,000,000.";
constexpr const char* hundred =
    "You have indicated 100% in-tolerance.\nThis is a non-physical situation.\n"
    "(Note that continuing will cause the computed\nequivalent accuracy ratio to be "
    "based on\nthe false reject risk.)  Continue anyway?";

Regional european() {
    return {";", ",", ".", "-"};
}

struct Screen : TestSession {
    MainScreen main{session};

    std::string box(const char* name) {
        main.refresh();
        return textOf(main, name);
    }
    FieldResult type(const char* name, const std::string& text) {
        main.refresh();
        auto& entered = control<TextBox>(main, name);
        main.enter(entered, entered.text);
        main.key(entered);
        return main.leave(entered, text);
    }
};

struct Typed {
    const char* box;
    const char* typed;
    double Analysis::*field;
    double value;
    const char* shown;
};

void expectKept(const std::vector<Typed>& cases, const Regional& regional) {
    for (const Typed& c : cases) {
        SCOPED_TRACE(std::string(c.box) + " \"" + c.typed + "\" decimal " + regional.DecimalSymbol);
        Screen screen;
        screen.session.regional = regional;
        enter(screen.record, Entry{});
        screen.record.NominalUnits = screen.record.SU_ToleranceUnits = "V";
        const FieldResult result = screen.type(c.box, c.typed);
        EXPECT_FALSE(result.stay);
        EXPECT_EQ(result.text, c.shown);
        EXPECT_DOUBLE_EQ(screen.record.*c.field, c.value);
        EXPECT_TRUE(screen.record.FileChanged);
        EXPECT_FALSE(screen.record.EntryBoxChanged);
    }
}

TEST(FieldRules, KeepEntriesWithTheirDigits) {
    expectKept({{"ModeBox", "10.50", &Analysis::SU_Mode, 10.5, "10.50 V"},
                {"ModeBox", "1,234.5 mV", &Analysis::SU_Mode, 1234.5, "1,234.5 V"},
                {"ModeBox", "-2.5E1", &Analysis::SU_Mode, -25, "-25 V"},
                {"ModeBox", "$ 12", &Analysis::SU_Mode, 12, "12 V"},
                {"ModeBox", "abc", &Analysis::SU_Mode, 0, "0 V"},
                {"ModeBox", std::string(400, '9').c_str(), &Analysis::SU_Mode, 0, "0 V"},
                {"UpperLimitBox", "0.250", &Analysis::SU_UpperOffset, 0.25, "0.250 V"},
                {"LowerLimitBox", "0.75", &Analysis::SU_LowerOffset, 0.75, "0.75 V"},
                {"PctInTolBox", "85.12345%", &Analysis::SU_PctInTol, 85.12345, "85.1235"},
                {"MTEPctInTolBox", "99.9", &Analysis::MTE_PctInTol, 99.9, "99.9000"},
                {"PctInTolBox", "17/18", &Analysis::SU_PctInTol, 1700.0 / 18, "94.4444"},
                {"PctInTolBox", " 9 / 10 ", &Analysis::SU_PctInTol, 90, "90.0000"},
                {"PctInTolBox", "19/x", &Analysis::SU_PctInTol, 19, "19.0000"},
                {"MTEPctInTolBox", "9/10", &Analysis::MTE_PctInTol, 90, "90.0000"},
                {"MTEOffsetBox", "0.10", &Analysis::MTE_Offset, 0.1, "0.10"},
                {"MTEFixedOffsetBox", ".2", &Analysis::MTE_Offset, 0.2, "0.2"},
                {"MTEPctOfReadingBox", "1.5", &Analysis::MTE_Offset, 0.275, "1.5"}},
               Regional{});
    expectKept({{"ModeBox", "1234,50", &Analysis::SU_Mode, 1234.5, "1234,50 V"},
                {"ModeBox", "1.234,5", &Analysis::SU_Mode, 1234.5, "1234,5 V"},
                {"ModeBox", "10.5", &Analysis::SU_Mode, 10.5, "10,5 V"},
                {"UpperLimitBox", "0,25", &Analysis::SU_UpperOffset, 0.25, "0,25 V"},
                {"PctInTolBox", "85,5 %", &Analysis::SU_PctInTol, 85.5, "85,5000"},
                {"MTEOffsetBox", "0,125 V", &Analysis::MTE_Offset, 0.125, "0,125"}},
               european());
}

TEST(FieldRules, APercentageReadsAsNoOtherThanItIs) {
    Screen screen;
    enter(screen.record, Entry{});
    for (const auto& [typed, shown] :
         {std::pair{"99.99999", "99.99999"}, {"99.99", "99.9900"}, {"0.00001", "0.00001"}}) {
        screen.type("PctInTolBox", typed);
        EXPECT_EQ(screen.box("PctInTolBox"), shown);
        screen.type("MTEPctInTolBox", typed);
        EXPECT_EQ(screen.box("MTEPctInTolBox"), shown);
    }
}

TEST(FieldRules, RefuseAndStayWithTheEarlierValue) {
    struct Refused {
        const char *box, *typed, *title, *text, *shown;
    };
    const std::vector<Refused> cases = {
        {"UpperLimitBox", "-1", "Upper Tolerance Offset", zeroOrAbove, "0.5000"},
        {"LowerLimitBox", "-0.1", "Lower Tolerance Offset", zeroOrAbove, "0.5000"},
        {"PctInTolBox", "100.001", "Illegal Entry", subjectPct, "95.0000"},
        {"PctInTolBox", "", "Illegal Entry", subjectPct, "95.0000"},
        {"PctInTolBox", "-5", "Illegal Entry", subjectPct, "95.0000"},
        {"MTEPctInTolBox", "100", "Illegal Entry", measuringPct, "95.0000"},
        {"MTEPctInTolBox", "0", "Illegal Entry", measuringPct, "95.0000"},
        {"PctInTolBox", "21/20", "Counts", noCounts, "95.0000"},
        {"MTEPctInTolBox", "19/0", "Counts", noCounts, "95.0000"},
        {"PctInTolBox", "0/20", "Counts", "None passed: there is no % in-tolerance to enter.", "95.0000"},
    };
    for (const Refused& c : cases) {
        SCOPED_TRACE(std::string(c.box) + " \"" + c.typed + "\"");
        Screen screen;
        enter(screen.record, Entry{});
        screen.ui.expectBox(c.title, c.text);
        const FieldResult result = screen.type(c.box, c.typed);
        EXPECT_TRUE(result.stay);
        EXPECT_EQ(result.text, c.shown);
        EXPECT_EQ(screen.box(c.box), c.shown);
        EXPECT_FALSE(screen.record.FileChanged);
        EXPECT_TRUE(screen.record.AbortFlag);
        screen.type("PctInTolBox", "90");
        EXPECT_FALSE(screen.record.AbortFlag);
    }
}

TEST(FieldRules, WhereAllPassedTheUserSaysWhatItMeans) {
    const std::string text =
        "20 of 20 shows only that it is at least 86.09 %, with 95 % confidence; with 50 % at "
        "least 96.59 %.\nWhich of them is to be entered?";
    for (const auto& [answer, pct] : {std::pair{Answer::Yes, 100 * std::pow(0.05, 1.0 / 20)},
                                      {Answer::No, 100 * std::pow(0.5, 1.0 / 20)},
                                      {Answer::Cancel, 95.0}}) {
        Screen screen;
        enter(screen.record, Entry{});
        screen.ui.expectBox("Counts", text, answer, yesNoCancel);
        EXPECT_EQ(screen.type("PctInTolBox", "20/20").stay, answer == Answer::Cancel);
        EXPECT_NEAR(screen.record.SU_PctInTol, pct, 1e-12 * pct);
    }
}

TEST(FieldRules, CountsAreNoConfidenceOfAnExpandedUncertainty) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.MTE_EntryByUncertainty = true;
    screen.ui.expectBox("Illegal Entry",
                        "The confidence of an expanded uncertainty is a percentage; counts of passed "
                        "and tested items go with a tolerance.");
    EXPECT_TRUE(screen.type("MTEPctInTolBox", "19/20").stay);
    EXPECT_EQ(screen.record.MTE_PctInTol, 95);
}

TEST(FieldRules, ModeOfZeroIsRefusedForRelativeUnits) {
    for (std::string Analysis::*units : {&Analysis::NominalUnits, &Analysis::SU_ToleranceUnits}) {
        Screen screen;
        enter(screen.record, Entry{});
        screen.record.*units = "ppm";
        screen.ui.expectBox(
            "Illegal Mode Value",
            "The mode value cannot be zero when units are expressed in ppm.\nYou may need to change "
            "the units on the Metrisk screen or on the Tolerance Offset Worksheet.");
        EXPECT_TRUE(screen.type("ModeBox", "0").stay);
        EXPECT_EQ(screen.record.SU_Mode, 10);
    }
}

TEST(FieldRules, OverflowLeavesTheRecordAlone) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.SU_UpperOffset = 1e308;
    EXPECT_TRUE(screen.type("ModeBox", "1.7E308").stay);
    EXPECT_EQ(screen.record.SU_Mode, 10);
    EXPECT_TRUE(screen.record.AbortFlag);
}

TEST(FieldRules, ModeMovesLimitsAndPictures) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.SU_UpperOffset_fmt = screen.record.SU_LowerOffset_fmt = "#,##0.0";
    screen.record.SU_Mode_fmt = "#,##0";
    screen.type("ModeBox", "20.00");
    EXPECT_EQ(screen.record.MTE_Mode, 20);
    EXPECT_EQ(screen.record.SU_UpperLimit, 20.5);
    EXPECT_EQ(screen.record.SU_LowerLimit, 19.5);
    EXPECT_EQ(screen.record.MTE_LowerLimit, 19.875);
    EXPECT_EQ(screen.record.SU_UpperOffset_fmt, "#,##0.000");
    screen.type("ModeBox", "20");
    EXPECT_EQ(screen.record.SU_UpperOffset_fmt, "#,##0.0") << "0.5 needs one decimal";
    // A percent of the reading follows the reading.
    screen.type("MTEPctOfReadingBox", "1");
    screen.type("ModeBox", "-40");
    EXPECT_DOUBLE_EQ(screen.record.MTE_Offset, 0.125 + 0.4);
}

TEST(FieldRules, LimitsAreEnteredAsLimitsOrInToleranceUnits) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.ShowLimits = true;
    screen.type("UpperLimitBox", "10.75");
    EXPECT_EQ(screen.record.SU_UpperOffset, 0.75);
    EXPECT_EQ(screen.box("UpperLimitBox"), "10.7500");
    screen.ui.expectBox("Lower Tolerance Offset", zeroOrAbove);
    EXPECT_TRUE(screen.type("LowerLimitBox", "10.5").stay);

    screen.record.ShowLimits = false;
    screen.record.SU_ToleranceUnits = "mV";
    screen.record.SU_TolUnitsFactor = 1000;
    screen.record.SU_TolDecimalShift = 3;
    EXPECT_EQ(screen.type("UpperLimitBox", "12.50").text, "12.50 mV");
    EXPECT_DOUBLE_EQ(screen.record.SU_UpperOffset, 0.0125);
    EXPECT_EQ(screen.record.SU_UpperOffset_fmt, "#,##0.00000");
    screen.record.SU_TolUnitsFactor = 0;
    screen.type("UpperLimitBox", "2");
    EXPECT_EQ(screen.record.SU_UpperOffset, 2);
    EXPECT_EQ(screen.record.SU_TolUnitsFactor, 1);
}

TEST(FieldRules, SymmetricEntryGivesBothSides) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.SymmetricTolerances = true;
    screen.type("UpperLimitBox", "0.25");
    EXPECT_EQ(screen.record.SU_LowerLimit, 9.75);
    EXPECT_EQ(screen.box("LowerLimitBox"), "0.25");
    EXPECT_TRUE(screen.main.LowerLimitBox.locked);
    screen.main.forgetLastTexts();
    screen.main.leave(screen.main.LowerLimitBox, "9");
    EXPECT_EQ(screen.record.SU_LowerOffset, 0.25) << "the locked box takes no entry";
}

TEST(FieldRules, AbsentSideHoldsThePhysicalLimit) {
    Screen screen;
    Entry entry = withPhysicalLimit(Kind::SingleLower, 10, 1, 12, 95);
    enter(screen.record, entry);
    EXPECT_EQ(screen.type("UpperLimitBox", "14.50").text, "14.50");
    EXPECT_EQ(screen.record.PhysicalLimit, 14.5);
    EXPECT_EQ(screen.record.SU_UpperOffset, 1);
    EXPECT_FALSE(screen.record.AbortFlag);
    screen.ui.expectBox("Physical Limit Violation",
                        "If the Physical Limit is less than the Mode,\nit must also be "
                        "less than the lower tolerance limit.");
    screen.type("UpperLimitBox", "9");
    screen.type("UpperLimitBox", " ");
    EXPECT_FALSE(screen.record.PhysicalLimitEntered);
    screen.record.PhysLimitRequired = false;
    screen.type("UpperLimitBox", "3");
    EXPECT_EQ(screen.box("UpperLimitBox"), "");
}

TEST(FieldRules, HundredPercentIsAskedOnceUntilABoxIsEnteredAgain) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.ui.expectBox("Non-Physical Situation", hundred, Answer::Yes);
    EXPECT_EQ(screen.type("PctInTolBox", "100").text, "100.0000");
    EXPECT_EQ(screen.record.SU_Distribution, "Uniform");
    screen.main.key(screen.main.MTEOffsetBox);
    EXPECT_TRUE(screen.record.Ack100Pct);
    screen.ui.expectBox("Non-Physical Situation", hundred, Answer::No);
    screen.type("UpperLimitBox", "0.5");
    EXPECT_TRUE(screen.record.AbortFlag);
}

TEST(FieldRules, FirstEntriesSayNothing) {
    Screen screen;
    for (const char* box : {"ModeBox", "UpperLimitBox", "LowerLimitBox", "PctInTolBox", "MTEOffsetBox",
                            "MTEFixedOffsetBox", "MTEPctOfReadingBox", "MTEPctInTolBox"})
        EXPECT_EQ(screen.box(box), "") << box;
    screen.type("MTEPctInTolBox", "95");
    screen.type("MTEOffsetBox", "0.1");
    screen.type("ModeBox", "5");
    screen.type("PctInTolBox", "95");
    screen.type("UpperLimitBox", "1");
    screen.type("LowerLimitBox", "1");
    EXPECT_GT(screen.record.SU_Sigma, 0);
    EXPECT_GT(screen.record.MTE_Sigma, 0);
    EXPECT_TRUE(screen.ui.focusMoves.empty());
}

TEST(FieldRules, OffsetBoxRewritesItsPartsUnlessTheWorksheetMadeThem) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.type("MTEPctOfReadingBox", "5");
    EXPECT_DOUBLE_EQ(screen.record.MTE_Offset, 0.625);
    screen.type("MTEOffsetBox", "0.3");
    EXPECT_EQ(screen.record.MTE_FixedOffset, 0.3);
    EXPECT_EQ(screen.box("MTEPctOfReadingBox"), "0");
    screen.record.OffsetWorksheetFlag = true;
    screen.type("MTEOffsetBox", "0.4");
    EXPECT_EQ(screen.record.MTE_FixedOffset, 0.3);
    EXPECT_EQ(screen.record.MTE_Offset, 0.4);
    screen.main.refresh();
    EXPECT_TRUE(control<TextBox>(screen.main, "MTEFixedOffsetBox").faded);
    EXPECT_EQ(control<Label>(screen.main, "Lbl_Plus").toolTip, "These parts belong to another tolerance");
    screen.type("MTEOffsetBox", "0.3");
    screen.main.refresh();
    EXPECT_FALSE(control<TextBox>(screen.main, "MTEFixedOffsetBox").faded);
}

TEST(FieldRules, UncertaintyEntryGoesThroughTheCoverageFactor) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.MTE_EntryByUncertainty = true;
    screen.type("MTEPctInTolBox", "100");
    screen.type("MTEFixedOffsetBox", "0.10");
    EXPECT_NEAR(screen.record.MTE_Offset, 0.1 * std::sqrt(3.0), 1e-15);
    screen.type("MTEPctInTolBox", "95");
    EXPECT_NEAR(screen.record.MTE_Offset, 0.1 * 1.959963984540054, 1e-13);
    screen.type("MTEPctOfReadingBox", "10");
    constexpr double t = 2.228138851964939; // 97.5 % point, 10 degrees of freedom
    constexpr double tTolerance = 1e-10;    // the factor comes from a search that ends at this order
    EXPECT_NEAR(screen.record.MTE_Offset, 0.1 * t, tTolerance);
    EXPECT_NEAR(screen.record.MTE_StdUncertainty, 0.1, 1e-15);
    screen.type("MTEOffsetBox", "0.4456277703929878");
    EXPECT_NEAR(screen.record.MTE_StdUncertainty, 0.2, tTolerance);
    screen.type("MTEPctOfReadingBox", "0");
    EXPECT_EQ(screen.box("MTEPctOfReadingBox"), "\u221e");
    screen.ui.expectBox("Illegal Entry", measuringPct);
    EXPECT_TRUE(screen.type("MTEPctInTolBox", "100.5").stay);
}

TEST(FieldRules, ComputedTolerancesShowWhatTheyAre) {
    struct Row {
        bool uncertainty;
        std::vector<std::pair<const char*, const char*>> typed;
        const char *box, *shown;
    };
    for (const Row& row :
         {Row{true, {{"MTEFixedOffsetBox", "0.05"}}, "MTEOffsetBox", "0.111407"},
          {true, {{"MTEFixedOffsetBox", "0.05"}, {"MTEOffsetBox", "0.12"}}, "MTEFixedOffsetBox", "0.0538566"},
          {true, {{"MTEFixedOffsetBox", "0.05"}, {"MTEPctInTolBox", "90"}}, "MTEOffsetBox", "0.0906231"},
          {false,
           {{"ModeBox", "0.05"}, {"MTEFixedOffsetBox", "0.1"}, {"MTEPctOfReadingBox", "5"}},
           "MTEOffsetBox",
           "0.1025"}}) {
        Screen screen;
        enter(screen.record, Entry{});
        screen.record.MTE_EntryByUncertainty = row.uncertainty;
        if (row.uncertainty) screen.record.MTE_DegFreedom = 10;
        for (const auto& [box, text] : row.typed) screen.type(box, text);
        EXPECT_EQ(screen.box(row.box), row.shown);
    }
    Screen again;
    enter(again.record, Entry{});
    again.record.MTE_EntryByUncertainty = true;
    for (const auto& [box, text] : {std::pair{"MTEFixedOffsetBox", "0.05"}, {"MTEOffsetBox", "0.12"}})
        again.type(box, text);
    again.type("MTEFixedOffsetBox", "0.05");
    EXPECT_EQ(again.record.MTE_StdUncertainty, 0.05) << "another figure than the one shown is an entry";
}

TEST(FieldRules, TextsKeepWhatTheFileCanHold) {
    Screen screen;
    EXPECT_EQ(screen.type("MTEQualifier2Box", "3/4\" pipe\r\n").text, "3/4\u2033 pipe  ");
    EXPECT_EQ(screen.record.MTE_Qualifier2, "3/4\u2033 pipe  ");
    EXPECT_TRUE(screen.record.FileChanged);
}

TEST(FieldRules, UnchangedTextCommitsNothing) {
    Screen screen;
    enter(screen.record, Entry{});
    screen.record.SU_PctInTol = 95.00001;
    EXPECT_EQ(screen.type("PctInTolBox", "95.0000").text, "95.0000");
    EXPECT_EQ(screen.record.SU_PctInTol, 95.00001);
    screen.main.forgetLastTexts();
    screen.main.leave(screen.main.PctInTolBox, "95.0000");
    EXPECT_EQ(screen.record.SU_PctInTol, 95) << "after a load the first comparison counts as a change";
}

} // namespace
} // namespace metrisk::testing
