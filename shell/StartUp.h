// Where the program finds its folder, its units and its help, settled once at start.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

class Settings;

struct Places {
    std::string HomeDirectory; // the folder of the program's data
    std::string HomeDrive;     // what stands before the first separator of it
    std::string UnitsDatabasePath;
    std::string HelpFilePath;
};

/// Reads the places from the settings. A home folder that does not exist becomes `programFolder` if it
/// can be written to, else `dataFolder`, which is created; a units database that does not exist becomes
/// that of the home folder. Either repair writes both keys back.
Places locatePlaces(Settings& settings, const std::string& programFolder, const std::string& dataFolder);

/// All arguments joined by blanks are one file name; quotes around it are dropped.
std::string commandLineFile(const std::vector<std::string>& arguments);

} // namespace metrisk
