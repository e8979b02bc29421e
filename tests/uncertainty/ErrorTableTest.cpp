// The rows of the process errors table: what follows from what, and published budgets.
#include "uncertainty/ErrorTable.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "uncertainty/ProcessTotals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace metrisk {
namespace {

const Regional regional;
using enum ErrorEntry;

const double z95 = 1.959963984540054, z99 = 2.575829303548901;
// Student's t of 95 % two-sided with 9 degrees of freedom (any table of it).
const double t95at9 = 2.262157162798205;

/// Entries in the order of a text such as "L0.3 C95 D9 U2": limit, confidence, degrees of freedom,
/// uncertainty.
void enterAll(Analysis& r, int row, const std::string& entries) {
    std::istringstream words(entries);
    for (std::string word; words >> word;) {
        const ErrorEntry entry = word[0] == 'L'   ? Limit
                                 : word[0] == 'C' ? Confidence
                                 : word[0] == 'D' ? DegFreedom
                                                  : Uncertainty;
        EnterError(r, row, entry, word.substr(1), regional);
    }
}

TEST(ErrorTable, GivesTheThirdOfTwo) {
    const struct {
        const char* entries;
        double limit, confidence, uncertainty;
        const char* shown;
    } cases[] = {
        {"L0.3 C95", 0.3, 95, 0.3 / z95, "0.3|95|0.153|\u221E"},
        {"L0.015 C100 D3", 0.015, 100, 0.015 / std::sqrt(3.0), "0.0150|100|0.00866|3.00"}, // a rectangle
        {"D9 C95 U2.0", 2 * t95at9, 95, 2, "4.52|95|2.0|9.00"},
        {"D1e300 C95 U2.0", 2 * z95, 95, 2, "3.92|95|2.0|\u221E"}, // as good as infinite
        {"D5000 C95 U1", z95, 95, 1, "1.96|95|1|\u221E"},
        {"U0.1 L0.1959963984540054", 0.1 * z95, 95, 0.1, "0.196|95.00|0.1|\u221E"},
        {"D4 L4.604094871349993 U1", 4.604094871349993, 99, 1, "4.60|99.00|1|4.00"},
        {"L9 U1", 9, 100, 1, "9|99.9999999999999|1|\u221E"}, // all but certain is not certain
        {"L0.30 C95 C99", 0.3 / z95 * z99, 99, 0.3 / z95, "0.394|99|0.153|\u221E"},
        {"L0.3 C95 C", 0, 0, 0.3 / z95, "||0.153|\u221E"}, // no confidence, no limit
        {"U0.000 C95 L0", 0, 95, 0, "|95||"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entries);
        Analysis r;
        enterAll(r, 3, c.entries);
        const ErrorTableRow row = readErrorTableRow(r, 3, regional);
        // A computed figure keeps 15 digits.
        EXPECT_NEAR(row.limit.value, c.limit, 1e-14 * c.limit);
        EXPECT_NEAR(row.confidence.value, c.confidence, 2e-14 * c.confidence);
        EXPECT_NEAR(row.uncertainty.value, c.uncertainty, 1e-14 * c.uncertainty);
        EXPECT_EQ(row.limit.shown + "|" + row.confidence.shown + "|" + row.uncertainty.shown + "|" +
                      row.degFreedom.shown,
                  c.shown);
    }
}

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

TEST(ErrorTable, PublishedBudgets) {
    const struct {
        const char* source;
        std::vector<const char*> rows;
        double correlation; // of the first two
        double combined, within, degFreedom, freedomWithin;
    } budgets[] = {
        {"GUM (JCGM 100:2008) G.4.1", {"U0.25 D9", "U0.57 D4", "U0.82 D14"}, 0, 1.03, 0.005, 19.0, 0.05},
        {"GUM H.1.3.2 and H.1.6",
         {"D5 L10 C95", "U6.666666666666667 D8", "U5.8 D24"},
         0,
         9.7,
         0.05,
         25.6,
         0.05},
        {"EA-4/02 S2, rectangles entered as such",
         {"U0.0225", "L0.015 C100", "U0.0142", "L0.010 C100", "L0.010 C100"},
         0,
         0.0291,
         5e-5,
         0,
         0},
        {"GUM H.2 table H.4", {"U0.163234896861", "U0.122480838788"}, 0.355311219817, 0.236, 0.0005, 0, 0},
    };
    for (const auto& budget : budgets) {
        SCOPED_TRACE(budget.source);
        Analysis r;
        int row = 2;
        for (const char* entries : budget.rows) enterAll(r, row++, entries);
        r.CorrelationMatrix[correlationIndex(2)][correlationIndex(3)] = budget.correlation;
        const Totals totals = ComputeTotals(readErrorRows(r, regional), r.CorrelationMatrix);
        EXPECT_NEAR(totals.process, budget.combined, budget.within);
        EXPECT_NEAR(totals.processFreedom, budget.degFreedom, budget.freedomWithin);
    }
    EXPECT_NEAR(CoverageFactor(95, 19), 2.09, 0.005) << "GUM G.4.1";
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

/// "0.02" stood beside "0,0255" where the decimal mark is a comma.
TEST(ErrorTable, TextsBearTheRegionsDecimalMark) {
    const Regional german{";", ",", ".", "-"};
    for (const auto& [stored, shown] : {std::pair{"0.02", "0,02"},
                                        {"0,02", "0,02"},
                                        {"1.234,5", "1.234,5"},
                                        {"1e-3", "1e-3"},
                                        {"12", "12"}}) {
        const ErrorCell cell = ErrorCell::ofStored(stored, 4, german);
        EXPECT_EQ(cell.shown, shown);
        EXPECT_EQ(cell.stored, stored) << "the file keeps what was typed";
    }
    EXPECT_EQ(ErrorCell::ofStored("0,02", 4, regional).shown, "0.02");
}

} // namespace
} // namespace metrisk
