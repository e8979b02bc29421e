// Copies of unsaved work, kept apart from the user's files until they are saved or declined.
#pragma once

#include "base/FileStamp.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// What a copy holds: the analysis as a file would, and the file that it would be saved as.
struct RecoveredWork {
    std::string name; // of the analysis, possibly untitled
    std::optional<FileStamp> stamp;
    std::string content;
};

/// The copy of one running window. It is locked as long as the process lives, however that ends.
class RecoveryCopy {
  public:
    /// Nothing is written yet. The folder is made when it is needed, for the user alone.
    explicit RecoveryCopy(std::filesystem::path folder) : folder_(std::move(folder)) {}
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    /// Replaces the copy as a whole. False, and the copy before it stays, if it cannot be written.
    bool write(const RecoveredWork& work);
    void remove();

    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path folder_;
    std::filesystem::path path_; // empty while there is none
    int lock_ = -1;              // the file itself, open
};

/// A copy that a process has left behind which is gone by now.
struct AbandonedCopy {
    std::filesystem::path path;
    std::int64_t seconds = 0; // since 1970, when it was written
    RecoveredWork work;
};

/// Newest first. Files that are none, or damaged, are left out.
std::vector<AbandonedCopy> abandonedCopies(const std::filesystem::path& folder);

/// $XDG_STATE_HOME/metrisk/recovery, else below ~/.local/state; empty without a home.
std::filesystem::path recoveryFolder();

} // namespace metrisk
