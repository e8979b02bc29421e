// What an answer may do, and what the user is asked, over a carrier without sockets.
#include "desk/links/DDE_Form.h"
#include "desk/uncertainty/MTEErrorScreen.h"
#include "tests/links/PartnerText.h"
#include "tests/links/ProgramFiles.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestDesktop.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace metrisk::testing {
namespace {

using namespace std::chrono_literals;

struct ScriptedCarrier final : Carrier {
    std::vector<std::string> running{"ERLED2|DDE_Form"}; // topics
    std::vector<std::string> said;
    bool ear = true;

    bool listen() override { return ear; }
    bool isListening() const override { return ear; }
    bool poke(const std::string& topic, std::span<const Poke> pokes) override {
        const bool there = std::ranges::find(running, topic) != running.end();
        for (const Poke& poke : pokes)
            if (there) said.push_back(topic + " " + poke.item + "=" + poke.text);
        return there;
    }
};

struct DdeTest : ::testing::Test, TestDesktop {
    EmptyScreen screen;
    ProgramFiles files;
    ScriptedCarrier carrier;
    DDE_Form link{session, carrier};
    DDE_Form::Clock::time_point time{};
    std::string home = files.folder.path();
    int cleared = 0;
    bool maySave = true;

    DdeTest() {
        session.places.HomeDirectory = home;
        desktop.errorLedger = &link;
        link.now = [this] { return time; };
    }
    ImportTarget target() {
        return {.screen = screen, .session = session, .takesTolerances = true, .clearEntries = [this] {
                    ++cleared;
                    return maySave;
                }};
    }
    void give(const std::string& text) { files.write("ELDTEMP", text); }
    void answer(const std::string& folder) { carrier.received({"txt_RequestAcknowledged", folder}); }
    /// Request and answer.
    void import() {
        record.FileChanged = false;
        ASSERT_TRUE(link.LinkToErrorLedger(target()));
        answer(home + "/");
        ui.verifyAllShown();
    }
    void wanted(Answer answer = Answer::Yes) { expectWanted(ui, answer); }
    void tolerances(Answer answer) { expectTolerances(ui, answer); }
    void expectFailed() {
        ui.expectBox("Link Failed", "For the link to be successful, both Metrisk and\nErrorLedger need to be "
                                    "running on the same computer.");
    }
    void expectUnreadable() { ui.expectBox("ELDTEMP", "Error Reading Analysis Data"); }
};

TEST_F(DdeTest, AnAnswerCountsForAMinuteOnceAndOnItsScreen) {
    give(PartnerText{}.text());
    answer(home); // nobody has asked
    const auto asked = [this] { return link.LinkToErrorLedger(target()); };
    carrier.running = {};
    expectFailed();
    EXPECT_FALSE(asked());
    answer(home);
    carrier.running = {"ERLED3|DDE_Form"};
    ASSERT_TRUE(asked());
    EXPECT_EQ(carrier.said, (std::vector<std::string>{"ERLED3|DDE_Form txt_ReceiveRequest=",
                                                      "ERLED3|DDE_Form txt_ReceiveRequest=" + home}));
    time += 61s;
    answer(home);
    asked();
    ui.screensAreFree = false;
    answer(home);
    ui.screensAreFree = true;
    answer(home);
    asked();
    link.forget(screen);
    answer(home);
    EXPECT_FALSE(record.FileChanged);
    asked();
    time += 60s;
    for (const char* noFolder : {"", "relative"}) answer(noFolder);
    wanted(Answer::No);
    answer(home);
    answer(home);
    carrier.ear = false;
    expectFailed();
    EXPECT_FALSE(asked());
}

TEST_F(DdeTest, TheUserSaysWhatIsTaken) {
    const auto start = [this] {
        record = {};
        enter(record, Entry{});
        cleared = 0;
    };
    const char* clear = "Do you want to clear the current entries?";
    give(PartnerText{}.text());
    start();
    wanted();
    tolerances(Answer::No);
    import();
    EXPECT_EQ(record.SU_Mode, 10);
    EXPECT_EQ(record.SU_UpperOffset, .5);
    EXPECT_EQ(record.ErrTableText[1][3], "0.00125"); // without units: those of the subject, nominal here
    EXPECT_TRUE(record.FileChanged && record.ComputeNeeded);
    for (const bool goesOn : {false, true}) {
        start();
        maySave = goesOn;
        wanted();
        tolerances(Answer::Yes);
        ui.expectBox("New Analysis", clear, Answer::Yes);
        import();
        EXPECT_EQ(cleared, 1);
        EXPECT_EQ(record.SU_UpperLimit, goesOn ? 10.4 : 10.5);
        EXPECT_EQ(record.FileChanged, goesOn);
    }
    start();
    record.NominalUnits = "mm";
    wanted();
    tolerances(Answer::No);
    ui.expectBox("Uncertainty Data Units",
                 "The nominal units of ErrorLedger (V) are not those of this analysis (mm).\nDo you want to "
                 "take its figures as they are?",
                 Answer::No);
    import();
    EXPECT_FALSE(record.FileChanged);

    PartnerText old;
    old.header = "#TRUE#,1.2";
    give(old.beforeTolerances());
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        start();
        wanted();
        ui.expectBox("Obsolete Import",
                     "You are importing from an obsolete version of ErrorLedger.\nNot all update parameters "
                     "will be captured.  ",
                     answer, okCancel);
        import();
        EXPECT_EQ(record.FileChanged, answer == Answer::Ok);
    }
    record.ErrTableText[2][3] = "1";
    give("#FALSE#,1.512\r\n");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        wanted();
        ui.expectBox(
            "Uncertainty Data Unavailable",
            "No data were available from ErrorLedger.\nDo you want to reset the uncertainty data in Metrisk?",
            answer);
        import();
        EXPECT_EQ(record.ErrTableText[2][3], answer == Answer::Yes ? "" : "1");
    }
}

