#include "desk/kit/Background.h"

#include <utility>

namespace metrisk {

Background::Background(Talk& ui) : ui_(ui), thread_([this](const std::stop_token& end) { work(end); }) {}

Background::~Background() {
    stop();
    thread_.request_stop();
}

void Background::start(Job job) {
    const std::lock_guard lock(mutex_);
    running_.request_stop();
    next_ = std::move(job);
    nextNumber_ = *awaited_ = ++requests_;
    changed_.notify_all();
}

void Background::stop() {
    const std::lock_guard lock(mutex_);
    running_.request_stop();
    next_ = nullptr;
    *awaited_ = 0;
}

void Background::work(const std::stop_token& end) {
    for (;;) {
        Job job;
        unsigned number = 0;
        std::stop_source source;
        {
            std::unique_lock lock(mutex_);
            if (!changed_.wait(lock, end, [this] { return bool(next_); })) return;
            job = std::exchange(next_, nullptr);
            number = nextNumber_;
            running_ = source;
        }
        Delivery delivery = job(source.get_token());
        if (source.stop_requested() || !delivery) continue;
        // The request is asked for in the thread that makes them; without the object there is none.
        ui_.post([awaited = std::weak_ptr(awaited_), number, delivery = std::move(delivery)] {
            const auto request = awaited.lock();
            if (!request || *request != number) return;
            *request = 0;
            delivery();
        });
    }
}

} // namespace metrisk
