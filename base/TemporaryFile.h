// A file beside another that becomes it as a whole, or leaves nothing behind.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>

namespace metrisk {

/// Asked before every operation on the disk that can fail; false lets that operation fail.
using DiskProbe = std::function<bool()>;

/// Asked whether a step is still wanted.
using Condition = std::function<bool()>;

/// What becomes of a file that already bears the name.
enum class Existing { Replace, Refuse };

/// The file that a chain of symbolic links ends at, whether it exists or not.
std::filesystem::path linkTarget(std::filesystem::path path);

/// Gives an open file the permissions, the access list and, as far as the system allows, the owner and group
/// of another; nothing if that is not there. Why its permissions could not be given; none if they were.
std::error_code keepAttributes(int file, const std::filesystem::path& of);

/// Bears a name that tells its kind, and is locked while it is written, so that what a killed process leaves
/// is told from what another writes: the first such file in a folder removes those that belong to nobody.
/// After a failure every further step fails, and the target stays as it was.
class TemporaryFile {
  public:
    /// Made beside the target, or beside what the target links to, with the permissions, the access list and,
    /// as far as the system allows, the owner and group of a file that is there already. Fails beside one
    /// that may not be written or is no regular file.
    explicit TemporaryFile(const std::filesystem::path& target, DiskProbe probe = {});
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Why a step has failed; none if none has.
    std::error_code error() const { return error_; }

    bool write(std::string_view content);
    /// Brings the content to the disk and the file under its name. `holds` is asked in between: false leaves
    /// everything as it was, with the error operation_canceled.
    bool place(Existing existing = Existing::Replace, const Condition& holds = {});

  private:
    bool fail();    // for the reason that the system gives
    bool allowed(); // by the probe, and no step has failed

    DiskProbe probe_;
    std::filesystem::path target_;
    std::filesystem::path path_; // empty once there is none
    std::optional<std::size_t> slot_;
    int file_ = -1;
    std::error_code error_;
};

/// From now on a signal that ends the process removes its temporary files first. For programs without a
/// handling of signals of their own.
void removeTemporariesOnSignals();

} // namespace metrisk
