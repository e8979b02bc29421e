#include "window/shell/HelpDesk.h"

#include "desk/kit/Worksheet.h"
#include "window/kit/HelpWindow.h"
#include "window/kit/QtInteraction.h"
#include "window/kit/Widgets.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMessageBox>
#include <QUrl>

namespace metrisk {

HelpDesk::HelpDesk(QtInteraction& ui) : ui_(ui) {
    ui_.onHelp = [this](const std::string& page) { open(page); };
    qApp->installEventFilter(this);
}

HelpDesk::~HelpDesk() {
    ui_.onHelp = nullptr;
}

void HelpDesk::open(const std::string& page) {
    const QString file = qt(HelpFilePath);
    if (QFileInfo(file).isFile() && QDesktopServices::openUrl(QUrl::fromLocalFile(file))) return;
    if (!window_) window_ = std::make_unique<HelpWindow>();
    window_->open(qt(page));
}

void HelpDesk::close() {
    window_.reset();
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event) {
    const bool helpKey =
        event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_F1;
    const QWidget* modal = QApplication::activeModalWidget();
    // The main screen has the key in its menu.
    if (!helpKey || !modal || !watched->isWidgetType()) return QObject::eventFilter(watched, event);
    if (qobject_cast<const QMessageBox*>(modal))
        open("messages");
    else if (qobject_cast<const QFileDialog*>(modal))
        open("files");
    else if (const Worksheet* top = ui_.top())
        open(top->helpPage);
    return true;
}

} // namespace metrisk
