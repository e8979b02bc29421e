// The command-line program run from outside in a temporary folder: arguments, stdout, stderr and exit status
// as a whole.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace metrisk::testing {

namespace fs = std::filesystem;
using nlohmann::json;

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

class Cli : public ::testing::Test {
  protected:
    /// The analyses in a folder of their own, the table of test points beside it.
    Cli() {
        fs::copy(METRISK_SOURCE_DIR "/examples", folder / "ex");
        fs::rename(folder / "ex/points.csv", folder / "points.csv");
    }

    /// Runs in the temporary folder, with settings of its own.
    Result run(const std::string& arguments) {
        // Redirections among the arguments come behind these and win.
        const std::string command =
            "cd '" + folder.string() +
            "' && >out.txt 2>err.txt </dev/null XDG_CONFIG_HOME=$PWD " METRISK_CLI " " + arguments;
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, fileContent(folder / "out.txt"),
                fileContent(folder / "err.txt")};
    }
    /// The same on a terminal, stdout and stderr as they come.
    std::string runOnTerminal(const std::string& arguments) {
        const std::string command = "cd '" + folder.string() +
                                    "' && XDG_CONFIG_HOME=$PWD script -qec \"" METRISK_CLI " " + arguments +
                                    "\" out.txt >/dev/null </dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0);
        return fileContent(folder / "out.txt");
    }
    void write(const char* name, const std::string& content) { temporary.write(name, content); }

    TemporaryFolder temporary;
    const fs::path folder = temporary.path();
};

inline constexpr const char* good = "ex/torque-wrench-50nm.mrk";

} // namespace metrisk::testing
