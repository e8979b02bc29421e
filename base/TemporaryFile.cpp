#include "base/TemporaryFile.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t blockSize = std::size_t{64} * 1024;

/// Names of the temporary files there are at this moment, where a signal handler can read them.
class OpenTemporaries {
  public:
    /// The number of the slot; none if the name is too long or all slots are taken.
    std::optional<std::size_t> add(const std::string& name) {
        for (std::size_t i = 0; name.size() < sizeof(Slot::name) && i < slots_.size(); ++i) {
            if (slots_[i].taken.exchange(true)) continue;
            name.copy(slots_[i].name, name.size());
            slots_[i].name[name.size()] = '\0';
            slots_[i].ready = true;
            return i;
        }
        return std::nullopt;
    }
    void remove(std::size_t slot) {
        slots_[slot].ready = false;
        slots_[slot].taken = false;
    }
    /// May run in a signal handler.
    void unlinkAll() const {
        for (const Slot& slot : slots_)
            if (slot.ready) ::unlink(slot.name);
    }

  private:
    struct Slot {
        std::atomic<bool> taken = false;
        std::atomic<bool> ready = false;
        char name[4096] = {};
    };
    std::array<Slot, 16> slots_;
};

OpenTemporaries openTemporaries;

constexpr std::string_view temporaryStart = ".metrisk-";
constexpr std::string_view temporaryEnd = ".tmp";

/// The short name leaves room for any name that the file itself may bear.
fs::path nameBeside(const fs::path& path) {
    static std::atomic<unsigned> counter{0};
    std::string name(temporaryStart);
    name.append(std::to_string(::getpid())).append("-").append(std::to_string(++counter));
    return path.parent_path() / name.append(temporaryEnd);
}

fs::path folderOf(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// A writer holds a lock on its temporary file, whatever machine or container it runs on; what is not
/// locked, and not so new that its writer may not have come to lock it yet, belongs to nobody.
bool isAbandoned(const fs::path& path) {
    constexpr time_t newest = 60; // seconds
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0) return false;
    struct stat status {};
    const bool abandoned = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) &&
                           std::time(nullptr) - status.st_mtime > newest &&
                           ::flock(file, LOCK_EX | LOCK_NB) == 0;
    ::close(file);
    return abandoned;
}

void removeAbandoned(const fs::path& folder) {
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const std::string name = at->path().filename();
        if (name.starts_with(temporaryStart) && name.ends_with(temporaryEnd) && isAbandoned(at->path()))
            ::unlink(at->path().c_str());
    }
}

/// Once a folder: a batch that saves into a large folder must not list it for each file.
void removeAbandonedOnce(const fs::path& folder) {
    static std::mutex mutex;
    static std::set<fs::path> seen;
    {
        const std::lock_guard lock(mutex);
        if (!seen.insert(folder).second) return;
    }
    removeAbandoned(folder);
}

/// As far as the system allows: another owner's file cannot be given back to him, but may still belong to
/// the group that shares it.
void keepOwner(int file, const struct stat& old) {
    if (::fchown(file, old.st_uid, old.st_gid) == 0) return;
    [[maybe_unused]] const int grouped = ::fchown(file, static_cast<uid_t>(-1), old.st_gid);
}

/// With an access list the permissions of the group are its mask, which is more than the group itself may do.
void keepAccessList(int file, const fs::path& from, mode_t mode) {
    constexpr const char* list = "system.posix_acl_access";
    std::array<char, 65536> held; // as long as any list
    const ssize_t size = ::getxattr(from.c_str(), list, held.data(), held.size());
    if (size <= 0 || ::fsetxattr(file, list, held.data(), static_cast<std::size_t>(size), 0) == 0) return;
    [[maybe_unused]] const int narrowed = ::fchmod(file, mode & 07777 & ~static_cast<mode_t>(S_IRWXG));
}

