#include "desk/files/UnitsFile.h"

#include "desk/kit/FileChooser.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "units/database/SqliteUnits.h"

#include <algorithm>
#include <array>

namespace metrisk {

namespace {

namespace fs = std::filesystem;

constexpr const char* filter = "Units Database (*.mdb)|*.mdb";
constexpr const char* locateTitle = "Locate the Measurement Units Database";
constexpr const char* createTitle = "Create Units Database";
constexpr const char* saveTitle = "Save the Database As...";
constexpr Message missing{
    "The measurement units database was not located.  To locate this database, attempt to "
    "open the Update Measurement Units screen and follow the on-screen instructions.",
    "Missing Database"};
constexpr Message couldNotCreate{"Could not create database", "Metrisk"};

/// In the words of the engine.
void tellFault(Talk& ui, const UnitsError& fault) {
    ui.show({.text = fault.what(), .title = "Units Database Error", .icon = BoxIcon::Exclamation});
}

std::string lowerExtension(const fs::path& path) {
    std::string extension = path.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

} // namespace

void UnitsFile::use(std::unique_ptr<UnitsDatabase> database) {
    database_ = std::move(database);
    const std::string path = database_->path().string();
    session_.places.UnitsDatabasePath = path;
    session_.settings.write(std::array<SettingValue, 2>{
        {{"Home Location", "Units Database", path}, {"Units Database", "Database Name", path}}});
}

std::unique_ptr<UnitsDatabase> UnitsFile::validated(const std::string& path) {
    try {
        return openUnitsDatabase(path);
    } catch (const UnitsError&) {
        session_.ui.show({.text = path + "\nis not an Metrisk units database.",
                          .title = "Failure Opening Database",
                          .icon = BoxIcon::Exclamation});
        return nullptr;
    }
}

bool UnitsFile::ValidateUnitsDatabase(const std::string& path) {
    return validated(path) != nullptr;
}

bool UnitsFile::openCurrent() {
    const std::string& path = session_.places.UnitsDatabasePath;
    std::error_code none;
    if (path.empty() || !fs::exists(path, none)) return false;
    database_ = validated(path);
    return UnitsDatabaseOpen();
}

bool UnitsFile::LocateUnitsDatabase() {
    const std::string& path = session_.places.UnitsDatabasePath;
    std::error_code none;
    if (!path.empty() && fs::exists(path, none)) return true;
    const std::string name = path.empty() ? "the units database" : path;
    if (session_.ui.show({.text = "Unable to find " + name + ".\nPlease locate the database.",
                          .title = "Database Unavailable",
                          .icon = BoxIcon::Critical,
                          .buttons = BoxButtons::OkCancel,
                          .unattended = Answer::Cancel}) != Answer::Ok)
        return false;
    return openAnother();
}

bool UnitsFile::openAnother() {
    const fs::path last = session_.places.UnitsDatabasePath;
    const auto chosen = chooser_.chooseToOpen({.title = locateTitle,
                                               .filter = filter,
                                               .initialName = "",
                                               .initialFolder = last.parent_path().string()});
    if (!chosen) return false;
    auto found = validated(*chosen);
    if (!found) return false;
    use(std::move(found));
    tellLeftOut();
    return true;
}

/// Such units would be missed sooner or later, and then in the wrong place.
void UnitsFile::tellLeftOut() {
    if (const std::size_t count = database_->leftOut(); count > 0)
        session_.ui.show({.text = "Units or areas of the file left out: " + std::to_string(count) +
                                  ".\nThey lack a name or a multiplier above 0, or are too long.",
                          .title = "Units Database",
                          .icon = BoxIcon::Information});
}

std::vector<std::string> UnitsFile::OpenUnitsDatabase() {
    Analysis& r = session_.record;
    r.AbortFlag = false;
    if (!openCurrent() && !(LocateUnitsDatabase() && UnitsDatabaseOpen())) {
        tell(session_.ui, missing);
        r.AbortFlag = true;
        return {};
    }
    std::vector<std::string> names;
    try {
        for (MeasurementArea& area : database_->areas()) names.push_back(std::move(area.name));
    } catch (const UnitsError& fault) {
        tellFault(session_.ui, fault);
        r.AbortFlag = true;
        return {};
    }
    if (names.empty()) {
        session_.ui.show({.text = "No measurement areas found in (" + database_->path().string() + ").",
                          .title = "Loading Error",
                          .icon = BoxIcon::Exclamation});
        r.AbortFlag = true;
    }
    return names;
}

std::optional<std::string> UnitsFile::chooseToSave(const char* title) {
    const fs::path last = session_.places.UnitsDatabasePath;
    const auto chosen = chooser_.chooseToSave({.title = title,
                                               .filter = filter,
                                               .initialName = "*.mdb",
                                               .initialFolder = last.parent_path().string()});
    if (!chosen) return {};
    fs::path path = *chosen;
    if (lowerExtension(path) == ".mdb") return *chosen;
    path.replace_extension(".mdb");
    if (!mayReplace(session_.ui, path.string(), title)) return {};
    return path.string();
}

/// The file in use and the files of other programs are never written over.
void UnitsFile::refuseOverwriting(const std::string& path) const {
    std::error_code none;
    if (!fs::exists(path, none)) return;
    if (database_ && fs::equivalent(path, database_->path(), none))
        throw UnitsError("the database is open and cannot be replaced by itself");
    refuseForeignFile(path);
}

bool UnitsFile::CreateUnitsDatabase() {
    const auto path = chooseToSave(createTitle);
    if (!path) return false;
    try {
        refuseOverwriting(*path);
    } catch (const UnitsError& fault) {
        tellFault(session_.ui, fault);
        return false;
    }
    try {
        makeUnitsDatabase(*path);
        use(openUnitsDatabase(*path));
        return true;
    } catch (const UnitsError& fault) {
        if (fault.code == 0)
            tell(session_.ui, couldNotCreate);
        else
            session_.ui.show({.text = "Error during open:" + std::to_string(fault.code) + "/" + fault.what(),
                              .icon = BoxIcon::Exclamation});
        return false;
    }
}

bool UnitsFile::saveAs() {
    const auto path = chooseToSave(saveTitle);
    if (!path) return false;
    return perform([&](UnitsDatabase& database) {
        refuseOverwriting(*path);
        database.saveAs(*path);
        use(openUnitsDatabase(*path));
    });
}

void UnitsFile::close() {
    database_.reset();
    session_.places.UnitsDatabasePath.clear();
}

bool UnitsFile::perform(const std::function<void(UnitsDatabase&)>& work) {
    if (!database_) return false;
    try {
        work(*database_);
        return true;
    } catch (const UnitsError& fault) {
        tellFault(session_.ui, fault);
        return false;
    }
}

} // namespace metrisk
