// Which program the desktop opens a kind of files with: the association files of the user and the system.
#pragma once

#include "base/Launch.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace metrisk {

/// Where associations and desktop entries are looked for, the most important folder first.
struct AssociationPlaces {
    std::vector<std::filesystem::path> configFolders;      // that may have a mimeapps.list
    std::vector<std::filesystem::path> applicationFolders; // of desktop entries; may have one as well
    std::vector<std::string> desktops;                     // names of the desktop that runs, in lower case

    /// By the XDG variables of the environment.
    static AssociationPlaces ofUser();
};

/// The default program of the first of those MIME types that has one: by the lists of the user and the
/// desktop, else any program that says it opens that type. Entries that are missing or hidden do not count.
Association findAssociation(std::span<const std::string> types, const AssociationPlaces& places);

} // namespace metrisk
