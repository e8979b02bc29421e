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
        {"comput ex/a.mrk", "did you mean compute?"},
        {"units lst", "did you mean list?"},
        {"compute --jsno ex/a.mrk", "Did you mean --json?"},
        {"help frobnicate", "frobnicate is no command"},
        {"baseline --ratio 4 --mte 85x --su 72", "\"85x\" is not a percentage."},
        {"observed --true 9,5 ex/a.mrk", "\"9,5\" is not a percentage."},
        {"plot ex/a.mrk --kind su -o a.png --zoom x%", "\"x%\" is not a percentage."},
        {"reliability --model gamma --interval 1 --bop %", "\"%\" is not a percentage."},
        {"sweep ex/a.mrk --over su-pct --from 5O --to 60", "\"5O\" is not a percentage."},
        {"compute --threads -1 ex/a.mrk", "\"-1\" is not a count"},
        {"audit --threads 4294967296 ex/a.mrk", "\"4294967296\" is not a count"},
        {"offset --mode 1,500", "\"1,500\" is not a number."},
        {"baseline --ratio 4/1 --mte 85 --su 72", "\"4/1\" is not an accuracy ratio"},
        {"convert one - --json", "both take the standard output"},
        {"convert one", "OUT is required"},
        {"convert one ''", "a file name is needed"},
        {"observed --unit a '' --b", "not expected"},
        {"observed ex/a.mrk", "one of --true, --observed is required"},
        {"guardband ex/a.mrk --equalize --target-fa 2%", "only one of --target-fa"},
        {"show", "FILE is required"}};
    for (const auto& [bad, text] : rows) {
        const Result result = run(bad);
        EXPECT_EQ(result.status, 2) << bad;
        EXPECT_EQ(result.out, "") << bad;
        EXPECT_NE(result.err.find(text), std::string::npos) << bad << ": " << result.err;
    }
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_EQ(run("--version").out, "metrisk-cli 1.6\n");
    EXPECT_EQ(run("help units list").out, run("units list --help").out);
    const Result settings = run("compute --json --settings absent.ini ex/a.mrk");
    EXPECT_EQ(settings.status, 3) << "a file that cannot be read";
    EXPECT_EQ(settings.lines().at(0)["messages"].at(0)["text"], "cannot be read: No such file or directory");
}

TEST_F(Cli, ATerminalIsNotSteeredByNamesAndTexts) {
    fs::copy(folder / good, folder / "red\x1b[31m.mrk");
    std::string content = fileContent(folder / good);
    const std::string description = "Torque wrench, click type";
    content.replace(content.find(description), description.size(), "a\x1b[2Jb\u009b2Jc\td\u202efdp");
    write("odd.mrk", content);
    EXPECT_NE(runOnTerminal("compute red*.mrk").find("red\\x1b[31m.mrk\r\n"), std::string::npos);
    EXPECT_NE(runOnTerminal("show odd.mrk").find("\"a\\x1b[2Jb\\x9b2Jc\\td\\u202efdp\""), std::string::npos);
    EXPECT_NE(runOnTerminal("show --json odd.mrk").find("\"a\\u001b[2Jb\\u009b2Jc\\td\\u202efdp\""),
              std::string::npos);
    EXPECT_NE(run("show odd.mrk").out.find("\"a\x1b[2Jb\u009b2Jc\td\u202efdp\""), std::string::npos)
        << "a pipe gets it as it is";
    EXPECT_NE(runOnTerminal("compute odd.mrk " + std::string(good)).find("1/2\r\x1b[Kex/"), std::string::npos)
        << "the bar is cleared before a line";
}

TEST_F(Cli, AFullStdoutIsTold) {
    for (const char* command : {"compute ex/a*.mrk ex/t*.mrk", "--help", "--version", "help plot"}) {
        const Result full = run(std::string(command) + " >/dev/full");
        EXPECT_EQ(full.status, 1) << command;
        EXPECT_EQ(full.err, "metrisk-cli: standard output: No space left on device\n") << command;
    }
}

