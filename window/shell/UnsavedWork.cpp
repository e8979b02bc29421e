#include "window/shell/UnsavedWork.h"

#include "base/TemporaryFile.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/MainScreen.h"
#include "window/kit/ScreenBinder.h"

#include <QSocketNotifier>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace metrisk {

namespace {

constexpr int interval = 30000; // milliseconds

int signalEnd = -1; // of the pipe that the handler writes to

void tellOfSignal(int number) {
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const auto written = ::write(signalEnd, &byte, 1);
}

} // namespace

UnsavedWork::UnsavedWork(Session& session, MainScreen& screen, PointDesk& desk, ScreenBinder& binder,
                         const std::filesystem::path& folder)
    : recovery(session, folder), points(session.ui, desk, folder / "tables"), screen_(screen) {
    connect(&binder, &ScreenBinder::began, this, [this] { recovery.hold(); });
    connect(&binder, &ScreenBinder::ended, this, [this] { recovery.settled(); });
    connect(&timer_, &QTimer::timeout, this, &UnsavedWork::update);
    timer_.start(interval);
}

UnsavedWork::~UnsavedWork() {
    if (signalled_[1] == signalEnd) signalEnd = -1;
    for (const int end : signalled_)
        if (end >= 0) ::close(end);
    recovery.remove(); // the way out has asked
    points.remove();
}

void UnsavedWork::update() {
    recovery.update(screen_.hasChanges());
    points.update();
}

void UnsavedWork::watchSignals() {
    if (::pipe2(signalled_, O_CLOEXEC | O_NONBLOCK) != 0) return;
    signalEnd = signalled_[1];
    auto* notifier = new QSocketNotifier(signalled_[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char number = 0;
        if (::read(signalled_[0], &number, 1) != 1) return;
        update();
        // The process ends as the signal says, without its temporary files.
        removeTemporariesOnSignals();
        ::raise(number);
    });
    for (const int number : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action {
        }, old{};
        action.sa_handler = tellOfSignal;
        action.sa_flags = SA_RESTART;
        // What the caller wants ignored, as nohup does, stays so.
        if (::sigaction(number, nullptr, &old) == 0 && old.sa_handler != SIG_IGN)
            ::sigaction(number, &action, nullptr);
    }
}

} // namespace metrisk
