// Asking the user for a file name.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

/// What an open or save dialog shows. `filter` has "description|pattern" pairs parted by "|".
struct FileRequest {
    std::string title;
    std::string filter;
    int filterIndex = 1;
    std::string initialName{};
    std::string initialFolder{}; // empty: the user's documents
};

class FileChooser {
  public:
    virtual ~FileChooser() = default;

    /// An existing file, or none if the user cancels.
    virtual std::optional<std::string> chooseToOpen(const FileRequest& request) = 0;
    /// A name to save under, after a prompt if that file exists; none if the user cancels.
    virtual std::optional<std::string> chooseToSave(const FileRequest& request) = 0;
};

class Talk;

/// The dialog has asked about the name that was chosen; the one that it becomes may exist as well. True if
/// it may be written.
bool mayReplace(Talk& ui, const std::string& path, std::string_view title);

} // namespace metrisk
