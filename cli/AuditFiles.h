// The analyses among the files that are named and those of folders.
#pragma once

#include <string>
#include <vector>

namespace metrisk::cli {

struct AuditFiles {
    std::vector<std::string> analyses; // by content, with what was named and what cannot be read
    std::size_t others = 0;            // no analyses: files of folders, and links that lead out of them
};

/// Files as they are named, those of a folder in the order of their names' bytes. Links are followed to files
/// within the folder alone; folders in a folder are entered where that is `recursive`, and not through links.
AuditFiles auditFiles(const std::vector<std::string>& named, bool recursive);

} // namespace metrisk::cli
