// The notes of an analysis: their name, their making and their opening.
#include "desk/files/Notes.h"
#include "desk/observed/ObservedScreen.h"
#include "tests/support/Hand.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

const char* const needed = "Please enter a file name and location for the current analysis.";

TEST(Notes, BearTheNameOfTheAnalysis) {
    const TemporaryFolder folder;
    TestDesktop desk;
    for (const auto& [analysis, notes] :
         {std::pair{"a.mrk", "a.rtf"}, {"B.MRK", "B.rtf"}, {"c.Dat", "c.rtf"}, {"d.e.mrk", "d.e.rtf"}}) {
        folder.write("a.rtf", "kept");
        desk.record.AnalysisFileName = (folder / analysis).string();
        OpenNotes(desk.session);
        EXPECT_EQ(desk.programs.opened.back(), (folder / notes).string());
        EXPECT_EQ(fileContent(folder / notes), notes[0] == 'a' ? "kept" : "");
    }
    desk.programs.failure = "No program is known";
    desk.ui.expectBox("Unable to Open File", "No program is known");
    OpenNotes(desk.session);
    desk.record.AnalysisFileName = (folder / "none/a.mrk").string();
    desk.ui.expectBox("Unable to Open File",
                      (folder / "none/a.rtf").string() + ": No such file or directory");
    OpenNotes(desk.session);
    EXPECT_FALSE(desk.record.FileChanged);
}

TEST(Notes, AskForANameFirst) {
    const TemporaryFolder folder;
    TestDesktop desk;
    desk.ui.expectBox("Enter a Metrisk file name.", needed, Answer::Cancel, okCancel);
    OpenNotes(desk.session);
    desk.chooser.answers = {"", (folder / "volts").string()};
    for (int i = 0; i < 2; ++i) {
        desk.ui.expectBox("Enter a Metrisk file name.", needed, Answer::Ok, okCancel);
        OpenNotes(desk.session);
    }
    EXPECT_EQ(desk.chooser.requests[1].title, "File Name for Notes");
    EXPECT_EQ(desk.chooser.requests[1].filter, "(*.mrk)|*.mrk|");
    EXPECT_EQ(desk.record.AnalysisFileName, (folder / "volts.mrk").string());
    EXPECT_TRUE(desk.record.FileChanged);
    EXPECT_EQ(desk.programs.opened, std::vector{(folder / "volts.rtf").string()});
}

TEST(Notes, ANameOutlivesAWorksheetThatIsCancelled) {
    const TemporaryFolder folder;
    TestDesktop desk;
    {
        ObservedScreen screen(desk.session);
        desk.ui.expectBox("Enter a Metrisk file name.", needed, Answer::Ok, okCancel);
        desk.chooser.answers = {(folder / "volts.mrk").string()};
        choose(screen, "mnu_Notes");
        EXPECT_TRUE(screen.close(Way::Cancel));
    }
    EXPECT_EQ(desk.record.AnalysisFileName, (folder / "volts.mrk").string());
    EXPECT_TRUE(desk.record.FileChanged);
}

} // namespace
} // namespace metrisk::testing
