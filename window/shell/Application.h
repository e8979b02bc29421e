// The application, with a last net under everything that runs in it.
#pragma once

#include <QApplication>
#include <functional>

namespace metrisk {

class Application final : public QApplication {
    Q_OBJECT

  public:
    using QApplication::QApplication;

    /// Told of an exception that nothing below has handled; the program goes on.
    std::function<void(const char* what)> onUnexpected;

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    bool telling_ = false;
};

} // namespace metrisk
