#include "rows/RowRun.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace metrisk {

namespace {

class Pipeline {
  public:
    Pipeline(RowSource& source, const RowTable& table, const RowRun& run)
        : source_(source), table_(table), run_(run) {}

    RowCounts all() {
        unsigned threads = run_.threads ? run_.threads : std::max(1u, std::thread::hardware_concurrency());
        threads = std::min(threads, 256u);
        {
            std::vector<std::jthread> workers;
            try {
                for (unsigned i = 1; i < threads; ++i) workers.emplace_back([this] { work(); });
            } catch (const std::system_error&) {
                // The system grants no more threads: those there are do the work.
            }
            work();
        }
        if (fault_) std::rethrow_exception(fault_);
        return counts_;
    }

  private:
    /// The turn of the block; none at the end of the input.
    std::optional<std::size_t> read(std::string& block) {
        const std::lock_guard lock(reading_);
        if (ended_ || (run_.stop && run_.stop->load())) return std::nullopt;
        try {
            if (source_.next(block)) return taken_++;
        } catch (...) {
            // Blocks before it are put first.
            readFault_ = std::current_exception();
        }
        ended_ = true;
        return std::nullopt;
    }

    void work() {
        std::string block;
        RowScratch scratch;
        std::string out;
        while (const auto turn = read(block)) {
            RowCounts counts;
            std::exception_ptr fault;
            out.clear();
            try {
                processBlock(block, table_, scratch, out, counts);
            } catch (...) {
                fault = std::current_exception();
            }
            put(*turn, out, counts, fault);
        }
        const std::lock_guard lock(reading_);
        if (readFault_ && !fault_) fault_ = readFault_;
    }

    void put(std::size_t turn, const std::string& out, const RowCounts& counts,
             const std::exception_ptr& fault) {
        std::unique_lock lock(writing_);
        moved_.wait(lock, [&] { return turn == put_; });
        if (!stopped_) {
            try {
                if (fault) std::rethrow_exception(fault);
                counts_ += counts;
                stopped_ = !run_.put(out, counts_);
            } catch (...) {
                stopped_ = true;
                const std::lock_guard reading(reading_);
                fault_ = std::current_exception();
            }
            if (stopped_) {
                const std::lock_guard reading(reading_);
                ended_ = true;
            }
        }
        ++put_;
        moved_.notify_all();
    }

    RowSource& source_;
    const RowTable& table_;
    const RowRun& run_;
    std::mutex reading_;
    bool ended_ = false;
    std::size_t taken_ = 0;
    std::exception_ptr fault_, readFault_;
    std::mutex writing_;
    std::condition_variable moved_;
    std::size_t put_ = 0;
    bool stopped_ = false;
    RowCounts counts_;
};

} // namespace

void processBlock(std::string_view block, const RowTable& table, RowScratch& scratch, std::string& out,
                  RowCounts& counts) {
    for (std::string_view rest = block; !rest.empty();) {
        const std::string_view record = rest.substr(0, table.recordSize(rest, true));
        table.process(record, scratch, out, counts);
        rest.remove_prefix(record.size());
    }
}

RowCounts runRows(RowSource& source, const RowTable& table, const RowRun& run) {
    return Pipeline(source, table, run).all();
}

} // namespace metrisk
