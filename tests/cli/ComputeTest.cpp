// Computing analyses: figures, refusals, questions and damaged files.
#include "tests/cli/Cli.h"

#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace metrisk::testing {

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
              "Verified AgreeingDigits FalseAcceptConsumer FalseAcceptProducer Accepted InTolerance TUR "
              "UncertaintyRatio CoverageFactor ExpandedUncertainty ToleranceToUncertainty ");
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
    write("cut.mrk", fileContent(folder / good).substr(0, 903));
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
        EXPECT_TRUE(std::string(lines[i]["messages"].back()["text"]).starts_with(cause)) << file;
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

TEST_F(Cli, SecondComputeOfASavedFileGivesTheSame) {
    const Result first = run("compute --json --save " + std::string(good));
    const Result second = run("compute --json " + std::string(good));
    EXPECT_EQ(first.out, second.out);
}

TEST_F(Cli, TakesTheSettingsOfAnotherFile) {
    write("other.ini", "[RiskOption]\r\nFalseAcceptConvention=Producer\r\n");
    EXPECT_EQ(run("compute --settings other.ini " + std::string(good)).status, 0);
    EXPECT_EQ(fileContent(folder / "other.ini"), "[RiskOption]\r\nFalseAcceptConvention=Producer\r\n");
}

} // namespace metrisk::testing
