// Pokes over local sockets of the user's own: a line each, item, tab and text in UTF-8.
#pragma once

#include "desk/links/Carrier.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>

namespace metrisk {

class Talk;

/// A topic is a socket of that name ("ERLED2.DDE_Form") in a folder that only the user can enter. One program
/// of a user's listens; whoever connects must be the same user. Lines that are too long, too slow or no pokes
/// end their connection.
class SocketCarrier final : public Carrier {
  public:
    static constexpr std::size_t longestLine = 4096; // bytes
    static constexpr int slowestLine = 5000;         // milliseconds

    /// Pokes come in by Interaction::post.
    SocketCarrier(Talk& ui, std::filesystem::path folder);
    ~SocketCarrier() override;
    SocketCarrier(const SocketCarrier&) = delete;
    SocketCarrier& operator=(const SocketCarrier&) = delete;

    bool listen() override;
    bool isListening() const override { return listener_ >= 0; }
    bool poke(const std::string& topic, std::span<const Poke> pokes) override;

  private:
    class Server;

    Talk& ui_;
    std::filesystem::path folder_;
    int lock_ = -1;
    int listener_ = -1;
    int wake_ = -1;
    std::shared_ptr<SocketCarrier*> self_; // for those who come when it is gone
    std::jthread thread_;
};

/// Where the sockets of the user's programs stand: XDG_RUNTIME_DIR, else a folder of his own below the
/// temporary one.
std::filesystem::path socketFolder();

} // namespace metrisk
