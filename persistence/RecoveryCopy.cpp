#include "persistence/RecoveryCopy.h"

#include "base/AtomicFile.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <sstream>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace metrisk {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view firstLine = "Metrisk unsaved work 1\n";
constexpr std::size_t largest = std::size_t{64} << 20;
constexpr const char* ending = ".unsaved";

/// Mark; length of the name and stamp, 0 where there is none; name; analysis.
std::string textOf(const RecoveredWork& work) {
    const FileStamp stamp = work.stamp.value_or(FileStamp{});
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << firstLine << work.name.size() << ' ' << stamp.device << ' ' << stamp.inode << ' ' << stamp.size
         << ' ' << stamp.nanoseconds << '\n'
         << work.name << '\n'
         << work.content;
    return text.str();
}

std::optional<RecoveredWork> workOf(std::string_view text) {
    if (!text.starts_with(firstLine)) return std::nullopt;
    text.remove_prefix(firstLine.size());
    const auto number = [&](auto& value) {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc{} || end == text.data() + text.size()) return false;
        text.remove_prefix(static_cast<std::size_t>(end - text.data()) + 1); // with the mark behind it
        return true;
    };
    std::size_t length = 0;
    FileStamp stamp;
    if (!number(length) || !number(stamp.device) || !number(stamp.inode) || !number(stamp.size) ||
        !number(stamp.nanoseconds) || text.size() <= length || text[length] != '\n')
        return std::nullopt;
    RecoveredWork work{std::string(text.substr(0, length)), stamp, std::string(text.substr(length + 1))};
    if (stamp == FileStamp{}) work.stamp.reset();
    return work;
}

/// Nobody holds it.
bool isAbandoned(const fs::path& path) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0) return false;
    const bool free = ::flock(file, LOCK_EX | LOCK_NB) == 0;
    ::close(file);
    return free;
}

bool writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(written));
    }
    return ::fsync(file) == 0;
}

} // namespace

RecoveryCopy::~RecoveryCopy() {
    if (lock_ >= 0) ::close(lock_);
}

bool RecoveryCopy::write(const RecoveredWork& work) {
    if (folder_.empty()) return false;
    std::error_code ignored;
    fs::create_directories(folder_, ignored);
    ::chmod(folder_.c_str(), S_IRWXU);
    std::string fresh = (folder_ / "XXXXXX.new").string();
    const int file = ::mkostemps(fresh.data(), 4, O_CLOEXEC); // for the user alone
    if (file < 0) return false;
    // Locked before it bears its name: no moment without a lock.
    ::flock(file, LOCK_EX | LOCK_NB);
    const fs::path target = path_.empty() ? fs::path(fresh).replace_extension(ending) : path_;
    if (!writeAll(file, textOf(work)) || ::rename(fresh.c_str(), target.c_str()) != 0) {
        ::unlink(fresh.c_str());
        ::close(file);
        return false;
    }
    if (lock_ >= 0) ::close(lock_);
    lock_ = file;
    path_ = target;
    return true;
}

void RecoveryCopy::remove() {
    if (path_.empty()) return;
    ::unlink(path_.c_str());
    path_.clear();
    ::close(lock_);
    lock_ = -1;
}

std::vector<AbandonedCopy> abandonedCopies(const fs::path& folder) {
    std::vector<AbandonedCopy> copies;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        const fs::path& path = at->path();
        struct stat status {};
        if (path.extension() != ending || ::lstat(path.c_str(), &status) != 0 || !isAbandoned(path)) continue;
        const auto content = readWholeFile(path, largest);
        auto work = content ? workOf(*content) : std::nullopt;
        if (work) copies.push_back({path, status.st_mtim.tv_sec, std::move(*work)});
    }
    std::ranges::sort(copies, std::greater{}, &AbandonedCopy::seconds);
    return copies;
}

fs::path recoveryFolder() {
    const auto from = [](const char* variable) -> fs::path {
        const char* value = std::getenv(variable);
        const fs::path path = value ? value : "";
        return path.is_absolute() ? path : fs::path(); // others are to be ignored
    };
    const fs::path state = from("XDG_STATE_HOME");
    if (!state.empty()) return state / "metrisk" / "recovery";
    const fs::path home = from("HOME");
    return home.empty() ? home : home / ".local" / "state" / "metrisk" / "recovery";
}

} // namespace metrisk
