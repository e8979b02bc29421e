#include "desk/files/StartUp.h"

#include "base/AtomicFile.h"
#include "base/Settings.h"
#include "persistence/SettingsFile.h"

#include <array>
#include <filesystem>
#include <unistd.h>

namespace metrisk {

namespace {

namespace fs = std::filesystem;

constexpr const char* section = "Home Location";
constexpr const char* directoryKey = "Directory";
constexpr const char* unitsKey = "Units Database";
constexpr const char* unitsFile = "Measurement Units.mdb";
constexpr const char* helpFile = "Help/metrisk.hlp";

std::string usableHome(const std::string& programFolder, const std::string& dataFolder) {
    if (access(programFolder.c_str(), W_OK) == 0) return programFolder;
    std::error_code ignored;
    fs::create_directories(dataFolder, ignored);
    return dataFolder;
}

void copyUnits(const std::string& sample, const std::string& path) {
    constexpr std::size_t largest = 64u << 20;
    std::error_code ignored;
    if (sample.empty() || fs::exists(path, ignored)) return;
    if (const auto content = readWholeFile(sample, largest)) replaceFile(path, *content);
}

} // namespace

UserSettings openUserSettings() {
    const std::string path = defaultSettingsPath();
    installStartingSettings(path);
    return {path, std::make_unique<SettingsFile>(path)};
}

Places locatePlaces(Settings& settings, const std::string& programFolder, const std::string& dataFolder,
                    const std::string& sampleUnits) {
    Places places;
    places.HomeDirectory = settings.ReadSetting(section, directoryKey, "", wholeValue);
    places.UnitsDatabasePath = settings.ReadSetting(section, unitsKey, "", wholeValue);
    const auto writeBack = [&] {
        settings.write(std::array<SettingValue, 2>{
            {{section, directoryKey, places.HomeDirectory}, {section, unitsKey, places.UnitsDatabasePath}}});
    };
    std::error_code ignored;
    if (!fs::is_directory(places.HomeDirectory, ignored)) {
        places.HomeDirectory = usableHome(programFolder, dataFolder);
        writeBack();
    }
    if (!fs::is_regular_file(places.UnitsDatabasePath, ignored)) {
        // A database that is only out of reach, as on a network, is never replaced by the sample.
        const bool firstStart = places.UnitsDatabasePath.empty();
        places.UnitsDatabasePath = (fs::path(places.HomeDirectory) / unitsFile).string();
        if (firstStart) copyUnits(sampleUnits, places.UnitsDatabasePath);
        writeBack();
    }
    places.HomeDrive = places.HomeDirectory.substr(0, places.HomeDirectory.find('/'));
    places.HelpFilePath = (fs::path(places.HomeDirectory).parent_path() / helpFile).string();
    return places;
}

std::string sampleUnitsOf(const std::string& programFolder) {
    std::error_code ignored;
    for (const char* data : {"../share/metrisk", "share/metrisk"})
        if (const fs::path path = fs::path(programFolder) / data / unitsFile;
            fs::is_regular_file(path, ignored))
            return path.lexically_normal().string();
    return "";
}

std::string commandLineFile(const std::vector<std::string>& arguments) {
    std::string file;
    for (const std::string& argument : arguments) file += (file.empty() ? "" : " ") + argument;
    if (file.size() >= 2 && file.front() == '"' && file.back() == '"') file = file.substr(1, file.size() - 2);
    return file;
}

} // namespace metrisk
