// Screen form_RunExternal: the list and its file, the rules of its commands, and what is started.
#include "desk/links/RunExternalScreen.h"
#include "tests/links/ProgramFiles.h"
#include "tests/support/Hand.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct RunExternalTest : ::testing::Test, TestDesktop {
    ProgramFiles files;
    std::string calc = files.program("bin/my \"calc\"");
    std::filesystem::path list = files.folder / "Include/Selected Apps.ss3";
    std::optional<RunExternalScreen> screen;

    RunExternalTest() { session.places.HomeDirectory = files.folder.path(); }
    void open() { screen.emplace(session); }
    void enter(const char* name, const std::string& path, const char* extension) {
        type(*screen, "txt_AppName", name);
        type(*screen, "txt_AppPath", path);
        type(*screen, "txt_AppExt", extension);
    }
    void act(const char* name) {
        if (std::string_view(name).starts_with("mnu"))
            choose(*screen, name);
        else
            press(*screen, name);
    }
    void refused(const char* command, const char* title, const char* text, const BoxKind& kind = warning) {
        ui.expectBox(title, text, kind);
        act(command);
        ui.verifyAllShown();
    }
};

TEST_F(RunExternalTest, TheListIsEditedAndKept) {
    open();
    enter(" Calc\t1 ", calc, ".ods");
    act("mnu_Edit_0");
    refused("mnu_Edit_0", "Metrisk", "The Application is already in the list.");
    enter("Other", "", "ODS");
    refused("mnu_Edit_0", "Metrisk", "The File Extension is already in the list");
    enter("Other", "", "");
    refused("mnu_Edit_0", "Metrisk", "There is no Application Path.");
    enter(" ", calc, "");
    refused("mnu_Edit_0", "No Application Name", "Please enter an Application Name.");
    const char* noFiles =
        "No File Extension has been entered.\nThis is appropriate if no files are associated with the "
        "application.\nIs this the case?";
    enter("Other", calc, "");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        ui.expectBox("No File Extension", noFiles, answer);
        act("mnu_Edit_0");
        EXPECT_EQ(screen->Lst_Apps.items.size(), answer == Answer::Yes ? 2U : 1U);
    }
    type(*screen, "txt_AppName", "calc 1");
    refused("mnu_Update_0", "Metrisk", "The Application is already in the list.");
    enter("Third", "/x", "txt");
    for (const char* update : {"mnu_Update_0", "mnu_Update_1", "mnu_Update_2"}) act(update);
    EXPECT_FALSE(std::filesystem::exists(list)); // until it is left
    EXPECT_TRUE(screen->close(Way::Cancel));
    EXPECT_EQ(fileContent(list), "Calc 1\t" + calc + "\tods\nThird\t/x\ttxt\n");
    open();
    refused("mnu_Edit_2", "No Application", "An Application Name must be entered or selected.");
    screen->choose(screen->Lst_Apps, 0);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        ui.expectBox("Remove Application",
                     "Are you sure you want to remove the selected application from the list?", answer);
        act("mnu_Edit_2");
    }
    EXPECT_EQ(screen->Lst_Apps.items, std::vector<std::string>{"Third"});
}

TEST_F(RunExternalTest, ADamagedListIsLostAndAnUnreadableOneStays) {
    for (const char* damaged : {"a\tb\n", "a\tb\tc\td\n", "\tb\tc\n", "a\t\t\na\t\t\n", "\xff\t\t\n", "\n"}) {
        files.write("Include/Selected Apps.ss3", damaged);
        open();
        EXPECT_TRUE(screen->Lst_Apps.items.empty());
        EXPECT_FALSE(std::filesystem::exists(list)) << damaged;
    }
    std::filesystem::create_directory(list); // nothing that can be read
    open();
    enter("A", "/x", "ext");
    act("mnu_Edit_0");
    ui.expectBox("Run External Application", "The list of applications could not be saved.", warning);
    EXPECT_TRUE(screen->close(Way::Ok));
    EXPECT_TRUE(std::filesystem::is_directory(list));
}

TEST_F(RunExternalTest, ProgramsAreStartedWithTheirFiles) {
    const std::string sheet = files.write("a b'\".ods", "");
    files.write("Include/Selected Apps.ss3",
                "Calc\t" + calc + "\tods\nExe\t" + calc + "\texe\nGone\t/no/such\tabc\nNone\t\t\n");
    open();
    const char* selectOne =
        "If adding a new application, you must add it to the list before it can be launched.\n";
    refused("cmd_Run", "No Action",
            (selectOne + std::string("Otherwise, select the application to be run from the list.")).c_str());
    act("cmd_NewApp");
    refused("cmd_Run", "No Action",
            (selectOne + std::string("To do this, click Add on the Run External Application menu.")).c_str());
    const auto pick = [this](int row, const std::string& file = "") {
        screen->choose(screen->Lst_Apps, row);
        type(*screen, "txt_FilePath", file);
    };
    const std::string bin = files.folder / "bin";
    pick(0, sheet);
    act("cmd_Run");
    act("chk_NewFile");
    act("cmd_Run");
    act("chk_NewFile");
    pick(1, sheet);
    act("cmd_Run");
    EXPECT_EQ(programs.started,
              (std::vector<Launch>{{calc, {sheet}, bin}, {calc, {}, bin}, {calc, {}, bin}}));
    pick(2, sheet);
    refused("cmd_Run", "Metrisk", "Please associate the 'abc' file extension with the desired application");
    pick(2);
    refused("cmd_Run", "Improper Application", "The application is not executable.",
            BoxKind{BoxIcon::Critical});
    pick(3);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        ui.expectBox(
            "Open *.exe File?",
            "No application has been selected.  Only applications with an 'exe' extension can be opened.\n"
            "Do you want to open such an application?",
            answer);
        if (answer == Answer::No)
            ui.expectBox("Metrisk", "No application selected.", warning);
        else
            chooser.answers = {calc};
        act("cmd_Run");
    }
    EXPECT_EQ(programs.started.size(), 4U);
}

TEST_F(RunExternalTest, BrowsingTellsProgramsAndExtensionsApart) {
    open();
    refused("cmd_Browse", "No Application", "An Application Name must be entered or selected.");
    refused("cmd_BrowseFiles", "No Extension",
            "You need to enter a file extension for the file type of interest.");
    enter("Calc", "", "xlsx");
    chooser.answers = {calc, files.write("text.txt", "")};
    act("cmd_Browse");
    refused("cmd_Browse", "Improper Application", "The application is not executable.",
            BoxKind{BoxIcon::Critical});
    EXPECT_EQ(screen->txt_AppPath.text, calc);
    chooser.answers = {"/a.b/file.XLSX", "/file.ods", "/a.ods/file", "/file.html"};
    act("cmd_BrowseFiles");
    EXPECT_EQ(chooser.requests.back().filter, "Calc Files (*.xlsx)|*.xlsx");
    refused("cmd_BrowseFiles", "Extension Mismatch",
            "The file extension of the file path must match the file extension in the File Extension box.");
    for (int i = 0; i < 2; ++i)
        refused("cmd_BrowseFiles", "No Extension",
                "The file name must include a 3-character file extension.");
    EXPECT_EQ(screen->txt_FilePath.text, "/a.b/file.XLSX");
}

} // namespace
} // namespace metrisk::testing
