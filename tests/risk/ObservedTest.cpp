#include "desk/compute/ObservedPct.h"
#include "desk/compute/ValidateAndFit.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <boost/math/distributions/normal.hpp>
#include <cmath>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Fitted : TestSession {
    explicit Fitted(const Entry& entry, int option = 0) {
        enter(record, entry);
        record.FalseAcceptOption = option;
        record.Ack100Pct = true;
        ValidateAndFit(session);
    }
    std::optional<double> observed(double pct, GuardbandUse use = GuardbandUse::Ignore) {
        return ObservedModel(record, use, session.regional).observedAt(pct / 100);
    }
    std::optional<double> truth(double pct, GuardbandUse use = GuardbandUse::Ignore) {
        return ObservedModel(record, use, session.regional).trueAt(pct / 100, 6);
    }
};

TEST(Observed, TruthIsWhatWasObservedOf) {
    const Entry entries[] = {twoSided(0.5, 0.5, 90),
                             twoSided(1, 0.5, 90),
                             single(Kind::SingleUpper, 90),
                             single(Kind::SingleLower, 80),
                             withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 90),
                             withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90)};
    for (const Entry& entry : entries)
        for (const int option : {0, 1})
            for (const GuardbandUse use : {GuardbandUse::Ignore, GuardbandUse::Use}) {
                Fitted t(entry, option);
                t.record.GB_UpperMult = 0.95;
                t.record.GB_LowerMult = 0.9;
                const std::optional<double> seen = t.observed(92, use);
                ASSERT_TRUE(seen);
                const std::optional<double> truth = t.truth(100 * *seen, use);
                ASSERT_TRUE(truth) << static_cast<int>(entry.kind) << ", option " << option;
                EXPECT_NEAR(*truth, 0.92, 1e-8) << static_cast<int>(entry.kind) << ", option " << option;
                EXPECT_TRUE(use == GuardbandUse::Ignore || *seen < t.observed(92));
            }
}

// Two-sided and normal: the observed spread is that of the true value and the measurement together.
TEST(Observed, GivesThePublishedFigures) {
    struct Row {
        Entry entry;
        double mteSigma, observed, truth, tolerance;
    };
    const boost::math::normal normal;
    const auto mte = [&](double offset, double pct) {
        return offset / quantile(normal, (1 + pct / 100) / 2);
    };
    const Entry unit{.mode = 0, .upperOffset = 1, .lowerOffset = 1};
    const Row rows[] = {
        // Solar experiment, draft NCSL International RP-19, tables 5-8 to 5-10.
        {{.mode = 0, .upperOffset = 0.25, .lowerOffset = 0.25}, mte(0.0625, 99.86), 95, 95.27, 0.005},
        {{.mode = 0, .upperOffset = 10, .lowerOffset = 10}, mte(1, 99.91), 99.993, 99.994, 0.0005},
        // A spreadsheet that prints 15 digits, good to 5e-7.
        {unit, 1 / 1.96, 90, 99.75111152754772, 5e-5},
    };
    for (const Row& row : rows) {
        Fitted t(row.entry);
        t.record.MTE_Sigma = row.mteSigma;
        const std::optional<double> truth = t.truth(row.observed);
        ASSERT_TRUE(truth) << row.observed;
        EXPECT_NEAR(100 * *truth, row.truth, row.tolerance);
    }
    Fitted lower({.kind = Kind::SingleLower, .mode = 0, .lowerOffset = 1});
    lower.record.MTE_Sigma = 1 / 1.96;
    EXPECT_NEAR(100 * lower.truth(90).value(), 95.48466621731841, 5e-5);
}

TEST(Observed, FromTrueWritesTheRecord) {
    Fitted t(twoSided(0.5, 0.5, 90));
    EXPECT_TRUE(ObservedFromTrue(t.session, GuardbandUse::Ignore, "92.5"));
    EXPECT_EQ(t.record.SU_PctInTol, 92.5);
    EXPECT_EQ(t.record.SU_PctInTol_fmt, "#,##0.0");
    EXPECT_EQ(t.record.Obs_PctInTol, 100 * t.observed(92.5).value());
    EXPECT_EQ(t.record.Obs_PctInTol_fmt, "#,##0.0000");
    const double sigma = 0.5 / quantile(boost::math::normal(), (1 + 0.925) / 2);
    EXPECT_NEAR(t.record.SU_Sigma, sigma, 1e-12) << "fitted";

    EXPECT_TRUE(ObservedFromTrue(t.session, GuardbandUse::Ignore, "0"));
    EXPECT_EQ(t.record.Obs_PctInTol, 0);
    EXPECT_EQ(t.record.SU_PctInTol_fmt, "#,##0.0");
    EXPECT_TRUE(ObservedFromTrue(t.session, GuardbandUse::Ignore, "100")) << "uniform";
    EXPECT_LT(t.record.Obs_PctInTol, 100);

    Fitted unequal(twoSided(1, 0.5, 90));
    unequal.ui.expectBox(
        "Subject Parameter % In-Tolerance",
        "Cannot be 100% unless you select Two-Sided\nwith equal upper and lower tolerance offsets.");
    EXPECT_FALSE(ObservedFromTrue(unequal.session, GuardbandUse::Ignore, "100"));

    Fitted half(single(Kind::SingleUpper, 90));
    half.ui.expectBox("Compute Failed", "Unable to compute risks.");
    EXPECT_FALSE(ObservedFromTrue(half.session, GuardbandUse::Ignore, "50"));
    EXPECT_EQ(half.record.SU_PctInTol, 90);
}

