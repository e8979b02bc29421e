#include "unattended/Input.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace metrisk {

std::string readInput(const std::string& path, std::size_t largest) {
    const bool standard = path == standardStream;
    const int file = standard ? STDIN_FILENO : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::string content;
    std::array<char, 65536> block{};
    ssize_t got = file < 0 ? -1 : 1;
    while (got > 0 && content.size() <= largest) {
        do got = ::read(file, block.data(), block.size());
        while (got < 0 && errno == EINTR);
        if (got > 0) content.append(block.data(), static_cast<std::size_t>(got));
    }
    const int cause = got < 0 ? errno : 0;
    if (!standard && file >= 0) ::close(file);
    if (cause != 0) throw Unreadable(path, std::generic_category().message(cause));
    if (content.size() > largest) throw Unreadable(path, "larger than " + std::to_string(largest) + " bytes");
    return content;
}

} // namespace metrisk
