// The rows of the process errors table: what follows from what, and published budgets.
#include "uncertainty/ErrorTable.h"
#include "model/NumberText.h"
#include "numerics/Real.h"
#include "risk/CoverageFactor.h"
#include "uncertainty/ProcessTotals.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk {
namespace {

const Regional regional;
using enum ErrorEntry;

struct Step {
    ErrorEntry entry;
    const char* text;
};

struct RowCase {
    const char* name;
    std::vector<Step> steps;
    double limit, confidence, uncertainty;
    const char *limitShown, *confidenceShown, *uncertaintyShown, *freedomShown;
};

std::ostream& operator<<(std::ostream& out, const RowCase& c) {
    return out << c.name;
}

const double z95 = 1.959963984540054;
// Student's t of 95 % two-sided with 9 degrees of freedom, and of 99 % with 4 (any table of it).
const double t95at9 = 2.262157162798205, t99at4 = 4.604094871349993;

class RowDerivation : public ::testing::TestWithParam<RowCase> {};

TEST_P(RowDerivation, GivesTheThirdOfTwo) {
    const RowCase& c = GetParam();
    Analysis r;
    for (const Step& step : c.steps) EnterError(r, 3, step.entry, step.text, regional);
    const ErrorTableRow row = readErrorTableRow(r, 3, regional);
    // A computed figure keeps 15 digits.
    EXPECT_NEAR(row.limit.value, c.limit, 1e-14 * c.limit);
    EXPECT_NEAR(row.confidence.value, c.confidence, 2e-14 * c.confidence);
    EXPECT_NEAR(row.uncertainty.value, c.uncertainty, 1e-14 * c.uncertainty);
    EXPECT_EQ(row.limit.shown, c.limitShown);
    EXPECT_EQ(row.confidence.shown, c.confidenceShown);
    EXPECT_EQ(row.uncertainty.shown, c.uncertaintyShown);
    EXPECT_EQ(row.degFreedom.shown, c.freedomShown);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RowDerivation,
    ::testing::Values(RowCase{"limit and confidence",
                              {{Limit, "0.3"}, {Confidence, "95"}},
                              0.3,
                              95,
                              0.3 / z95,
                              "0.3",
                              "95",
                              "0.153",
                              "\u221E"},
                      RowCase{"a rectangle",
                              {{Limit, "0.015"}, {Confidence, "100"}, {DegFreedom, "3"}},
                              0.015,
                              100,
                              0.015 / std::sqrt(3.0),
                              "0.0150",
                              "100",
                              "0.00866",
                              "3.00"},
                      RowCase{"Student's t",
                              {{DegFreedom, "9"}, {Confidence, "95"}, {Uncertainty, "2.0"}},
                              2 * t95at9,
                              95,
                              2,
                              "4.52",
                              "95",
                              "2.0",
                              "9.00"},
                      RowCase{"many degrees of freedom are infinite",
                              {{DegFreedom, "1e300"}, {Confidence, "95"}, {Uncertainty, "2.0"}},
                              2 * z95,
                              95,
                              2,
                              "3.92",
                              "95",
                              "2.0",
                              "\u221E"},
                      RowCase{"5000 too",
                              {{DegFreedom, "5000"}, {Confidence, "95"}, {Uncertainty, "1"}},
                              z95,
                              95,
                              1,
                              "1.96",
                              "95",
                              "1",
                              "\u221E"},
                      RowCase{"confidence from both",
                              {{Uncertainty, "0.1"}, {Limit, "0.1959963984540054"}},
                              0.1 * z95,
                              95,
                              0.1,
                              "0.196",
                              "95.00",
                              "0.1",
                              "\u221E"},
                      RowCase{"confidence from both by Student's t",
                              {{DegFreedom, "4"}, {Limit, "4.604094871349993"}, {Uncertainty, "1"}},
                              t99at4,
                              99,
                              1,
                              "4.60",
                              "99.00",
                              "1",
                              "4.00"},
                      RowCase{"all but certain is not certain",
                              {{Limit, "9"}, {Uncertainty, "1"}},
                              9,
                              100,
                              1,
                              "9",
                              "99.9999999999999",
                              "1",
                              "\u221E"},
                      RowCase{"a new confidence moves the limit",
                              {{Limit, "0.30"}, {Confidence, "95"}, {Confidence, "99"}},
                              0.3 / z95 * 2.575829303548901,
                              99,
                              0.3 / z95,
                              "0.394",
                              "99",
                              "0.153",
                              "\u221E"},
                      RowCase{"no confidence, no limit",
                              {{Limit, "0.3"}, {Confidence, "95"}, {Confidence, ""}},
                              0,
                              0,
                              0.3 / z95,
                              "",
                              "",
                              "0.153",
                              "\u221E"},
                      RowCase{"0 is nothing",
                              {{Uncertainty, "0.000"}, {Confidence, "95"}, {Limit, "0"}},
                              0,
                              95,
                              0,
                              "",
                              "95",
                              "",
                              ""}));

TEST(ErrorTable, RefusesWhatNoBoxTakes) {
    const struct {
        ErrorEntry entry;
        const char* text;
        ErrorRefusal refusal;
    } cases[] = {
        {Limit, "", ErrorRefusal::None},
        {Limit, "abc", ErrorRefusal::NotANumber},
        {Limit, "1e5000", ErrorRefusal::NotANumber},
        {Limit, "-0.1", ErrorRefusal::Negative},
        {Uncertainty, "1,234.5", ErrorRefusal::None},
        {Confidence, "100", ErrorRefusal::None},
        {Confidence, "100.01", ErrorRefusal::ConfidenceOutside},
        {Confidence, "-1", ErrorRefusal::Negative},
        {DegFreedom, "\u221E", ErrorRefusal::None},
        {DegFreedom, "many", ErrorRefusal::NotANumber},
        {DegFreedom, "0.5", ErrorRefusal::None},
    };
    for (const auto& c : cases) EXPECT_EQ(refusalOf(c.entry, c.text, regional), c.refusal) << c.text;
}

TEST(ErrorTable, AFaultLeavesTheRow) {
    Analysis r;
    EnterError(r, 1, DegFreedom, "0.5", regional);
    EnterError(r, 1, Uncertainty, "1e305", regional);
    const auto before = r.ErrTableText;
    EXPECT_THROW(EnterError(r, 1, Confidence, "99.99", regional), RuntimeFault);
    EXPECT_EQ(r.ErrTableText, before);
}

// Sums of published budgets, each row entered as its source tells it.
struct Budget {
    const char* source;
    struct Source {
        const char *limit, *confidence, *uncertainty, *degFreedom;
    };
    std::vector<Source> rows;
    double correlation; // of the first two
    double combined, within;
    double degFreedom, freedomWithin; // 0: none given
};

TEST(ErrorTable, PublishedBudgets) {
    const Budget budgets[] = {
        {"GUM (JCGM 100:2008) G.4.1",
         {{"", "", "0.25", "9"}, {"", "", "0.57", "4"}, {"", "", "0.82", "14"}},
         0,
         1.03,
         0.005,
         19.0,
         0.05},
        {"GUM H.1.3.2 and H.1.6",
         {{"10", "95", "", "5"}, {"", "", "6.666666666666667", "8"}, {"", "", "5.8", "24"}},
         0,
         9.7,
         0.05,
         25.6,
         0.05},
        {"EA-4/02 S2, rectangles entered as such",
         {{"", "", "0.0225", ""},
          {"0.015", "100", "", ""},
          {"", "", "0.0142", ""},
          {"0.010", "100", "", ""},
          {"0.010", "100", "", ""}},
         0,
         0.0291,
         5e-5,
         0,
         0},
        {"GUM H.2 table H.4",
         {{"", "", "0.163234896861", "4"}, {"", "", "0.122480838788", "4"}},
         0.355311219817,
         0.236,
         0.0005,
         0,
         0},
    };
    for (const Budget& budget : budgets) {
        SCOPED_TRACE(budget.source);
        Analysis r;
        r.IncludeMTEBias = false;
        int row = 1;
        for (const auto& source : budget.rows) {
            ++row;
            EnterError(r, row, DegFreedom, source.degFreedom, regional);
            EnterError(r, row, Limit, source.limit, regional);
            EnterError(r, row, Confidence, source.confidence, regional);
            if (*source.uncertainty) EnterError(r, row, Uncertainty, source.uncertainty, regional);
        }
        r.CorrelationMatrix[correlationIndex(2)][correlationIndex(3)] = budget.correlation;
        const Totals totals = ComputeTotals(readErrorRows(r, regional), r.CorrelationMatrix);
        EXPECT_NEAR(totals.process, budget.combined, budget.within);
        if (budget.degFreedom > 0) {
            EXPECT_NEAR(totals.processFreedom, budget.degFreedom, budget.freedomWithin);
        }
    }
    EXPECT_NEAR(CoverageFactor(95, std::trunc(18.9987 + 0.5)), 2.09, 0.005) << "GUM G.4.1";
}

TEST(ErrorTable, TotalsFollowAnyUnitsAndTellContradictions) {
    Analysis r;
    r.MTE_StdUncertainty = 2;
    r.MTE_DegFreedom = 10;
    ErrorRows rows = readErrorRows(r, regional);
    rows[2] = {.uncertainty = 3, .degFreedom = 9, .decimals = 1, .included = true};
    rows[5] = {.uncertainty = 4, .degFreedom = 0, .decimals = 2, .included = true};
    rows[7] = {.uncertainty = 50, .degFreedom = 2, .decimals = 6, .included = false};
    r.CorrelationMatrix[correlationIndex(0)][correlationIndex(5)] = -0.25;
    const Totals t = ComputeTotals(rows, r.CorrelationMatrix);
    EXPECT_DOUBLE_EQ(t.process, 5);
    EXPECT_DOUBLE_EQ(t.total, std::sqrt(25 + 4 - 4.0));
    EXPECT_EQ(t.processDecimals, 2);
    EXPECT_EQ(t.totalDecimals, 4);
    EXPECT_DOUBLE_EQ(t.processFreedom, 625 / 9.0);
    EXPECT_DOUBLE_EQ(t.totalFreedom, 29 * 29 / (9 + 1.6));
    EXPECT_DOUBLE_EQ(t.shares[0], (4 - 2) / 25.0);
    EXPECT_DOUBLE_EQ(t.shares[5], (16 - 2) / 25.0);
    EXPECT_FALSE(t.contradictory);
    for (const double size : {1e-200, 1e200}) {
        ErrorRows scaled = rows;
        for (ErrorRow& row : scaled) row.uncertainty *= size;
        const Totals s = ComputeTotals(scaled, r.CorrelationMatrix);
        EXPECT_NEAR(s.total / size, t.total, 1e-14);
        EXPECT_NEAR(s.totalFreedom, t.totalFreedom, 1e-11);
    }
    rows[0].included = false; // its degrees of freedom count all the same
    EXPECT_DOUBLE_EQ(ComputeTotals(rows, r.CorrelationMatrix).total, 5);
    EXPECT_DOUBLE_EQ(ComputeTotals(rows, r.CorrelationMatrix).totalFreedom, t.totalFreedom);

    rows[3] = {.uncertainty = 1, .included = true};
    r.CorrelationMatrix[correlationIndex(2)][correlationIndex(3)] = 1;
    r.CorrelationMatrix[correlationIndex(2)][correlationIndex(5)] = 1;
    EXPECT_TRUE(ComputeTotals(rows, r.CorrelationMatrix).contradictory) << "what equals one equals the other";
    r.CorrelationMatrix[correlationIndex(3)][correlationIndex(5)] = 1;
    EXPECT_FALSE(ComputeTotals(rows, r.CorrelationMatrix).contradictory) << "singular, but possible";
}

TEST(ErrorTable, OtherUnitsLeaveTheTotal) {
    Analysis r;
    EnterError(r, 2, Limit, "0.3", regional);
    EnterError(r, 2, Confidence, "95", regional);
    r.Stat_SampleSize[1] = 2;
    r.Stat_Sample[1][1] = 0.25;
    r.Stat_Sample[2][1] = -0.5;
    const double before = ComputeTotals(readErrorRows(r, regional), r.CorrelationMatrix).process;
    RescaleProcessTable(r, 1000, regional);
    EXPECT_EQ(r.ErrTableText[2][errorColumn::limit], "300");
    EXPECT_NEAR(ComputeTotals(readErrorRows(r, regional), r.CorrelationMatrix).process, 1000 * before, 1e-12);
    EXPECT_EQ(r.Stat_Sample[2][1], -500);
}

} // namespace
} // namespace metrisk
