#include "links/PartnerFile.h"

#include "base/AtomicFile.h"
#include "base/Text.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = std::size_t{1} * 1024 * 1024;
constexpr mode_t ownOnly = 0600;
constexpr std::time_t coarsestStamp = 2; // seconds between the times that some file systems tell apart

struct Opened {
    explicit Opened(int descriptor) : number(descriptor) {}
    ~Opened() {
        if (number >= 0) ::close(number);
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;
    const int number;
};

} // namespace

PartnerFile readPartnerFile(const fs::path& path, std::time_t since) {
    using State = PartnerFile::State;
    const Opened file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (file.number < 0) return {errno == ENOENT ? State::Missing : State::Refused};
    struct stat status {};
    if (::fstat(file.number, &status) != 0 || !S_ISREG(status.st_mode) || status.st_uid != ::geteuid() ||
        status.st_size > static_cast<off_t>(largestFile) || status.st_mtime + coarsestStamp < since)
        return {State::Refused};
    std::string text;
    char block[16 * 1024];
    for (;;) {
        const ssize_t got = ::read(file.number, block, sizeof block);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 || text.size() + static_cast<std::size_t>(got) > largestFile) return {State::Refused};
        if (got == 0) break;
        text.append(block, static_cast<std::size_t>(got));
    }
    return {State::Read, std::string(withoutByteOrderMark(toUtf8(std::move(text))))};
}

std::time_t fileTime() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    return now.tv_sec;
}

bool writePartnerFile(const fs::path& path, const std::string& text) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0) {
        if (!S_ISREG(status.st_mode) || status.st_uid != ::geteuid()) return false;
        if (::chmod(path.c_str(), ownOnly) != 0) return false;
    } else {
        // An existing file hands its permissions on to the one that replaces it.
        const Opened made(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ownOnly));
        if (made.number < 0) return false;
    }
    return replaceFile(path, text);
}

} // namespace metrisk
