#include "base/NumberText.h"
#include "desk/compute/ComputeGuardbands.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/SolveGuardbands.h"
#include "desk/compute/ValidateAndFit.h"
#include "risk/FittedSubject.h"
#include "risk/RiskModel.h"
#include "risk/guardband/ExactGuardband.h"
#include "risk/guardband/GuardbandTexts.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <cmath>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

constexpr GuardbandKey onAccept = GuardbandKey::FalseAccept, onReject = GuardbandKey::FalseReject,
                       equal = GuardbandKey::Equalize;
enum class Form { Multiplier, KFactor };

/// Entered and fitted.
struct Fitted : TestSession {
    explicit Fitted(const Entry& entry, int option = 0) {
        enter(record, entry);
        record.FalseAcceptOption = option;
        record.Ack100Pct = true;
        ValidateAndFit(session);
        EXPECT_FALSE(record.AbortFlag);
    }
    /// The multiplier of the upper side, or the k-factor.
    std::optional<double> solve(Form form, const GuardbandTarget& target) {
        const bool byK = form == Form::KFactor;
        const auto pair = !byK                  ? SolveMultipliersForRisk(session, target)
                          : target.key == equal ? EqualizeRisksByKFactors(session)
                                                : SolveKFactorsForRisk(session, target);
        if (!pair) return std::nullopt;
        const double x = record.OptSingleLower ? pair->lower : pair->upper;
        return byK && target.key == equal ? (1 - x) * record.SU_UpperOffset / record.MTE_Sigma : x;
    }
    Risks risksAt(Form form, double x) const {
        const double up =
            form == Form::KFactor ? record.SU_UpperOffset - x * record.MTE_Sigma : x * record.SU_UpperOffset;
        const double down =
            form == Form::KFactor ? record.SU_LowerOffset - x * record.MTE_Sigma : x * record.SU_LowerOffset;
        const auto p = RiskModel(subjectBiasOf(record), record.MTE_Sigma).at({-down, up});
        return risksOf(p.value(), record.FalseAcceptOption);
    }
    double excess(Form form, const GuardbandTarget& target, double x) const {
        const Risks risks = risksAt(form, x);
        if (target.key == equal) return risks.falseAccept - risks.falseReject;
        return (target.key == onAccept ? risks.falseAccept : risks.falseReject) - target.risk;
    }
};

struct SolveRow {
    const char* name;
    Entry entry;
    int option;
    Form form;
    GuardbandTarget target;
};

const SolveRow solveRows[] = {
    {"normal, 1 % accept", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onAccept, 0.01}},
    {"normal, accept relaxed", twoSided(0.5, 0.5, 90), 1, Form::Multiplier, {onAccept, 0.03}},
    {"normal, 5 % reject", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onReject, 0.05}},
    {"normal, 0.1 % reject", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onReject, 0.001}},
    {"normal, 0.01 ppm", twoSided(0.5, 0.5, 90), 1, Form::Multiplier, {onAccept, 1e-8}},
    {"normal, equal", twoSided(0.5, 0.5, 72, 0.5, 85), 0, Form::Multiplier, {equal}},
    {"normal, k", twoSided(0.5, 0.5, 90), 0, Form::KFactor, {onAccept, 0.01}},
    {"normal, k for reject", twoSided(0.5, 0.5, 90), 0, Form::KFactor, {onReject, 0.05}},
    {"normal, equal k", twoSided(0.5, 0.5, 72, 0.5, 85), 1, Form::KFactor, {equal}},
    {"upper", single(Kind::SingleUpper, 90), 0, Form::Multiplier, {onAccept, 0.005}},
    {"lower, equal k", single(Kind::SingleLower, 85), 0, Form::KFactor, {equal}},
    {"lognormal", twoSided(1, 0.5, 90), 0, Form::Multiplier, {onAccept, 0.005}},
    {"lognormal, k", twoSided(1, 0.5, 90), 1, Form::KFactor, {onAccept, 0.005}},
    {"lognormal, physical limit",
     withPhysicalLimit(Kind::SingleLower, 7, 2, 14, 95),
     0,
     Form::Multiplier,
     {onReject, 0.02}},
    {"exponential",
     withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90),
     0,
     Form::Multiplier,
     {onAccept, 0.005}},
    {"uniform, reject", twoSided(0.5, 0.5, 100), 0, Form::Multiplier, {onReject, 0.05}},
    {"a large mode", {.mode = 1e9, .pctInTol = 90}, 0, Form::Multiplier, {onAccept, 0.01}},
};

