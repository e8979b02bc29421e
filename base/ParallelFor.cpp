#include "base/ParallelFor.h"

#include <algorithm>
#include <atomic>
#include <system_error>
#include <thread>
#include <vector>

namespace metrisk {

bool parallelFor(std::size_t count, std::size_t block, FunctionRef<void(std::size_t, std::size_t)> work,
                 const std::stop_token& stop) {
    std::atomic<std::size_t> next = 0;
    const auto run = [&] {
        for (std::size_t first; !stop.stop_requested() && (first = next.fetch_add(block)) < count;)
            work(first, std::min(first + block, count));
    };
    const std::size_t blocks = (count + block - 1) / block;
    const std::size_t threads =
        std::min<std::size_t>(std::max(1U, std::thread::hardware_concurrency()), blocks);
    std::vector<std::jthread> helpers;
    try {
        while (helpers.size() + 1 < threads) helpers.emplace_back(run);
    } catch (const std::system_error&) {
        // The system has no more threads: those there are do it.
    }
    run();
    helpers.clear();
    return !stop.stop_requested();
}

} // namespace metrisk
