// Desktop entries, associations, and the preferred programs.
#include "links/Programs.h"
#include "desk/links/PreferredPrograms.h"
#include "links/Associations.h"
#include "links/DesktopEntry.h"
#include "tests/links/ProgramFiles.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

using Words = std::vector<std::string>;
const std::string document = "/a b/c\"%.ods";

TEST(DesktopEntry, ExecIsExpandedWithoutAShell) {
    // Expected arguments end in "|" each; D is the document.
    const struct {
        const char *exec, *alone, *with;
    } rows[] = {
        {"calc", "calc|", "calc|D|"},
        {"calc %U", "calc|", "calc|file:///a%20b/c%22%25.ods|"},
        {"calc --in=%f -x", "calc|--in=|-x|", "calc|--in=D|-x|"},
        {"calc %i %c %k %d", "calc|--icon|pic|A Name|/e|", "calc|--icon|pic|A Name|/e|D|"},
        {"\"a b\" \"q\\\"\\$\\\\z\" 5%% \"%f\"", "a b|q\"$\\z|5%|%f|", "a b|q\"$\\z|5%|%f|D|"},
        {"env W=\"/a b\" C:\\\\y.exe ';$(ls)' &", "env|W=/a b|C:\\y.exe|;$(ls)|&|",
         "env|W=/a b|C:\\y.exe|;$(ls)|&|D|"},
        {"calc \"\" \t%F", "calc||", "calc||D|"},
        {"calc \"a", "", ""},
        {"calc %", "", ""},
        {"calc %z", "", ""},
        {" ", "", ""},
        {"%f", "", "D|"},
    };
    const auto joined = [](const std::optional<Words>& words) {
        std::string text;
        for (const std::string& word : words.value_or(Words{})) text += word + '|';
        if (const auto at = text.find(document); at != text.npos) text.replace(at, document.size(), "D");
        return text;
    };
    for (const auto& row : rows) {
        const DesktopEntry entry{.Name = "A Name", .Icon = "pic", .Exec = row.exec};
        EXPECT_EQ(joined(expandExec(entry, "/e", "")), row.alone) << row.exec;
        EXPECT_EQ(joined(expandExec(entry, "/e", document)), row.with) << row.exec;
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
    const std::string quoted = "'" + calc + "'", office = files.folder / "office.desktop";
    programs.association.entry = office;
    const struct {
        std::string exec, more, kept;
    } rows[] = {{quoted + " %U", "Terminal=true", "before"},
                {"gone %U", "", "before"},
                {"'" + calc, "", "before"},
                {quoted + " %U", "", calc},
                {quoted + " --calc %U", "Path=/", office}};
    settings.WriteSetting(spreadsheet, "Path", "before");
    for (const auto& row : rows) {
        files.entry("office.desktop", row.exec, row.more);
        chooser.answers = {sheet};
        if (row.kept == "before") expectImproper();
        EXPECT_EQ(LocateApplication(session, Preferred::Spreadsheet), row.kept != "before") << row.exec;
        EXPECT_EQ(stored(), row.kept);
    }
    RunSpreadsheet(session);
    EXPECT_EQ(programs.started.back(), (Launch{calc, {"--calc"}, "/"}));
    chooser.answers = {files.write("a.b/noextension", "")};
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
