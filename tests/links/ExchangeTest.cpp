// The exchange files: what is written to the letter, and what is taken from the partner's.
#include "base/Real.h"
#include "desk/links/TakeExchange.h"
#include "links/ExchangeFile.h"
#include "tests/links/PartnerText.h"
#include "tests/support/TestSession.h"

#include <cmath>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct ExchangeTest : ::testing::Test, TestSession {
    std::string cell(int row, int column) const { return record.ErrTableText[row][column]; }
};

TEST_F(ExchangeTest, IsWrittenInTheUnitsOfTheSubject) {
    session.regional = {";", ",", ".", "-"};
    record.NominalUnits = "V";
    record.SU_ToleranceUnits = "mV";
    record.SU_TolUnitsFactor = 1000;
    record.MTE_TolUnitsFactor = 0; // counts as 1
    record.SU_Mode = 10;
    record.SU_UpperLimit = 10.4;
    record.SU_LowerLimit = 9.5;
    record.SU_Description = "1/2\" gauge";
    record.MTE_Offset = .002;
    for (int row = 1; row <= 8; ++row) record.ErrorSourceName[row] = "n" + std::to_string(row);
    const char* cells[] = {"0,0025", "95", "1,25E-3", "True", "old", "\u221E"};
    for (int column = 1; column <= 6; ++column) record.ErrTableText[2][column] = cells[column - 1];
    record.Stat_SampleSize[1] = record.Stat_SampleSize[2] = 1;
    record.Stat_Sample[1][1] = 0.25; // a deviation
    record.Stat_Flag1[2] = 1;
    record.Stat_Sample[1][2] = 10.5; // measured
    record.Stat_SampleInclude[1][2] = 1;
    const std::string empty = "\"\",\"\",\"\",\"\",";
    std::string rows = empty + "\"n1\",\"\"\r\n\"2.5\",\"95\",\"1.25\",\"True\",\"n2\",\"\"\r\n";
    for (int row = 3; row <= 8; ++row) rows += empty + "\"n" + std::to_string(row) + "\",\"\"\r\n";
    EXPECT_EQ(writeExchange(record, session.regional),
              "#TRUE#,1.512\r\n" + rows +
                  "-1\r\n1\r\n0\r\n.25,0\r\n1\r\n0\r\n.5,1\r\n\"\"\r\n0,0,0\r\n0,0,0\r\n"
                  "10,\"#,##0.0000\",\"V\",\"\",1,\"mV\",1000\r\n0,10.4,9.5,0,0,0,0\r\n-1,0,0,0,0\r\n"
                  "\"\",\"\",\"1/2\u2033 "
                  "gauge\",\"\",\"\",\"\"\r\n\"\",\"\",\"\",\"\",\"\",\"\"\r\n0,0\r\n0\r\n0,0\r\n"
                  "0,\"#,##0.0000\"\r\n.002,\"#,##0.0000\"\r\n0\r\n0,\"##0.0000\",0\r\n");
}

