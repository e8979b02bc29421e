// Asking the user for a file name.
#pragma once

#include "base/FileStamp.h"

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

/// Asks before a file is replaced that another program has changed since it was opened or saved last. Without
/// a stamp nothing is known, and nothing asked.
bool mayReplaceChanged(Talk& ui, const std::optional<FileStamp>& stamp, const std::string& path,
                       std::string_view title);

} // namespace metrisk
