#include "desk/files/ClearAnalysis.h"
#include "record/AnalysisFields.h"
#include "tests/support/Change.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <set>

using namespace metrisk;
using metrisk::testing::Change;
using metrisk::testing::TestSession;

TEST(ClearAnalysis, GivesTheValuesOfANewAnalysis) {
    const std::set<std::string, std::less<>> kept = {
        "NominalUnits",  "EqRatioOnFalseAccept", "LastAnalysisName",      "FileReadOnly",
        "Computing",     "LoadInProgress",       "ObservedWorksheetOpen", "UncertaintyWorksheetOpen",
        "GB_ScreenOpen", "FirstDisplay",         "DirectCompute",         "DirectComputeChanged"};
    TestSession test;
    Analysis expected;
    expected.ErrorSourceName[1] = "MTE Random";
    expected.ErrorSourceName[2] = "MTE Resolution";
    expected.ErrorSourceName[3] = "Data Acquisition";
    expected.ErrorSourceName[4] = "Stress Response";
    expected.ErrorSourceName[5] = "Ancillary";
    expected.ErrorSourceName[6] = "Miscellaneous";
    expected.ErrorSourceName[7] = "SU Random";
    expected.ErrorSourceName[8] = "SU Resolution";
    const auto changeAll = [](Analysis& record, auto&& which) {
        visitFields(record, [&](std::string_view name, auto& member) {
            if (which(name))
                visitElements("", member, [](const std::string&, auto& element) { Change{}(element); });
        });
    };
    changeAll(test.record, [](std::string_view) { return true; });
    changeAll(expected, [&](std::string_view name) { return kept.contains(name); });
    ClearAnalysis(test.session);
    visitFields(expected, [&](std::string_view name, const auto& wanted) {
        visitFields(test.record, [&](std::string_view same, const auto& member) {
            if constexpr (std::is_same_v<decltype(wanted), decltype(member)>) {
                EXPECT_TRUE(same != name || member == wanted) << name;
            }
        });
    });
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
    ClearWorksheets(test.session.record, test.session.settings);
    EXPECT_EQ(test.record.SU_Mode, 7);
    EXPECT_EQ(test.record.Base_SUPctInTol, 50);
    EXPECT_EQ(test.record.ProcessUncertainty, 0);
    EXPECT_EQ(test.record.Rel_Model[1], "");
}
