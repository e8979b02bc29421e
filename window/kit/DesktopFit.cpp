#include "window/kit/DesktopFit.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace metrisk {

QSize roomFor(const QWidget& window) {
    const QStyle& style = *window.style();
    QSize frame = window.frameGeometry().size() - window.size();
    if (frame.isNull())
        frame = {2 * style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth),
                 style.pixelMetric(QStyle::PM_TitleBarHeight) + 8};
    return window.screen()->availableSize() - frame;
}

void keepOnDesktop(QWidget& window) {
    const QRect desktop = window.screen()->availableGeometry();
    const QSize excess = (window.frameGeometry().size() - desktop.size()).expandedTo({0, 0});
    if (!excess.isNull()) window.resize(window.size() - excess);
    QRect frame = window.frameGeometry();
    frame.moveRight(std::min(frame.right(), desktop.right()));
    frame.moveBottom(std::min(frame.bottom(), desktop.bottom()));
    frame.moveTopLeft({std::max(frame.left(), desktop.left()), std::max(frame.top(), desktop.top())});
    if (frame != window.frameGeometry()) window.move(frame.topLeft());
}

} // namespace metrisk