TEST(GuardbandSolver, FindsWhatAnIndependentBisectionFinds) {
    for (const SolveRow& row : solveRows) {
        Fitted t(row.entry, row.option);
        const std::optional<double> x = t.solve(row.form, row.target);
        ASSERT_TRUE(x) << row.name;
        // Outwards from the solution until the signs differ, then to 1e-12.
        double low = *x, high = *x;
        for (double reach = 1e-6;
             t.excess(row.form, row.target, low) * t.excess(row.form, row.target, high) >= 0; reach *= 2)
            low = *x - reach, high = *x + reach;
        const bool rises = t.excess(row.form, row.target, high) > 0;
        while (high - low > 1e-12) {
            const double mid = (low + high) / 2;
            if (mid == low || mid == high) break;
            ((t.excess(row.form, row.target, mid) > 0) == rises ? high : low) = mid;
        }
        const double scale = row.target.key == equal ? t.risksAt(row.form, low).falseAccept : row.target.risk;
        EXPECT_LE(std::fabs(t.excess(row.form, row.target, *x)), std::min(1e-8, 1e-4 * scale)) << row.name;
        EXPECT_NEAR(*x, low, 1e-5) << row.name;
    }
}

// Dobbert, A guard-band strategy for managing false-accept risk, NCSL International 2008, table 2: the
// guardband for 2 % of false accepts, in units of the standard uncertainty.
TEST(GuardbandSolver, GivesThePublishedGuardbands) {
    struct Row {
        double ratio, pctInTol, k;
    };
    for (const Row& row : {Row{1.2, 58.05, 0.805239},
                           {1.5, 59.76, 0.692986},
                           {2, 61.62, 0.535879},
                           {3, 63.64, 0.287856},
                           {4, 64.72, 0.089677},
                           {6, 65.85, -0.229152},
                           {10, 66.79, -0.722361},
                           {15, 67.27, -1.226562}}) {
        Fitted t({.mode = 0, .upperOffset = 1, .lowerOffset = 1, .pctInTol = row.pctInTol}, 1);
        t.record.MTE_Sigma = 1 / (2 * row.ratio);
        EXPECT_NEAR(t.solve(Form::KFactor, {onAccept, 0.02}).value(), row.k, 1e-6) << row.ratio;
    }
    // Deaver, How to maintain your confidence (in a world of declining test uncertainty ratios).
    Fitted t({.mode = 0, .upperOffset = 1, .lowerOffset = 1, .pctInTol = 95.4499736103642}, 1);
    t.record.MTE_Sigma = 0.25;
    EXPECT_NEAR(t.risksAt(Form::Multiplier, 0.91).falseAccept, 0.008, 0.0005);
    EXPECT_NEAR(t.risksAt(Form::Multiplier, 0.91).falseReject, 0.066, 0.0005);
}

