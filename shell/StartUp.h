// What is settled once at start: the places of the program, and the file that it opens.
#pragma once

#include "model/Places.h"

#include <string>
#include <vector>

namespace metrisk {

class Settings;

/// Reads the places from the settings. A home folder that does not exist becomes `programFolder` if it
/// can be written to, else `dataFolder`, which is created; a units database that does not exist becomes
/// that of the home folder. Either repair writes both keys back.
Places locatePlaces(Settings& settings, const std::string& programFolder, const std::string& dataFolder);

/// All arguments joined by blanks are one file name; quotes around it are dropped.
std::string commandLineFile(const std::vector<std::string>& arguments);

} // namespace metrisk
