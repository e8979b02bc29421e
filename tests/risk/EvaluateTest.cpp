// evaluate beside the button: the same figures from the same entries, and the same refusals.
#include "risk/evaluate/Evaluate.h"
#include "base/DisplayRule.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/Risks.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/OpenAnalysis.h"
#include "desk/kit/Message.h"
#include "risk/Snapshot.h"
#include "tests/support/Cases.h"
#include "tests/support/SilentSession.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace metrisk::testing {
namespace {

/// Analyses of every kind: the examples, and entries that differ in one thing.
std::map<std::string, Analysis> allKinds() {
    std::map<std::string, Analysis> kinds;
    for (const auto& file : std::filesystem::directory_iterator(METRISK_SOURCE_DIR "/examples")) {
        if (file.path().extension() != ".mrk") continue;
        SilentSession silent;
        OpenAnalysis(silent.session, file.path().string());
        kinds[file.path().stem().string()] = silent.session.record;
    }
    const auto add = [&](
                         const char* name, const Entry& entry, void (*change)(Analysis&) = [](Analysis&) {}) {
        enter(kinds[name], entry);
        change(kinds[name]);
    };
    add("normal", {});
    add("unequal", twoSided(1, 0.5, 90));
    add("upper", single(Kind::SingleUpper, 95));
    add("lower", single(Kind::SingleLower, 80));
    add("far physical limit", withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 9.2, 95));
    add("above physical limit", withPhysicalLimit(Kind::SingleLower, 10, 0.5, 10.8, 95));
    add("a limit that allows no fit", withPhysicalLimit(Kind::SingleLower, 10, 0.5, 9.2, 95));
    add("exponential", withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, 95));
    add("uniform", twoSided(0.5, 0.5, 100));
    add("Student's t", {}, [](Analysis& r) { r.MTE_DegFreedom = 7; });
    add("producer on reject", {},
        [](Analysis& r) { r.FalseAcceptOption = 1, r.EqRatioOnFalseAccept = false; });
    add("guardbands", {},
        [](Analysis& r) { r.IncludeGuardbands = true, r.GB_UpperMult = 0.8, r.GB_LowerMult = 0.9; });
    add("its own reference", twoSided(0.5, 0.5, 72, 0.125, 85));
    add("a lost risk", twoSided(0.5, 0.5, 95, 1e-4));
    return kinds;
}

TEST(Evaluate, GivesTheFiguresOfTheButton) {
    int computed = 0, searched = 0;
    for (const auto& [name, analysis] : allKinds()) {
        SCOPED_TRACE(name);
        SilentSession button;
        Analysis& r = button.session.record = analysis;
        DropSnapshot(r); // an example is computed already
        ComputeResults_Click(button.session);
        const auto entries = entriesOf(analysis, {});
        ASSERT_TRUE(entries);
        const auto figures =
            evaluate(*entries, {.exact = true, .reference = true, .ratio = r.ComputeEqRatio});
        ASSERT_EQ(bool(figures), !r.AbortFlag);
        if (!figures) continue;
        Risks risks{};
        ASSERT_EQ(ComputeRisks(button.session, acceptanceRange(r, r.IncludeGuardbands), risks),
                  RiskOutcome::Computed);
        EXPECT_EQ(figures->subject.sigma, r.SU_Sigma);
        EXPECT_EQ(figures->mteSigma, r.MTE_Sigma);
        EXPECT_EQ(figures->by(entries->convention).falseAccept, risks.falseAccept);
        EXPECT_EQ(figures->by(entries->convention).falseReject, risks.falseReject);
        EXPECT_NEAR(figures->producer.falseAccept,
                    figures->consumer.falseAccept * figures->probabilities.accepted, 1e-15);
        EXPECT_EQ(figures->consumer.falseReject, figures->producer.falseReject);
        ++computed;
        if (!r.ComputeEqRatio) continue;
        EXPECT_EQ(figures->ratio.value_or(0), r.EqAccRat);
        searched += figures->ratio.has_value();
    }
    EXPECT_TRUE(computed > 25 && searched > 20) << computed << " " << searched;
}

