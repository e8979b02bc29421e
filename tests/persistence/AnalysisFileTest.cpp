#include "desk/files/AnalysisFile.h"
#include "persistence/AnalysisName.h"

#include "desk/files/ClearAnalysis.h"
#include "tests/persistence/GoldenFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace metrisk;
using namespace metrisk::testing;

TEST(AnalysisFile, GoldenFileIsReadAndWrittenByteForByte) {
    TestSession test;
    ClearAnalysis(test.session);
    test.record.FileChanged = true;
    test.record.Remarks = "of the former analysis";
    ReadAnalysis(test.session, goldenPath);
    const Analysis& record = test.record;
    EXPECT_FALSE(record.AbortFlag);
    EXPECT_FALSE(record.FileChanged);
    EXPECT_EQ(test.ui.yields, 1);
    EXPECT_EQ(test.ui.busyDepth, 0);

    EXPECT_EQ(record.Remarks, "");
    EXPECT_EQ(record.SU_Description, "Ångström µ");

    // Derived by the load.
    EXPECT_TRUE(record.Last_IncludeUncertainty);
    EXPECT_FALSE(record.GB_AsymmetricMult);
    EXPECT_EQ(record.ErrTableDisplay[3][3], ".50");
    EXPECT_EQ(record.ErrTableDisplay[1][1], "0.1250");
    EXPECT_EQ(record.ErrTableDisplay[1][2], "99.000");
    EXPECT_EQ(record.ErrTableDisplay[1][3], "0.0642");
    EXPECT_EQ(record.ErrTableDisplay[1][4], "False");
    EXPECT_EQ(record.ErrTableDisplay[1][5], "MTE Bias");
    EXPECT_EQ(record.ErrTableDisplay[1][6], "25.00");
    EXPECT_EQ(record.Process_DegFreedom, 12);
    EXPECT_EQ(record.ProcessUncertainty_fmt, "#,##0.00000");
    EXPECT_EQ(record.MTE_PctReading_fmt, "#,##0.00");
    EXPECT_EQ(record.SU_UpperPctReading_fmt, "#,##0.00");
    EXPECT_EQ(record.SU_UpperFixed_fmt, "#,##0.000"); // 125 mV held in V
    EXPECT_EQ(record.FalseAccept_fmt, "##0.00");
    EXPECT_EQ(record.FalseReject_fmt, "##0");
    EXPECT_EQ(record.Base_Reject_fmt, "##0");

    const TemporaryFolder folder;
    test.record.FileChanged = true;
    WriteAnalysis(test.session, (folder / "again.mrk").string());
    EXPECT_FALSE(record.FileChanged);
    EXPECT_EQ(fileContent(folder / "again.mrk"), fileContent(goldenPath));
}

TEST(AnalysisFile, RefusesWhatIsNoAnalysis) {
    const std::string error = "Error Reading Analysis Data";
    const struct {
        std::string name, content, message;
    } rows[] = {
        {"empty", "", error},
        {"other mark", "\"OTHER\",1.512\r\n", "Not a valid Analysis file."},
        {"binary",
         std::string("\x7f"
                     "ELF\0\1\2,\xff\xfe\r\n",
                     12),
         "Not a valid Analysis file."},
        {"unknown version", "\"MTRISK\",1.6\r\n", "Invalid file structure."},
        {"near version", "\"MTRISK\",1.5121\r\n", "Invalid file structure."},
        {"no version", "\"MTRISK\"\r\n", error},
        {"version is text", "\"MTRISK\",\"1.512\"\r\n", error},
        {"quote in a text", goldenWith(5, "\"half \" inch\""), error},
        {"sample size 201", goldenWith(121, "201"), error},
        {"sample size -1", goldenWith(121, "-1"), error},
        {"int beyond 16 bit", goldenWith(120, "32768"), error},
        {"long beyond 32 bit", goldenWith(3, "2147483648,#FALSE#"), error},
        {"number too large", goldenWith(22, "1E309"), error},
        {"not finite", goldenWith(22, "nan"), error},
        {"hexadecimal", goldenWith(22, "0x10"), error},
        {"garbage behind a number", goldenWith(22, "1.5V"), error},
        {"comma as decimal mark", goldenWith(22, "1,5"), error},
        {"fraction of an int", goldenWith(120, "1.5"), error},
        {"empty number", goldenWith(22, ""), error},
        {"bool as number", goldenWith(260, "0"), error},
    };
    for (const auto& row : rows) {
        TestSession test;
        test.record.FileChanged = true;
        test.ui.expectBox("some.mrk", row.message, row.message == error ? warning : note);
        ReadAnalysisText(test.session, row.content, "some.mrk");
        EXPECT_TRUE(test.record.AbortFlag) << row.name;
        EXPECT_TRUE(test.record.FileChanged) << row.name;
        EXPECT_EQ(test.ui.busyDepth, 0) << row.name;
        test.ui.verifyAllShown();
    }
}