/// Handler of the signals that end a process.
void endBySignal(int number) {
    openTemporaries.unlinkAll();
    ::raise(number); // the handler is gone by now: the process ends as it would have without
}

/// Fails if there is a file of that name, also where another process makes it at this moment.
bool renameToNew(const fs::path& from, const fs::path& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return true;
    if (errno != EINVAL) return false;
    // A file system that cannot do that may still know hard links.
    if (::link(from.c_str(), to.c_str()) != 0) return false;
    ::unlink(from.c_str());
    return true;
}

} // namespace

fs::path linkTarget(fs::path path) {
    std::error_code error;
    for (int i = 0; i < 40 && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) break;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

std::error_code keepAttributes(int file, const fs::path& of) {
    struct stat old {};
    if (::stat(of.c_str(), &old) != 0) return {};
    keepOwner(file, old);
    if (::fchmod(file, old.st_mode & 07777) != 0) return {errno, std::generic_category()};
    keepAccessList(file, of, old.st_mode);
    return {};
}

TemporaryFile::TemporaryFile(const fs::path& target, DiskProbe probe)
    : probe_(std::move(probe)), target_(linkTarget(target)) {
    struct stat old {};
    const bool exists = ::stat(target_.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        error_ = std::make_error_code(S_ISDIR(old.st_mode) ? std::errc::is_a_directory
                                                           : std::errc::operation_not_permitted);
        return;
    }
    if (exists && ::access(target_.c_str(), W_OK) != 0) {
        fail();
        return;
    }
    removeAbandonedOnce(folderOf(target_));
    if (!allowed()) return;
    const fs::path beside = nameBeside(target_);
    // Nobody but the owner sees it until it has the permissions of the old file.
    const mode_t mode = exists ? S_IRUSR | S_IWUSR : 0666;
    file_ = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (file_ < 0) {
        fail();
        return;
    }
    path_ = beside;
    slot_ = openTemporaries.add(path_);
    ::flock(file_, LOCK_EX | LOCK_NB);
    if (exists) error_ = keepAttributes(file_, target_);
}

TemporaryFile::~TemporaryFile() {
    if (file_ >= 0) ::close(file_);
    if (!path_.empty()) ::unlink(path_.c_str());
    if (slot_) openTemporaries.remove(*slot_);
}

bool TemporaryFile::fail() {
    if (!error_) error_ = {errno, std::generic_category()};
    return false;
}

bool TemporaryFile::allowed() {
    if (!error_ && probe_ && !probe_()) error_ = std::make_error_code(std::errc::io_error);
    return !error_;
}

bool TemporaryFile::write(std::string_view content) {
    while (!content.empty()) {
        if (!allowed()) return false;
        const ssize_t written = ::write(file_, content.data(), std::min(content.size(), blockSize));
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return fail();
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return !error_;
}

bool TemporaryFile::place(Existing existing, const Condition& holds) {
    if (!allowed()) return false;
    if (::fsync(file_) != 0) return fail();
    if (!allowed()) return false;
    if (::close(std::exchange(file_, -1)) != 0) return fail();
    if (!allowed()) return false;
    if (holds && !holds()) {
        error_ = std::make_error_code(std::errc::operation_canceled);
        return false;
    }
    const bool placed = existing == Existing::Refuse ? renameToNew(path_, target_)
                                                     : ::rename(path_.c_str(), target_.c_str()) == 0;
    if (!placed) return fail();
    path_.clear();

    // The new name itself reaches the disk with its folder; the content is safe either way.
    const int folder = ::open(folderOf(target_).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) return true;
    ::fsync(folder);
    ::close(folder);
    return true;
}

void removeTemporariesOnSignals() {
    struct sigaction action {};
    action.sa_handler = endBySignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE, SIGTERM}) {
        struct sigaction old {};
        // What the caller wants ignored, as nohup does, stays so.
        if (::sigaction(number, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
            ::sigaction(number, &action, nullptr);
    }
}

} // namespace metrisk
