#include "cli/Commands.h"

#include "risk/decision/Coverage.h"

namespace metrisk::cli {

void addSettingsOption(const Arguments& command, std::string& path) {
    command.text("--settings", path, "Settings file to use instead of your own").shownAs("FILE").isPath();
}

void addCoverageOption(const Arguments& command, CoverageChoice& coverage) {
    command
        .read(
            "--k",
            [&coverage](const std::string& text) -> std::string {
                const auto choice = coverageChoiceOf(text);
                if (choice) coverage = *choice;
                return choice ? "" : "\"" + text + "\" is neither a coverage factor nor a percentage.";
            },
            "Coverage factor of U, as in 2 or 95%; otherwise that of 95.45 %")
        .shownAs("FACTOR");
}

} // namespace metrisk::cli
