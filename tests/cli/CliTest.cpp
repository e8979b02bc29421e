// The command-line program from outside: arguments, stdout, stderr and exit status as a whole.
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::string readAll(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

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
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readAll(folder / "out.txt"),
                readAll(folder / "err.txt")};
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

TEST_F(Cli, JsonHasTheKeysInOrderAndSeventeenDigits) {
    const Result one = run(std::string("compute --json ") + good);
    const auto parsed = nlohmann::ordered_json::parse(one.out);
    std::vector<std::string> keys;
    for (const auto& item : parsed.items()) keys.push_back(item.key());
    const std::vector<std::string> expected = {"file",
                                               "status",
                                               "messages",
                                               "FalseAccept",
                                               "FalseReject",
                                               "BaselineFalseAccept",
                                               "BaselineFalseReject",
                                               "SU_Distribution",
                                               "SU_CaseCode",
                                               "SU_Sigma",
                                               "SU_LogSigma",
                                               "SU_LogOmega",
                                               "SU_ExpExponent",
                                               "SU_ExpRate",
                                               "PhysicalLimit",
                                               "MTE_Sigma",
                                               "MTE_kFactor",
                                               "MTE_StdUncertainty",
                                               "FalseAcceptRisk",
                                               "FalseAcceptUnits",
                                               "FalseRejectRisk",
                                               "FalseRejectUnits",
                                               "EqAccRat",
                                               "EqAccRatDen",
                                               "EqAccRatAttained",
                                               "FalseAcceptOption"};
    EXPECT_EQ(keys, expected);
    EXPECT_NE(one.out.find("\"MTE_kFactor\":1.959963984540"), std::string::npos) << one.out;
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
    write("cut.mrk", readAll(folder / good).substr(0, 900));
    write("garbage.mrk", std::string("\x7f\x00\xff\"\"\"\n\r,,,", 12));
    fs::create_directory(folder / "folder.mrk");
    const Result result = run("compute --json empty.mrk " + std::string(good) +
                              " other.mrk future.mrk cut.mrk garbage.mrk folder.mrk absent.mrk");
    EXPECT_EQ(result.status, 3);
    const auto lines = result.lines();
    const std::pair<const char*, const char*> expected[] = {
        {"empty.mrk", "Error Reading Analysis Data"},  {good, nullptr},
        {"other.mrk", "Not a valid Analysis file."},   {"future.mrk", "Invalid file structure."},
        {"cut.mrk", "Error Reading Analysis Data"},    {"garbage.mrk", ""},
        {"folder.mrk", "Error Reading Analysis Data"}, {"absent.mrk", "Error Reading Analysis Data"}};
    ASSERT_EQ(lines.size(), std::size(expected));
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto& [file, text] = expected[i];
        EXPECT_EQ(lines[i]["file"], file);
        EXPECT_EQ(lines[i]["status"], text ? "unreadable" : "computed") << file;
        if (!text) continue;
        EXPECT_TRUE(lines[i]["FalseAccept"].is_null()) << file;
        const std::string told = lines[i]["messages"].at(0)["text"];
        EXPECT_TRUE(*text == 0 || told == text) << file << ": " << told;
    }
}

TEST_F(Cli, ARefusedAnalysisHasNoFigureAndStatusOne) {
    std::string content = readAll(folder / good);
    const std::string entered = "50,52,48,85,0";
    content.replace(content.find(entered), entered.size(), "50,52,48,0,0");
    write("refused.mrk", content);
    const Result result = run("compute --json --save refused.mrk " + std::string(good));
    EXPECT_EQ(result.status, 1);
    const json line = result.lines().at(0);
    EXPECT_EQ(line["status"], "refused");
    EXPECT_TRUE(line["FalseAccept"].is_null());
    EXPECT_EQ(line["messages"].at(0)["text"], "Must be greater than zero.");
    EXPECT_EQ(readAll(folder / "refused.mrk"), content) << "a refused analysis is not saved";
}

TEST_F(Cli, CrossedGuardbandsGiveNoOldFigure) {
    std::string content = readAll(folder / "ex/pressure-gauge-100psi.mrk");
    for (std::size_t at; (at = content.find("\r\n.9\r\n.9\r\n")) != std::string::npos;)
        content.replace(at, 10, "\r\n-2\r\n-2\r\n");
    write("crossed.mrk", content);
    const Result result = run("compute --json crossed.mrk");
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.lines().at(0)["FalseAccept"].is_null());
}