TEST(GuardbandSolver, SaysWhatItCannotFind) {
    constexpr const char* noMultiplier = "Could not compute guardbands for the entered risk.";
    constexpr const char* notPrecise = "Could not compute precise guardbands for the entered risk.";
    constexpr const char* noEqualK = "Could not compute k-Factors to equalize risks.";
    Entry wideUpper = withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 53.6);
    wideUpper.mteOffset = 1.9;
    Entry openUpper = withPhysicalLimit(Kind::SingleUpper, 3, 2, 0, 99.99);
    openUpper.mteOffset = 6;
    Entry fineUpper = single(Kind::SingleUpper, 80);
    fineUpper.mteOffset = 2e-7;
    struct Row {
        const char* name;
        SolveRow solve;
        std::vector<const char*> texts;
        void (*change)(Analysis&) = nullptr; // after the fit
    };
    const Row rows[] = {
        {"more than all", {"", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onAccept, 0.9}}, {noMultiplier}},
        {"below the last digit",
         {"", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onAccept, 1.6e-16}}, // no multiple of 1 - (1 -
                                                                                 // eps)
         {notPrecise}},
        {"equal only beyond 1.5",
         {"", twoSided(0.5, 0.5, 99.9, 0.5), 0, Form::Multiplier, {equal}},
         {"Could not compute guardbands to equalize risks."}},
        {"uniform, equal",
         {"", twoSided(0.5, 0.5, 100), 0, Form::Multiplier, {equal}},
         {"Could not compute guardbands to equalize risks."}},
        {"too fine a measurement",
         {"", fineUpper, 1, Form::Multiplier, {equal}},
         {"Could not compute precise guardbands to equalize risks."}},
        {"less than the risk without guardbands",
         {"", twoSided(0.5, 0.5, 90), 0, Form::KFactor, {onReject, 1e-4}},
         {noMultiplier}},
        {"the limits cross first",
         {"", twoSided(1, 0.3, 90, 0.5), 0, Form::KFactor, {onAccept, 0.001}},
         {notPrecise}},
        {"beyond the mode",
         {"", wideUpper, 0, Form::KFactor, {onAccept, 3.6e-4}},
         {"Could not compute k-factors for the entered risk."}},
        {"uniform, equal k", {"", twoSided(0.5, 0.5, 100), 0, Form::KFactor, {equal}}, {noEqualK}},
        {"more accepted than can be rejected",
         {"", twoSided(0.5, 0.5, 34, 2), 0, Form::KFactor, {equal}},
         {"Could not compute precise guardbands for equalized risks."}},
        {"less accepted at any k",
         {"", openUpper, 1, Form::KFactor, {equal}},
         {"Unable to compute k-factors that equalize false accept and false reject risk.", noEqualK}},
        {"no lower offset",
         {"", twoSided(0.5, 0.5, 90), 0, Form::KFactor, {equal}},
         {"Can equalize risks only if the subject parameters tolerances are both nonzero."},
         [](Analysis& r) { r.SU_LowerOffset = 0; }},
        {"no upper offset",
         {"", single(Kind::SingleUpper, 90), 0, Form::KFactor, {equal}},
         {"Can equalize risks only if the subject parameters upper tolerance limit is nonzero."},
         [](Analysis& r) { r.SU_UpperOffset = 0; }},
        {"no offset below",
         {"", single(Kind::SingleLower, 90), 0, Form::KFactor, {equal}},
         {"Can equalize risks only if the subject parameters lower tolerance limit is nonzero."},
         [](Analysis& r) { r.SU_LowerOffset = 0; }},
        {"no measuring sigma",
         {"", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onAccept, 0.01}},
         {noMultiplier},
         [](Analysis& r) { r.MTE_Sigma = 0; }},
        {"no target", {"", twoSided(0.5, 0.5, 90), 0, Form::Multiplier, {onAccept, 0}}, {}},
        {"a negative target", {"", twoSided(0.5, 0.5, 90), 0, Form::KFactor, {onReject, -1}}, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Fitted t(row.solve.entry, row.solve.option);
        if (row.change) row.change(t.record);
        for (const char* text : row.texts) t.ui.expectBox("Metrisk", text);
        EXPECT_FALSE(t.solve(row.solve.form, row.solve.target));
        EXPECT_TRUE(t.record.AbortFlag);
    }

    Fitted fault(withPhysicalLimit(Kind::SingleUpper, 0, 2, 0, 90));
    fault.record.MTE_Sigma = 0; // a division by it
    fault.ui.expectBox(
        "Function Integration Error",
        "A fatal math error occurred during integration.  Please try a different set of inputs.");
    fault.ui.expectBox("Metrisk", noMultiplier);
    EXPECT_FALSE(fault.solve(Form::Multiplier, {onAccept, 0.01}));
}

TEST(GuardbandSolver, TheRiskWithoutGuardbandsNeedsNone) {
    Fitted t(twoSided(0.5, 0.5, 90));
    const double risk = t.risksAt(Form::Multiplier, 1).falseAccept;
    EXPECT_EQ(t.solve(Form::Multiplier, {onAccept, risk}), 1);
    t.record.MTE_Sigma = 0;
    EXPECT_EQ(t.solve(Form::KFactor, {onAccept, 0.01}), 0) << "no k-factor without a sigma";
}

TEST(GuardbandSolver, ReadsAPositiveRiskInPercentOrPpm) {
    const auto read = [](const char* text, const char* units) { return enteredRisk(text, units, {}); };
    EXPECT_EQ(read("2", "%"), 0.02);
    EXPECT_EQ(read("1,500", " ppm "), 0.0015);
    for (const auto& [text, units] :
         {std::pair{"0", "%"}, {"", "%"}, {"-1", "ppm"}, {"2", ""}, {"2", "PPM"}, {"2", "pct"}})
        EXPECT_EQ(read(text, units), std::nullopt) << text << units;
}