TEST(Observed, EqualizingMakesBothTheSame) {
    for (const int option : {0, 1}) {
        Fitted t(twoSided(1, 0.5, 90), option);
        t.record.GB_UpperKEntered = t.record.GB_RisksStale = true;
        EXPECT_TRUE(ObservedFromTrue(t.session, GuardbandUse::Equalize, "85"));
        EXPECT_NEAR(t.record.Obs_PctInTol, 85, 1e-5) << option;
        EXPECT_NE(t.record.GB_UpperMult, 1);
        EXPECT_EQ(t.record.GB_LowerMult, t.record.GB_UpperMult);
        EXPECT_EQ(t.record.GB_UpperMult_fmt, "#,##0.0000000");
        EXPECT_FALSE(t.record.GB_UpperKEntered || t.record.GB_RisksStale);
    }
    Fitted uniform(twoSided(0.5, 0.5, 100));
    uniform.ui.expectBox("Metrisk", "Could not compute guardbands for equalized risks.");
    EXPECT_FALSE(ObservedFromTrue(uniform.session, GuardbandUse::Equalize, "100"));
    EXPECT_EQ(uniform.record.GB_UpperMult, 1);
    EXPECT_FALSE(SolveObservedGuardbands(uniform.session, 0)) << "in silence";
    EXPECT_TRUE(uniform.record.AbortFlag);
}

TEST(Observed, ARefusedTruthBlamesWhatWasChangedLast) {
    constexpr const char* cannot = "Can't observe the indicated % in-tolerance.";
    struct Row {
        ObservedEntry last;
        const char *title, *text;
    };
    for (const Row& row :
         {Row{ObservedEntry::MeasuringLimit, cannot, "Unrealistic measuring parameter limits."},
          {ObservedEntry::MeasuringPct, cannot, "Unrealistic measuring parameter % in-tolerance."},
          {ObservedEntry::ObservedPct, "Observed % in-tolerance not feasible.",
           "Unrealistic observed % in-tolerance."}}) {
        Fitted t(twoSided(0.5, 0.5, 90, 0.6)); // so poor a measurement passes no more than some 90 %
        t.record.Obs_PctInTol = 12;
        const double sigma = t.record.SU_Sigma;
        t.ui.expectBox(row.title, row.text);
        EXPECT_FALSE(TrueFromObserved(t.session, GuardbandUse::Ignore, "99.9", row.last));
        EXPECT_EQ(t.record.SU_PctInTol, 90);
        EXPECT_EQ(t.record.Obs_PctInTol, 12);
        EXPECT_EQ(t.record.SU_Sigma, sigma);
    }
    Fitted t(twoSided(0.5, 0.5, 90));
    EXPECT_TRUE(TrueFromObserved(t.session, GuardbandUse::Ignore, "88.12345", ObservedEntry::ObservedPct));
    EXPECT_EQ(t.record.Obs_PctInTol, 88.12345);
    EXPECT_EQ(t.record.SU_PctInTol_fmt, "#,##0.00000");
    EXPECT_NEAR(100 * t.observed(t.record.SU_PctInTol).value(), 88.12345, 1e-6);
}

/// From 13 decimals on the width to stop at was below the spacing of the numbers.
TEST(Observed, TakesItsOwnFiguresWithAllTheirDigits) {
    for (const double pct : {60.0, 95.0, 99.99}) {
        Fitted f(twoSided(0.5, 0.5, pct));
        const ObservedModel model(f.record, GuardbandUse::Ignore, {});
        const double observed = *model.observedAt(pct / 100);
        for (const int decimals : {4, 13, 15}) {
            const auto found = model.trueAt(observed, decimals);
            ASSERT_TRUE(found) << pct << " " << decimals;
            EXPECT_NEAR(*found, pct / 100, 1e-6);
        }
        EXPECT_NEAR(model.exactObservedAt(pct / 100)->value, observed, 1e-7);
        EXPECT_NEAR(*model.exactTrueAt(model.exactObservedAt(pct / 100)->value, pct / 100 - 0.001), pct / 100,
                    1e-12);
    }
}

} // namespace
} // namespace metrisk::testing