TEST_F(Cli, WhatAFileIsWrittenOver) {
    fs::create_directory(folder / "out");
    const std::string file(good), copy = "out/torque-wrench-50nm.";
    fs::copy(folder / file, folder / (copy + "mrk"));
    const std::pair<std::string, std::string> rows[] = {
        {"report -o a.pdf " + file, "a.pdf"},
        {"report --out-dir out " + file, copy + "pdf"},
        {"summary -o a.sum " + file, "a.sum"},
        {"summary --out-dir out " + file, copy + "sum"},
        {"plot --kind su -o a.png " + file, "a.png"},
        {"sweep --over su-pct --from 60 --to 90 -o a.svg " + file, "a.svg"},
        {"map --x ratio=1:9 --y su-pct=60:90 --size 3x3 -o b.svg " + file, "b.svg"},
        {"verify -o b.pdf", "b.pdf"},
        {"convert " + file + " b.mrk", "b.mrk"},
        {"convert " + file + " out", copy + "mrk"}};
    for (const auto& [command, target] : rows) {
        write(target.c_str(), "precious");
        const Result refused = run(command);
        EXPECT_EQ(refused.status, 2) << command;
        EXPECT_NE(refused.err.find(target + " exists; use --force"), std::string::npos) << refused.err;
        EXPECT_EQ(fileContent(folder / target), "precious") << command;
        EXPECT_EQ(run(command + " --force").status, 0) << command;
        EXPECT_NE(fileContent(folder / target), "precious") << command;
    }
    // Never over what is read.
    fs::copy(folder / file, folder / "in.pdf");
    fs::create_hard_link(folder / "in.pdf", folder / "link.svg");
    for (const char* command :
         {"report --force -o in.pdf in.pdf", "plot --force --kind su -o link.svg in.pdf",
          "summary --force -o in.pdf in.pdf", "convert --force ex/a.mrk ex/./a.mrk"}) {
        if (std::string(command).starts_with("convert")) fs::copy(folder / file, folder / "ex/a.mrk");
        EXPECT_EQ(run(command).status, 2) << command;
    }
    EXPECT_EQ(fileContent(folder / "in.pdf"), fileContent(folder / file));
}

TEST_F(Cli, TellsWhyAFileCannotBeWritten) {
    const std::string file(good);
    const Result plot = run("plot --json --kind su -o none/a.png " + file);
    EXPECT_EQ(plot.lines().at(0)["messages"].at(0)["text"],
              "none/a.png cannot be written: No such file or directory");
    for (const std::string& command :
         {"report -o big.pdf " + file, "summary -o big.sum " + file, std::string("verify -o big.pdf")}) {
        const std::string limited = "cd '" + folder.string() + "' && ulimit -f 1 && " METRISK_CLI " " +
                                    command + " 2>err.txt >/dev/null";
        EXPECT_EQ(WEXITSTATUS(std::system(limited.c_str())), 1) << "no signal ends " << command;
        EXPECT_NE(fileContent(folder / "err.txt").find("cannot be written: File too large"),
                  std::string::npos)
            << fileContent(folder / "err.txt");
    }
}

TEST_F(Cli, ReadsAndWritesTheStandardStreams) {
    const std::string file(good), from = " <" + file;
    EXPECT_EQ(run("convert - -" + from).out, fileContent(folder / file));
    EXPECT_EQ(run("compute - --json" + from).lines().at(0)["FalseAccept"],
              run("compute --json " + file).lines().at(0)["FalseAccept"]);
    EXPECT_EQ(run("compute --save -" + from).status, 1);
    EXPECT_EQ(run("compute -").status, 3);
    for (const auto& [command, start] : {std::pair{"plot - --kind su -o -", "\x89PNG"},
                                         {"plot - --kind su -o - --format svg", "<?xml"},
                                         {"report - -o - --format doc", "{\\rtf1"},
                                         {"summary - -o -", "\r\nSubject Unit Data"},
                                         {"convert - new", ""}})
        EXPECT_TRUE(run(command + from).out.starts_with(start)) << command;
    EXPECT_EQ(fileContent(folder / "new.mrk"), fileContent(folder / file));
    write("readings.txt", "100.01\n100.02\n");
    EXPECT_EQ(run("uncertainty ex/thermometer-process-uncertainty.mrk --json --samples su=- <readings.txt")
                  .lines()
                  .at(0)["Stat_SampleSize"]
                  .at(1),
              2);
}

/// Of the program's help, each command with what stands before it: "units list".
std::vector<std::string> commandsIn(const std::string& help) {
    std::vector<std::string> names;
    const std::size_t list = help.find("Subcommands:");
    if (list == help.npos) return names;
    std::istringstream lines(help.substr(list));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line) && line.starts_with("  "))
        if (line[2] != ' ') names.push_back(line.substr(2, line.find(' ', 2) - 2));
    return names;
}