struct KFactors : ::testing::Test {
    Fitted t{twoSided(0.5, 0.4, 90)};
    Analysis& r = t.record;
    const Regional regional{};

    KFactors() { r.MTE_Sigma = 0.1; }
};

TEST_F(KFactors, FollowTheirMultiplierWithADifferenceBetweenTheSides) {
    r.GB_UpperMult = r.GB_LowerMult = 0.9;
    EXPECT_EQ(ShowUpperKFactor(r, regional), "0.500000");
    EXPECT_EQ(ShowLowerKFactor(r, regional), "0.400000");
    r.GB_UpperMult = r.GB_LowerMult = 1 + 1e-13;
    EXPECT_EQ(ShowUpperKFactor(r, regional), "0.0000");
    EXPECT_EQ(ShowLowerKFactor(r, regional), "");
    EXPECT_EQ(r.GB_LowerK, 0);
    r.GB_UpperMult = 1 - 1e-9;
    EXPECT_EQ(ShowUpperKFactor(r, regional), "0.000000005") << "more digits where six show nothing";
    r.GB_UpperMult = 0;
    r.MTE_Sigma = 0.3;
    EXPECT_EQ(ShowUpperKFactor(r, regional), "1.666666") << "the largest is rounded down";
    r.MTE_Sigma = 0;
    r.OptTwoSided = false;
    r.OptSingleUpper = true;
    const double k = r.GB_UpperK;
    EXPECT_EQ(ShowLowerKFactor(r, regional), "0.0000");
    EXPECT_EQ(ShowUpperKFactor(r, regional), "0.0000");
    EXPECT_EQ(r.GB_UpperK, k);
    r.MTE_Sigma = 0.1;
    EXPECT_EQ(ShowLowerKFactor(r, regional), std::nullopt);
}

TEST_F(KFactors, GiveTheirMultiplierAPictureThatShowsIt) {
    struct Row {
        double k;
        const char *kPicture, *text;
    };
    for (const Row& row : {Row{0.5, "#,##0.0", "0.9000"},
                           {0.12345, "#,##0.00000", "0.97531"},
                           {1.0 / 3, "#,##0.0000", "0.93333333"},
                           {0, "#,##0.0000", "1"}}) {
        r.GB_UpperK = row.k;
        r.GB_UpperK_fmt = row.kPicture;
        r.GB_LowerMult = 7;
        UpperMultiplierFromKFactor(r, regional);
        EXPECT_EQ(FormatNumber(r.GB_UpperMult, r.GB_UpperMult_fmt, regional), row.text);
        EXPECT_EQ(r.GB_LowerMult, 7);
    }
    r.GB_SymmetricMult = true;
    r.GB_UpperK = 0.5;
    UpperMultiplierFromKFactor(r, regional);
    EXPECT_EQ(r.GB_LowerMult, r.GB_UpperMult);
    EXPECT_EQ(r.GB_LowerMult_fmt, r.GB_UpperMult_fmt);
    r.GB_LowerK = 1;
    LowerMultiplierFromKFactor(r, regional);
    EXPECT_EQ(r.GB_LowerMult, 0.75);
}

TEST_F(KFactors, MayPutATestLimitOnTheModeAndNoFurther) {
    EXPECT_TRUE(CheckKFactor(t.session, 5, upperSide, "5"));
    t.ui.expectBox("Invalid k-Factor", "Using 5.0001 for the upper k-factor value sets the upper test limit "
                                       "below the mode value.");
    EXPECT_FALSE(CheckKFactor(t.session, 5.0001, upperSide, "5.0001"));
    t.ui.expectBox("Invalid k-Factor", "Using 4.5 for the lower k-factor value sets the lower test limit "
                                       "above the mode value.");
    EXPECT_FALSE(CheckKFactor(t.session, 4.5, lowerSide, "4.5"));
    EXPECT_FALSE(CheckKFactor(t.session, 4.5, lowerSide)) << "in silence";
    r.SU_LowerOffset = 0;
    EXPECT_TRUE(CheckKFactor(t.session, 50, upperSide)) << "the lower offset decides for both";
    for (double unit : {1e-12, 1e12}) {
        r.SU_Mode = 1e9 * unit;
        r.SU_UpperOffset = r.SU_LowerOffset = unit;
        r.MTE_Sigma = unit / 3;
        EXPECT_TRUE(CheckKFactor(t.session, 3, upperSide)) << unit;
        EXPECT_FALSE(CheckKFactor(t.session, 3.000001, upperSide)) << unit;
    }
}

