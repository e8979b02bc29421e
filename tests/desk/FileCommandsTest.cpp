// Opening and saving analyses, the questions before losing one, and the way out.
#include "desk/shell/FileCommands.h"
#include "desk/mainscreen/MainDisplay.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/shell/RecentFiles.h"
#include "tests/support/Cases.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace metrisk::testing {
namespace {

struct Program : TestSession {
    TemporaryFolder folder;
    ScriptedChooser chooser;
    MainScreen main{session};
    FileCommands files{session, main, chooser};

    std::string path(const std::string& name) { return (folder / name).string(); }
    void expectSaveQuestion(const std::string& name, Answer answer) {
        ui.expectBox("Save Analysis", "Save changes to " + name + "?", answer, yesNoCancel);
    }
};

TEST(FileCommands, SaveAsThenOpenBringsTheAnalysisBack) {
    Program program;
    enter(program.record, Entry{});
    program.record.SU_Manufacturer = "Acme";
    program.record.FileChanged = true;
    program.chooser.answers = {program.path("volts")};
    ASSERT_TRUE(program.files.mnu_File_Save()) << "an untitled analysis asks for a name";
    EXPECT_EQ(program.chooser.requests[0].title, "Save Analysis As");
    EXPECT_EQ(program.chooser.requests[0].filter, "Analysis Files (*.mrk)|*.mrk");
    EXPECT_EQ(program.chooser.requests[0].initialName, "*.mrk");
    EXPECT_EQ(mainCaption(program.session), program.path("volts.mrk") + " - Metrisk");
    EXPECT_FALSE(program.record.FileChanged);

    ASSERT_TRUE(program.files.NewAnalysisFile());
    EXPECT_EQ(mainCaption(program.session), "(Untitled) - Metrisk");
    EXPECT_EQ(program.record.SU_PctInTol, 0);

    program.chooser.answers = {"  " + program.path("volts.mrk") + " "};
    ASSERT_TRUE(program.files.mnu_File_Open());
    EXPECT_EQ(program.chooser.requests[1].title, "Open Analyis File");
    EXPECT_EQ(program.chooser.requests[1].filter,
              "Analysis Files (*.mrk)|*.mrk|Analysis Files (*.dat)| *.dat");
    EXPECT_EQ(program.chooser.requests[0].initialFolder, "") << "the user's documents";
    EXPECT_EQ(program.chooser.requests[1].initialFolder, program.folder.path().string());
    EXPECT_EQ(program.record.SU_Manufacturer, "Acme");
    EXPECT_GT(program.record.SU_Sigma, 0);
    EXPECT_EQ(program.ui.focusMoves.back(), "SystemIDBox");
    EXPECT_FALSE(program.record.FileChanged);
    EXPECT_FALSE(program.record.LoadInProgress);
    program.main.DetectChanges();
    EXPECT_FALSE(program.record.FileChanged);
    EXPECT_EQ(recentFiles(program.settings), std::vector{program.path("volts.mrk")});
}

TEST(FileCommands, QuestionsBeforeAnAnalysisIsLost) {
    for (const Answer answer : {Answer::Cancel, Answer::No, Answer::Yes}) {
        Program program;
        enter(program.record, Entry{});
        program.record.FileChanged = true;
        program.expectSaveQuestion("(Untitled)", answer);
        if (answer == Answer::Yes) program.chooser.answers = {""};
        const bool gone = program.files.NewAnalysisFile();
        EXPECT_EQ(gone, answer == Answer::No) << "a save that is cancelled keeps the analysis";
        EXPECT_EQ(program.record.SU_Mode, gone ? 0 : 10);
    }
    Program program;
    program.record.SU_Qualifier1 = "edited without an event";
    program.expectSaveQuestion("(Untitled)", Answer::Cancel);
    EXPECT_FALSE(program.files.mnu_File_Open());
    program.record.FileReadOnly = true;
    program.chooser.answers = {""};
    EXPECT_FALSE(program.files.mnu_File_Open());
    program.record.AnalysisFileName = "a.mrk";
    program.ui.expectBox("Read Only File", "File is read only.  Cannot save changes.");
    EXPECT_FALSE(program.files.mnu_File_Save());
}

TEST(FileCommands, FailedOpenLeavesTheFileAlone) {
    Program program;
    const std::string path = program.path("letter.mrk");
    std::ofstream(path) << "Dear customer";
    program.ui.expectBox("letter.mrk", "Not a valid Analysis file.", note);
    EXPECT_FALSE(program.files.openPath(path));
    EXPECT_EQ(program.record.AnalysisFileName, "(Untitled)");
    EXPECT_FALSE(program.record.LoadInProgress);
    EXPECT_TRUE(recentFiles(program.settings).empty());
    program.main.DetectChanges();
    EXPECT_FALSE(program.record.FileChanged) << "what is left of the letter is not asked about";
    program.chooser.answers = {""};
    EXPECT_FALSE(program.files.mnu_File_Save()) << "save asks for a name instead of writing over the letter";
}

TEST(FileCommands, AFileThatIsGoneLeavesTheAnalysisAndTheList) {
    Program program;
    enter(program.record, Entry{});
    program.main.TakeSavedCopy();
    addRecentFile(program.settings, program.path("gone.mrk"));
    program.ui.expectBox("gone.mrk", "Error Reading Analysis Data");
    EXPECT_FALSE(program.files.openPath(program.path("gone.mrk")));
    EXPECT_EQ(program.record.SU_Mode, 10);
    EXPECT_TRUE(recentFiles(program.settings).empty());
}

TEST(FileCommands, FailedSaveKeepsNameAndChanges) {
    Program program;
    program.record.AnalysisFileName = program.path("a.mrk");
    program.record.FileChanged = true;
    const std::string target = program.path("no such folder/b.mrk");
    program.chooser.answers = {target};
    program.ui.expectBox("b.mrk", "Error Writing Analysis Data");
    EXPECT_FALSE(program.files.mnu_File_SaveAs());
    EXPECT_EQ(program.record.AnalysisFileName, program.path("a.mrk"));
    EXPECT_TRUE(program.record.FileChanged);
}

TEST(FileCommands, ChangedExtensionNeverReplacesSilently) {
    Program program;
    program.record.AnalysisFileName = program.path("old.DAT");
    std::ofstream(program.path("old.mrk")) << "precious";
    program.ui.expectBox("Save Analysis As",
                         program.path("old.mrk") + " already exists.\nDo you want to replace it?",
                         Answer::No);
    EXPECT_FALSE(program.files.mnu_File_Save());
    EXPECT_EQ(std::filesystem::file_size(program.path("old.mrk")), 8U);
    program.ui.expectBox("Save Analysis As",
                         program.path("old.mrk") + " already exists.\nDo you want to replace it?",
                         Answer::Yes);
    EXPECT_TRUE(program.files.mnu_File_Save());
    EXPECT_EQ(program.record.AnalysisFileName, program.path("old.mrk"));
}

TEST(FileCommands, ReminderOnceAnOpen) {
    Program program;
    enter(program.record, Entry{});
    program.record.FalseAcceptOption = 1;
    program.chooser.answers = {program.path("producer.mrk")};
    ASSERT_TRUE(program.files.mnu_File_SaveAs());
    program.ui.expectBox(
        "False Accept Risk Option Reminder",
        "Notice: In this analysis, the False Accept Risk Option is\nreferenced to the producer's "
        "perspective.\n\nThe default False Accept Risk Option is referenced to the\nconsumer's "
        "perspective.",
        note);
    EXPECT_TRUE(program.files.openAtStart(program.path("producer.mrk")));
}

TEST(FileCommands, WayOut) {
    constexpr const char* text = "This will end your Metrisk session.";
    int removed = 0;
    const auto remove = [&] { ++removed; };
    Program program;
    program.ui.expectBox("Exit Metrisk", text, Answer::Cancel, okCancel);
    EXPECT_FALSE(program.files.ExitAnalysis(remove));
    EXPECT_EQ(removed, 0);
    program.record.SU_Mode = 3;
    program.ui.expectBox("Exit Metrisk", text, okCancel);
    program.expectSaveQuestion("(Untitled)", Answer::Cancel);
    EXPECT_FALSE(program.files.ExitAnalysis(remove));
    EXPECT_EQ(removed, 1) << "what the confirmation removed stays removed";
    program.ui.expectBox("Exit Metrisk", text, okCancel);
    program.expectSaveQuestion("(Untitled)", Answer::No);
    EXPECT_TRUE(program.files.ExitAnalysis(remove));
}

TEST(RecentFiles, NewestFirstWithoutRepeats) {
    TestSession test;
    for (int i = 1; i <= mostRecentFiles + 2; ++i) addRecentFile(test.settings, "f" + std::to_string(i));
    addRecentFile(test.settings, "f5");
    EXPECT_EQ(recentFiles(test.settings),
              (std::vector<std::string>{"f5", "f10", "f9", "f8", "f7", "f6", "f4", "f3"}));
    EXPECT_EQ(test.settings.ReadSetting("Recent Files", "File1", "", wholeValue), "f5");
}

} // namespace
} // namespace metrisk::testing
