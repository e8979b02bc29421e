// The table of test points as a document: opened, saved, and asked about before it goes.
#pragma once

#include <string>

namespace metrisk {

class FileChooser;
class Talk;
struct PointDesk;

/// Without its folder.
std::string nameOfTable(const PointDesk& desk);
std::string nameOfTable(const std::string& path);

// Each is false where the user thinks better of it, or where it failed, which has been told; the table is as
// it was then. Without a chooser no name can be asked for.

/// Takes the place of a table whose changes are settled.
bool openTable(Talk& ui, PointDesk& desk, const std::string& path);
/// Asks before it replaces a file that another program has written meanwhile.
bool saveTable(Talk& ui, FileChooser* files, PointDesk& desk, bool underAnotherName);
/// Asks whether to save changes, if there are any.
bool changesSettled(Talk& ui, FileChooser* files, PointDesk& desk);

} // namespace metrisk
