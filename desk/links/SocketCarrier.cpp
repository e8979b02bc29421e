#include "desk/links/SocketCarrier.h"

#include "base/Text.h"
#include "desk/kit/Interaction.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace metrisk {
namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr const char* ownTopic = "metrisk|DDE_Form";
constexpr std::size_t mostConnections = 8;
constexpr int mostWaiting = 64; // pokes that the screens have not taken yet

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0) ::close(number_);
    }
    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    int release() { return std::exchange(number_, -1); }

  private:
    int number_;
};

/// Nobody else can enter it, or make another of that name.
bool isOwnFolder(const fs::path& folder) {
    struct stat status {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid() &&
           (status.st_mode & 077) == 0;
}

std::string socketName(std::string topic) {
    std::ranges::replace(topic, '|', '.');
    return topic;
}

std::optional<sockaddr_un> addressOf(const fs::path& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string& name = path.native();
    if (name.size() >= sizeof address.sun_path) return std::nullopt;
    std::ranges::copy(name, address.sun_path);
    return address;
}

bool isOwnPeer(int connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == ::geteuid();
}

Descriptor newSocket() {
    return Descriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

/// Not open if nobody listens there, or somebody else.
Descriptor connectTo(const fs::path& path) {
    const auto address = addressOf(path);
    Descriptor connection = newSocket();
    if (!address || !connection.isOpen() ||
        ::connect(connection.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
        !isOwnPeer(connection.number()))
        return Descriptor(-1);
    return connection;
}

bool hasControls(std::string_view text) {
    return std::ranges::any_of(text, [](unsigned char c) { return c < 0x20 || c == 0x7f; });
}

std::optional<Poke> readPoke(std::string_view line) {
    const std::size_t tab = line.find('\t');
    if (tab == line.npos || tab == 0 || !isValidUtf8(line)) return std::nullopt;
    const std::string_view item = line.substr(0, tab), text = line.substr(tab + 1);
    if (hasControls(item) || hasControls(text)) return std::nullopt;
    return Poke{std::string(item), std::string(text)};
}

} // namespace

/// The thread that listens. It knows the carrier's descriptors, not the carrier.
class SocketCarrier::Server {
  public:
    Server(int listener, int wake, std::function<bool(Poke)> deliver)
        : listener_(listener), wake_(wake), deliver_(std::move(deliver)) {}

    void run(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            wait();
            const auto now = steady_clock::now();
            std::erase_if(connections_, [&](Connection& each) { return !serve(each, now); });
            if (connections_.size() < mostConnections) accept(now);
        }
    }

  private:
    struct Connection {
        Descriptor socket;
        steady_clock::time_point until; // its line must be there
        std::string line{};
    };

    void wait() {
        std::vector<pollfd> watched{{wake_, POLLIN, 0}};
        // Those who come when there are too many wait in the queue of the system.
        if (connections_.size() < mostConnections) watched.push_back({listener_, POLLIN, 0});
        auto until = steady_clock::time_point::max();
        for (const Connection& each : connections_) {
            watched.push_back({each.socket.number(), POLLIN, 0});
            until = std::min(until, each.until);
        }
        int timeout = -1;
        if (!connections_.empty()) {
            const auto left = std::chrono::ceil<milliseconds>(until - steady_clock::now()).count();
            timeout = static_cast<int>(std::clamp<std::int64_t>(left, 0, slowestLine));
        }
        ::poll(watched.data(), watched.size(), timeout);
    }

    void accept(steady_clock::time_point now) {
        Descriptor socket(::accept4(listener_, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
        if (!socket.isOpen() && errno != EAGAIN) rest();
        if (socket.isOpen() && isOwnPeer(socket.number()))
            connections_.push_back({std::move(socket), now + milliseconds(slowestLine)});
    }

    /// Out of descriptors, say: the one who knocks stays at the door, and would keep the thread running.
    void rest() const {
        pollfd woken{wake_, POLLIN, 0};
        ::poll(&woken, 1, 100);
    }

    /// False if it has ended, or must.
    bool serve(Connection& connection, steady_clock::time_point now) {
        char bytes[longestLine];
        const ssize_t got = ::recv(connection.socket.number(), bytes, sizeof bytes, 0);
        if (got < 0 && (errno == EAGAIN || errno == EINTR)) return now < connection.until;
        if (got <= 0) return false;
        connection.line.append(bytes, static_cast<std::size_t>(got));
        std::size_t end = 0;
        while ((end = connection.line.find('\n')) != std::string::npos) {
            auto poke =
                end < longestLine ? readPoke(std::string_view(connection.line).substr(0, end)) : std::nullopt;
            if (!poke || !deliver_(std::move(*poke))) return false;
            connection.line.erase(0, end + 1);
            connection.until = now + milliseconds(slowestLine);
        }
        return connection.line.size() < longestLine && now < connection.until;
    }

    int listener_;
    int wake_;
    std::function<bool(Poke)> deliver_;
    std::vector<Connection> connections_;
};

SocketCarrier::SocketCarrier(Talk& ui, fs::path folder) : ui_(ui), folder_(std::move(folder)) {}

SocketCarrier::~SocketCarrier() {
    if (!isListening()) return;
    self_.reset();
    thread_.request_stop();
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t woken = ::write(wake_, &one, sizeof one);
    thread_.join();
    ::unlink((folder_ / socketName(ownTopic)).c_str());
    for (const int descriptor : {listener_, wake_, lock_}) ::close(descriptor);
}

bool SocketCarrier::listen() {
    if (isListening()) return true;
    ::mkdir(folder_.c_str(), 0700);
    if (!isOwnFolder(folder_)) return false;
    const fs::path path = folder_ / socketName(ownTopic);
    const auto address = addressOf(path);
    if (!address) return false;
    // The lock goes with its program, however that ends: of two that start at once one gets it.
    Descriptor lock(
        ::open((path.native() + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!lock.isOpen() || ::flock(lock.number(), LOCK_EX | LOCK_NB) != 0) return false;
    if (connectTo(path).isOpen()) return false;
    struct stat status {};
    if (::lstat(path.c_str(), &status) == 0 && S_ISSOCK(status.st_mode)) ::unlink(path.c_str());

    Descriptor listener = newSocket();
    Descriptor wake(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!listener.isOpen() || !wake.isOpen() ||
        ::bind(listener.number(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0)
        return false;
    if (::chmod(path.c_str(), 0600) != 0 ||
        ::listen(listener.number(), static_cast<int>(mostConnections)) != 0) {
        ::unlink(path.c_str());
        return false;
    }
    lock_ = lock.release();
    listener_ = listener.release();
    wake_ = wake.release();
    self_ = std::make_shared<SocketCarrier*>(this);
    const auto deliver = [&ui = ui_, self = std::weak_ptr(self_),
                          waiting = std::make_shared<std::atomic<int>>(0)](Poke poke) {
        if (waiting->fetch_add(1) >= mostWaiting) {
            waiting->fetch_sub(1);
            return false;
        }
        ui.post([self, waiting, poke = std::move(poke)] {
            waiting->fetch_sub(1);
            if (const auto carrier = self.lock(); carrier && (*carrier)->received) (*carrier)->received(poke);
        });
        return true;
    };
    thread_ = std::jthread([server = Server(listener_, wake_, deliver)](const std::stop_token& stop) mutable {
        server.run(stop);
    });
    return true;
}

bool SocketCarrier::poke(const std::string& topic, std::span<const Poke> pokes) {
    std::string lines;
    for (const Poke& poke : pokes) {
        if (hasControls(poke.item) || hasControls(poke.text)) return false;
        const std::string line = poke.item + '\t' + poke.text + '\n';
        if (line.size() > longestLine) return false;
        lines += line;
    }
    if (!isOwnFolder(folder_)) return false;
    const Descriptor connection = connectTo(folder_ / socketName(topic));
    if (!connection.isOpen()) return false;
    // A few lines find room in the socket at once.
    const ssize_t sent = ::send(connection.number(), lines.data(), lines.size(), MSG_NOSIGNAL);
    return sent == static_cast<ssize_t>(lines.size());
}

fs::path socketFolder() {
    if (const char* runtime = std::getenv("XDG_RUNTIME_DIR");
        runtime && *runtime == '/' && isOwnFolder(runtime))
        return runtime;
    std::error_code none;
    fs::path temporary = fs::temp_directory_path(none);
    if (temporary.empty()) temporary = "/tmp";
    return temporary / ("metrisk-" + std::to_string(::geteuid()));
}

} // namespace metrisk
