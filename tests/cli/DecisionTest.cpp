// Readings, decisions and strategies on the command line: status, streams and keys.
#include "tests/cli/Cli.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace metrisk::testing {

constexpr const char* meter = "ex/multimeter-dc-volts.mrk";

TEST_F(Cli, DecidesOnReadings) {
    const Result one = run(std::string("decide --reading 10.00038 --rule w=U --outcomes 4 --json ") + meter);
    EXPECT_EQ(one.status, 0) << "a verdict of any kind is none of a refusal";
    const json decided = one.lines().at(0);
    EXPECT_EQ(decided["status"], "computed");
    EXPECT_EQ(decided["Verdict"], "Conditional pass");
    EXPECT_DOUBLE_EQ(decided["GuardBand"].get<double>(), decided["ExpandedUncertainty"].get<double>());
    EXPECT_NEAR(decided["RejectUpper"].get<double>(), 10.00041 + decided["GuardBand"].get<double>(), 1e-14);
    EXPECT_NEAR(decided["ConformanceProbability"].get<double>() +
                    decided["SpecificFalseAccept"].get<double>(),
                1, 1e-15);
    EXPECT_TRUE(decided["SpecificFalseReject"].is_null());
    EXPECT_NE(decided["Sentence"].get<std::string>().find("Verdict: Conditional pass."), std::string::npos);
    const json unit = run(std::string("decide --reading '10000.38 mV' --json ") + meter).lines().at(0);
    EXPECT_DOUBLE_EQ(unit["Reading"].get<double>(), 10.00038);
    const std::string table = run(std::string("decide --reading 10.00038 ") + meter).out;
    EXPECT_NE(table.find("  Verdict                     Pass\n"), std::string::npos) << table;
    EXPECT_EQ(table.find("Rejection"), std::string::npos);

    write("readings.txt", "10.0001\r\n\n 10.0005 \nten\n-10\n");
    const Result many =
        run(std::string("decide --readings readings.txt --rule pc=95% --prior --json ") + meter);
    EXPECT_EQ(many.status, 1);
    std::string words;
    for (const json& line : many.lines())
        words += line["status"] == "computed" ? line["Verdict"].get<std::string>() + " " : "refused ";
    EXPECT_EQ(words, "Pass Fail refused Fail ");
    EXPECT_NE(many.err.find("line 4: \"ten\" is not a number."), std::string::npos) << many.err;
    EXPECT_FALSE(many.lines().at(0)["AcceptUpper"].is_null());
    const std::string lines = run(std::string("decide --readings readings.txt ") + meter).out;
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 4) << "the file, and a line each\n" << lines;
}

TEST_F(Cli, TellsWhatIsMalformedFromWhatIsImpossible) {
    const struct {
        const char* command;
        int status;
    } rows[] = {{"decide --reading 10 --rule pc=1", 1},
                {"decide --reading 10 --rule rss --k 1000", 1},
                {"decide --reading 10 --rule guard=-1 --outcomes 3", 1},
                {"decide --reading 10 --k 0", 1},
                {"decide --reading 10 --prior --mean 11", 1},
                {"decide --reading 10 --rule umax=1e-9", 0},
                {"decide --reading ten", 2},
                {"decide --reading ''", 2},
                {"decide --reading '10 K'", 1},
                {"decide --reading '10 ell'", 1},
                {"decide --reading 10 --rule guards=1", 2},
                {"decide --reading 10 --outcomes 5", 2},
                {"decide --reading 10 --reject 1", 2},
                {"decide --reading 10 --mean 10", 2},
                {"decide --reading 10 --readings -", 2},
                {"decide", 2},
                {"worst --from 60 --to 50", 1},
                {"worst --target 1e-9% --convention consumer", 0},
                {"worst --target 0", 1},
                {"worst --target many", 2},
                {"counts 21/20", 1},
                {"counts 20/20", 0},
                {"counts 0/20 --assumed 101", 1},
                {"counts 1.5/20", 2},
                {"strategies --rule w=U --k 1000", 1},
                {"strategies --rule w=U", 0},
                {"strategies --rule fr", 1},
                {"strategies --rule best", 2},
                {"strategies --csv --json", 2},
                {"strategies --target-fa 0", 1},
                {"offcentre --mean 10.001", 1},
                {"offcentre", 2},
                {"compute --k 0", 1},
                {"compute --k two", 2}};
    for (const auto& [command, status] : rows) {
        const Result result = run(std::string(command) + " --json " + meter);
        EXPECT_EQ(result.status, status) << command << " " << result.err;
        if (status == 2) continue;
        EXPECT_EQ(result.lines().at(0)["status"], status == 1 ? "refused" : "computed") << command;
        if (status == 1) {
            EXPECT_FALSE(result.lines().at(0)["messages"].empty()) << command;
        }
    }
    EXPECT_EQ(run("counts --json -- -1/20").status, 1);
    EXPECT_EQ(run("worst --json absent.mrk").lines().at(0)["status"], "unreadable");
}

