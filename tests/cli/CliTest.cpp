// The command-line program from outside: arguments, stdout, stderr and exit status as a whole.
#include "tests/support/TemporaryFolder.h"
#include "units/UnitsDatabase.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

using metrisk::testing::fileContent;

struct Result {
    int status;
    std::string out;
    std::string err;

    std::vector<json> lines() const {
        std::vector<json> parsed;
        std::istringstream text(out);
        for (std::string line; std::getline(text, line);) parsed.push_back(json::parse(line));
        return parsed;
    }
};

class Cli : public testing::Test {
  protected:
    Cli() { fs::copy(METRISK_SOURCE_DIR "/examples", folder / "ex"); }

    /// Runs in the temporary folder, with settings of its own.
    Result run(const std::string& arguments) {
        const std::string command = "cd '" + folder.string() + "' && XDG_CONFIG_HOME=. " METRISK_CLI " " +
                                    arguments + " >out.txt 2>err.txt </dev/null";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, fileContent(folder / "out.txt"),
                fileContent(folder / "err.txt")};
    }
    /// The same on a terminal, stdout and stderr as they come.
    std::string runOnTerminal(const std::string& arguments) {
        const std::string command = "cd '" + folder.string() +
                                    "' && XDG_CONFIG_HOME=. script -qec \"" METRISK_CLI " " + arguments +
                                    "\" out.txt >/dev/null </dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return fileContent(folder / "out.txt");
    }
    void write(const char* name, const std::string& content) {
        std::ofstream(folder / name, std::ios::binary) << content;
    }

    metrisk::testing::TemporaryFolder temporary;
    const fs::path folder = temporary.path();
};

constexpr const char* good = "ex/torque-wrench-50nm.mrk";

TEST_F(Cli, ComputesEveryExample) {
    const Result all = run("compute --json ex/*.mrk");
    EXPECT_EQ(all.status, 0) << all.err;
    std::vector<bool> codes(10);
    std::size_t count = 0;
    for (const json& line : all.lines()) {
        ++count;
        EXPECT_EQ(line["status"], "computed") << line["file"];
        EXPECT_GT(line["FalseReject"].get<double>(), 0) << line["file"];
        EXPECT_GT(line["EqAccRat"].get<double>(), 0) << line["file"];
        EXPECT_GT(line["BaselineFalseAccept"].get<double>(), 0) << line["file"];
        codes[line["SU_CaseCode"].get<std::size_t>()] = true;
    }
    EXPECT_GE(count, 12u);
    for (std::size_t code : {1, 2, 3, 4, 5, 6, 8, 9})
        EXPECT_TRUE(codes[code]) << "no example of case " << code;
}

TEST_F(Cli, JsonHasTheKeysInOrderAndExactNumbers) {
    const Result one = run(std::string("compute --json ") + good);
    const auto parsed = nlohmann::ordered_json::parse(one.out);
    std::string keys;
    for (const auto& item : parsed.items()) keys += item.key() + " ";
    EXPECT_EQ(keys,
              "file status messages FalseAccept FalseReject BaselineFalseAccept BaselineFalseReject "
              "SU_Distribution SU_CaseCode SU_Sigma SU_LogSigma SU_LogOmega SU_ExpExponent SU_ExpRate "
              "PhysicalLimit MTE_Sigma MTE_kFactor MTE_StdUncertainty FalseAcceptRisk FalseAcceptUnits "
              "FalseRejectRisk FalseRejectUnits EqAccRat EqAccRatDen EqAccRatAttained FalseAcceptOption "
              "Verified AgreeingDigits ");
    EXPECT_DOUBLE_EQ(parsed["MTE_kFactor"].get<double>(), 1.9599639845400545);
    EXPECT_EQ(parsed["FalseAcceptOption"], 1);
    EXPECT_EQ(one.out.find('\n'), one.out.size() - 1) << "one object, one line";
}

TEST_F(Cli, ReportsQuestionsAndTheirAnswers) {
    const Result result = run("compute --json ex/reference-resistor-all-in-tolerance.mrk");
    EXPECT_EQ(result.status, 0);
    const json message = result.lines().at(0)["messages"].at(0);
    EXPECT_EQ(message["title"], "Non-Physical Situation");
    EXPECT_EQ(message["answer"], "Yes");
    EXPECT_NE(result.err.find("You have indicated 100% in-tolerance."), std::string::npos) << result.err;
}

