#include "cli/Commands.h"

namespace metrisk::cli {

void addSettingsOption(const Arguments& command, std::string& path) {
    command.text("--settings", path, "Settings file to use instead of your own").shownAs("FILE").isPath();
}

} // namespace metrisk::cli
