#include "persistence/ClearAnalysis.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

using namespace metrisk;
using metrisk::testing::TestSession;

TEST(ClearAnalysis, GivesTheValuesOfANewAnalysis) {
    TestSession test;
    test.record.SU_Mode = 7;
    test.record.SU_Description = "old";
    test.record.NominalUnits = "V";
    test.record.EqRatioOnFalseAccept = false;
    test.record.OptTwoSided = false;
    test.record.OptSingleUpper = true;
    test.record.GB_UpperMult = 0.8;
    test.record.ErrTableText[3][1] = "0.5";
    test.record.Stat_SampleFmt[2] = "0.00";
    test.record.Last_Mode = 7;
    test.record.AnalysisFileName = "/tmp/old.mrk";
    test.record.LastAnalysisName = "/tmp/old.mrk";
    test.record.FileChanged = true;
    test.record.RisksNeedCompute = true;
    test.record.Ack100Pct = true;
    test.record.LoadInProgress = true;
    ClearAnalysis(test.session);

    EXPECT_EQ(test.record.SU_Mode, 0);
    EXPECT_EQ(test.record.SU_Description, "");
    EXPECT_EQ(test.record.NominalUnits, "V");
    EXPECT_FALSE(test.record.EqRatioOnFalseAccept);
    EXPECT_TRUE(test.record.OptTwoSided);
    EXPECT_FALSE(test.record.OptSingleUpper);
    EXPECT_EQ(test.record.GB_UpperMult, 1);
    EXPECT_EQ(test.record.ErrTableText[3][1], "");
    EXPECT_EQ(test.record.Stat_SampleFmt[2], "#");
    EXPECT_EQ(test.record.Last_Mode, 0);
    EXPECT_EQ(test.record.AnalysisFileName, "(Untitled)");
    EXPECT_EQ(test.record.LastAnalysisName, "/tmp/old.mrk");
    EXPECT_FALSE(test.record.FileChanged);
    EXPECT_FALSE(test.record.RisksNeedCompute);
    EXPECT_FALSE(test.record.Ack100Pct);
    EXPECT_TRUE(test.record.LoadInProgress);
    EXPECT_EQ(test.record.ErrorSourceName[1], "MTE Random");
    EXPECT_EQ(test.record.ErrorSourceName[4], "Stress Response");
    EXPECT_EQ(test.record.ErrorSourceName[8], "SU Resolution");
    EXPECT_EQ(test.record.Base_EqRatioTarget, 4);
    EXPECT_EQ(test.record.FalseAcceptOption, 0);
    EXPECT_EQ(test.record.UserOption, "User");
    EXPECT_EQ(test.record.Delimiter, "Tab");
    EXPECT_EQ(test.ui.repaints, 1);
}

TEST(ClearAnalysis, TakesDefaultsFromTheSettings) {
    TestSession test;
    const auto set = [&](const char* section, const char* key, const char* value) {
        test.settings.WriteSetting(section, key, value);
    };
    set("BaselineDefaults", "Metrisk", "10:2.5");
    set("BaselineDefaults", "MTEPctInTol", "95.0000");
    set("BaselineDefaults", "SUPctInTol", "85.0000");
    set("BaselineDefaults", "FalseAcceptRisk", "120");
    set("BaselineDefaults", "FalseAcceptUnits", "ppm");
    set("BaselineDefaults", "UserOption", "Z540");
    set("RiskOption", "FalseAcceptConvention", "Producer");
    set("ErrorSourceNames", "Stress Response", "Drift");
    set("ErrorSourceNames", "MTE Random", "never read");
    set("ReportFormat", "Organization", "Cal Lab");
    set("ReportFormat", "IncludeOrganization", "yes");
    set("ReportFormat", "Delimiter", "Comma");
    ClearAnalysis(test.session);

    EXPECT_EQ(test.record.Base_AccRatNum, 10);
    EXPECT_EQ(test.record.Base_AccRatDen, 2.5);
    EXPECT_EQ(test.record.Base_EqRatioTarget, 4);
    EXPECT_EQ(test.record.Base_MTEPctInTol, 95);
    EXPECT_EQ(test.record.Base_SUPctInTol, 85);
    EXPECT_EQ(test.record.Base_FalseAccept, 120);
    EXPECT_EQ(test.record.Base_AcceptUnits, "ppm");
    EXPECT_EQ(test.record.Base_Accept_fmt, "##0");
    EXPECT_EQ(test.record.Base_Reject_fmt, "##0.0000");
    EXPECT_EQ(test.record.UserOption, "Z540");
    EXPECT_EQ(test.record.FalseAcceptOption, 1);
    EXPECT_EQ(test.record.ErrorSourceName[1], "MTE Random");
    EXPECT_EQ(test.record.ErrorSourceName[4], "Drift");
    EXPECT_EQ(test.record.Organization, "Cal Lab");
    EXPECT_TRUE(test.record.IncludeOrganization);
    EXPECT_EQ(test.record.Delimiter, "Comma");
}

TEST(ClearAnalysis, ARatioWithoutQuotientKeepsTheFormerTarget) {
    for (const char* ratio : {"4", "", ":", "4:0", "0:0", "x:y", "1e300:1e-300"}) {
        TestSession test;
        test.record.Base_EqRatioTarget = 3;
        test.settings.WriteSetting("BaselineDefaults", "Metrisk", ratio);
        ClearAnalysis(test.session);
        EXPECT_EQ(test.record.Base_EqRatioTarget, 3) << ratio;
    }
}

TEST(ClearAnalysis, WorksheetsAloneLeaveTheParameters) {
    TestSession test;
    test.record.SU_Mode = 7;
    test.record.Base_SUPctInTol = 50;
    test.record.ProcessUncertainty = 2;
    test.record.Rel_Model[1] = "Exponential";
    ClearWorksheets(test.session);
    EXPECT_EQ(test.record.SU_Mode, 7);
    EXPECT_EQ(test.record.Base_SUPctInTol, 50);
    EXPECT_EQ(test.record.ProcessUncertainty, 0);
    EXPECT_EQ(test.record.Rel_Model[1], "");
}
