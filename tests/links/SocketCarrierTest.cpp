// The link over real sockets: both directions with a partner program, and peers that mean no good.
#include "desk/links/SocketCarrier.h"
#include "desk/links/DDE_Form.h"
#include "tests/links/PartnerText.h"
#include "tests/support/Hand.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDesktop.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace metrisk::testing {
namespace {

using namespace std::chrono_literals;

struct SocketTest : ::testing::Test, TestDesktop {
    TemporaryFolder folder;
    EmptyScreen screen;
    std::vector<Poke> heard;
    std::filesystem::path socket = folder / "metrisk.DDE_Form";

    void listen(SocketCarrier& carrier) {
        carrier.received = [this](const Poke& poke) { heard.push_back(poke); };
        ASSERT_TRUE(carrier.listen());
    }

    /// A socket that is connected there, or bound.
    int connect(int (*to)(int, const sockaddr*, socklen_t) = ::connect) const {
        const int peer = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        socket.native().copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(to(peer, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        return peer;
    }
    static void send(int peer, const std::string& bytes) {
        for (std::size_t at = 0; at < bytes.size();) {
            const ssize_t sent = ::send(peer, bytes.data() + at, bytes.size() - at, MSG_NOSIGNAL);
            if (sent <= 0) return; // thrown out
            at += static_cast<std::size_t>(sent);
        }
    }
    /// Waits until the other side has ended the connection.
    static std::chrono::milliseconds untilEnded(int peer) {
        const auto start = std::chrono::steady_clock::now();
        timeval longest{10, 0};
        ::setsockopt(peer, SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest);
        char byte = 0;
        EXPECT_LE(::recv(peer, &byte, 1, 0), 0);
        ::close(peer);
        return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() -
                                                                     start);
    }
};

TEST_F(SocketTest, HostilePeersAreThrownOutAndOthersHeard) {
    SocketCarrier carrier(ui, folder.path());
    listen(carrier);
    struct stat status {};
    ASSERT_EQ(::stat(socket.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    const int slow = connect(), half = connect(), gone = connect();
    send(slow, "txt_Rec");
    send(half, "item\ttex");
    ::shutdown(half, SHUT_WR);
    send(gone, "item\tgone\nite");
    ::close(gone);
    for (const std::string& bytes :
         {std::string(10'000'000, 'x'), std::string("no tab\n"), std::string("a\tb\tc\n"),
          std::string("a\t\xff\n"), std::string("\tb\n"), std::string("a\tb\r\n"),
          std::string("a\t") + std::string(4096, 'y') + '\n'}) {
        const int peer = connect();
        send(peer, bytes);
        EXPECT_LT(untilEnded(peer), 3s) << bytes.substr(0, 9);
    }
    const int good = connect();
    send(good, "item\tone\nitem\t\u20ac two\nit");
    ui.waitFor([this] { return heard.size() == 3; });
    EXPECT_EQ(heard, (std::vector<Poke>{{"item", "gone"}, {"item", "one"}, {"item", "\u20ac two"}}));
    EXPECT_LT(untilEnded(half), 1s);
    const auto patience = untilEnded(slow);
    EXPECT_TRUE(patience > 2s && patience < 6s) << patience.count();
    ::close(good);
    const int flood = connect();
    for (int i = 0; i < 200; ++i) send(flood, "item\tx\n");
    untilEnded(flood);
    ui.waitFor([this] { return heard.size() == 3 + 64; });
}

TEST_F(SocketTest, OneProgramListensAndOnlyInAFolderOfItsOwn) {
    {
        SocketCarrier first(ui, folder.path());
        SocketCarrier second(ui, folder.path());
        EXPECT_TRUE(first.listen() && first.listen());
        EXPECT_FALSE(second.listen());
    }
    EXPECT_FALSE(std::filesystem::exists(socket));
    ::close(connect(::bind)); // of a program that was killed
    SocketCarrier third(ui, folder.path());
    EXPECT_TRUE(third.listen());
    std::filesystem::create_directory(folder / "open");
    std::filesystem::permissions(folder / "open", std::filesystem::perms::all);
    std::filesystem::create_directory_symlink(folder.path(), folder / "link");
    for (const char* name : {"open", "link", "no/such"})
        EXPECT_FALSE(SocketCarrier(ui, folder / name).listen()) << name;
    EXPECT_TRUE(SocketCarrier(ui, folder / "new").listen());
}

struct PartnerTest : SocketTest {
    TemporaryFolder ours, theirs;
    SocketCarrier carrier{ui, folder.path()};
    DDE_Form link{session, carrier};

    PartnerTest() { session.places.HomeDirectory = ours.path(); }

    /// Starts the partner, which prints what is said.
    std::shared_ptr<std::FILE> start(const std::string& name, const std::string& role) const {
        const std::string command = std::string(METRISK_PARTNER) + ' ' + folder.path().string() + ' ' + name +
                                    ' ' + theirs.path().string() + "/ " + role;
        std::shared_ptr<std::FILE> partner(::popen(command.c_str(), "r"), ::pclose);
        while (!std::filesystem::exists(folder / name)) std::this_thread::sleep_for(1ms);
        std::this_thread::sleep_for(20ms); // between bind and listen
        return partner;
    }
    std::string said(std::FILE* partner) const {
        std::string text;
        std::array<char, 500> line{};
        while (std::fgets(line.data(), line.size(), partner)) text += line.data();
        for (const auto& [path, name] :
             {std::pair{ours.path().string(), "OURS"}, {theirs.path().string(), "THEIRS"}})
            for (std::size_t at = 0; (at = text.find(path)) != text.npos;)
                text.replace(at, path.size(), name);
        return text;
    }
};

TEST_F(PartnerTest, GivesItsDataWhenAsked) {
    const auto file = theirs.write("given", PartnerText{}.text());
    const auto partner = start("ERLED3.DDE_Form", "answer " + file.string());
    expectWanted(ui);
    expectTolerances(ui, Answer::Yes);
    ASSERT_TRUE(link.LinkToErrorLedger({.screen = screen, .session = session, .takesTolerances = true}));
    ui.waitFor([this] { return record.FileChanged; });
    EXPECT_EQ(said(partner.get()),
              "< txt_ReceiveRequest\t\n< txt_ReceiveRequest\tOURS\n> txt_RequestAcknowledged\tTHEIRS/\n");
    EXPECT_EQ(link.ErrorLedgerHome, theirs.path().string() + "/");
    EXPECT_EQ(record.SU_UpperLimit, 10.4);
    EXPECT_GT(record.MTE_Sigma, 0); // fitted
    EXPECT_FALSE(record.AbortFlag);
}

TEST_F(PartnerTest, GetsOursWhenItAsks) {
    ASSERT_TRUE(carrier.listen());
    const auto partner = start("ERLED2.DDE_Form", "ask");
    ui.waitFor([this] { return !link.txt_Response.empty(); });
    const std::string size = std::to_string(std::filesystem::file_size(ours / "MKTemp"));
    EXPECT_EQ(
        said(partner.get()),
        "> txt_ReceiveRequest\tTHEIRS/\n< txt_RequestAcknowledged\t\n< txt_RequestAcknowledged\tOURS\n" +
            size + " bytes #TRUE#,1.512\n");
    struct stat status {};
    ASSERT_EQ(::stat((ours / "MKTemp").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    link.removeExchangeFile();
    EXPECT_EQ(ours.count(), 0);
}

} // namespace
} // namespace metrisk::testing
