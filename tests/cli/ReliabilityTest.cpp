// Reliability models from coefficients and from periods.
#include "tests/cli/Cli.h"

#include <gtest/gtest.h>
#include <string>
#include <utility>

namespace metrisk::testing {

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

} // namespace metrisk::testing
