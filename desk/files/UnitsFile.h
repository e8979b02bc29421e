// The units database in use: finding, checking, creating and opening its file, with what the user is told.
#pragma once

#include "units/database/UnitsDatabase.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace metrisk {

class FileChooser;
struct Session;

/// Its path is UnitsDatabasePath of the session's places. A failure tells the user and leaves path and open
/// database as they were, unless it says otherwise.
class UnitsFile {
  public:
    UnitsFile(Session& session, FileChooser& chooser) : session_(session), chooser_(chooser) {}

    /// The database, once one of the procedures below has opened it; null before.
    UnitsDatabase* database() const { return database_.get(); }
    bool UnitsDatabaseOpen() const { return database_ != nullptr; }

    /// Finds and opens the file, asking for it if need be, and reads the names of its areas. On failure
    /// AbortFlag is set and the list is empty.
    std::vector<std::string> OpenUnitsDatabase();
    /// Opens the file at the path in use, without a word if there is none.
    bool openCurrent();
    /// Tells if it is not.
    bool ValidateUnitsDatabase(const std::string& path);
    /// Asks for a database if there is none at the path in use.
    bool LocateUnitsDatabase();
    /// Asks for a name and makes an empty database, which is in use then.
    bool CreateUnitsDatabase();
    /// Asks for a database, which is in use then.
    bool openAnother();
    /// Asks for a name and copies the database to it; the copy is in use then.
    bool saveAs();
    /// No database is in use.
    void close();

    /// Runs work on the database; a failure of its engine is told. False then.
    bool perform(const std::function<void(UnitsDatabase&)>& work);

  private:
    /// Becomes the one in use, and the settings learn of it.
    void use(std::unique_ptr<UnitsDatabase> database);
    void tellLeftOut();
    std::unique_ptr<UnitsDatabase> validated(const std::string& path);
    std::optional<std::string> chooseToSave(const char* title);
    void refuseOverwriting(const std::string& path) const;

    Session& session_;
    FileChooser& chooser_;
    std::unique_ptr<UnitsDatabase> database_;
};

} // namespace metrisk
