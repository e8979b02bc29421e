#include "desk/files/AnalysisFile.h"

#include "desk/files/ClearAnalysis.h"
#include "tests/persistence/GoldenFile.h"
#include "tests/support/SilentSession.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

using namespace metrisk;
using namespace metrisk::testing;

namespace {

const std::string olderVersionText =
    "This file is from an earlier version of Metrisk.  If saved, it will be converted to Metrisk 1.6 format";
constexpr BoxKind conversion{BoxIcon::Information, BoxButtons::OkCancel};

} // namespace

TEST(AnalysisFile, EveryOlderVersionIsRead) {
    const Lines golden = linesOf(fileContent(goldenPath));
    ASSERT_EQ(golden.size(), 260u);
    TestSession newAnalysis;
    ClearAnalysis(newAnalysis.session);
    const Lines fresh = linesOf(AnalysisText(newAnalysis.record));

    for (const char* version : {"1", "1.1", "1.11", "1.12", "1.13", "1.14", "1.15", "1.16", "1.2", "1.5",
                                "1.51", "1.511", "1.512"}) {
        const OldFile file = oldFile(version, golden, fresh);
        TestSession test;
        ClearAnalysis(test.session);
        test.record.UserOption = "Z540"; // of the settings, not of the file
        if (std::string(version) == "1") test.ui.expectBox("Metrisk", olderVersionText, conversion);
        ReadAnalysisText(test.session, joined(file.lines), "old.mrk");
        ASSERT_FALSE(test.record.AbortFlag) << version;
        EXPECT_EQ(test.record.FileChanged, std::stod(version) <= 1.1) << version;
        EXPECT_EQ(linesOf(AnalysisText(test.record)), file.rewritten) << version;
    }
}

TEST(AnalysisFile, TheOldestVersionMayBeDeclined) {
    TestSession test;
    test.record.FileChanged = true;
    test.ui.expectBox("Metrisk", olderVersionText, Answer::Cancel, conversion);
    ReadAnalysisText(test.session, "\"MTRISK\",1\r\n", "old.dat");
    EXPECT_TRUE(test.record.AbortFlag);
    EXPECT_TRUE(test.record.FileChanged);
}

TEST(AnalysisFile, ATruncatedFileNeverReadsAsSomethingElse) {
    const Lines golden = linesOf(fileContent(goldenPath));
    TestSession newAnalysis;
    ClearAnalysis(newAnalysis.session);
    const Lines fresh = linesOf(AnalysisText(newAnalysis.record));
    for (const char* version : {"1", "1.1", "1.14", "1.512"}) {
        const OldFile file = oldFile(version, golden, fresh);
        const std::string whole = joined(file.lines);
        const bool isOldest = std::string(version) == "1";
        const std::size_t asked = whole.find('\n'); // about its conversion, once the version is known
        for (std::size_t length = 0; length < whole.size(); ++length) {
            SilentSession s;
            ClearAnalysis(s.session);
            ReadAnalysisText(s.session, whole.substr(0, length), "cut.mrk");
            if (s.session.record.AbortFlag)
                ASSERT_EQ(s.ui.boxes - (isOldest && length >= asked), 1) << version << " cut to " << length;
            else
                ASSERT_EQ(linesOf(AnalysisText(s.session.record)), file.rewritten)
                    << version << " cut to " << length;
        }
    }
}
