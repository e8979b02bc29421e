#include "cli/OrderedBatch.h"

#include "cli/Output.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace metrisk::cli {

namespace {

constexpr std::size_t windowSize = 256;

/// Outputs on their way to their turn. Whoever brings the next one writes it and all that wait behind
/// it, so that no thread is woken just to write.
class Emitter {
  public:
    explicit Emitter(const std::function<void(const Output&)>& put) : put_(put) {}

    /// Waits while the item is too far ahead of what has been written.
    void take(std::size_t item, Output output) {
        std::unique_lock lock(mutex_);
        moved_.wait(lock, [&] { return item < next_ + windowSize; });
        slots_[item % windowSize] = std::move(output);
        if (item != next_ || writing_) return;
        writing_ = true;
        while (auto& slot = slots_[next_ % windowSize]) {
            const Output ready = std::move(*slot);
            slot.reset();
            lock.unlock();
            put_(ready);
            lock.lock();
            ++next_;
            moved_.notify_all();
        }
        writing_ = false;
    }

  private:
    const std::function<void(const Output&)>& put_; // called by one thread at a time
    std::mutex mutex_;
    std::condition_variable moved_;
    std::size_t next_ = 0;
    bool writing_ = false;
    std::array<std::optional<Output>, windowSize> slots_;
};

} // namespace

unsigned threadsFor(unsigned asked, bool writing) {
    if (asked > 0) return asked;
    return std::max({1u, std::thread::hardware_concurrency(), writing ? writingThreads : 0});
}

void runOrdered(std::size_t items, unsigned threads, const std::function<Output(std::size_t)>& job,
                const std::function<void(const Output&)>& put) {
    Emitter emitter(put);
    std::atomic<std::size_t> nextItem = 0;
    const auto work = [&] {
        for (std::size_t item; (item = nextItem++) < items;) emitter.take(item, job(item));
    };
    threads = threadsFor(threads, false);
    threads = static_cast<unsigned>(std::min<std::size_t>(threads, items));
    {
        std::vector<std::jthread> workers;
        try {
            for (unsigned i = 1; i < threads; ++i) workers.emplace_back(work);
        } catch (const std::system_error&) {
            // The system grants no more threads: those there are do the work.
        }
        work();
    }
}

} // namespace metrisk::cli