TEST_F(DdeTest, AFileThatIsNotWhatItShouldBeChangesNothing) {
    enter(record, Entry{});
    record.CorrelationMatrix[3][4] = .5;
    import(); // there is none
    EXPECT_TRUE(record.AbortFlag);
    const std::filesystem::path path = files.folder / "ELDTEMP";
    const std::string good = PartnerText{}.text();
    PartnerText bad;
    bad.samples = "0\r\n1\r\n\"many\",\"True\"\r\n"; // found only when it is taken
    const std::function<void()> wrongs[] = {
        [&] { give(good.substr(0, good.size() - 9)); },
        [&] { give(std::string(std::size_t{2} * 1024 * 1024, ' ')); },
        [&] {
            files.write("elsewhere", good);
            std::filesystem::create_symlink("elsewhere", path);
        },
        [&] { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); },
        [&] { std::filesystem::create_directory(path); },
        [&] {
            give(good);
            std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - 10s);
        },
        [&] {
            give(bad.text());
            tolerances(Answer::No);
        }};
    for (const auto& wrong : wrongs) {
        std::filesystem::remove_all(path);
        wanted();
        wrong();
        expectUnreadable();
        import();
        EXPECT_EQ(record.CorrelationMatrix[3][4], .5);
        EXPECT_TRUE(record.AbortFlag && !record.FileChanged && record.ErrTableText[1][3].empty());
    }
}

TEST_F(DdeTest, AnEldFileStartsThePartner) {
    const std::string eld = files.write("budgets/a.eld", ""), program = files.program("bin/ErrorLedger");
    const char* notAssociated = "Please associate the 'eld' file extension with ErrorLedger.exe";
    carrier.running = {};
    const auto import = [&](bool opens) {
        expectFailed();
        if (!opens) ui.expectBox("Metrisk", notAssociated);
        chooser.answers = {eld};
        link.importData(target(), "erled2");
        ui.verifyAllShown();
    };
    programs.association = {"/editor.desktop", "text/plain"}; // opens any text
    import(false);
    programs.association = {"/erled.desktop", "application/x-errorledger"};
    import(true);
    EXPECT_EQ(programs.opened, std::vector<std::string>{eld});
    EXPECT_EQ(link.ErrorLedgerFile + link.LinkVersion, eld + "erled2");
    EXPECT_EQ(link.ErrorLedgerHome, files.folder / "budgets");
    give(PartnerText{}.text());
    wanted(Answer::No);
    answer(home); // the program that has been started
    programs.failure = "no";
    import(false);
    programs = {};
    const struct {
        std::string name;
        const char *title, *text;
    } rows[] = {{"erled1.EXE", "Metrisk", "Please locate Version 2 or 3 of ErrorLedger"},
                {"xcalc", "File Not Found", "The application you located is not ErrorLedger"},
                {"ErrorLedger", nullptr, nullptr}};
    for (const auto& row : rows) {
        if (row.title) ui.expectBox(row.title, row.text);
        chooser.answers = {files.folder / "bin" / row.name};
        link.LocateErrorLedger();
        EXPECT_EQ(link.ErrorLedgerPath.empty(), row.title != nullptr);
    }
    import(true);
    EXPECT_EQ(programs.started, (std::vector<Launch>{{program, {eld}, files.folder / "bin"}}));
}

TEST_F(DdeTest, TheBudgetTakesErrorsForItself) {
    enter(record, Entry{});
    give(PartnerText{}.text());
    {
        MTEErrorScreen budget(session);
        testing::choose(budget, "mnu_Import");
        wanted();
        answer(home);
        EXPECT_EQ(textOf(budget, "UncertaintyBox_1"), "0.00125");
        EXPECT_EQ(textOf(budget, "txt_Description_3"), "User Defined");
        EXPECT_EQ(record.ErrTableText[1][3], ""); // until OK
        testing::choose(budget, "mnu_Import");
    }
    answer(home); // the screen that asked is gone
    EXPECT_EQ(link.LinkVersion, "erled1");
}

TEST_F(DdeTest, OursIsWrittenBeforeItIsAnnouncedAndGoesAtTheEnd) {
    const auto ask = [this] { carrier.received({"txt_ReceiveRequest", "/partner"}); };
    for (const char* item : {"txt_Response", "nothing"}) carrier.received({item, "/partner"});
    std::filesystem::create_directory(files.folder / "MKTemp");
    ask();
    EXPECT_TRUE(carrier.said.empty()); // nothing to announce
    link.removeExchangeFile();
    EXPECT_TRUE(std::filesystem::exists(files.folder / "MKTemp")); // not ours
    std::filesystem::remove(files.folder / "MKTemp");
    carrier.received({"txt_ReceiveRequest", ""});
    ask();
    EXPECT_EQ(carrier.said.back(), "ERLED2|DDE_Form txt_RequestAcknowledged=" + home);
    link.removeExchangeFile();
    EXPECT_FALSE(std::filesystem::exists(files.folder / "MKTemp"));
}

} // namespace
} // namespace metrisk::testing
