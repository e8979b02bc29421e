#include "cli/Commands.h"

#include <CLI/CLI.hpp>

namespace metrisk::cli {

void addSettingsOption(CLI::App& command, std::string& path) {
    command.add_option("--settings", path, "Settings file to use instead of your own")
        ->option_text("FILE")
        ->check(CLI::ExistingFile);
}

} // namespace metrisk::cli
