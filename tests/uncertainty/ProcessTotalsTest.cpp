#include "uncertainty/ProcessTotals.h"
#include "base/Real.h"
#include "tests/support/TestSession.h"
#include "uncertainty/Budget.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace metrisk;
using metrisk::testing::TestSession;

namespace {

void setRow(Analysis& record, int row, const char* uncertainty, const char* included,
            const char* freedom = "") {
    record.ErrTableText[row][3] = uncertainty;
    record.ErrTableText[row][4] = included;
    record.ErrTableText[row][6] = freedom;
}

} // namespace

TEST(ProcessTotals, CombineTheIncludedRows) {
    TestSession test;
    Analysis& record = test.record;
    record.MTE_TolUnitsFactor = 1000; // nominal V, table in mV
    record.SU_SigDigits = 3;
    record.MTE_StdUncertainty = 0.002;
    record.MTE_DegFreedom = 10;
    setRow(record, 1, "3.00", "True", "9");
    setRow(record, 2, "4.0", "True");
    setRow(record, 3, "100.12345", "False", "2");
    setRow(record, 8, "2", "True", "5");
    record.CorrelationMatrix[3][4] = 0.5; // rows 1 and 2
    record.CorrelationMatrix[2][3] = 0.9; // with row 0: no part of the process total
    SumProcessUncertainty(test.session.record, test.session.regional);

    EXPECT_NEAR(record.ProcessUncertainty, std::sqrt(9 + 16 + 4 + 2 * 0.5 * 12) / 1000, 1e-15);
    EXPECT_EQ(record.ProcessUncertainty_fmt, "#,##0.00000");
    const double squares = 9 + 16 + 4, quartics = 81 / 9.0 + 16 / 5.0;
    EXPECT_NEAR(record.Process_DegFreedom, squares * squares / quartics, 1e-12);
    const double all = (squares + 4) * (squares + 4) / (quartics + 16 / 10.0);
    EXPECT_NEAR(record.Total_DegFreedom, all, 1e-12);

    const Combined combined = CombinedUncertainty(record, test.session.regional);
    EXPECT_NEAR(combined.uncertainty, std::sqrt(4 + 41 + 2 * 0.9 * 2 * 3) / 1000, 1e-15);
    EXPECT_NEAR(combined.degFreedom, all, 1e-12);
}

TEST(ProcessTotals, EmptyTableLeavesTheUncertaintyThatWasRead) {
    TestSession test;
    test.record.ProcessUncertainty = 0.00003;
    test.record.Process_DegFreedom = 7;
    SumProcessUncertainty(test.session.record, test.session.regional);
    EXPECT_EQ(test.record.ProcessUncertainty, 0.00003);
    EXPECT_EQ(test.record.ProcessUncertainty_fmt, "#,##0.00000");
    EXPECT_EQ(test.record.Process_DegFreedom, 0);

    setRow(test.record, 2, "0.5", "False");
    SumProcessUncertainty(test.session.record, test.session.regional);
    EXPECT_EQ(test.record.ProcessUncertainty, 0); // a table that includes nothing is a statement
}

TEST(ProcessTotals, ManyDegreesOfFreedomCountAsInfinite) {
    TestSession test;
    setRow(test.record, 2, "1", "True", "6000");
    SumProcessUncertainty(test.session.record, test.session.regional);
    EXPECT_EQ(test.record.Process_DegFreedom, 6000);
    EXPECT_EQ(test.record.Total_DegFreedom, 0);
}

TEST(ProcessTotals, FaultsLeaveTheFigures) {
    TestSession test;
    Analysis& record = test.record;
    record.ProcessUncertainty = 5;
    for (int row : {2, 3}) setRow(record, row, "1.5E308", "True");
    SumProcessUncertainty(test.session.record, test.session.regional);
    EXPECT_EQ(record.ProcessUncertainty, 5);
    EXPECT_THROW(CombinedUncertainty(record, test.session.regional), RuntimeFault);
}

TEST(ProcessTotals, ContradictingCorrelationsLeaveNothing) {
    TestSession test;
    Analysis& record = test.record;
    record.MTE_StdUncertainty = 1;
    for (int row : {2, 3, 4}) setRow(record, row, "1", "True");
    for (const auto& [i, j] : {std::pair{4, 5}, {4, 6}, {5, 6}}) record.CorrelationMatrix[i][j] = -1;
    SumProcessUncertainty(test.session.record, test.session.regional);
    EXPECT_EQ(record.ProcessUncertainty, 0);
    for (int j : {4, 5, 6}) record.CorrelationMatrix[2][j] = -1;
    EXPECT_EQ(CombinedUncertainty(record, test.session.regional).uncertainty, 0);
}

TEST(ProcessTotals, FullAnticorrelationCancels) {
    TestSession test;
    for (int row : {2, 3, 4}) setRow(test.record, row, row == 4 ? "0.3" : row == 3 ? "0.2" : "0.1", "True");
    test.record.CorrelationMatrix[4][5] = 1;
    test.record.CorrelationMatrix[4][6] = -1;
    test.record.CorrelationMatrix[5][6] = -1;
    SumProcessUncertainty(test.session.record, test.session.regional);
    EXPECT_NEAR(test.record.ProcessUncertainty, 0, 1e-7);
}
