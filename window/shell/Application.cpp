#include "window/shell/Application.h"

#include <exception>

namespace metrisk {

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        if (!onUnexpected || telling_) return false; // telling it has failed as well
        telling_ = true;
        onUnexpected(error.what());
        telling_ = false;
        return false;
    }
}

} // namespace metrisk
