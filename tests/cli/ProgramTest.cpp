// The program as a whole: usage, terminal, manual page, libraries.
#include "tests/cli/Cli.h"

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <utility>

namespace metrisk::testing {

TEST_F(Cli, WrongUsageIsTwo) {
    const std::pair<const char*, const char*> rows[] = {
        {"", "subcommand is required"},
        {"frobnicate", "frobnicate is no command"},
        {"compute", "FILE is required"},
        {"compute -odd.mrk", "put -- before it"},
        {"compute --settings absent.ini ex/a.mrk", "absent.ini"},
        {"convert one", "OUT is required"},
        {"convert one ''", "a file name is needed"},
        {"show", "FILE is required"}};
    for (const auto& [bad, text] : rows) {
        const Result result = run(bad);
        EXPECT_EQ(result.status, 2) << bad;
        EXPECT_EQ(result.out, "") << bad;
        EXPECT_NE(result.err.find(text), std::string::npos) << bad << ": " << result.err;
    }
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_EQ(run("--version").out, "metrisk-cli 1.6\n");
}

TEST_F(Cli, ATerminalIsNotSteeredByNamesAndTexts) {
    fs::copy(folder / good, folder / "red\x1b[31m.mrk");
    std::string content = fileContent(folder / good);
    const std::string description = "Torque wrench, click type";
    content.replace(content.find(description), description.size(), "a\x1b[2Jb\u009b2Jc\td");
    write("odd.mrk", content);
    EXPECT_NE(runOnTerminal("compute red*.mrk").find("red\\x1b[31m.mrk\r\n"), std::string::npos);
    EXPECT_NE(runOnTerminal("show odd.mrk").find("\"a\\x1b[2Jb\\x9b2Jc\\td\""), std::string::npos);
    EXPECT_NE(runOnTerminal("show --json odd.mrk").find("\"a\\u001b[2Jb\\u009b2Jc\\td\""), std::string::npos);
    EXPECT_NE(run("show odd.mrk").out.find("\"a\x1b[2Jb\u009b2Jc\td\""), std::string::npos)
        << "a pipe gets it as it is";
    EXPECT_NE(runOnTerminal("compute odd.mrk " + std::string(good)).find("1/2\r\x1b[Kex/"), std::string::npos)
        << "the bar is cleared before a line";
}

TEST_F(Cli, AFullStdoutIsTold) {
    const int status = std::system(
        ("cd '" + folder.string() + "' && " METRISK_CLI " compute ex/a*.mrk ex/t*.mrk >/dev/full 2>err.txt")
            .c_str());
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(fileContent(folder / "err.txt"), "metrisk-cli: standard output: No space left on device\n");
}

TEST_F(Cli, TheManualPageListsTheOptions) {
    const auto optionsIn = [](std::string text) {
        std::erase(text, '\\');
        std::set<std::string> options;
        for (std::size_t at = 0; (at = text.find("--", at)) != text.npos;) {
            const std::size_t end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", at);
            const std::string option = text.substr(at, end - at);
            if (option.size() > 2 && option[2] != '-') options.insert(option);
            at += option.size();
        }
        return options;
    };
    const std::function<std::string(const std::string&)> helpOf = [&](const std::string& command) {
        std::string help = run(command + "--help").out;
        const std::size_t list = help.find("Subcommands:");
        if (list == help.npos) return help;
        std::istringstream commands(help.substr(list));
        std::string line;
        std::getline(commands, line);
        while (std::getline(commands, line) && line.starts_with("  "))
            if (line[2] != ' ') help += helpOf(command + line.substr(2, line.find(' ', 2) - 2) + " ");
        return help;
    };
    EXPECT_EQ(optionsIn(fileContent(METRISK_SOURCE_DIR "/packaging/metrisk.1")), optionsIn(helpOf("")));
}

TEST_F(Cli, TellsOfItself) {
    const json info = json::parse(run("info --json").out);
    EXPECT_EQ(info["Program"], "Metrisk 1.6");
    EXPECT_EQ(info["Settings"], (folder / "metrisk/Metrisk16.ini").string());
    EXPECT_GE(info["Cores"].get<double>(), 1);
    EXPECT_GT(info["Memory"].get<double>(), info["Memory of Program"].get<double>());
    EXPECT_NE(run("info").out.find("  Toolkit                     Cairo "), std::string::npos);
}

TEST_F(Cli, VerifiesItself) {
    const auto passed = run("verify --json -o page.pdf");
    EXPECT_EQ(passed.status, 0);
    EXPECT_EQ(json::parse(passed.out)["status"], "passed");
    EXPECT_TRUE(fileContent(folder / "page.pdf").starts_with("%PDF-"));
    write("broken.tsv", "normal\tPhi\t1\t0.85\t0.005\tfunction=Phi\tnowhere\n");
    const auto failed = run("verify --data broken.tsv");
    EXPECT_EQ(failed.status, 1);
    EXPECT_NE(failed.out.find("1 DIFF"), std::string::npos);
    EXPECT_EQ(run("verify --data none.tsv").status, 3);
}

TEST_F(Cli, DependsOnNoQtLibrary) {
    const int found = std::system("ldd " METRISK_CLI " | grep -qi qt");
    EXPECT_NE(WEXITSTATUS(found), 0);
}

} // namespace metrisk::testing