TEST_F(ExchangeTest, TakesToleranceUnitsAndErrors) {
    for (const Regional& regional : {Regional{}, Regional{";", ",", ".", "-"}}) {
        session.regional = regional;
        const Exchange data = readExchange(PartnerText{}.text());
        ASSERT_TRUE(data.hasTolerances && !data.isObsolete);
        takeTolerances(session, data);
        takeProcessErrors(session, data);
        EXPECT_EQ(record.SU_UpperLimit, 10.4);
        EXPECT_EQ(record.SU_LowerLimit, 9.5);
        EXPECT_EQ(record.SU_UpperFixed, .3);
        EXPECT_EQ(record.SU_UpperPctReading, 1);
        EXPECT_EQ(record.SU_UpperOffset_fmt, "#,##0.0");
        EXPECT_EQ(record.MTE_Offset, .002);
        EXPECT_EQ(record.MTE_PctInTol, 90);
        EXPECT_EQ(record.PhysicalLimit, 9);
        EXPECT_EQ(record.MTE_DegFreedom, 15);
        EXPECT_TRUE(record.MTE_EntryByUncertainty && record.OptTwoSided && !record.SymmetricTolerances);
        EXPECT_EQ(record.SU_TolDecimalShift, 3);
        EXPECT_EQ(record.SU_Qualifier2 + record.MTE_Manufacturer, "q2Std");
        // mV of the file are uV here.
        EXPECT_EQ(cell(1, 1) + " " + cell(1, 2) + " " + cell(1, 3) + " " + cell(1, 4), "2500 95 1250 True");
        EXPECT_EQ(cell(2, 3) + cell(2, 4) + cell(2, 6), "1500False12");
        EXPECT_EQ(cell(3, 3) + cell(4, 2) + cell(4, 6), ""); // what a box would refuse
        const char* names[] = {"MTE Random", "Environmental", "User Defined", "Miscellaneous",
                               "Na me",      "Miscellaneous", "SU Random",    "SU Resolution"};
        for (int row = 1; row <= 8; ++row) EXPECT_EQ(record.ErrorSourceName[row], names[row - 1]);
        EXPECT_EQ(record.Stat_SampleSize[2], 2); // one is not included
        EXPECT_EQ(record.Stat_Sample[2][2], 3000);
        EXPECT_NEAR(record.ProcessUncertainty, std::hypot(1250, 500, 4000) / 1e6, 1e-15);
    }
    resetProcessErrors(session);
    EXPECT_EQ(cell(1, 3) + cell(7, 3), "");
    EXPECT_EQ(record.Stat_SampleSize[2] + record.ProcessUncertainty + record.Stat_Sample[1][2], 0);
    EXPECT_EQ(record.ErrorSourceName[2], "MTE Resolution");
}

TEST_F(ExchangeTest, TakesLimitsWhereThereAreNoOffsets) {
    PartnerText given;
    const std::string none = "0,\"\",0,\"\",0,\"\"\r\n";
    given.tolerances = given.measuring = none + none + none + none;
    given.options = "0,-1,0,-1,-1\r\n";
    takeTolerances(session, readExchange(given.text()));
    EXPECT_NEAR(record.SU_UpperOffset, .4, 1e-15);
    EXPECT_EQ(record.SU_UpperFixed, record.SU_UpperOffset);
    EXPECT_NEAR(record.MTE_FixedOffset, .002, 1e-15);
    EXPECT_TRUE(record.OptSingleUpper && !record.OptTwoSided && record.PhysLimitRequired);
    given.limits = "\"0\",\"0\",\"0\",\"0\",0,\"0\",\"0\",\"0\"\r\n";
    EXPECT_FALSE(readExchange(given.text()).hasTolerances);
}

TEST_F(ExchangeTest, IsTakenWholeOrNotAtAll) {
    PartnerText given;
    const std::string whole = given.text();
    for (std::size_t size = 0; size + 1 < whole.size(); ++size)
        EXPECT_THROW(readExchange(std::string_view(whole).substr(0, size)), RuntimeFault) << size;
    EXPECT_NO_THROW(readExchange(whole));
    for (const char* samples : {"0\r\n201\r\n", "0\r\n-1\r\n", "0\r\n99999\r\n", "x\r\n0\r\n"}) {
        PartnerText wrong;
        wrong.samples = samples;
        EXPECT_THROW(readExchange(wrong.text()), RuntimeFault) << samples;
    }
    given.samples = "0\r\n1\r\n\"many\",\"True\"\r\n";
    EXPECT_THROW(takeProcessErrors(session, readExchange(given.text())), RuntimeFault);
    // An older program's file ends early.
    given = {};
    given.header = "#TRUE#,1.5";
    const Exchange old = readExchange(given.beforeTolerances());
    EXPECT_TRUE(old.isObsolete && !old.hasTolerances && old.rows[0].limit == "2.5");
    EXPECT_FALSE(readExchange("#FALSE#,1.512\r\n").hasData);
}

} // namespace
} // namespace metrisk::testing
