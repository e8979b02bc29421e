// What is settled once at start: the places of the program, and the file that it opens.
#pragma once

#include "base/Places.h"

#include <memory>
#include <string>
#include <vector>

namespace metrisk {

class Settings;

/// The settings of the user, made from those that the system offers where there are none yet.
struct UserSettings {
    std::string path;
    std::unique_ptr<Settings> file;
};
UserSettings openUserSettings();

/// Reads the places from the settings. A home folder that does not exist becomes `programFolder` if it
/// can be written to, else `dataFolder`, which is created; a units database that does not exist becomes
/// that of the home folder. Either repair writes both keys back. Where the settings name no database and the
/// home folder has none, it gets a copy of `sampleUnits`.
Places locatePlaces(Settings& settings, const std::string& programFolder, const std::string& dataFolder,
                    const std::string& sampleUnits);

/// The units database that comes with the program, which is only read: beside an installed program or in the
/// build folder; empty if there is none.
std::string sampleUnitsOf(const std::string& programFolder);

/// All arguments joined by blanks are one file name; quotes around it are dropped.
std::string commandLineFile(const std::vector<std::string>& arguments);

} // namespace metrisk