TEST_F(KFactors, AreRevalidatedAfterAChange) {
    // Not typed: they follow their multipliers; the upper one decides for both whether there is one.
    r.GB_UpperMult = 0.9, r.GB_LowerMult = 0.8;
    r.SymmetryChanged = true;
    RevalidateKFactors(t.session);
    EXPECT_NEAR(r.GB_UpperK, 0.5, 1e-15);
    EXPECT_NEAR(r.GB_LowerK, 0.8, 1e-15);
    EXPECT_EQ(r.GB_LowerK_fmt, "#,##0.000000");
    EXPECT_FALSE(r.SymmetryChanged);
    r.GB_UpperMult = 1;
    RevalidateKFactors(t.session);
    EXPECT_EQ(r.GB_UpperK_fmt, "");
    EXPECT_EQ(r.GB_LowerK, 0);
    EXPECT_EQ(r.GB_LowerK_fmt, "#,##0.0000");

    // Typed and allowed: they decide.
    r.GB_UpperKEntered = r.GB_LowerKEntered = true;
    r.GB_UpperK = 1, r.GB_LowerK = 2;
    RevalidateKFactors(t.session);
    EXPECT_NEAR(r.GB_UpperMult, 0.8, 1e-15);
    EXPECT_NEAR(r.GB_LowerMult, 0.5, 1e-15);
}

TEST_F(KFactors, ThatAreNotAllowedAnyMoreAreReplaced) {
    constexpr const char* title = "Invalid k-factor";
    for (const bool largest : {true, false}) {
        r.GB_UpperMult = 0.7, r.GB_LowerMult = 0.6;
        r.GB_UpperK = r.GB_LowerK = 6;
        r.GB_UpperKEntered = r.GB_LowerKEntered = r.GB_SymmetricK = true;
        for (const char* side : {"upper", "lower"}) {
            t.ui.expectBox(title,
                           std::string("Changes in uncertainty or tolerances have made the current ") + side +
                               " k-factor invalid.  Do you want to solve for the largest allowable k-factor?",
                           largest ? Answer::Yes : Answer::No);
            if (!largest)
                t.ui.expectBox(std::string("New ") + (*side == 'u' ? "Upper" : "Lower") + " k-factor",
                               std::string("You elected not to compute a maximum allowable ") + side +
                                   " k-factor.  Metrisk will now solve for the " + side +
                                   " k-factor from the current upper guardband multiplier.",
                               note);
        }
        RevalidateKFactors(t.session);
        EXPECT_NEAR(r.GB_UpperK, largest ? 5 : 1.5, 1e-14);
        EXPECT_NEAR(r.GB_LowerK, largest ? 4 : 1.6, 1e-14);
        EXPECT_FALSE(r.GB_UpperKEntered || r.GB_LowerKEntered || r.GB_SymmetricK);
    }
}

TEST(GuardbandTexts, HaveTheDecimalsOfMultiplierAndOffset) {
    struct Row {
        double multiplier, factor;
        int shift;
        const char *picture, *limit, *offset, *lowerOffset;
    };
    // The offset's four decimals, those of the multiplier, less the whole orders of the offset shown.
    for (const Row& row : {Row{0.95, 1, 0, "#,##0.00", "10.475000 V", "0.475000 V", "-0.475000 V"},
                           {0.95, 1000, 3, "#,##0.00", "10.4750 V", "475.0 V", "-475.0 V"},
                           {1, 1, 0, "#,###", "10.5000 V", "0.5000 V", "-0.5000 V"},
                           {0, 1, 0, "#,##0", "10.0000 V", "0.0000 V", "0.0000 V"}}) {
        Analysis r;
        enter(r, {});
        r.NominalUnits = r.SU_ToleranceUnits = "V";
        r.SU_TolUnitsFactor = row.factor;
        r.SU_TolDecimalShift = row.shift;
        r.GB_UpperMult = r.GB_LowerMult = row.multiplier;
        r.GB_UpperMult_fmt = r.GB_LowerMult_fmt = row.picture;
        const GuardbandTexts upper = ShowUpperGuardband(r, {});
        EXPECT_EQ(upper.limit, row.limit);
        EXPECT_EQ(upper.offset, row.offset);
        EXPECT_EQ(ShowLowerGuardband(r, {}).offset, row.lowerOffset);
    }
}

