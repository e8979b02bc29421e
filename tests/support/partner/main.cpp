// The other side of the link, for tests: a program of its own that speaks over the real socket and prints
// what is said. error-ledger-partner FOLDER NAME HOME answer FILE | ask
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

int connectedOr(const std::string& path, bool listening) {
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const auto* named = reinterpret_cast<const sockaddr*>(&address);
    const bool done = listening ? ::bind(socket, named, sizeof address) == 0 && ::listen(socket, 4) == 0
                                : ::connect(socket, named, sizeof address) == 0;
    return done ? socket : -1;
}

/// A line with a text, from whoever connects within ten seconds.
std::string heard(int listener, const std::string& item) {
    for (;;) {
        pollfd waiting{listener, POLLIN, 0};
        if (::poll(&waiting, 1, 10000) != 1) return "";
        const int connection = ::accept(listener, nullptr, nullptr);
        std::string text;
        std::array<char, 512> block{};
        for (ssize_t got = 0; (got = ::read(connection, block.data(), block.size())) > 0;)
            text.append(block.data(), static_cast<std::size_t>(got));
        ::close(connection);
        for (std::size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1) {
            const std::string line = text.substr(at, end - at);
            std::printf("< %s\n", line.c_str());
            if (line.starts_with(item + '\t') && line.size() > item.size() + 1)
                return line.substr(item.size() + 1);
        }
    }
}

void say(const std::string& folder, const std::string& item, const std::string& text) {
    const int connection = connectedOr(folder + "/metrisk.DDE_Form", false);
    const std::string lines = item + "\t\n" + item + '\t' + text + '\n';
    if (::write(connection, lines.data(), lines.size()) != static_cast<ssize_t>(lines.size()))
        std::puts("> lost");
    ::close(connection);
    std::printf("> %s\t%s\n", item.c_str(), text.c_str());
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 5) return 2;
    const std::string folder = argv[1], name = folder + '/' + argv[2], home = argv[3];
    const int listener = connectedOr(name, true);
    if (listener < 0) return 1;
    if (argc == 6) {
        if (heard(listener, "txt_ReceiveRequest").empty()) return 1;
        std::filesystem::copy_file(argv[5], home + "/ELDTEMP");
        say(folder, "txt_RequestAcknowledged", home);
    } else {
        say(folder, "txt_ReceiveRequest", home);
        std::ifstream file(heard(listener, "txt_RequestAcknowledged") + "/MKTemp", std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        std::printf("%zu bytes %s\n", text.size(), text.substr(0, text.find('\r')).c_str());
    }
    ::unlink(name.c_str());
}