TEST_F(Cli, FaultsThatShowNoBoxAreToldOnStderr) {
    const std::string content = readAll(folder / good);
    const auto with = [&](const std::string& old, const std::string& entered) {
        std::string changed = content;
        changed.replace(changed.find(old), old.size(), entered);
        return changed;
    };
    write("freedom.mrk", with("\r\n0,0\r\n.2", "\r\n0,1E-14\r\n.2"));
    Result result = run("compute --json freedom.mrk");
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("freedom.mrk: not computed"), std::string::npos) << result.err;

    for (const char* ratio : {"4,0", "0,1", "4,-1", "-4,1", "1E308,1E-308"}) {
        write("ratio.mrk", with("\r\n4,1\r\n", "\r\n" + std::string(ratio) + "\r\n"));
        result = run("compute --json ratio.mrk");
        const json line = result.lines().at(0);
        EXPECT_EQ(line["status"], "computed") << ratio << ": the risks need no baseline";
        EXPECT_TRUE(line["BaselineFalseAccept"].is_null()) << ratio;
        EXPECT_GT(line["EqAccRat"].get<double>(), 0) << ratio << ": nor does the search need its ratio";
        EXPECT_NE(result.err.find("ratio.mrk: no baseline risks"), std::string::npos) << ratio << result.err;
    }
}

TEST_F(Cli, SavesResultsOnlyWhereItMay) {
    const std::string before = readAll(folder / good);
    fs::copy(folder / good, folder / "old.dat");
    EXPECT_EQ(run("compute --save old.dat").status, 0);
    ASSERT_TRUE(fs::exists(folder / "old.mrk"));
    EXPECT_EQ(readAll(folder / "old.dat"), before) << "the .dat file itself stays";
    EXPECT_EQ(run("compute --save old.dat").status, 1) << "old.mrk is there now";
    EXPECT_EQ(run("compute --save --force old.dat").status, 0);
    EXPECT_EQ(run("compute --save old.mrk").status, 0) << "the file that was read needs no --force";

    EXPECT_EQ(run("convert " + std::string(good) + " copy").status, 0);
    EXPECT_EQ(readAll(folder / "copy.mrk"), before) << "a file of the present version is unchanged";
    EXPECT_EQ(run("convert " + std::string(good) + " copy.mrk").status, 2);
    EXPECT_EQ(run("convert --force " + std::string(good) + " copy.mrk").status, 0);
    EXPECT_EQ(run("convert absent.mrk new.mrk").status, 3);
    EXPECT_EQ(run("convert " + std::string(good) + " no/such/folder/new.mrk").status, 1);
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
    for (const char* bad :
         {"--ratio 0:1 --mte 85 --su 72", "--ratio 4:0 --mte 85 --su 72", "--ratio x --mte 85 --su 72",
          "--ratio 4:1 --mte 100 --su 72", "--ratio 4:1 --mte 85 --su 0", "--ratio 4:1 --mte nan --su 72",
          "--ratio 4:1 --mte 85"})
        EXPECT_EQ(run(std::string("baseline ") + bad).status, 2) << bad;
}

TEST_F(Cli, WrongUsageIsTwo) {
    for (const char* bad :
         {"", "frobnicate", "compute", "compute --no-such-option x", "convert one", "show"}) {
        const Result result = run(bad);
        EXPECT_EQ(result.status, 2) << bad;
        EXPECT_EQ(result.out, "") << bad;
        EXPECT_NE(result.err, "") << bad;
    }
    EXPECT_EQ(run("--help").status, 0);
    EXPECT_EQ(run("--version").out, "metrisk-cli 1.6\n");
}

TEST_F(Cli, TakesTheSettingsOfAnotherFile) {
    write("other.ini", "[RiskOption]\r\nFalseAcceptConvention=Producer\r\n");
    EXPECT_EQ(run("compute --settings other.ini " + std::string(good)).status, 0);
    EXPECT_EQ(readAll(folder / "other.ini"), "[RiskOption]\r\nFalseAcceptConvention=Producer\r\n");
}

TEST_F(Cli, DependsOnNoQtLibrary) {
    const int found = std::system("ldd " METRISK_CLI " | grep -qi qt");
    EXPECT_NE(WEXITSTATUS(found), 0);
}

} // namespace