TEST_F(Cli, KeepsTheOrderAndGoesOnPastBadFiles) {
    write("empty.mrk", "");
    write("other.mrk", "\"NOTRISK\",1.512\r\n");
    write("future.mrk", "\"MTRISK\",1.6\r\n");
    write("cut.mrk", fileContent(folder / good).substr(0, 900));
    write("garbage.mrk", std::string("\x7f\x00\xff\"\"\"\n\r,,,", 12));
    fs::create_directory(folder / "folder.mrk");
    const Result result = run("compute --json empty.mrk " + std::string(good) +
                              " other.mrk future.mrk cut.mrk garbage.mrk folder.mrk absent.mrk");
    EXPECT_EQ(result.status, 3);
    const auto lines = result.lines();
    struct Row {
        const char *file, *text, *cause;
    };
    const Row expected[] = {{"empty.mrk", "Error Reading Analysis Data", "damaged at line 1"},
                            {good, nullptr, nullptr},
                            {"other.mrk", "Not a valid Analysis file.", "not an analysis"},
                            {"future.mrk", "Invalid file structure.", "of a version"},
                            {"cut.mrk", "Error Reading Analysis Data", "damaged at line 101"},
                            {"garbage.mrk", "", "not an analysis"},
                            {"folder.mrk", "Error Reading Analysis Data", "not a regular file"},
                            {"absent.mrk", "Error Reading Analysis Data", "no such file"}};
    ASSERT_EQ(lines.size(), std::size(expected));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto& [file, text, cause] = expected[i];
        EXPECT_EQ(lines[i]["file"], file);
        EXPECT_EQ(lines[i]["status"], text ? "unreadable" : "computed") << file;
        if (!text) continue;
        const std::string told = lines[i]["messages"].at(0)["text"];
        EXPECT_TRUE(*text == 0 || told == text) << file << ": " << told;
        EXPECT_NE(result.err.find(std::string(file) + ": " + cause), std::string::npos) << result.err;
        for (const auto& [key, value] : lines[i].items())
            EXPECT_TRUE(key == "file" || key == "status" || key == "messages" || key == "Verified" ||
                        value.is_null())
                << key;
    }
}

TEST_F(Cli, ARefusedAnalysisHasNoFigureAndStatusOne) {
    std::string content = fileContent(folder / good);
    const std::string entered = "50,52,48,85,0";
    content.replace(content.find(entered), entered.size(), "50,52,48,0,0");
    write("refused.mrk", content);
    const Result result = run("compute --json --save refused.mrk " + std::string(good));
    EXPECT_EQ(result.status, 1);
    const json line = result.lines().at(0);
    EXPECT_EQ(line["status"], "refused");
    for (const char* key : {"FalseAccept", "FalseAcceptRisk", "FalseRejectUnits", "EqAccRat", "SU_Sigma",
                            "SU_CaseCode", "MTE_Sigma", "PhysicalLimit"})
        EXPECT_TRUE(line[key].is_null()) << key << " was not computed by this run";
    EXPECT_FALSE(line["BaselineFalseAccept"].is_null());
    EXPECT_EQ(line["messages"].at(0)["text"], "Must be greater than zero.");
    EXPECT_EQ(fileContent(folder / "refused.mrk"), content) << "a refused analysis is not saved";
}