TEST(AnalysisFile, ToleratesWhatIsClear) {
    const struct {
        std::string name, content;
    } rows[] = {
        {"line feeds alone",
         [] {
             std::string text = fileContent(goldenPath);
             std::erase(text, '\r');
             return text;
         }()},
        {"byte order mark", "\xEF\xBB\xBF" + fileContent(goldenPath)},
        {"blanks and longer forms", goldenWith(12, "  10.000 , +1.025E1,9.5 ,0095.45,-12.5e-2")},
        {"flag 1", goldenWith(2, "1,0,0")},
    };
    for (const auto& row : rows) {
        TestSession test;
        ReadAnalysisText(test.session, row.content, "some.mrk");
        EXPECT_EQ(AnalysisText(test.record), fileContent(goldenPath)) << row.name;
    }
    TestSession test;
    ReadAnalysisText(test.session, goldenWith(5, "\"M\xFCller \x80\""), "old.mrk");
    EXPECT_EQ(test.record.SU_Manufacturer, "Müller €");
}

TEST(AnalysisFile, UnreadableFilesAreToldByName) {
    const TemporaryFolder folder;
    const auto large = folder.write("large.mrk", "\"MTRISK\",1.512\r\n");
    std::filesystem::resize_file(large, 1ULL << 30);
    const auto foreign = folder.write("foreign.mrk", "x");
    std::filesystem::resize_file(foreign, 1ULL << 30);
    const std::pair<std::filesystem::path, const char*> rows[] = {
        {folder / "none.mrk", "Error Reading Analysis Data"},
        {folder.path(), "Error Reading Analysis Data"},
        {"/dev/zero", "Error Reading Analysis Data"},
        {large, "Error Reading Analysis Data"},
        {foreign, "Not a valid Analysis file."},
    };
    for (const auto& [path, message] : rows) {
        TestSession test;
        test.ui.expectBox(path.filename().string(), message, path == foreign ? note : warning);
        ReadAnalysis(test.session, path.string());
        EXPECT_TRUE(test.record.AbortFlag) << path;
    }
}

TEST(AnalysisFile, AFailedWriteLeavesTheOldFile) {
    const TemporaryFolder folder;
    const auto path = folder.write("old.mrk", "precious");
    TestSession test;
    test.record.FileChanged = true;
    for (int failing = 1; failing <= 5; ++failing) {
        int operation = 0;
        test.ui.expectBox("old.mrk", "Error Writing Analysis Data");
        WriteAnalysis(test.session, path.string(), [&] { return ++operation != failing; });
        EXPECT_EQ(operation, failing);
        EXPECT_TRUE(test.record.AbortFlag) << failing;
        EXPECT_TRUE(test.record.FileChanged) << failing;
        EXPECT_EQ(fileContent(path), "precious") << failing;
        EXPECT_EQ(folder.count(), 1) << failing;
    }
    const auto refused = [&](const char* what) {
        test.ui.expectBox("old.mrk", "Error Writing Analysis Data");
        WriteAnalysis(test.session, path.string());
        EXPECT_TRUE(test.record.AbortFlag) << what;
        EXPECT_EQ(fileContent(path), "precious") << what;
    };
    test.record.SU_Mode = std::numeric_limits<double>::infinity();
    refused("a number that is not finite");
    test.record.SU_Mode = 0;
    test.record.Last_Base1 = 40000;
    refused("an int beyond 16 bit");
    test.record.Last_Base1 = 0;
    test.record.Stat_SampleSize[1] = 201;
    refused("too many samples");
}

