#include "base/AtomicFile.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (isOpen()) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

  private:
    int number_;
};

} // namespace

std::error_code writeFile(const fs::path& path, std::string_view content, Existing existing,
                          const DiskProbe& probe, const Condition& holds) {
    TemporaryFile file(path, probe);
    if (file.write(content)) file.place(existing, holds);
    return file.error();
}

bool replaceFile(const fs::path& path, std::string_view content, const DiskProbe& probe) {
    return !writeFile(path, content, Existing::Replace, probe);
}

std::optional<std::string> readFileStart(const fs::path& path, std::size_t most) {
    // Not blocking: opening a pipe without a writer must not wait.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
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
