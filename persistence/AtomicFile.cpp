#include "persistence/AtomicFile.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <mutex>
#include <set>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t blockSize = std::size_t{64} * 1024;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    bool close() {
        const int number = number_;
        number_ = -1;
        return number < 0 || ::close(number) == 0;
    }

  private:
    int number_;
};

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

/// Removes the file beside unless it became the file itself.
class TemporaryName {
  public:
    explicit TemporaryName(fs::path path) : path_(std::move(path)), slot_(openTemporaries.add(path_)) {}
    ~TemporaryName() {
        if (!path_.empty()) ::unlink(path_.c_str());
        if (slot_) openTemporaries.remove(*slot_);
    }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    void keep() { path_.clear(); }

  private:
    fs::path path_;
    std::optional<std::size_t> slot_;
};

/// The file that a chain of symbolic links ends at, whether it exists or not.
fs::path linkTarget(fs::path path) {
    std::error_code error;
    for (int i = 0; i < 40 && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) break;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return path;
}

bool writeAll(int file, std::string_view content, const DiskProbe& probe) {
    while (!content.empty()) {
        if (probe && !probe()) return false;
        const ssize_t written = ::write(file, content.data(), std::min(content.size(), blockSize));
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

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
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat status {};
    return file.isOpen() && ::fstat(file.number(), &status) == 0 && S_ISREG(status.st_mode) &&
           std::time(nullptr) - status.st_mtime > newest && ::flock(file.number(), LOCK_EX | LOCK_NB) == 0;
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

/// Handler of the signals that end a process.
void endBySignal(int number) {
    openTemporaries.unlinkAll();
    ::raise(number); // the handler is gone by now: the process ends as it would have without
}

} // namespace

bool replaceFile(const fs::path& path, std::string_view content, const DiskProbe& probe) {
    const auto allowed = [&] { return !probe || probe(); };
    const fs::path target = linkTarget(path);

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && (!S_ISREG(old.st_mode) || ::access(target.c_str(), W_OK) != 0)) return false;

    const fs::path folder = folderOf(target);
    removeAbandonedOnce(folder);
    const fs::path beside = nameBeside(target);
    if (!allowed()) return false;
    Descriptor file(::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) return false;
    TemporaryName temporary(beside);
    ::flock(file.number(), LOCK_EX | LOCK_NB);

    if (exists) {
        keepOwner(file.number(), old);
        if (::fchmod(file.number(), old.st_mode & 07777) != 0) return false;
    }
    if (!writeAll(file.number(), content, probe)) return false;
    if (!allowed() || ::fsync(file.number()) != 0) return false;
    if (!allowed() || !file.close()) return false;
    if (!allowed() || ::rename(beside.c_str(), target.c_str()) != 0) return false;
    temporary.keep();

    // The new name itself reaches the disk with its folder; the content is safe either way.
    Descriptor folderFile(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folderFile.isOpen()) ::fsync(folderFile.number());
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

std::optional<std::string> readFileStart(const fs::path& path, std::size_t most) {
    // Not blocking: opening a pipe without a writer must not wait.
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;

    std::string content(std::min(static_cast<std::size_t>(status.st_size), most), '\0');
    std::size_t have = 0;
    while (have < content.size()) {
        const ssize_t got = ::read(file.number(), content.data() + have, content.size() - have);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        have += static_cast<std::size_t>(got);
    }
    content.resize(have);
    return content;
}

std::optional<std::string> readWholeFile(const fs::path& path, std::size_t largest) {
    auto content = readFileStart(path, largest + 1);
    if (content && content->size() > largest) content.reset();
    return content;
}

} // namespace metrisk
