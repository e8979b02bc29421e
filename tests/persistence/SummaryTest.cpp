// The data summary as a golden text, what refuses it, and where it may be written.
#include "desk/files/Summary.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ObservedPct.h"
#include "desk/compute/RunBiasAnalysis.h"
#include "desk/files/OpenAnalysis.h"
#include "persistence/SummaryText.h"
#include "tests/support/SilentSession.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDesktop.h"
#include "uncertainty/Samples.h"

#include <gtest/gtest.h>

#include <array>

namespace metrisk::testing {
namespace {

/// Computed with everything that a summary can hold, in mK on a mode in °C.
void compute(Session& session) {
    Analysis& r = session.record;
    OpenAnalysis(session, METRISK_SOURCE_DIR "/examples/thermometer-process-uncertainty.mrk");
    r.SU_Mode = r.MTE_Mode = 12345.678;
    r.SU_Mode_fmt = "#,##0.000";
    r.SU_UpperLimit = r.SU_Mode + r.SU_UpperOffset;
    r.SU_LowerLimit = r.SU_Mode - r.SU_LowerOffset;
    r.MTE_UpperLimit = r.MTE_Mode + r.MTE_Offset;
    r.SU_TolUnitsFactor = r.MTE_TolUnitsFactor = 1000;
    r.SU_TolDecimalShift = r.SU_SigDigits = 3;
    r.SU_ToleranceUnits = r.MTE_ToleranceUnits = "mK";
    r.IncludeGuardbands = r.GB_IncludeEqAccRat = true;
    r.GB_UpperMult = r.GB_LowerMult = 0.95;
    r.Submitter = "Jane \"Doe\", QA";
    r.GB_UpperMult_fmt = r.GB_LowerMult_fmt = "#,##0.0000";
    r.Stat_Flag1[1] = r.Stat_Flag1[2] = 1; // measured values
    StoreSamples(r, 1, std::array{12345.68, 12345.69, 12345.673}, 1, session.regional);
    StoreSamples(r, 2, std::array{12345.58, 12345.57, 12345.575}, 1, session.regional);
    ComputeResults_Click(session);
    RunBiasAnalysis(session);
    EXPECT_TRUE(ObservedFromTrue(session, GuardbandUse::Use, "90"));
    r.Obs_TruePct = r.SU_PctInTol;
    r.Obs_AOP = 0.95;
    r.Obs_Offset = 0.05;
    r.Obs_Units = "mK";
    r.Obs_ObservingUnitOption = 1;
}

TEST(Summary, HoldsEverySection) {
    SilentSession silent;
    FixedClock clock;
    Session session{silent.settings, silent.ui, clock};
    compute(session);
    const std::string tabs = summaryText(session);
    EXPECT_EQ(tabs, fileContent(METRISK_SOURCE_DIR "/tests/persistence/data/golden.sum"));
    session.record.Delimiter = "Comma";
    EXPECT_NE(summaryText(session).find("Report Submitter,\"Jane \"\"Doe\"\", QA\"\r\n"), std::string::npos);
}

TEST(Summary, FiguresOfOtherEntriesAreNotComputed) {
    SilentSession silent;
    compute(silent.session);
    silent.session.record.SU_PctInTol = 91;
    EXPECT_FALSE(summaryAllowed(silent.session));
    EXPECT_EQ(silent.ui.boxes, 1);
    const std::string text = summaryText(silent.session);
    for (const char* label : {"\nFalse Accept Risk", "Equivalent Accuracy Ratio", "Subject Parameter Bias",
                              "Estimated True Value", "Bias Uncertaint", "\r\nTrue % In-Tolerance",
                              "Observed Subject Parameter % In-Tolerance"})
        EXPECT_NE(text.find(label + std::string("\tNot Computed\r\n")), std::string::npos) << label;
}

TEST(Summary, CellsAreParted) {
    for (const auto& [separator, text] :
         {std::pair{'\t', "a,b\t\"c\" d\t\r\n"}, {',', "\"a,b\",\"\"\"c\"\" d\",\r\n"}}) {
        SummaryText table(separator);
        table.row({"a,b", "\"c\"\nd", ""});
        EXPECT_EQ(table.text(), text);
    }
}

TEST(Summary, IsSavedUnderItsOwnName) {
    const TemporaryFolder folder;
    TestDesktop desk;
    const std::string own = folder.write("own.mrk", "").string();
    SilentSession silent;
    compute(silent.session);
    static_cast<Analysis&>(desk.record) = silent.session.record;
    desk.record.AnalysisFileName = own;
    desk.session.places.HomeDirectory = "/home";
    const std::string taken = folder.write("taken.SUM", "old").string(), bare = (folder / "bare").string();
    desk.chooser.answers = {"", own, taken, bare, bare, (folder / "none/x").string()};
    for (int i = 0; i < 3; ++i) {
        if (i == 1)
            desk.ui.expectBox("own.mrk",
                              "Error Writing Summary Data\n\nThis is the file of the analysis itself.");
        SaveSummary(desk.session);
    }
    EXPECT_EQ(desk.chooser.requests[0].title, "Save Data to Summary File");
    EXPECT_EQ(desk.chooser.requests[0].filter, "Summary Files Files (*.sum)|*.sum|");
    EXPECT_EQ(desk.chooser.requests[0].initialFolder, "/home");
    EXPECT_EQ(fileContent(taken), summaryText(desk.session));
    SaveSummary(desk.session);
    desk.ui.expectBox("Save Data to Summary File", bare + ".sum already exists.\nDo you want to replace it?",
                      Answer::No, yesNo);
    SaveSummary(desk.session);
    desk.ui.expectBox("x.sum", "Error Writing Summary Data\n\nNo such file or directory");
    SaveSummary(desk.session);
    EXPECT_FALSE(desk.record.AbortFlag);

    desk.record.SU_PctInTol = 91;
    desk.ui.expectBox("Invalid Save",
                      "Cannot save analysis results to summary data file.\nComputed False Accept "
                      "and False Reject risks\nwere not generated from these entries.");
    SaveSummary(desk.session);
    EXPECT_FALSE(desk.record.AbortFlag);
    EXPECT_EQ(fileContent(own), "");
}

} // namespace
} // namespace metrisk::testing
