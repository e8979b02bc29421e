// Baseline, guardbands, observed shares, sweeps and maps.
#include "tests/cli/Cli.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <utility>

namespace metrisk::testing {

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
    // Equal sides share their multiplier without being asked, others are asked for.
    const std::string other = "ex/multimeter-dc-volts.mrk";
    EXPECT_NE(run("guardband --target-fa 0.2 --save " + other)
                  .out.find("  Symmetric                   multipliers\n"),
              std::string::npos);
    EXPECT_TRUE(json::parse(run("show --json " + other).out)["GB_SymmetricMult"]);
    const Result unequal = run("guardband --target-fa 0.2% ex/attenuator-20db.mrk");
    EXPECT_EQ(unequal.status, 1);
    EXPECT_NE(unequal.err.find("--symmetric multipliers or --symmetric k"), std::string::npos) << unequal.err;
    for (const auto& [words, status] : {std::pair{"--target-fa 2x", 2},
                                        {"--target-fa 2%% --equalize", 2},
                                        {"", 2},
                                        {"--target-fa 0%", 1},
                                        {"--target-fr 200%", 1}})
        EXPECT_EQ(run("guardband " + std::string(words) + " --symmetric k " + file).status, status) << words;
}

TEST_F(Cli, TellsWhatExactIntegrationMakesOfASolve) {
    std::string content = fileContent(folder / good);
    for (const auto& [old, entered] :
         {std::pair<std::string, std::string>{"50,50.5,49.5,95", "50,50.03,49.97,95"},
          {"\r\n.5,.5,0\r\n", "\r\n.03,.03,0\r\n"}})
        for (std::size_t at; (at = content.find(old)) != content.npos;)
            content.replace(at, old.size(), entered);
    write("fine.mrk", content);
    const json solved = json::parse(run("guardband --target-fa 100ppm --json fine.mrk").out);
    EXPECT_NEAR(solved["FalseAccept"].get<double>(), 1e-4, 1e-7);
    EXPECT_LT(solved["Verified"]["FalseAccept"]["value"].get<double>(), 1e-7) << "lost in rounding";
    EXPECT_EQ(solved["AgreeingDigits"], 0);
    const json swept = json::parse(run("sweep fine.mrk --json --over guardband --points 2 --to 1.1 --from " +
                                       solved["ExactMultiplier"].dump())
                                       .out);
    EXPECT_NEAR(swept["points"][0]["ExactFalseAccept"].get<double>(), 1e-4, 1e-12);
    EXPECT_NE(run("guardband --target-fa 100ppm fine.mrk").out.find("a multiplier of 0.98884513 meets"),
              std::string::npos);
    const json met = json::parse(run("guardband --target-fa 0.2% --json " + std::string(good)).out);
    EXPECT_TRUE(met["ExactMultiplier"].is_null());
    EXPECT_GE(met["AgreeingDigits"], 6);

    EXPECT_NE(run("baseline --ratio 500 --mte 99.9 --su 95")
                  .out.find("59 ppm\n                              Exact integration gives 58.39 ppm."),
              std::string::npos);
    const json baseline = json::parse(run("baseline --ratio 4 --mte 85 --su 72 --json").out);
    EXPECT_NEAR(baseline["Verified"]["BaselineFalseAccept"]["value"].get<double>(),
                baseline["BaselineFalseAccept"].get<double>(), 1e-9);
}

TEST_F(Cli, ConvertsTrueAndObserved) {
    const std::string file(good);
    const json observed = json::parse(run("observed --true 90 --json " + file).out);
    const std::string pct = std::to_string(observed["Obs_PctInTol"].get<double>());
    const json back = json::parse(run("observed --observed " + pct + " --json " + file).out);
    EXPECT_NEAR(back["True"].get<double>(), 0.9, 1e-6);
    EXPECT_NEAR(observed["Verified"]["Observed"]["value"].get<double>(), observed["Observed"].get<double>(),
                1e-8);
    EXPECT_NEAR(back["Verified"]["True"]["value"].get<double>(), 0.9, 1e-6);
    EXPECT_EQ(run("observed --true 99.999999999 " + file).out.find("100.0000"), std::string::npos);
    const auto refused = run("observed --observed 99.99999 --json " + file);
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(json::parse(refused.out)["messages"][0]["text"], "Unrealistic observed % in-tolerance.");

    // Another unit has observed: its figures are those of a measuring parameter like it.
    const auto written = [&](const char* name, std::string content, const std::string& old,
                             const std::string& entered) {
        const std::size_t at = content.find(old);
        ASSERT_NE(at, std::string::npos) << old;
        write(name, content.replace(at, old.size(), entered));
    };
    const std::string content = fileContent(folder / good);
    const std::string ids = "\"SU\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n";
    written("other.mrk", content, ids + "0\r\n0\r\n", ids + ".9\r\n1\r\n");
    written("alike.mrk", content, "\r\n50,50.5,49.5,95\r\n", "\r\n50,51,49,90\r\n");
    written("alike.mrk", fileContent(folder / "alike.mrk"), "\r\n.5,.5,0\r\n", "\r\n1,1,0\r\n");
    const json other = json::parse(run("observed --true 90 --json other.mrk").out);
    EXPECT_EQ(other["Observed"], json::parse(run("observed --true 90 --json alike.mrk").out)["Observed"]);
    EXPECT_LT(other["Observed"], observed["Observed"]);
    EXPECT_EQ(other["Obs_ObservingUnitOption"], 0);
    EXPECT_EQ(other["Obs_Offset"], 1.0);
    EXPECT_NE(run("observed --true 90 other.mrk").out.find("other, \u00b1 1 N\u00b7m, 90 % in-tolerance"),
              std::string::npos);
    written("odd.mrk", content, ids + "0\r\n0\r\n", ids + "1.5\r\n1\r\n");
    const json unfit = json::parse(run("observed --true 90 --json odd.mrk").out);
    EXPECT_EQ(unfit["messages"].at(0)["text"], "Must be less than 100%.");
}

TEST_F(Cli, SweepsAndMaps) {
    const std::string sweep = "sweep ex/multimeter-dc-volts.mrk --over ";
    const Result csv = run(sweep + "guardband --from 0.5 --to 1 --points 3 --csv");
    const Result single = run("compute --json ex/multimeter-dc-volts.mrk");
    EXPECT_EQ(csv.status, 0);
    std::istringstream lines(csv.out);
    std::string heading, last;
    std::getline(lines, heading);
    EXPECT_EQ(heading, "x,FalseAccept,FalseReject,ExactFalseAccept,ExactFalseReject");
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

} // namespace metrisk::testing
