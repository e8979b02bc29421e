// Desktop entries, associations, and the preferred programs.
#include "links/Programs.h"
#include "links/Associations.h"
#include "links/DesktopEntry.h"
#include "links/PreferredPrograms.h"
#include "tests/links/ProgramFiles.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

using Words = std::vector<std::string>;
const std::string document = "/a b/c\"%.ods";

TEST(DesktopEntry, ExecIsExpandedWithoutAShell) {
    const struct {
        const char* exec;
        Words alone, with;
    } rows[] = {
        {"calc", {"calc"}, {"calc", document}},
        {"calc %U", {"calc"}, {"calc", "file:///a%20b/c%22%25.ods"}},
        {"calc --in=%f -x", {"calc", "--in=", "-x"}, {"calc", "--in=" + document, "-x"}},
        {"calc %i %c %k %d",
         {"calc", "--icon", "pic", "A Name", "/e"},
         {"calc", "--icon", "pic", "A Name", "/e", document}},
        {"\"a b\" \"q\\\"\\$\\\\z\" 5%% \"%f\"",
         {"a b", "q\"$\\z", "5%", "%f"},
         {"a b", "q\"$\\z", "5%", "%f", document}},
        {"env W=\"/a b\" wine C:\\\\x\\\\y.exe ';|$(ls)' &",
         {"env", "W=/a b", "wine", "C:\\x\\y.exe", ";|$(ls)", "&"},
         {"env", "W=/a b", "wine", "C:\\x\\y.exe", ";|$(ls)", "&", document}},
        {"calc \"\" \t%F", {"calc", ""}, {"calc", "", document}},
        {"calc \"a", {}, {}},
        {"calc %", {}, {}},
        {"calc %z", {}, {}},
        {" ", {}, {}},
        {"%f", {}, {document}},
    };
    for (const auto& row : rows) {
        const DesktopEntry entry{.Name = "A Name", .Icon = "pic", .Exec = row.exec};
        EXPECT_EQ(expandExec(entry, "/e", "").value_or(Words{}), row.alone) << row.exec;
        EXPECT_EQ(expandExec(entry, "/e", document).value_or(Words{}), row.with) << row.exec;
    }
    EXPECT_TRUE(isPlainExec({.Exec = "\"my calc\" %F %i"}));
    EXPECT_FALSE(isPlainExec({.Exec = "calc %% %F"}));
    EXPECT_FALSE(isPlainExec({.Exec = "calc --calc %F"}));
}

TEST(DesktopEntry, IsReadFromItsGroup) {
    const auto entry =
        readDesktopEntry("# Exec=no\r\n[Desktop Entry]\r\nType = Application\r\nExec = a\\\\\\\\b\\s%f\r\n"
                         "Exec=second\nName[de]=Nein\nTerminal=true\n[Desktop Action x]\nName=No\n");
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->Exec, "a\\\\b %f");
    EXPECT_TRUE(entry->Terminal && entry->Name.empty());
    for (const char* text : {"", "[Desktop Entry]\nType=Link\nExec=a",
                             "[Desktop Entry]\nType=Application\nDBusActivatable=true"})
        EXPECT_FALSE(readDesktopEntry(text)) << text;
}

TEST(Associations, ListsGoBeforeCachesAndTheUserBeforeTheSystem) {
    const ProgramFiles files;
    const auto apps = [&](const char* of) { return files.folder / of / "applications"; };
    const AssociationPlaces places{{files.folder / "config"}, {apps("user"), apps("system")}, {"gnome"}};
    files.entry("system/applications/one.desktop", "true");
    files.entry("system/applications/kde/two.desktop", "true");
    files.entry("user/applications/three.desktop", "true");
    files.entry("system/applications/hidden.desktop", "true");
    files.entry("user/applications/hidden.desktop", "true", "Hidden=true");
    files.entry("user/applications/gone.desktop", "true", "TryExec=no-such-program");
    files.write("system/applications/mimeinfo.cache",
                "[MIME Cache]\na/b=hidden.desktop;one.desktop;\nc/d=one.desktop\ng/h=one.desktop\n");
    files.write("user/applications/mimeapps.list",
                "[Default Applications]\ne/f=three.desktop\n[Removed Associations]\ng/h=one.desktop\n");
    files.write("config/gnome-mimeapps.list",
                "[Default Applications]\nc/d=nowhere.desktop;gone.desktop;kde-two.desktop\n");
    files.write(
        "config/mimeapps.list",
        "[Default Applications]\nc/d=one.desktop\n[Added Associations]\ni/j=../one.desktop;one.desktop\n");
    const struct {
        Words types;
        std::string entry, type;
    } rows[] = {
        {{"a/b"}, apps("system") / "one.desktop", "a/b"},
        {{"c/d"}, apps("system") / "kde/two.desktop", "c/d"},
        {{"e/f"}, apps("user") / "three.desktop", "e/f"},
        {{"g/h"}, "", ""},
        {{"x/y", "i/j"}, apps("system") / "one.desktop", "i/j"},
    };
    for (const auto& row : rows) {
        const Association found = findAssociation(row.types, places);
        EXPECT_EQ(found.entry, row.entry) << row.types[0];
        EXPECT_EQ(found.type, row.type);
    }
}

