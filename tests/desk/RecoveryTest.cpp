// Unsaved work that outlives the program, and files that other programs change meanwhile.
#include "desk/shell/Recovery.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/files/AnalysisFile.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/points/PointDesk.h"
#include "desk/points/PointRecovery.h"
#include "desk/shell/FileCommands.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace metrisk::testing {
namespace {

struct Program : TestSession {
    ScriptedChooser chooser;
    MainScreen main{session};
    FileCommands files{session, main, chooser};
    Recovery recovery;

    explicit Program(const std::filesystem::path& folder) : recovery(session, folder) {
        files.settled = [this] { recovery.remove(); };
    }
    bool offer() {
        return recovery.offer([this] { files.showOpened(); });
    }
};

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Works as the window does, and dies without a word.
void workAndDie(const std::filesystem::path& folder, const std::filesystem::path& file) {
    const pid_t child = ::fork();
    if (child == 0) {
        Program p(folder);
        enter(p.record, Entry{});
        WriteAnalysis(p.session, file.string());
        p.record.AnalysisFileName = file.string();
        p.record.SU_PctInTol = 93.25;
        p.record.FileChanged = true;
        p.recovery.update(true);
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
}

std::string question(const std::filesystem::path& copy, const char* name = "one.mrk") {
    struct stat status {};
    ::stat(copy.c_str(), &status);
    std::tm local{};
    ::localtime_r(&status.st_mtime, &local);
    char time[32];
    std::strftime(time, sizeof time, "%Y-%m-%d %H:%M:%S", &local);
    return std::string("Metrisk ended before \"") + name + "\" was saved. Open the unsaved copy from " +
           time + "?";
}

TEST(Recovery, WhatADeadProgramLeftIsOffered) {
    const TemporaryFolder temporary;
    const auto folder = temporary / "state";
    const auto file = temporary / "one.mrk";
    workAndDie(folder, file);
    const auto copies = abandonedCopies(folder);
    ASSERT_EQ(copies.size(), 1u);
    struct stat status {};
    ASSERT_EQ(::stat(copies[0].path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    const std::string saved = contentOf(file);
    Program later(folder);
    const std::string asked = question(copies[0].path);
    later.ui.expectBox("Unsaved Work", asked, Answer::Cancel, yesNoCancel);
    EXPECT_FALSE(later.offer());
    EXPECT_EQ(abandonedCopies(folder).size(), 1u) << "Cancel keeps it";
    later.ui.expectBox("Unsaved Work", asked, Answer::Yes, yesNoCancel);
    EXPECT_TRUE(later.offer());
    EXPECT_EQ(later.record.SU_PctInTol, 93.25);
    EXPECT_EQ(later.record.AnalysisFileName, file.string());
    EXPECT_TRUE(later.record.FileChanged);
    EXPECT_EQ(contentOf(file), saved) << "the file itself is as it was";
    EXPECT_TRUE(abandonedCopies(folder).empty()) << "it is the living program's now";
    Program beside(folder);
    EXPECT_FALSE(beside.offer()) << "of a living program nothing is offered";
    EXPECT_TRUE(later.files.mnu_File_Save());
    EXPECT_TRUE(std::filesystem::is_empty(folder)) << "saved";

    workAndDie(folder, file);
    Program declines(folder);
    declines.ui.expectBox("Unsaved Work", question(abandonedCopies(folder).at(0).path), Answer::No,
                          yesNoCancel);
    EXPECT_FALSE(declines.offer());
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST(Recovery, RowsOfADeadProgramAreOffered) {
    const TemporaryFolder temporary;
    const auto folder = temporary / "tables";
    PointDesk dead;
    dead.sheet = PointSheet::ofText("nominal,tol\r\n1,2\r\n");
    dead.path = "/lab/points.csv";
    dead.sheet.put(0, 1, {{"3"}});
    const pid_t child = ::fork();
    if (child == 0) {
        TestSession p;
        PointRecovery recovery(p.ui, dead, folder);
        recovery.update();
        ::_exit(0); // before the copy is removed
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    const auto copies = abandonedCopies(folder);
    ASSERT_EQ(copies.size(), 1u);
    TestSession later;
    PointDesk desk;
    PointRecovery recovery(later.ui, desk, folder);
    later.ui.expectBox("Unsaved Work", question(copies[0].path, "points.csv"), Answer::Yes, yesNoCancel);
    ASSERT_TRUE(recovery.offer());
    EXPECT_EQ(desk.sheet.text(), dead.sheet.text());
    EXPECT_EQ(desk.path, dead.path);
    EXPECT_TRUE(desk.sheet.changed());
    desk.sheet.markSaved();
    recovery.update();
    EXPECT_TRUE(std::filesystem::is_empty(folder)) << "saved";
}

TEST(Recovery, AnotherTableOfAsManyChangesIsCopiedAnew) {
    const TemporaryFolder temporary;
    TestSession p;
    PointDesk desk;
    PointRecovery recovery(p.ui, desk, temporary / "tables");
    const auto copied = [&](const char* cell) {
        desk.sheet = PointSheet();
        desk.sheet.put(0, 0, {{cell}});
        recovery.update();
        std::ifstream file(std::filesystem::directory_iterator(temporary / "tables")->path());
        return std::string(std::istreambuf_iterator(file), {}).find(cell) != std::string::npos;
    };
    EXPECT_TRUE(copied("1.25"));
    EXPECT_TRUE(copied("7.75"));
}

TEST(Recovery, ChangesNothingAndSkipsWhatIsNone) {
    const TemporaryFolder temporary;
    const auto folder = temporary / "state";
    Program p(folder);
    enter(p.record, Entry{});
    p.record.GB_FARisk = 3; // of other guardbands: a save would drop it
    p.record.FileChanged = true;
    const std::string before = AnalysisText(p.record);
    p.recovery.update(true);
    EXPECT_EQ(AnalysisText(p.record), before);
    EXPECT_TRUE(p.record.FileChanged);
    const auto written = std::filesystem::directory_iterator(folder)->path();
    const auto first = std::filesystem::last_write_time(written);
    p.recovery.update(true);
    EXPECT_EQ(std::filesystem::last_write_time(written), first) << "there is nothing new";
    p.recovery.hold(); // a worksheet has put figures of its own into the record
    p.record.MTE_Offset = 77;
    p.recovery.update(true);
    EXPECT_EQ(contentOf(written).find("77"), std::string::npos);
    p.recovery.settled();
    p.recovery.update(false);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    std::ofstream(folder / "a.unsaved") << "Metrisk unsaved work 1\n99999 0 0 0 0\nx";
    std::ofstream(folder / "b.unsaved") << "";
    EXPECT_TRUE(abandonedCopies(folder).empty());
}

TEST(FileCommands, AskBeforeReplacingWhatAnotherProgramWrote) {
    const TemporaryFolder folder;
    const auto file = folder / "one.mrk";
    Program p(folder / "state");
    enter(p.record, Entry{});
    WriteAnalysis(p.session, file.string());
    ASSERT_TRUE(p.files.openAtStart(file.string()));
    p.record.SU_PctInTol = 90;
    p.record.FileChanged = true;
    std::ofstream(file, std::ios::app) << " ";
    const char* const changed = "The file was changed by another program since it was opened. Replace it?";
    const std::string theirs = contentOf(file);
    p.ui.expectBox("Save Analysis", changed, Answer::No);
    EXPECT_FALSE(p.files.mnu_File_Save());
    EXPECT_EQ(contentOf(file), theirs);
    EXPECT_TRUE(p.record.FileChanged);
    p.ui.expectBox("Save Analysis", changed, Answer::Yes);
    EXPECT_TRUE(p.files.mnu_File_Save());
    EXPECT_TRUE(p.files.mnu_File_Save()) << "its own write is no change";
    std::filesystem::remove(file);
    EXPECT_TRUE(p.files.mnu_File_Save()) << "nothing is lost by writing a file that is not there";
}

TEST(FileCommands, OpensAPathAsTheSystemMeansIt) {
    const TemporaryFolder folder;
    std::filesystem::create_directories(folder / "far/below");
    std::filesystem::create_directory_symlink(folder / "far/below", folder / "link");
    Program p(folder / "state");
    enter(p.record, Entry{});
    WriteAnalysis(p.session, (folder / "far/one.mrk").string());
    EXPECT_TRUE(p.files.openAtStart((folder / "link/../one.mrk").string()));
    EXPECT_EQ(p.record.AnalysisFileName, std::filesystem::canonical(folder / "far/one.mrk").string());
}

} // namespace
} // namespace metrisk::testing
