// Keeps unsaved work when the desktop, the system or the program ends.
#pragma once

#include "desk/points/PointRecovery.h"
#include "desk/shell/Recovery.h"

#include <QObject>
#include <QTimer>

class QSessionManager;

namespace metrisk {

class MainScreen;
class ScreenBinder;

/// A copy is written every 30 seconds of unsaved work, and before a signal ends the program.
class UnsavedWork final : public QObject {
    Q_OBJECT

  public:
    UnsavedWork(Session& session, MainScreen& screen, PointDesk& desk, ScreenBinder& binder,
                const std::filesystem::path& folder);
    ~UnsavedWork() override;

    Recovery recovery;
    PointRecovery points;

    void update();
    /// From now on SIGTERM, SIGHUP and SIGINT end the program once the copy is written.
    void watchSignals();

  private:
    MainScreen& screen_;
    QTimer timer_;
    int signalled_[2] = {-1, -1};
};

} // namespace metrisk