/// A limit of 12.5 V read "13 V": the orders of ten of the offset took its decimals.
TEST(GuardbandTexts, HaveNoFewerDecimalsThanTheToleranceBesideThem) {
    struct Row {
        double mode, offset, multiplier;
        const char *offsetPicture, *multiplierPicture, *limit, *text, *box;
    };
    for (const Row& row : {Row{0, 12.5, 1, "#,##0.0", "#,###", "12.5 V", "12.5 V", "12.5 V"},
                           {1000, 12.5, 1, "#,##0.0", "#,###", "1,012.5 V", "12.5 V", "12.5 V"},
                           {0, 1234.25, 0.5, "#,##0.00", "#,##0.0", "617.13 V", "617.13 V", "617.13 V"},
                           {0, 0.000625, 0.88899246, "#,##0.000000", "#,##0.00000000",
                            "0.00055562028750000 V", "0.00055562028750000 V", "0.0005556202875 V"}}) {
        Analysis r;
        enter(r, {.mode = row.mode, .upperOffset = row.offset, .lowerOffset = row.offset});
        r.SU_UpperOffset_fmt = row.offsetPicture;
        r.NominalUnits = r.SU_ToleranceUnits = "V";
        r.GB_UpperMult = row.multiplier;
        r.GB_UpperMult_fmt = row.multiplierPicture;
        EXPECT_EQ(ShowUpperGuardband(r, {}).limit, row.limit);
        EXPECT_EQ(ShowUpperGuardband(r, {}).offset, row.text);
        EXPECT_EQ(guardbandTexts(r, upperSide, {}, guardbandBoxDigits).offset, row.box);
    }
}

/// Against a scan that knows nothing of the search; the figures of the told solve beside.
TEST(ExactGuardband, MeetsTheTargetWhereTheToldSolveMissesIt) {
    struct Row {
        const char* name;
        Entry entry;
        GuardbandForm form;
        GuardbandTarget target;
        bool missed;
    };
    const Row rows[] = {
        {"accept, a common test",
         twoSided(0.5, 0.5, 95),
         GuardbandForm::Multiplier,
         {GuardbandKey::FalseAccept, 0.005},
         false},
        {"reject, by k",
         twoSided(0.5, 0.4, 95),
         GuardbandForm::KFactor,
         {GuardbandKey::FalseReject, 0.03},
         false},
        {"equal risks", twoSided(0.5, 0.5, 95), GuardbandForm::Multiplier, {GuardbandKey::Equalize}, false},
        {"one panel misses the limit",
         twoSided(0.5, 0.5, 95, 0.5 / 400),
         GuardbandForm::Multiplier,
         {GuardbandKey::FalseAccept, 1e-5},
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        TestSession t;
        Analysis& r = t.record;
        enter(r, row.entry);
        ValidateAndFit(t.session);
        r.GB_SymmetricMult = row.form == GuardbandForm::Multiplier;
        r.GB_SymmetricK = !r.GB_SymmetricMult;
        r.GB_KeyOn = static_cast<int>(row.target.key);
        const auto told = guardbandsAsked(t.session, row.target.risk);
        ASSERT_TRUE(told);
        takeGuardbands(t.session, *told);
        const auto missed = missedTarget(r, row.form, row.target);
        EXPECT_EQ(missed.has_value(), row.missed) << (missed ? missedTargetText(*missed, {}) : "");
        const auto exact = exactGuardband(r, row.form, row.target,
                                          row.form == GuardbandForm::KFactor ? r.GB_UpperK : r.GB_UpperMult);
        ASSERT_TRUE(exact);
        const double k = row.form == GuardbandForm::KFactor ? *exact : 0;
        const double m = row.form == GuardbandForm::KFactor ? 1 : *exact;
        const auto risks =
            exactRisks(subjectBiasOf(r), r.MTE_Sigma,
                       {k * r.MTE_Sigma - m * r.SU_LowerOffset, m * r.SU_UpperOffset - k * r.MTE_Sigma});
        ASSERT_TRUE(risks);
        const double accept = risks->falseAccept(0).value, reject = risks->falseReject().value;
        const double met = row.target.key == GuardbandKey::FalseReject ? reject / row.target.risk
                           : row.target.key == GuardbandKey::Equalize  ? accept / reject
                                                                       : accept / row.target.risk;
        EXPECT_NEAR(met, 1, 1e-9);
    }
}

} // namespace
} // namespace metrisk::testing