TEST_F(Cli, WhateverIsRefusedHasAReason) {
    struct Row {
        const char *example, *old, *entered, *status, *reason;
    };
    for (const Row& row :
         {Row{"torque-wrench-50nm", "\r\n0,0\r\n.2", "\r\n0,1E-14\r\n.2", "refused",
              "lead to no finite risk"},
          {"pressure-gauge-100psi", "\r\n.9\r\n.9\r\n", "\r\n-2\r\n-2\r\n", "refused", ""},
          {"torque-wrench-50nm", "\r\n4,1\r\n", "\r\n4,0\r\n", "computed", "figures allow no risks"},
          {"torque-wrench-50nm", "\r\n4,1\r\n", "\r\n0,1\r\n", "computed", "figures allow no risks"},
          {"torque-wrench-50nm", "\r\n4,1\r\n", "\r\n-4,1\r\n", "computed", "figures allow no risks"},
          {"torque-wrench-50nm", "\r\n4,1\r\n", "\r\n1E308,1E-308\r\n", "computed", "fatal math error"}}) {
        SCOPED_TRACE(row.entered);
        std::string content = fileContent(folder / "ex" / (row.example + std::string(".mrk")));
        for (std::size_t at; (at = content.find(row.old)) != std::string::npos;)
            content.replace(at, std::string(row.old).size(), row.entered);
        write("odd.mrk", content);
        const json line = run("compute --json odd.mrk").lines().at(0);
        EXPECT_EQ(line["status"], row.status);
        EXPECT_TRUE(line["FalseAccept"].is_null() || line["BaselineFalseAccept"].is_null());
        EXPECT_NE(line["messages"].at(0)["text"].get<std::string>().find(row.reason), std::string::npos)
            << line;
        EXPECT_EQ(line["messages"].at(0)["answer"], "OK");
    }
}

TEST_F(Cli, NoRatioIsNoFigure) {
    std::string content = fileContent(folder / good);
    std::size_t at = 0;
    for (int line = 1; line < 90; ++line) at = content.find('\n', at) + 1;
    ASSERT_EQ(content.substr(at, 4), "-1\r\n");
    write("unasked.mrk", content.replace(at, 2, "0"));
    const json line = run("compute --json unasked.mrk").lines().at(0);
    EXPECT_EQ(line["status"], "computed");
    for (const char* key : {"EqAccRat", "EqAccRatDen", "EqAccRatAttained"})
        EXPECT_TRUE(line[key].is_null()) << key;
}

TEST_F(Cli, SavesResultsOnlyWhereItMay) {
    const std::string before = fileContent(folder / good);
    fs::copy(folder / good, folder / "old.dat");
    EXPECT_EQ(run("compute --save old.dat").err, "old.dat: saved as old.mrk\n");
    ASSERT_TRUE(fs::exists(folder / "old.mrk"));
    EXPECT_EQ(fileContent(folder / "old.dat"), before) << "the .dat file itself stays";
    const Result refused = run("compute --json --save old.dat");
    EXPECT_EQ(refused.status, 1) << "old.mrk is there now";
    EXPECT_EQ(refused.lines().at(0)["messages"].at(0)["title"], "Not Saved");
    EXPECT_EQ(run("compute --save --force old.dat").status, 0);
    EXPECT_EQ(run("compute --save old.mrk").status, 0) << "the file that was read needs no --force";

    EXPECT_EQ(run("convert " + std::string(good) + " copy").status, 0);
    EXPECT_EQ(fileContent(folder / "copy.mrk"), before) << "a file of the present version is unchanged";
    EXPECT_EQ(run("convert " + std::string(good) + " copy.mrk").status, 2);
    EXPECT_EQ(run("convert --force " + std::string(good) + " copy.mrk").status, 0);
    EXPECT_EQ(run("convert absent.mrk new.mrk").status, 3);
    const Result unwritable = run("convert " + std::string(good) + " no/such/folder/new.mrk");
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_NE(unwritable.err.find("Error Writing Analysis Data"), std::string::npos) << unwritable.err;
}

TEST_F(Cli, SecondComputeOfASavedFileGivesTheSame) {
    const Result first = run("compute --json --save " + std::string(good));
    const Result second = run("compute --json " + std::string(good));
    EXPECT_EQ(first.out, second.out);
}

TEST_F(Cli, ShowPrintsEveryField) {
    const Result text = run("show " + std::string(good));
    EXPECT_EQ(text.status, 0);
    EXPECT_NE(text.out.find("SU_Description = \"Torque wrench, click type\"\n"), std::string::npos);
    EXPECT_NE(text.out.find("Rel_Model[0] = \"\"\n"), std::string::npos);
    EXPECT_NE(text.out.find("CorrelationMatrix[10][10] = 0\n"), std::string::npos);
    const json fields = run("show --json " + std::string(good)).lines().at(0);
    EXPECT_EQ(fields["SU_Mode"], 50.0);
    EXPECT_EQ(fields["OptTwoSided"], true);
    EXPECT_EQ(fields["ErrTableText"].size(), 8u);
    EXPECT_GT(fields.size(), 200u);
    EXPECT_EQ(run("show absent.mrk").status, 3);
}