TEST_F(Cli, EveryCommandHasExamplesThatRunAndJson) {
    fs::copy(folder / "ex", folder);
    fs::copy(METRISK_SOURCE_DIR "/data/units.csv", folder / "units.csv");
    write("readings.txt", "100.01\n100.02\n");
    ASSERT_EQ(run("units import units.mdb units.csv").status, 0);
    std::vector<std::string> commands;
    for (const std::string& name : commandsIn(run("--help").out))
        if (name != "units") commands.push_back(name);
    for (const std::string& name : commandsIn(run("units --help").out)) commands.push_back("units " + name);
    EXPECT_GE(commands.size(), 21u);
    for (const std::string& command : commands) {
        const std::string help = run("help " + command).out;
        EXPECT_NE(help.find("--json"), std::string::npos) << command;
        std::istringstream lines(help.substr(help.find("\nExample")));
        std::string line;
        int count = 0;
        while (std::getline(lines, line)) {
            if (!line.starts_with("  metrisk-cli ")) continue;
            ++count;
            const Result result = run(line.substr(14));
            EXPECT_EQ(result.status, 0) << line << "\n" << result.err;
            if (line.find("--json") == line.npos) continue;
            for (const auto& object : result.lines()) {
                EXPECT_TRUE(object["status"].is_string()) << line;
                EXPECT_TRUE(object["messages"].is_array()) << line;
            }
        }
        EXPECT_GE(count, 1) << command;
    }
}

TEST_F(Cli, CompletesInBash) {
    const auto completions = [&](const std::string& words) {
        // The last word is the one that is typed.
        const std::string script = "cd '" + folder.string() +
                                   "' && bash -c 'source <(" METRISK_CLI " --bash-completion) && "
                                   "compopt() { :; } && COMP_WORDS=(" +
                                   words +
                                   ") && COMP_CWORD=$((${#COMP_WORDS[@]} - 1)) && "
                                   "_metrisk_cli && echo \"${COMPREPLY[*]}\"' >out.txt 2>&1";
        EXPECT_EQ(std::system(script.c_str()), 0);
        return fileContent(folder / "out.txt");
    };
    const std::pair<const char*, const char*> rows[] = {
        {"metrisk-cli comp", "compute\n"},
        {"metrisk-cli units ex", "export\n"},
        {"metrisk-cli guardband --sym", "--symmetric\n"},
        {"metrisk-cli plot ex/x.mrk --kind \"\"", "su mte error\n"},
        {"metrisk-cli report --format d", "doc\n"},
        {"metrisk-cli compute ex/ph", "ex/ph-buffer-deviation.mrk\n"},
        {"metrisk-cli summary --out-dir e", "ex\n"},
        {"metrisk-cli units import --rep", "--replace\n"},
        {"metrisk-cli observed --true \"\"", "\n"}};
    for (const auto& [words, expected] : rows) EXPECT_EQ(completions(words), expected) << words;
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
    const std::string manual = fileContent(METRISK_SOURCE_DIR "/packaging/metrisk.1");
    const std::function<std::string(const std::string&)> helpOf = [&](const std::string& command) {
        std::string help = run(command + "--help").out;
        for (const std::string& name : commandsIn(help)) {
            EXPECT_NE(manual.find("metrisk-cli " + command + name), std::string::npos) << command << name;
            help += helpOf(command + name + " ");
        }
        return help;
    };
    for (const char* section : {"EXAMPLES", "ENVIRONMENT", "EXIT STATUS", "FILES"})
        EXPECT_NE(manual.find(std::string(".SH ") + section + "\n"), std::string::npos) << section;
    EXPECT_EQ(optionsIn(manual), optionsIn(helpOf("")));
}

TEST_F(Cli, TellsOfItself) {
    const json info = json::parse(run("info --json").out);
    EXPECT_EQ(info["Program"], "Metrisk 1.6");
    EXPECT_EQ(info["Settings"], (folder / "metrisk/Metrisk16.ini").string());
    EXPECT_TRUE(info["Cores"].is_number_integer());
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
    EXPECT_EQ(failed.err, "verify: 0 PASS, 0 NOTE, 1 DIFF\n");
    EXPECT_EQ(run("verify --data none.tsv").status, 3);
}

TEST_F(Cli, DependsOnNoQtLibrary) {
    const int found = std::system("ldd " METRISK_CLI " | grep -qi qt");
    EXPECT_NE(WEXITSTATUS(found), 0);
}

} // namespace metrisk::testing