TEST_F(Cli, PrintsSideFiguresThatBelongToCompute) {
    const std::string before = fileContent(folder / meter);
    const json computed = run(std::string("compute --json ") + meter).lines().at(0);
    const json strategies = run(std::string("strategies --json ") + meter).lines().at(0);
    EXPECT_EQ(strategies["rows"].size(), 10u);
    const json& plain = strategies["rows"].at(0);
    EXPECT_EQ(plain["Rule"], "none");
    const json& verified = computed["Verified"];
    for (const char* key :
         {"FalseAcceptConsumer", "FalseAcceptProducer", "FalseReject", "Accepted", "InTolerance"}) {
        EXPECT_EQ(plain[key], verified[key]["value"]) << key;
        EXPECT_NEAR(computed[key].get<double>(), plain[key].get<double>(), 1e-12) << key;
    }
    EXPECT_EQ(computed["FalseAcceptConsumer"], computed["FalseAccept"]) << "the file's own convention";
    EXPECT_EQ(computed["CoverageFactor"], 2.0);
    EXPECT_NEAR(computed["TUR"].get<double>() * 1.959964,
                2 * computed["ToleranceToUncertainty"].get<double>(), 1e-12);
    const json narrow = run(std::string("compute --k 95% --json ") + meter).lines().at(0);
    EXPECT_NEAR(narrow["ExpandedUncertainty"].get<double>(), 5.2e-5, 1e-18) << "as it was entered";

    const json worst = run(std::string("worst --target 0.5% --json ") + meter).lines().at(0);
    EXPECT_GT(worst["WorstFalseAccept"], plain["FalseAcceptProducer"]);
    EXPECT_EQ(worst["Consumer"]["AtEndOfRange"], true);
    const json row =
        run(std::string("strategies --rule worst --target-worst 0.5% --json ") + meter).lines().at(0);
    EXPECT_EQ(row["GuardBand"], worst["GuardBand"]);

    const json counts = run(std::string("counts 19/20 --assumed 70 --json ") + meter).lines().at(0);
    EXPECT_NEAR(counts["FalseAcceptConsumerAtEstimate"].get<double>(),
                plain["FalseAcceptConsumer"].get<double>(), 1e-15);
    EXPECT_GT(counts["Rejection"], 0.95);
    const json observed = run(std::string("observed --observed 95 --json ") + meter).lines().at(0);
    EXPECT_NEAR(counts["TruePct"].get<double>(), 100 * observed["Verified"]["True"]["value"].get<double>(),
                1e-9);
    const json centred = run(std::string("offcentre --mean 10 --json ") + meter).lines().at(0);
    EXPECT_NEAR(centred["FalseReject"].get<double>(), plain["FalseReject"].get<double>(), 1e-15);
    EXPECT_EQ(fileContent(folder / meter), before) << "side figures change nothing";
}

} // namespace metrisk::testing
