#include "desk/points/PointDocument.h"

#include "desk/kit/FileChooser.h"
#include "desk/kit/Message.h"
#include "desk/points/PointDesk.h"
#include "desk/points/PointFiles.h"

#include <stdexcept>
#include <utility>

namespace metrisk {

namespace {

constexpr std::string_view saveTitle = "Save Table";

std::optional<std::string> nameToSave(FileChooser* files, const PointDesk& desk) {
    if (!files) return std::nullopt;
    return files->chooseToSave({.title = std::string(saveTitle),
                                .filter = tableFilter,
                                .initialName = desk.path.empty() ? "points.csv" : desk.path});
}

} // namespace

std::string nameOfTable(const PointDesk& desk) {
    return nameOfTable(desk.path);
}

std::string nameOfTable(const std::string& path) {
    return path.empty() ? "New table" : path.substr(path.rfind('/') + 1);
}

bool openTable(Talk& ui, PointDesk& desk, const std::string& path) {
    const auto stamp = stampOf(path); // before it is read, so that a change in between is noticed
    try {
        desk.sheet = readTable(path);
    } catch (const std::runtime_error& fault) {
        tell(ui, {fault.what(), path});
        return false;
    }
    desk.path = path;
    desk.stamp = stamp;
    return true;
}

bool saveTable(Talk& ui, FileChooser* files, PointDesk& desk, bool underAnotherName) {
    const bool named = !desk.path.empty() && !underAnotherName;
    const auto path = named ? desk.path : nameToSave(files, desk);
    if (!path || (named && !mayReplaceChanged(ui, desk.stamp, *path, saveTitle))) return false;
    if (!writeTable(ui, *path, desk.sheet.text())) return false;
    desk.path = *path;
    desk.stamp = stampOf(*path);
    desk.sheet.markSaved();
    return true;
}

bool changesSettled(Talk& ui, FileChooser* files, PointDesk& desk) {
    if (!desk.sheet.changed()) return true;
    switch (ask(ui, {"Save changes to " + nameOfTable(desk) + "?", saveTitle, BoxButtons::YesNoCancel,
                     Answer::Cancel})) {
    case Answer::Yes: return saveTable(ui, files, desk, false);
    case Answer::No: return true;
    default: return false;
    }
}

} // namespace metrisk