TEST(Evaluate, RefusesInTheWordsOfTheRules) {
    struct Row {
        const char* name;
        void (*change)(TestEntries&);
        RefusalKind kind;
        const char *title, *text, *box;
    };
    const char* const notComputed = "Compute Failed";
    const Row rows[] = {
        {"nothing entered", [](TestEntries& e) { e = {}; }, RefusalKind::Entry, "Insufficient Data Available",
         "No subject parameter data have been entered for analysis.", "ModeBox"},
        {"limit below the mode", [](TestEntries& e) { e.subject.upperLimit = 9; }, RefusalKind::Entry,
         "Subject Parameter Upper Limit", "Must be greater than or equal to the mode.", "UpperLimitBox"},
        {"all in tolerance of one side",
         [](TestEntries& e) {
             e.subject.pctInTol = 100, e.subject.upperOffset = 1, e.subject.upperLimit = 11;
         },
         RefusalKind::Entry, "Subject Parameter % In-Tolerance",
         "Cannot be 100% unless you select Two-Sided\nwith equal upper and lower tolerance offsets.",
         "PctInTolBox"},
        {"a physical limit asked for",
         [](TestEntries& e) { e.subject.sides = Sides::Upper, e.subject.physicalLimitRequired = true; },
         RefusalKind::Entry, "Missing Physical Limit",
         "You indicated an Physical Limit was to entered,\nbut did not enter one.  Try again.",
         "LowerLimitBox"},
        {"half of one side", [](TestEntries& e) { e.subject.sides = Sides::Lower, e.subject.pctInTol = 40; },
         RefusalKind::Entry, "Subject Parameter % In-Tolerance",
         "Must be greater than 50% for single-sided\ncases with an unspecified Physical Limit.",
         "PctInTolBox"},
        {"no measuring tolerance", [](TestEntries& e) { e.measuring.offset = 0; }, RefusalKind::Entry,
         "MTE Tolerance Offset", "Must be greater than zero.", "MTEOffsetBox"},
        {"a certain measuring parameter", [](TestEntries& e) { e.measuring.pctInTol = 100; },
         RefusalKind::Entry, "MTE % In-Tolerance", "Must be less than 100%.", "MTEPctInTolBox"},
        {"a negative process", [](TestEntries& e) { e.process = Budget{.process = -1}; }, RefusalKind::Entry,
         "Measurement Process Uncertainty", "Must be greater than or equal to zero.",
         "txt_ProcessUncertainty"},
        {"crossed test limits",
         [](TestEntries& e) {
             e.guardband = {-1, -1};
         },
         RefusalKind::NoAnswer, notComputed, "Unable to compute risks.  Guardband may be unrealistic.", ""},
        {"a tolerance beyond the numbers",
         [](TestEntries& e) { e.measuring.offset = 1e308, e.measuring.pctInTol = 1; },
         RefusalKind::Arithmetic, "", "", ""},
    };
    Analysis r;
    enter(r, {});
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TestEntries entries = *entriesOf(r, {});
        row.change(entries);
        const auto figures = evaluate(entries);
        ASSERT_FALSE(figures);
        const Refusal& refusal = figures.refusal();
        EXPECT_EQ(refusal.kind, row.kind) << refusal.routine;
        EXPECT_EQ(refusal.title, row.title);
        EXPECT_EQ(refusal.text, row.text);
        EXPECT_EQ(refusal.box, row.box);
    }
    TestEntries confidence = *entriesOf(r, {});
    confidence.measuring = {0.125, 100, 0, true};
    EXPECT_TRUE(evaluate(confidence)) << "a confidence of 100 % is that of a rectangle";
    int passes = 0;
    const auto stopped =
        evaluate(*entriesOf(r, {}), {.ratio = true}, [&](const SearchPass&) { return ++passes < 5; });
    EXPECT_EQ(stopped.refusal().kind, RefusalKind::NoAnswer);
    EXPECT_EQ(passes, 5);
}

} // namespace
} // namespace metrisk::testing
