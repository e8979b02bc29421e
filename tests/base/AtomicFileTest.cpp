#include "base/AtomicFile.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using namespace metrisk;
using namespace metrisk::testing;
namespace fs = std::filesystem;

/// How a child process ends that runs this: with 0 if it returns true.
template <class Work>
int statusOfChild(Work work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work() ? 0 : 1);
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

TEST(AtomicFile, FollowsALinkAndKeepsPermissions) {
    const TemporaryFolder folder;
    const auto target = folder.write("target", "old");
    fs::permissions(target, fs::perms(0640));
    fs::create_symlink("target", folder / "link");
    ASSERT_TRUE(replaceFile(folder / "link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(fileContent(target), "new");
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));

    fs::create_symlink("later", folder / "dangling");
    ASSERT_TRUE(replaceFile(folder / "dangling", "x"));
    EXPECT_EQ(fileContent(folder / "later"), "x");
    EXPECT_FALSE(replaceFile(folder.path(), "x"));
    EXPECT_FALSE(replaceFile(folder / "none/file", "x"));
    EXPECT_TRUE(replaceFile(folder / std::string(255, 'n'), "x"));
}

TEST(AtomicFile, RemovesWhatKilledProcessesLeft) {
    const TemporaryFolder folder;
    const auto leave = [&](const char* name, int minutes) {
        fs::last_write_time(folder.write(name, "half"),
                            fs::file_time_type::clock::now() - std::chrono::minutes(minutes));
    };
    leave(".metrisk-1-1.tmp", 5);
    leave(".metrisk-1-2.tmp", 0);
    leave(".metrisk-1-3.tmp", 5);
    leave("other.tmp", 5);
    const int writer = ::open((folder / ".metrisk-1-3.tmp").c_str(), O_RDONLY);
    ASSERT_EQ(::flock(writer, LOCK_EX), 0);
    ASSERT_TRUE(replaceFile(folder / "file", "x"));
    EXPECT_FALSE(fs::exists(folder / ".metrisk-1-1.tmp"));
    EXPECT_TRUE(fs::exists(folder / ".metrisk-1-2.tmp")) << "its writer may just have made it";
    EXPECT_TRUE(fs::exists(folder / ".metrisk-1-3.tmp")) << "its writer lives";
    EXPECT_TRUE(fs::exists(folder / "other.tmp")) << "not ours";
    ::close(writer);
}

TEST(AtomicFile, ASignalLeavesNothingBehind) {
    const TemporaryFolder folder;
    const auto path = folder.write("file", "old");
    const int status = statusOfChild([&] {
        removeTemporariesOnSignals();
        int operation = 0;
        return replaceFile(path, "new", [&] { return ++operation < 3 || std::raise(SIGTERM) == 0; });
    });
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    EXPECT_EQ(folder.count(), 1);
    EXPECT_EQ(fileContent(path), "old");
}

/// The list in the system's form: version 2, then tag, permissions and id of each entry.
TEST(AtomicFile, AnAccessListStaysWithTheFile) {
    const unsigned char list[] = {2,    0, 0, 0, 1,    0,    6,    0,    0xff, 0xff, 0xff, 0xff, // owner rw
                                  2,    0, 4, 0, 0x92, 0x10, 0,    0,     // user 4242 r
                                  4,    0, 0, 0, 0xff, 0xff, 0xff, 0xff,  // group nothing
                                  0x10, 0, 4, 0, 0xff, 0xff, 0xff, 0xff,  // mask r
                                  0x20, 0, 0, 0, 0xff, 0xff, 0xff, 0xff}; // others nothing
    const TemporaryFolder folder;
    const auto path = folder.write("file", "old");
    constexpr const char* name = "system.posix_acl_access";
    if (::setxattr(path.c_str(), name, list, sizeof list, 0) != 0) GTEST_SKIP() << "no access lists here";
    ASSERT_TRUE(replaceFile(path, "new"));
    unsigned char kept[sizeof list] = {};
    EXPECT_EQ(::getxattr(path.c_str(), name, kept, sizeof kept), static_cast<ssize_t>(sizeof list));
    EXPECT_TRUE(std::equal(std::begin(list), std::end(list), kept));
}

TEST(AtomicFile, AConditionIsAskedLast) {
    const TemporaryFolder folder;
    const auto path = folder.write("file", "old");
    EXPECT_EQ(writeFile(path, "new", Existing::Replace, {}, [] { return false; }),
              std::errc::operation_canceled);
    EXPECT_EQ(readWholeFile(path, 10), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    EXPECT_FALSE(writeFile(path, "new", Existing::Replace, {}, [] { return true; }));
}

TEST(AtomicFile, ASharedFileStaysWithItsGroup) {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can play another user";
    constexpr gid_t shared = 4242, own = 4243;
    constexpr uid_t user = 4244;
    const TemporaryFolder folder;
    const auto path = folder.write("file", "old");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777) | ::chown(path.c_str(), 0, shared) |
                  ::chmod(path.c_str(), 0664),
              0);
    EXPECT_EQ(statusOfChild([&] {
                  return ::setgroups(1, &shared) == 0 && ::setgid(own) == 0 && ::setuid(user) == 0 &&
                         replaceFile(path, "new");
              }),
              0);
    struct stat status {};
    ASSERT_EQ(::stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, user);
    EXPECT_EQ(status.st_gid, shared);
    EXPECT_EQ(status.st_mode & 0777, 0664u);
}

} // namespace
