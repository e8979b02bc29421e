// The budget with its samples, and the pictures of an analysis.
#include "tests/cli/Cli.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace metrisk::testing {

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

    for (const char* row : {"10.1;10.2;10.3\n", "reading;no\n10.1;1\n", "10.1\t10.2\n", "10,1;10,2\n"}) {
        write("row.csv", row);
        const Result refused = run("uncertainty --samples su=row.csv " + file);
        EXPECT_EQ(refused.status, 1) << row;
        const std::string line = std::string(row).starts_with("reading") ? "line 2 " : "line 1 ";
        EXPECT_NE(refused.err.find(line + "has several numbers"), std::string::npos) << refused.err;
    }
    write("row.csv", "10.1;morning\n10.2;noon\n");
    EXPECT_EQ(run("uncertainty --samples su=row.csv " + file).status, 0) << "a column of texts";

    for (const auto& [words, status] : {std::pair{"--samples data.csv", 2},
                                        {"--save", 2},
                                        {"--samples mte=none.csv", 3},
                                        {"--samples mte=ex", 3},
                                        {"--samples su=none.mrk none.mrk", 2}})
        EXPECT_EQ(run("uncertainty " + std::string(words) + " " + file).status, status) << words;
}

TEST_F(Cli, ATotalThatWasTypedCountsAsInTheRisks) {
    const Result set = run(std::string("set ") + good + " --process-u 0.4 -o typed.mrk --compute");
    ASSERT_EQ(set.status, 0);
    const json told = run("uncertainty --json typed.mrk").lines().at(0);
    const json computed = run("show --json typed.mrk").lines().at(0);
    EXPECT_NEAR(told.at("TotalUncertainty").get<double>(), computed.at("MTE_Sigma").get<double>(), 1e-12);
    EXPECT_NE(run("uncertainty typed.mrk").out.find(", entered as a total"), std::string::npos);
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

} // namespace metrisk::testing
