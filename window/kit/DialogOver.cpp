#include "window/kit/DialogOver.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>

namespace metrisk {

QWidget* screenInFront(QWidget* mainWindow) {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal) return mainWindow;
    QWidget* active = QApplication::activeWindow();
    if (!active || !active->isVisible()) return modal;
    for (const QWidget* above = active; above; above = above->parentWidget())
        if (above == modal) return active;
    return modal;
}

int runOver(QDialog& dialog) {
    const QPointer<QWidget> screen = dialog.parentWidget();
    dialog.setWindowModality(Qt::WindowModal);
    const int result = dialog.exec();
    // Not every window manager gives the focus back.
    if (screen) screen->activateWindow();
    return result;
}

} // namespace metrisk
