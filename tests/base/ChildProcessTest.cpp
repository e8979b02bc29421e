// Work that misbehaves in a process of its own.
#include "base/ChildProcess.h"

#include <csignal>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <vector>

namespace metrisk::testing {
namespace {

using namespace std::chrono_literals;

void say(int descriptor, std::string_view text) {
    if (write(descriptor, text.data(), text.size()) < 0) _exit(1);
}

TEST(ChildProcess, IsEndedAtItsLimits) {
    struct Row {
        const char* what;
        std::function<void(int)> work;
        const char* output;
    };
    const Row rows[] = {
        {"well behaved", [](int out) { say(out, "done"); }, "done"},
        {"throws", [](int) { throw 1; }, ""},
        {"crashes",
         [](int out) {
             say(out, "a");
             std::abort();
         },
         "a"},
        {"computes for ever",
         [](int out) {
             say(out, "b");
             for (volatile bool on = true; on;) continue;
         },
         "b"},
        {"waits for what never comes",
         [](int) {
             for (;;) pause();
         },
         ""},
        {"takes all memory",
         [](int out) {
             say(out, "c");
             std::vector<char> much(std::size_t{1} << 30, 'x');
             say(out, std::string_view(much.data(), 1));
         },
         "c"},
        {"writes for ever",
         [](int out) {
             for (;;) say(out, std::string(1000, 'x'));
         },
         ""},
        {"sees no open file of ours",
         [](int out) {
             for (int other = 0; other < 100; ++other)
                 if (other > 2 && other != out && fcntl(other, F_GETFD) >= 0) say(out, "open");
             std::signal(SIGPIPE, SIG_IGN);
             say(STDERR_FILENO, "not to be seen");
             say(out, "end");
         },
         "end"},
    };
    const int open = dup(STDERR_FILENO);
    for (const Row& row : rows) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(outputOfChild({.time = 500ms, .memory = std::size_t{256} << 20, .output = 5000}, row.work),
                  row.output)
            << row.what;
        EXPECT_LT(std::chrono::steady_clock::now() - start, 3s) << row.what;
    }
    close(open);
}

} // namespace
} // namespace metrisk::testing
