#include "cli/OrderedBatch.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace metrisk::cli {

namespace {

constexpr std::size_t windowSize = 256;

/// Outputs between the thread that made them and their turn.
class Window {
  public:
    /// Waits until the item's place is free.
    void put(std::size_t item, Output output) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return item < next_ + windowSize; });
        slots_[item % windowSize] = std::move(output);
        if (item == next_) changed_.notify_all();
    }

    /// The next output in order.
    Output take() {
        std::unique_lock lock(mutex_);
        auto& slot = slots_[next_ % windowSize];
        changed_.wait(lock, [&] { return slot.has_value(); });
        Output output = std::move(*slot);
        slot.reset();
        ++next_;
        changed_.notify_all();
        return output;
    }

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::size_t next_ = 0;
    std::array<std::optional<Output>, windowSize> slots_;
};

} // namespace

int runOrdered(std::size_t items, unsigned threads, const std::function<Output(std::size_t)>& job,
               const std::function<void(std::size_t)>& progress) {
    Window window;
    std::mutex mutex;
    std::size_t nextItem = 0;
    const auto work = [&] {
        for (;;) {
            std::size_t item;
            {
                const std::lock_guard lock(mutex);
                if (nextItem == items) return;
                item = nextItem++;
            }
            window.put(item, job(item));
        }
    };
    if (threads == 0) threads = std::max(1u, std::thread::hardware_concurrency());
    threads = static_cast<unsigned>(std::min<std::size_t>(threads, items));
    std::vector<std::jthread> workers;
    try {
        while (workers.size() < threads) workers.emplace_back(work);
    } catch (const std::system_error&) {
        // The system grants no more threads: those there are do the work, this one if there are none.
    }

    int status = allDone;
    for (std::size_t item = 0; item < items; ++item) {
        const Output output = workers.empty() ? job(item) : window.take();
        status = std::max(status, output.status);
        if (!emit(output)) status = std::max<int>(status, refused);
        progress(item + 1);
    }
    return status;
}

} // namespace metrisk::cli