struct PreferredTest : ::testing::Test, TestDesktop {
    ProgramFiles files;
    std::string calc = files.program("bin/my calc");
    const char* spreadsheet = "Preferred Spreadsheet";
    const char* missing = "Unable to locate a spreadsheet application.  Do you want to set this up?";

    std::string stored() const { return settings.ReadSetting(spreadsheet, "Path", "", 300); }
    void expectImproper() {
        ui.expectBox("Improper Application", "The application is not executable.",
                     BoxKind{BoxIcon::Critical});
    }
};

TEST_F(PreferredTest, StartsWhatIsStoredAndAsksOtherwise) {
    settings.WriteSetting(spreadsheet, "Path", " " + calc + " ");
    RunSpreadsheet(session);
    EXPECT_EQ(programs.started, (std::vector<Launch>{{calc, {}, files.folder / "bin"}}));
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        settings.WriteSetting(spreadsheet, "Path", (files.folder / "gone").string());
        ui.expectBox("Missing Application", missing, answer);
        if (answer == Answer::Yes) chooser.answers = {calc};
        RunSpreadsheet(session);
    }
    EXPECT_EQ(programs.started.size(), 2U);
    EXPECT_EQ(chooser.requests.at(0).title, "Locate an Example Spreadsheet File");
    settings.WriteSetting(spreadsheet, "Path", "");
    ui.expectBox("Missing Application", missing, Answer::Yes);
    chooser.answers = {""};
    RunSpreadsheet(session);
    EXPECT_EQ(stored(), "");
}

TEST_F(PreferredTest, AnExampleFileTellsTheProgram) {
    const std::string sheet = files.write("sheet.ods", "");
    const struct {
        const char* exec;
        const char* more;
        std::string kept; // none: refused
    } rows[] = {{"'%s' %%U", "", calc},
                {"'%s' --calc %%U", "", "entry"},
                {"'%s' %%U", "Terminal=true", ""},
                {"gone %%U", "", ""},
                {"'%s", "", ""}};
    for (const auto& row : rows) {
        char exec[500];
        std::snprintf(exec, sizeof exec, row.exec, calc.c_str());
        programs.association.entry = files.entry("office.desktop", exec, row.more);
        settings.WriteSetting(spreadsheet, "Path", "before");
        chooser.answers = {sheet};
        if (row.kept.empty()) expectImproper();
        EXPECT_EQ(LocateApplication(session, Preferred::Spreadsheet), !row.kept.empty()) << exec;
        EXPECT_EQ(stored(), row.kept.empty()      ? "before"
                            : row.kept == "entry" ? programs.association.entry
                                                  : calc);
    }
    programs.association.entry = files.entry("office.desktop", "'" + calc + "' --calc %U", "Path=/");
    settings.WriteSetting(spreadsheet, "Path", programs.association.entry);
    RunSpreadsheet(session);
    EXPECT_EQ(programs.started.back(), (Launch{calc, {"--calc"}, "/"}));
    chooser.answers = {files.write("noextension", "")}; // its folder's name has a point, it has none
    expectImproper();
    EXPECT_FALSE(LocateApplication(session, Preferred::Calculator));
}

TEST_F(PreferredTest, ACalculatorOfTheDesktopServesUntilOneIsChosen) {
    const SearchPath path(files.folder / "bin");
    files.program("bin/xcalc");
    files.program("bin/kcalc");
    RunCalculator(session);
    EXPECT_EQ(programs.started.at(0).program, files.folder / "bin/kcalc");
    programs.failure = "crashed";
    ui.expectBox("Missing Calculator",
                 "Unable to locate the preferred calculator.  Do you want to find this yourself?",
                 Answer::No);
    RunCalculator(session);
    EXPECT_EQ(programs.started.size(), 3U); // both were tried
    session.desktop = nullptr;
    RunCalculator(session);
}

} // namespace
} // namespace metrisk::testing