TEST_F(Cli, BaselineTakesItsFiguresFromTheCommandLine) {
    const Result result = run("baseline --ratio 4:1 --mte 85 --su 72");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "Baseline false accept risk  4.1048 %\nBaseline false reject risk  3.7542 %\n");
    const json producer = run("baseline --ratio 4:1 --mte 90.601 --su 85 --producer --json").lines().at(0);
    EXPECT_NEAR(producer["BaselineFalseAccept"].get<double>(), 0.02, 5e-5);
    for (const char* ratio : {"4", "4.0:1", "8:2"})
        EXPECT_EQ(run("baseline --mte 85 --su 72 --ratio " + std::string(ratio)).out, result.out) << ratio;
    for (const char* bad :
         {"--ratio 4:1:2 --mte 85 --su 72", "--ratio 4x:1 --mte 85 --su 72", "--ratio 4/2 --mte 85 --su 72",
          "--ratio '4 to 1' --mte 85 --su 72", "--ratio 0:1 --mte 85 --su 72", "--ratio 4:0 --mte 85 --su 72",
          "--ratio x --mte 85 --su 72", "--ratio 4:1 --mte 100 --su 72", "--ratio 4:1 --mte 85 --su 0",
          "--ratio 4:1 --mte nan --su 72", "--ratio 4:1 --mte 85"})
        EXPECT_EQ(run(std::string("baseline ") + bad).status, 2) << bad;
}

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

TEST_F(Cli, ReliabilityGoesBothWays) {
    const std::string given =
        " --interval 12 --bop 100 --aop 93.5 --eop 90 --at-time 12 --at-reliability 95 --json";
    for (const char* model : {"exponential", "mixed-exponential", "weibull", "gamma", "mortality-drift",
                              "warranty", "'random walk'", "restricted-random-walk"}) {
        const std::string command = std::string("reliability --model ") + model;
        const json solved = run(command + given).lines().at(0);
        EXPECT_EQ(solved["status"], "computed") << solved;
        EXPECT_NEAR(solved["R"].get<double>(), 0.9, 1e-10) << model;
        std::string coefficients;
        for (int i = 0; i < 3; ++i)
            coefficients += std::string(" --") + "abc"[i] + " " + solved["Rel_Theta"].at(i).dump();
        const json back =
            run(command + " --interval 12 --json --at-time " + solved["Time"].dump() + coefficients)
                .lines()
                .at(0);
        EXPECT_NEAR(back["R"].get<double>(), 0.95, 2e-5) << back;
        for (const char* key : {"Rel_BOP", "Rel_AOP", "Rel_EOP"})
            EXPECT_NEAR(back[key].get<double>(), solved[key].get<double>(), 1e-9) << model << key;
    }
    const auto level = run("reliability --model gamma --interval 12 --bop 90 --eop 90 --at-time 3 --json");
    EXPECT_EQ(level.status, 0);
    EXPECT_EQ(level.lines().at(0)["status"], "questionable");
    EXPECT_TRUE(level.lines().at(0)["R"].is_null());
    const std::string exponential = "reliability --model exponential --interval 12 ";
    const std::pair<const char*, const char*> refused[] = {
        {"--bop 80 --eop 90", "Illegal Input Probabilities"},
        {"--a 1.2 --b 0.01", "Ill-Conditioned Reliability Function"},
        {"--a 0.99 --b 0.01 --at-reliability 99.5", "Ill-Conditioned Reliability Function"}};
    for (const auto& [options, title] : refused) {
        const Result result = run(exponential + options + " --json");
        EXPECT_EQ(result.status, 1) << options;
        EXPECT_EQ(result.lines().at(0)["status"], "refused") << options;
        EXPECT_EQ(result.lines().at(0)["messages"].at(0)["title"], title) << options;
    }
    for (const char* wrong : {"--bop 90", "--eop 80", "--bop 90 --eop 80 --a 1", "--bop x --eop 80",
                              "--bop nan --eop 80", "--bop 90 --eop 80 --at-time -1", ""})
        EXPECT_EQ(run(exponential + wrong).status, 2) << wrong;
    EXPECT_EQ(run("reliability --model weibull --interval 12 --bop 90 --eop 80").status, 2);
    EXPECT_EQ(run("reliability --model gamma --interval 0 --bop 90 --eop 80").status, 2);
}

