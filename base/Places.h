// Where the program finds its folder, its units and its help.
#pragma once

#include <string>

namespace metrisk {

struct Places {
    std::string HomeDirectory;     // the folder of the program's data
    std::string HomeDrive;         // what stands before the first separator of it
    std::string UnitsDatabasePath; // empty when none is in use
    std::string HelpFilePath;
    std::string SettingsPath;
};

} // namespace metrisk
