#include "persistence/AtomicFile.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
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

/// Removes the file beside unless it became the file itself.
class TemporaryName {
  public:
    explicit TemporaryName(fs::path path) : path_(std::move(path)) {}
    ~TemporaryName() {
        if (!path_.empty()) ::unlink(path_.c_str());
    }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    void keep() { path_.clear(); }

  private:
    fs::path path_;
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

/// The short name leaves room for any name that the file itself may bear.
fs::path nameBeside(const fs::path& path) {
    static std::atomic<unsigned> counter{0};
    return path.parent_path() /
           (".metrisk-" + std::to_string(::getpid()) + "-" + std::to_string(++counter) + ".tmp");
}

} // namespace

bool replaceFile(const fs::path& path, std::string_view content, const DiskProbe& probe) {
    const auto allowed = [&] { return !probe || probe(); };
    const fs::path target = linkTarget(path);

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && (!S_ISREG(old.st_mode) || ::access(target.c_str(), W_OK) != 0)) return false;

    const fs::path beside = nameBeside(target);
    if (!allowed()) return false;
    Descriptor file(::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!file.isOpen()) return false;
    TemporaryName temporary(beside);

    if (exists) {
        // A file of another owner may not be given back to him; its permissions still hold.
        [[maybe_unused]] const int owned = ::fchown(file.number(), old.st_uid, old.st_gid);
        if (::fchmod(file.number(), old.st_mode & 07777) != 0) return false;
    }
    if (!writeAll(file.number(), content, probe)) return false;
    if (!allowed() || ::fsync(file.number()) != 0) return false;
    if (!allowed() || !file.close()) return false;
    if (!allowed() || ::rename(beside.c_str(), target.c_str()) != 0) return false;
    temporary.keep();

    // The new name itself reaches the disk with its folder; the content is safe either way.
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    Descriptor folderFile(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folderFile.isOpen()) ::fsync(folderFile.number());
    return true;
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
