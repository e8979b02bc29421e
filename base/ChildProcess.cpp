#include "base/ChildProcess.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace metrisk {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int pipeInChild = 3;

bool limit(int resource, rlim_t value) {
    const rlimit both{value, value};
    return setrlimit(static_cast<__rlimit_resource>(resource), &both) == 0;
}

/// Bytes of address space in use; 0 if the system does not tell.
rlim_t mappedBytes() {
    std::array<char, 64> text{};
    const int file = open("/proc/self/statm", O_RDONLY);
    if (file < 0) return 0;
    const ssize_t size = read(file, text.data(), text.size() - 1);
    close(file);
    return size > 0 ? std::strtoul(text.data(), nullptr, 10) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) : 0;
}

/// Nothing of the program is left to the child but its memory.
bool confine(const ChildLimits& limits, pid_t parent, int pipe) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) return false;
    for (int signal = 1; signal < NSIG; ++signal) std::signal(signal, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);

    const int output = fcntl(pipe, F_DUPFD, pipeInChild);
    const int nothing = open("/dev/null", O_RDWR);
    if (output < 0 || nothing < 0) return false;
    // The pipe first: the other three may stand in its way, but it is above them.
    if (output != pipeInChild && dup2(output, pipeInChild) < 0) return false;
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (nothing != standard && dup2(nothing, standard) < 0) return false;
    close_range(pipeInChild + 1, ~0U, 0);

    const rlim_t mapped = mappedBytes();
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(limits.time).count();
    return mapped > 0 && limit(RLIMIT_AS, mapped + limits.memory) &&
           limit(RLIMIT_CPU, static_cast<rlim_t>(seconds)) && limit(RLIMIT_CORE, 0) && limit(RLIMIT_FSIZE, 0);
}

[[noreturn]] void runAsChild(const ChildLimits& limits, pid_t parent, int pipe,
                             const std::function<void(int)>& work) {
    try {
        if (confine(limits, parent, pipe)) work(pipeInChild);
    } catch (...) {
    }
    _exit(0); // nothing of the parent's is flushed or destroyed here
}

/// Reads until the end, the deadline or the limit.
std::string drain(int pipe, std::size_t most, Clock::time_point deadline) {
    std::string all;
    std::array<char, 65536> block;
    while (all.size() <= most) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) break;
        pollfd waiting{pipe, POLLIN, 0};
        const int ready = poll(&waiting, 1, static_cast<int>(left));
        if (ready < 0 && errno == EINTR) continue;
        if (ready <= 0) break;
        const ssize_t size = read(pipe, block.data(), block.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) break;
        all.append(block.data(), static_cast<std::size_t>(size));
    }
    return all;
}

struct Run {
    std::string output;
    bool stuck; // it used no processor time to speak of, and yet did not end
};

Run runOnce(const ChildLimits& limits, const std::function<void(int)>& work) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return {};
    const auto deadline = Clock::now() + limits.time;
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) runAsChild(limits, parent, ends[1], work);
    close(ends[1]);
    Run run{};
    if (child > 0) {
        run.output = drain(ends[0], limits.output, deadline);
        const bool late = Clock::now() >= deadline;
        kill(child, SIGKILL);
        rusage used{};
        pid_t ended;
        do ended = wait4(child, nullptr, 0, &used);
        while (ended < 0 && errno == EINTR);
        const auto spent = std::chrono::seconds(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
                           std::chrono::microseconds(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
        run.stuck = late && ended == child && spent < limits.time / 4;
    }
    close(ends[0]);
    return run;
}

} // namespace

std::string outputOfChild(const ChildLimits& limits, const std::function<void(int)>& work) {
    Run run = runOnce(limits, work);
    // A lock that another thread of ours held at the fork is never released in the child.
    if (run.stuck) run = runOnce(limits, work);
    return run.output.size() > limits.output ? std::string() : std::move(run.output);
}

} // namespace metrisk