TEST_F(Cli, SolvesGuardbands) {
    const std::string file(good);
    const json main = json::parse(run("compute --json " + file).out);
    const auto solved = run("guardband --target-fa 0.2% --symmetric multipliers --json --save " + file);
    const json found = json::parse(solved.out);
    EXPECT_EQ(found["status"], "computed");
    EXPECT_NEAR(found["FalseAccept"].get<double>(), 0.002, 2e-7);
    EXPECT_EQ(found["GB_UpperMult"], found["GB_LowerMult"]);
    // Saved are the guardbands and their risks, never the main results.
    const json saved = json::parse(run("show --json " + file).out);
    // A file holds 15 digits.
    EXPECT_NEAR(saved["GB_UpperMult"].get<double>(), found["GB_UpperMult"].get<double>(), 1e-14);
    EXPECT_NEAR(saved["GB_FARisk"].get<double>(), 0.2, 2e-5);
    EXPECT_NEAR(saved["FalseAcceptRisk"].get<double>(), main["FalseAcceptRisk"].get<double>(), 1e-13);
    for (const auto& [words, status] : {std::pair{"--target-fa 2", 2},
                                        {"--target-fa 2%% --equalize", 2},
                                        {"", 2},
                                        {"--target-fa 0%", 1},
                                        {"--target-fr 200%", 1}})
        EXPECT_EQ(run("guardband " + std::string(words) + " --symmetric k " + file).status, status) << words;
}

TEST_F(Cli, ConvertsTrueAndObserved) {
    const std::string file(good);
    const json observed = json::parse(run("observed --true 90 --json " + file).out);
    const std::string pct = std::to_string(observed["Obs_PctInTol"].get<double>());
    const json back = json::parse(run("observed --observed " + pct + " --json " + file).out);
    EXPECT_NEAR(back["True"].get<double>(), 0.9, 1e-6);
    const auto refused = run("observed --observed 99.99999 --json " + file);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(json::parse(refused.out)["messages"][0]["text"], "Unrealistic observed % in-tolerance.");
}

TEST_F(Cli, SumsTheBudgetAndTakesSamples) {
    const std::string file = "ex/thermometer-process-uncertainty.mrk";
    const json before = json::parse(run("uncertainty --json " + file).out);
    EXPECT_EQ(before["status"], "computed");
    EXPECT_NEAR(before["TotalUncertainty"].get<double>(),
                std::hypot(0.02, 0.03, std::hypot(0.0289, 0.05 / 1.959963984540054)), 1e-12);
    EXPECT_TRUE(before["SMPC_Bias"].is_null()) << "no sample";
    EXPECT_EQ(json::parse(run("compute --json " + file).out)["MTE_Sigma"], before["TotalUncertainty"]);

    write("data.csv", "reading\r\n100,01\r\n\r\n100,0325\r\n100,021\r\n");
    const auto taken = run("uncertainty --samples su=data.csv --save --json " + file);
    const json sampled = taken.lines().front();
    EXPECT_EQ(sampled["messages"][0]["text"], "data.csv: 3 of 4 taken");
    EXPECT_NEAR(sampled["Stat_SampleMean"][1].get<double>(), 100.021166666666667, 1e-12);
    EXPECT_EQ(sampled["ErrorTable"][7]["txt_DegreesFreedom"], 2);
    EXPECT_TRUE(sampled["SMPC_Computed"]);
    json saved = json::parse(run("uncertainty --json " + file).out);
    for (const char* key : {"ProcessUncertainty", "TotalUncertainty", "Total_DegFreedom", "SMPC_TrueOffset"})
        EXPECT_NEAR(saved[key].get<double>(), sampled[key].get<double>(), 1e-13) << key;

    for (const auto& [words, status] : {std::pair{"--samples data.csv", 2},
                                        {"--save", 2},
                                        {"--samples mte=none.csv", 1},
                                        {"--samples mte=ex", 1},
                                        {"--samples su=none.mrk none.mrk", 2}})
        EXPECT_EQ(run("uncertainty " + std::string(words) + " " + file).status, status) << words;
}

