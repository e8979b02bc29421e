// A computation beside the screens: the newest request counts, its result comes back into their thread.
#pragma once

#include "desk/kit/Talk.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

namespace metrisk {

/// Belongs to the thread of the screens; its end stops what runs and waits for that.
class Background {
  public:
    /// Runs in the thread of the screens, unless the object is gone or a newer request has come.
    using Delivery = std::function<void()>;
    /// Runs in a thread of its own, over copies. It ends soon once a stop is asked for; what it returns then
    /// is dropped. It must not throw.
    using Job = std::function<Delivery(const std::stop_token& stop)>;

    explicit Background(Talk& ui);
    ~Background();
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;

    /// Stops what runs and begins that instead.
    void start(Job job);
    /// Stops what runs.
    void stop();
    /// A result is still to come.
    bool isBusy() const { return *awaited_ != 0; }

  private:
    void work(const std::stop_token& end);

    Talk& ui_;
    unsigned requests_ = 0;
    std::shared_ptr<unsigned> awaited_ = std::make_shared<unsigned>(0); // the request, 0 if there is none

    std::mutex mutex_;
    std::condition_variable_any changed_;
    Job next_;
    unsigned nextNumber_ = 0;
    std::stop_source running_;
    std::jthread thread_; // last: it uses the others
};

} // namespace metrisk
