#include "shell/screens/QtInteraction.h"

#include "risk/screens/ComputingDialog.h"

#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>

namespace metrisk {

namespace {

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::Information: return QMessageBox::Information;
    case BoxIcon::Exclamation: return QMessageBox::Warning;
    case BoxIcon::Question: return QMessageBox::Question;
    case BoxIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons buttonsOf(BoxButtons buttons) {
    switch (buttons) {
    case BoxButtons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case BoxButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case BoxButtons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case BoxButtons::Ok: break;
    }
    return QMessageBox::Ok;
}

/// A closed box counts as its Cancel, or as No where there is no Cancel.
Answer answerOf(int pressed, BoxButtons buttons) {
    switch (pressed) {
    case QMessageBox::Ok: return Answer::Ok;
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    default: break;
    }
    if (buttons == BoxButtons::Ok) return Answer::Ok;
    return buttons == BoxButtons::YesNo ? Answer::No : Answer::Cancel;
}

QString textOf(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

QWidget* QtInteraction::activeWindow() const {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    if (QWidget* active = QApplication::activeWindow()) return active;
    return mainWindow_;
}

Answer QtInteraction::show(const Box& box) {
    QMessageBox message(iconOf(box.icon), textOf(box.title), textOf(box.text), buttonsOf(box.buttons),
                        activeWindow());
    message.setTextFormat(Qt::PlainText);
    message.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return answerOf(message.exec(), box.buttons);
}

void QtInteraction::focus(std::string_view control, bool select) {
    const QString name = textOf(control);
    QWidget* found = nullptr;
    for (QWidget* window : {activeWindow(), mainWindow_.data()}) {
        if (window && !found)
            found = window->objectName() == name ? window : window->findChild<QWidget*>(name);
    }
    if (!found) return;
    // Taking the focus here would commit the box that has it while its own rule still runs.
    QMetaObject::invokeMethod(
        found,
        [found = QPointer<QWidget>(found), select] {
            if (!found) return;
            found->setFocus(Qt::OtherFocusReason);
            auto* edit = qobject_cast<QLineEdit*>(found.data());
            if (edit && select) edit->selectAll();
        },
        select ? Qt::QueuedConnection : Qt::DirectConnection);
}

void QtInteraction::highlight(std::string_view panel) {
    if (onHighlight) onHighlight(std::string(panel));
}

void QtInteraction::yield() {
    QApplication::processEvents();
}

void QtInteraction::status(std::string_view text) {
    if (onStatus) onStatus(std::string(text));
}

void QtInteraction::runComputing(ComputingScreen& screen, const std::function<void()>& step) {
    ComputingDialog dialog(screen, step, activeWindow());
    computing_ = &dialog;
    dialog.exec();
}

void QtInteraction::updateComputing(const ComputingScreen&) {
    if (auto* dialog = qobject_cast<ComputingDialog*>(computing_.data())) dialog->showScreen();
}

void QtInteraction::repaintMainScreen() {
    if (onRepaint) onRepaint();
}

void QtInteraction::repaintRatioPanels() {
    if (onRatiosChanged) onRatiosChanged();
}

void QtInteraction::setBusy(bool busy) {
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void QtInteraction::beep() {
    QApplication::beep();
}

} // namespace metrisk
