#include "cli/AuditFiles.h"

#include "base/AtomicFile.h"

#include <algorithm>
#include <filesystem>
#include <unistd.h>

namespace metrisk::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view analysisMark = "MTRISK";
constexpr std::size_t markedStart = 64; // bytes

/// As far as its start tells; one that cannot be read may be one.
bool mayBeAnalysis(const fs::path& path) {
    if (::access(path.c_str(), R_OK) != 0) return true;
    const auto start = readFileStart(path, markedStart);
    return !start || start->find(analysisMark) != start->npos;
}

class Walk {
  public:
    Walk(AuditFiles& found, const fs::path& root, bool recursive)
        : found_(found), root_(fs::weakly_canonical(root)), recursive_(recursive) {}

    void folder(const fs::path& path) {
        std::error_code error;
        std::vector<fs::path> entries;
        for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error))
            entries.push_back(at->path());
        if (error) return found_.analyses.push_back(path.string());
        std::ranges::sort(entries, {}, [](const fs::path& entry) { return entry.native(); });
        for (const fs::path& entry : entries) take(entry);
    }

  private:
    void take(const fs::path& entry) {
        std::error_code none;
        const bool link = fs::is_symlink(entry, none);
        if (fs::is_directory(entry, none)) {
            if (!link && recursive_) folder(entry);
            return;
        }
        const bool ours =
            fs::is_regular_file(entry, none) && (!link || within(entry)) && mayBeAnalysis(entry);
        if (ours)
            found_.analyses.push_back(entry.string());
        else
            ++found_.others;
    }

    bool within(const fs::path& link) const {
        std::error_code error;
        const fs::path target = fs::canonical(link, error);
        const auto [end, rest] = std::ranges::mismatch(root_, target);
        return !error && end == root_.end();
    }

    AuditFiles& found_;
    fs::path root_;
    bool recursive_;
};

} // namespace

AuditFiles auditFiles(const std::vector<std::string>& named, bool recursive) {
    AuditFiles found;
    for (const std::string& name : named) {
        std::error_code none;
        if (fs::is_directory(name, none))
            Walk(found, name, recursive).folder(name);
        else
            found.analyses.push_back(name);
    }
    return found;
}

} // namespace metrisk::cli
