#include "desk/kit/Validation.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

namespace {

using namespace metrisk;
using namespace metrisk::testing;

struct Rule {
    const char* name;
    void (*change)(Analysis&);
    const char* title; // null: silent
    const char* text;
    const char* focus; // empty: none
    bool speaksWhileEntering;
};

Analysis validAnalysis() {
    Analysis r;
    enter(r, {});
    r.Computing = true;
    return r;
}

constexpr const char* insufficient = "Insufficient Data Available";
constexpr const char* subjectPct = "Subject Parameter % In-Tolerance";

const Rule subjectRules[] = {
    {"no subject data", [](Analysis& r) { static_cast<SubjectParameter&>(r) = {}; }, insufficient,
     "No subject parameter data have been entered for analysis.", "ModeBox", false},
    {"upper limit below mode", [](Analysis& r) { r.SU_UpperLimit = 9; }, "Subject Parameter Upper Limit",
     "Must be greater than or equal to the mode.", "UpperLimitBox", true},
    {"lower limit above mode", [](Analysis& r) { r.SU_LowerLimit = 11; }, "Subject Parameter Lower Limit",
     "Must be less than or equal to the mode.", "LowerLimitBox", true},
    {"100 % with unequal offsets",
     [](Analysis& r) {
         r.SU_PctInTol = 100;
         r.SU_UpperOffset = 0.6;
     },
     subjectPct, "Cannot be 100% unless you select Two-Sided\nwith equal upper and lower tolerance offsets.",
     "PctInTolBox", true},
    {"both limits on the mode", [](Analysis& r) { r.SU_UpperLimit = r.SU_LowerLimit = 10; },
     "Subject Parameter Tolerance Violation", "Both tolerance limits cannot equal Mode.", "UpperLimitBox",
     false},
    {"no percent", [](Analysis& r) { r.SU_PctInTol = 0; }, subjectPct, "Must be greater than zero.",
     "PctInTolBox", false},
    {"above 100 %", [](Analysis& r) { r.SU_PctInTol = 100.001; }, subjectPct, "Must be less than 100%.",
     "PctInTolBox", true},
    {"lower: physical limit promised",
     [](Analysis& r) {
         enter(r, withPhysicalLimit(Kind::SingleLower, 7, 2, 0, 90));
         r.PhysicalLimitEntered = false;
     },
     "Missing Physical Limit",
     "You indicated an Physical Limit was to entered,\nbut did not enter one.  Try again.", "UpperLimitBox",
     false},
    {"lower: physical limit on the tolerance limit",
     [](Analysis& r) { enter(r, withPhysicalLimit(Kind::SingleLower, 7, 2, 5, 90)); },
     "Physical Limit Violation",
     "If the Physical Limit is less than the Mode,\nit must also be less than the lower tolerance limit.",
     "UpperLimitBox", true},
    {"upper: physical limit between mode and tolerance limit",
     [](Analysis& r) { enter(r, withPhysicalLimit(Kind::SingleUpper, 7, 2, 8, 90)); },
     "Physical Limit Violation",
     "If the Physical Limit is greater than the Mode,\nit must also be greater than upper tolerance limit.",
     "LowerLimitBox", true},
    {"lower limit on the mode",
     [](Analysis& r) { enter(r, withPhysicalLimit(Kind::SingleLower, 7, 0, 0, 90)); },
     "Subject Parameter Lower Limit", "Must be less than the Mode for\nsingle-sided lower limit cases.",
     "LowerLimitBox", false},
    {"upper limit on the mode",
     [](Analysis& r) { enter(r, withPhysicalLimit(Kind::SingleUpper, 7, 0, 0, 90)); },
     "Subject Parameter Upper Limit", "Must be greater than the Mode for\nsingle-sided upper limit cases.",
     "UpperLimitBox", false},
    {"half in tolerance, no physical limit",
     [](Analysis& r) { enter(r, {.kind = Kind::SingleUpper, .pctInTol = 50}); }, subjectPct,
     "Must be greater than 50% for single-sided\ncases with an unspecified Physical Limit.", "PctInTolBox",
     true},
};

const Rule measuringRules[] = {
    {"no measuring data", [](Analysis& r) { static_cast<MeasuringParameter&>(r) = {}; }, insufficient,
     "No MTE data have been entered for analysis.", "MTEOffsetBox", false},
    {"percent of a reading of nothing",
     [](Analysis& r) {
         r.MTE_Offset = 0;
         r.MTE_PctReading = 5;
         r.SU_Mode = 0;
     },
     "Mode or Reading", "Must be nonzero.", "ModeBox", false},
    {"no offset", [](Analysis& r) { r.MTE_Offset = 0; }, "MTE Tolerance Offset", "Must be greater than zero.",
     "MTEOffsetBox", false},
    {"negative fixed offset", [](Analysis& r) { r.MTE_FixedOffset = -1; }, "MTE Fixed Offset",
     "Must be greater than or equal to zero.", "MTEFixedOffsetBox", false},
    {"no percent", [](Analysis& r) { r.MTE_PctInTol = 0; }, "MTE % In-Tolerance",
     "Must be greater than zero.", "MTEPctInTolBox", false},
    {"100 %", [](Analysis& r) { r.MTE_PctInTol = 100; }, "MTE % In-Tolerance", "Must be less than 100%.",
     "MTEPctInTolBox", false},
    {"confidence above 100 %",
     [](Analysis& r) {
         r.MTE_EntryByUncertainty = true;
         r.MTE_PctInTol = 101;
     },
     "MTE % In-Tolerance", "Must be less than 100%.", "MTEPctInTolBox", false},
    {"negative process uncertainty", [](Analysis& r) { r.ProcessUncertainty = -0.1; },
     "Measurement Process Uncertainty", "Must be greater than or equal to zero.", "", true},
};

const Rule presenceRules[] = {
    {"nothing entered",
     [](Analysis& r) {
         static_cast<SubjectParameter&>(r) = {};
         static_cast<MeasuringParameter&>(r) = {};
     },
     insufficient, "No data have been entered for analysis.", "ModeBox", false},
    {"no subject data", [](Analysis& r) { static_cast<SubjectParameter&>(r) = {}; }, insufficient,
     "No subject parameter data have been entered for analysis.", "ModeBox", false},
    {"no measuring data", [](Analysis& r) { static_cast<MeasuringParameter&>(r) = {}; }, insufficient,
     "No MTE data have been entered for analysis.", "MTEOffsetBox", false},
};

void expectRule(const Rule& rule, void (*check)(Session&)) {
    {
        TestSession t;
        t.record = validAnalysis();
        rule.change(t.record);
        t.ui.expectBox(rule.title, rule.text);
        check(t.session);
        EXPECT_TRUE(t.record.AbortFlag) << rule.name;
        const std::string focus = t.ui.focusMoves.empty() ? "" : t.ui.focusMoves.back();
        EXPECT_EQ(focus, *rule.focus ? std::string(rule.focus) + " selected" : "") << rule.name;
    }
    {
        TestSession entering;
        entering.record = validAnalysis();
        entering.record.EntryBoxChanged = true;
        rule.change(entering.record);
        if (rule.speaksWhileEntering) entering.ui.expectBox(rule.title, rule.text);
        check(entering.session);
        EXPECT_TRUE(entering.record.AbortFlag) << rule.name << ", while entering";
    }
    for (Flag SessionState::*quiet : {&SessionState::LoadInProgress, &SessionState::GB_ScreenOpen}) {
        TestSession t;
        t.record = validAnalysis();
        rule.change(t.record);
        t.record.*quiet = true;
        check(t.session);
        EXPECT_TRUE(t.record.AbortFlag) << rule.name << ", quiet";
        EXPECT_TRUE(t.ui.focusMoves.empty()) << rule.name << ", quiet";
    }
}

TEST(Validation, RulesSpeakAndFocus) {
    for (const Rule& rule : presenceRules) expectRule(rule, CheckDataPresent);
    for (const Rule& rule : subjectRules) expectRule(rule, ValidateSubject);
    for (const Rule& rule : measuringRules) expectRule(rule, ValidateMeasuring);
}

TEST(Validation, AcceptsValidAnalyses) {
    const Entry entries[] = {
        {},
        {.kind = Kind::SingleUpper, .pctInTol = 50.0001},
        withPhysicalLimit(Kind::SingleLower, 7, 2, 4.999, 90),
        withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 40),
    };
    for (const Entry& entry : entries) {
        TestSession t;
        t.record.Computing = true;
        enter(t.record, entry);
        for (auto check : {CheckDataPresent, ValidateSubject, ValidateMeasuring}) {
            check(t.session);
            EXPECT_FALSE(t.record.AbortFlag) << "mode " << entry.mode << ", % " << entry.pctInTol;
        }
    }
    TestSession t;
    enter(t.record, {.mtePctInTol = 100});
    t.record.MTE_EntryByUncertainty = true;
    ValidateMeasuring(t.session);
    EXPECT_FALSE(t.record.AbortFlag) << "a confidence of exactly 100 %";
}