TEST_F(Cli, DrawsPictures) {
    const std::string file = "ex/thermometer-process-uncertainty.mrk";
    for (const auto& [name, start] :
         {std::pair{"su.png", "\x89PNG"}, {"mte.SVG", "<?xml"}, {"error.pdf", "%PDF-"}}) {
        const std::string picture = (folder / name).string();
        const std::string kind = std::string(name).substr(0, std::string(name).find('.'));
        const auto drawn = run("plot " + file + " --kind " + kind + " --zoom 200 --offsets -o " + picture);
        EXPECT_EQ(drawn.status, 0) << drawn.err;
        EXPECT_TRUE(fileContent(picture).starts_with(start)) << name;
    }
    const auto none = run("plot ex/gauge-block-25mm.mrk --kind error -o " + (folder / "x.png").string());
    EXPECT_EQ(none.status, 1);
    EXPECT_NE(none.err.find("No data to plot."), std::string::npos);
    EXPECT_EQ(run("plot " + file + " --kind su -o /no/such/folder/x.png").status, 1);
    for (const char* wrong :
         {"--kind su -o x.gif", "--kind no -o x.png", "--kind su", "--kind su -o x.png --size 0x0",
          "--kind su -o x.png --size 800", "--kind su -o x.png --zoom 33%"})
        EXPECT_EQ(run("plot " + file + " " + wrong).status, 2) << wrong;
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

TEST_F(Cli, ComposesTolerances) {
    const auto path = folder / "units.mdb";
    metrisk::makeUnitsDatabase(path);
    auto units = metrisk::openUnitsDatabase(path);
    units->addUnit(units->addArea("DC Voltage", {.symbol = "V"}), {.symbol = "mV", .multiplier = 0.001});
    const std::string volts =
        "offset --json --file units.mdb --area 'DC Voltage' --unit V --fixed 5 --percent 0.01 ";
    const json composed = json::parse(run(volts + "--mode -10 --tolerance-unit mV").out);
    EXPECT_NEAR(composed["SU_UpperOffset"].get<double>(), 0.006, 1e-17);
    EXPECT_EQ(composed["SU_TolUnitsFactor"], 1000);
    EXPECT_EQ(composed["Tolerance"], "6.0 mV");
    const json ppm = json::parse(run(volts + "--mode 2 --tolerance-unit ppm --for mte").out);
    EXPECT_NEAR(ppm["MTE_Offset"].get<double>(), 0.00021, 1e-18);
    EXPECT_EQ(run(volts + "--mode 0 --tolerance-unit ppm").status, 1);
    EXPECT_EQ(run(volts + "--mode 1 --tolerance-unit kV").status, 1);
    EXPECT_EQ(run("offset --mode 1 --fixed 0.1 --file none").status, 0) << "no units, no database";
    EXPECT_EQ(run("offset --mode 1 --area A --file none").status, 3);
    EXPECT_EQ(run("offset --mode x --fixed 1").status, 2);
}

TEST_F(Cli, ExchangesUnits) {
    const std::string foreign = METRISK_SOURCE_DIR "/tests/units/data/units-jet3.mdb ";
    EXPECT_EQ(run("units check " + foreign).out.substr(foreign.size() - 1),
              ": 4 measurement areas, 11 units\n");
    EXPECT_NE(run("units convert " + foreign + "ours.mdb").err.find("left out: 1;"), std::string::npos);
    EXPECT_EQ(run("units convert " + foreign + "ours.mdb").status, 2) << "never over another file";
    EXPECT_EQ(run("units convert --force ours.mdb ours.mdb").status, 1);
    EXPECT_EQ(run("units import " + foreign + "x").status, 3);
    write("more.csv", "area,unit,multiplier\nvoltage,MV,1e6\nvoltage,mV,0.002\nNew,x,1\n");
    EXPECT_NE(run("units import ours.mdb more.csv").out.find("Units added                 2\n"),
              std::string::npos);
    EXPECT_EQ(run("units import " + foreign + "more.csv").status, 1) << "read only";
    const json listed = json::parse(run("units list VOLTAGE --file ours.mdb --json").out);
    EXPECT_EQ(listed["areas"][0]["area"], "Voltage");
    EXPECT_EQ(listed["areas"][0]["units"].size(), 6u);
    EXPECT_EQ(listed["areas"][0]["units"][1]["multiplier"], 0.002);

    const std::string table = run("units export --file ours.mdb").out;
    write("all.csv", table);
    EXPECT_EQ(run("units import --replace copy.mdb all.csv").status, 0);
    EXPECT_EQ(run("units export --file copy.mdb").out, table);
    write("bad.csv", "area,unit,multiplier\nVoltage,V,1\nVoltage,V,2\n");
    EXPECT_EQ(run("units import --replace copy.mdb bad.csv").err,
              "bad.csv: line 3: V stands twice in Voltage\n");
    EXPECT_EQ(run("units export --file copy.mdb").out, table) << "nothing is half done";

    EXPECT_EQ(run("units list None --file ours.mdb").status, 1);
    EXPECT_EQ(run("units list --file all.csv").status, 3);
    EXPECT_EQ(run("units check none.mdb").status, 3);
    EXPECT_EQ(run("units").status, 2);
    EXPECT_NE(run("units list").out.find("DC Voltage"), std::string::npos)
        << "the units that come with the program";
}

TEST_F(Cli, SweepsAndMaps) {
    const std::string sweep = "sweep ex/multimeter-dc-volts.mrk --over ";
    const Result csv = run(sweep + "guardband --from 0.5 --to 1 --points 3 --csv");
    const Result single = run("compute --json ex/multimeter-dc-volts.mrk");
    EXPECT_EQ(csv.status, 0);
    std::istringstream lines(csv.out);
    std::string heading, last;
    std::getline(lines, heading);
    EXPECT_EQ(heading, "x,FalseAccept,FalseReject");
    for (std::string line; std::getline(lines, line);) last = line;
    const json computed = single.lines().front();
    EXPECT_EQ(last.substr(0, 2), "1,");
    EXPECT_EQ(std::stod(last.substr(2)), computed["FalseAccept"].get<double>()) << "to the last bit";

    const Result ended = run(sweep + "k --from 0 --to 20 --points 21 --json");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.err, "ex/multimeter-dc-volts.mrk: the sweep ended at 15: no risks beyond\n");
    const json told = ended.lines().front();
    EXPECT_EQ(told["status"], "incomplete");
    EXPECT_EQ(told["ended"], true);
    EXPECT_EQ(told["points"].size(), 16u);

    const Result map =
        run("map ex/multimeter-dc-volts.mrk --x guardband=0.5:1 --y ratio=1:10 --size 3x2 --csv -o m.png");
    EXPECT_EQ(map.status, 0);
    EXPECT_EQ(std::count(map.out.begin(), map.out.end(), '\n'), 7);
    EXPECT_EQ(fileContent(folder / "m.png").substr(1, 3), "PNG");
    EXPECT_EQ(run(sweep + "su-pct --from 60 --to 99 -o s.svg").status, 0);
    EXPECT_EQ(fileContent(folder / "s.svg").find("<?xml"), 0u);

    for (const char* wrong :
         {"su-pct --from 50 --to 100", "ratio --from 0 --to 5", "guardband --from 1 --to 1",
          "k --from 1 --to nan", "guardband --from 0.5 --to 1 --points 1",
          "guardband --from 0.5 --to 1 --csv --json"})
        EXPECT_EQ(run(sweep + wrong).status, 2) << wrong;
    for (const char* wrong : {"--x ratio=1:20 --y ratio=1:3 --csv", "--x ratio=20:1 --y su-pct=50:99 --csv",
                              "--x ratio=1:20 --y su-pct=50:100 --csv", "--x ratio=1:20 --y su-pct=50:99",
                              "--x ratio=1:20 --y su-pct=50:99 --csv --size 1x5"})
        EXPECT_EQ(run(std::string("map ex/multimeter-dc-volts.mrk ") + wrong).status, 2) << wrong;
}

TEST_F(Cli, TakesTheSettingsOfAnotherFile) {
    write("other.ini", "[RiskOption]\r\nFalseAcceptConvention=Producer\r\n");
    EXPECT_EQ(run("compute --settings other.ini " + std::string(good)).status, 0);
    EXPECT_EQ(fileContent(folder / "other.ini"), "[RiskOption]\r\nFalseAcceptConvention=Producer\r\n");
}

TEST_F(Cli, DependsOnNoQtLibrary) {
    const int found = std::system("ldd " METRISK_CLI " | grep -qi qt");
    EXPECT_NE(WEXITSTATUS(found), 0);
}

} // namespace