TEST(AnalysisFile, NumbersHaveTheirShortForm) {
    const std::pair<double, std::string> rows[] = {
        {0, "0"},
        {0.5, ".5"},
        {-0.25, "-.25"},
        {1e15, "1E+15"},
        {1e-16, "1E-16"},
        {1.0 / 3, ".333333333333333"},
        {-0.0, "0"},
        {std::numeric_limits<double>::max(), "1.79769313486231E+308"},
        {std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324"},
    };
    for (const auto& [value, text] : rows) {
        TestSession one, two;
        one.record.MTE_Sigma = value;
        EXPECT_EQ(linesOf(AnalysisText(one.record))[21], text) << value;
        ReadAnalysisText(two.session, AnalysisText(one.record), "n.mrk");
        EXPECT_NEAR(two.record.MTE_Sigma, value, std::fabs(value) * 1e-14);
    }
}

TEST(AnalysisFile, AQuoteBecomesADoublePrimeWhereverItComesFrom) {
    TestSession t;
    t.settings.WriteSetting("ReportFormat", "Submitter", "J. \"Jo\" Doe");
    t.settings.WriteSetting("ErrorSourceNames", "Ancillary", "12\" rule");
    t.settings.WriteSetting("BaselineDefaults", "UserOption", "\"");
    ClearAnalysis(t.session);
    EXPECT_EQ(t.record.Submitter, "J. ″Jo″ Doe");
    EXPECT_EQ(t.record.ErrorSourceName[5], "12″ rule");
    EXPECT_EQ(t.record.UserOption, "″");
    ReadAnalysisText(t.session, goldenWith(5, "half \" inch"), "a.mrk");
    EXPECT_EQ(t.record.SU_Manufacturer, "half ″ inch");
    t.record.SU_ModelNumber = "3/4\"";
    t.record.Organization = std::string(60, '"');
    TestSession again;
    ReadAnalysisText(again.session, AnalysisText(t.record), "a.mrk");
    EXPECT_EQ(again.record.SU_Manufacturer, "half ″ inch");
    EXPECT_EQ(again.record.SU_ModelNumber, "3/4″");
    EXPECT_EQ(again.record.Organization.substr(0, 6), "″″");
}

TEST(AnalysisFile, LimitsThatContradictTheOffsetsAreFormedAnew) {
    struct Row {
        const char* subject; // mode, limits
        const char* kind;    // two-sided, upper, lower
        double upper, lower;
        bool told;
    };
    for (const Row& row :
         {Row{"10,10.25,9.5", "-1,0,0", 10.25, 9.5, false},
          Row{"10,10.2500000000004,9.4999999999996", "-1,0,0", 10.2500000000004, 9.4999999999996, false},
          Row{"10,10.2500000000005,9.5", "-1,0,0", 10.25, 9.5, true},
          Row{"10,10.25,9", "-1,0,0", 10.25, 9.5, true}, Row{"11,10.25,9.5", "-1,0,0", 11.25, 10.5, true},
          Row{"10,10.25,0", "0,-1,0", 10.25, 9.5, false}, Row{"10,0,9.5", "0,-1,0", 10.25, 9.5, true}}) {
        Lines lines = linesOf(goldenWith(12, std::string(row.subject) + ",95.45,-.125"));
        lines[1] = row.kind;
        TestSession t;
        ReadAnalysisText(t.session, joined(lines), "a.mrk");
        EXPECT_EQ(t.record.SU_UpperLimit, row.upper) << row.subject;
        EXPECT_EQ(t.record.SU_LowerLimit, row.lower) << row.subject;
        EXPECT_EQ(t.record.LimitsReformed, row.told) << row.subject;
        EXPECT_EQ(t.record.FileChanged, row.told) << row.subject;
    }
    TestSession measuring;
    ReadAnalysisText(measuring.session, goldenWith(21, "10,10.1,9.9375,99"), "a.mrk");
    EXPECT_EQ(measuring.record.MTE_UpperLimit, 10.0625);
    EXPECT_TRUE(measuring.record.LimitsReformed);
}

TEST(AnalysisFile, CorrelationsBeyondOneAreRefused) {
    TestSession t;
    t.ui.expectBox("Unlawful Entry", "The correlation coefficient must be between -1 and 1.", note);
    Lines lines = linesOf(goldenWith(31, "1.5"));
    lines[31] = "-1.001";
    ReadAnalysisText(t.session, joined(lines), "a.mrk");
    EXPECT_EQ(t.record.CorrelationMatrix[1][2], 0);
    EXPECT_EQ(t.record.CorrelationMatrix[1][3], 0);
    EXPECT_EQ(t.record.CorrelationMatrix[1][4], 0.03);
    EXPECT_TRUE(t.record.FileChanged);
}

TEST(AnalysisFile, TheTableIsReadWithTheMarkThatGivesItsTotal) {
    struct Row {
        const char* text;
        const char* stored;
        const char* decimal; // of the session
        const char* read;
        const char* shown;
    };
    for (const Row& row :
         {Row{"1,234", ".001234", ".", "1.234", "1.234"}, Row{"1,234", "1.234", ".", "1,234", "1,234"},
          Row{"1,234", "7", ".", "1,234", "1,234"}, Row{"1,234", "1.234", ",", "1234", "1234"},
          Row{"1.234", ".001234", ",", "1.234", "1,234"}, Row{"0,5", ".0005", ".", "0,5", "0.5"}}) {
        Lines lines = linesOf(fileContent(goldenPath)); // in mV, the total in V
        for (std::size_t n = 23; n <= 30; ++n) lines[n - 1] = R"("","","","","","")";
        lines[23] = std::string(R"("","95",")") + row.text + R"(","True","Resolution","")";
        lines[91] = std::string(row.stored) + ",-1";
        lines[108] = R"("mV",1000,"#,##0.0000","#,##0.0000")";
        TestSession t;
        if (*row.decimal == ',') t.session.regional = {";", ",", ".", "-"};
        ReadAnalysisText(t.session, joined(lines), "a.mrk");
        EXPECT_EQ(t.record.ErrTableText[2][3], row.read) << row.stored << " in a session of " << row.decimal;
        EXPECT_EQ(t.record.ErrTableDisplay[3][3], row.shown);
    }
}

TEST(AnalysisFile, AnUnnamedOldRowIsCalledStressResponse) {
    TestSession test;
    ReadAnalysisText(test.session, goldenWith(97, "\"  \""), "a.mrk");
    EXPECT_EQ(test.record.ErrTableDisplay[5][5], "Stress Response");
    EXPECT_EQ(test.record.ErrTableText[4][5], "Stress Response");
}

TEST(AnalysisFile, ChoicesThatAreNoneBecomeTheUsualOnes) {
    const struct {
        const char* kinds;
        bool twoSided, upper, lower;
    } kindRows[] = {
        {"-1,0,0", true, false, false},  {"0,-1,0", false, true, false},  {"0,0,-1", false, false, true},
        {"0,0,0", true, false, false},   {"0,-1,-1", true, false, false}, {"-1,-1,0", true, false, false},
        {"-1,0,-1", true, false, false}, {"7,7,7", true, false, false},
    };
    for (const auto& row : kindRows) {
        TestSession test;
        ReadAnalysisText(test.session, goldenWith(2, row.kinds), "a.mrk");
        EXPECT_EQ(test.record.OptTwoSided, row.twoSided) << row.kinds;
        EXPECT_EQ(test.record.OptSingleUpper, row.upper) << row.kinds;
        EXPECT_EQ(test.record.OptSingleLower, row.lower) << row.kinds;
    }
    for (const auto& [stored, option] : {std::pair{"0", 0}, {"1", 1}, {"2", 0}, {"-1", 0}, {"32767", 0}}) {
        TestSession test;
        ReadAnalysisText(test.session, goldenWith(104, stored), "a.mrk");
        EXPECT_EQ(test.record.FalseAcceptOption, option) << stored;
    }
    for (const auto& [stored, factor] : {std::pair{"-1000", 1000.0}, {"0", 1.0}, {".001", .001}}) {
        TestSession test;
        ReadAnalysisText(test.session,
                         goldenWith(109, R"("mV",)" + std::string(stored) + R"(,"#,##0.0","#,##0.0")"),
                         "a.mrk");
        EXPECT_EQ(test.record.MTE_TolUnitsFactor, factor) << stored;
    }
}

TEST(AnalysisFile, NamesEndAsAnalyses) {
    const std::pair<const char*, const char*> rows[] = {
        {"a", "a.mrk"},     {"a.mrk", "a.mrk"},           {"A.MRK", "A.MRK"},
        {"a.dat", "a.mrk"}, {"a.DAT", "a.mrk"},           {"a.txt", "a.txt.mrk"},
        {"", ".mrk"},       {"/x.dat/a", "/x.dat/a.mrk"}, {"dat", "dat.mrk"},
    };
    for (const auto& [path, name] : rows) EXPECT_EQ(NormalizeAnalysisName(path), name) << path;
}