TEST(Validation, MeasuringRulesAreSilentOutsideACompute) {
    TestSession t;
    enter(t.record, {});
    t.record.MTE_Offset = 0;
    ValidateMeasuring(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
}

TEST(Validation, HundredPercentIsAskedOncePerEntry) {
    constexpr const char* question = "You have indicated 100% in-tolerance.\n"
                                     "This is a non-physical situation.\n"
                                     "(Note that continuing will cause the computed\n"
                                     "equivalent accuracy ratio to be based on\n"
                                     "the false reject risk.)  Continue anyway?";
    TestSession t;
    enter(t.record, {.pctInTol = 100});
    t.ui.expectBox("Non-Physical Situation", question, Answer::No);
    ValidateSubject(t.session);
    EXPECT_TRUE(t.record.AbortFlag);
    ValidateSubject(t.session);
    EXPECT_FALSE(t.record.AbortFlag) << "not asked again";
    t.record.Ack100Pct = false; // as entering a box does
    t.ui.expectBox("Non-Physical Situation", question, Answer::Yes);
    ValidateSubject(t.session);
    EXPECT_FALSE(t.record.AbortFlag);

    t.record.Ack100Pct = false;
    t.record.LoadInProgress = true;
    ValidateSubject(t.session);
    EXPECT_FALSE(t.record.AbortFlag);
    EXPECT_FALSE(t.record.Ack100Pct) << "a quiet check must not use up the question";
}

TEST(Validation, PhysicalLimitOnTheModeIsAskedOncePerSide) {
    constexpr const char* question =
        "You have set the Physical Limit equal to the Mode.\nThis is non-physical.  Continue?";
    for (const bool lower : {true, false}) {
        TestSession t;
        enter(t.record, withPhysicalLimit(lower ? Kind::SingleLower : Kind::SingleUpper, 7, 2, 7, 90));
        t.ui.expectBox("Non-Physical Situation", question, Answer::No);
        ValidateSubject(t.session);
        EXPECT_TRUE(t.record.AbortFlag);
        EXPECT_EQ(t.ui.focusMoves.back(), lower ? "UpperLimitBox selected" : "LowerLimitBox selected");
        t.ui.expectBox("Non-Physical Situation", question, Answer::Yes);
        ValidateSubject(t.session);
        EXPECT_FALSE(t.record.AbortFlag);
        EXPECT_EQ(t.record.AckPhysLimitLow, lower);
        EXPECT_EQ(t.record.AckPhysLimitHigh, !lower);
        ValidateSubject(t.session);
        EXPECT_FALSE(t.record.AbortFlag);
    }
}

} // namespace
