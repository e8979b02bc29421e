#include "screens/QtInteraction.h"

#include "screens/ScreenBinder.h"
#include "screens/Widgets.h"
#include "screens/WorksheetDialog.h"

#include <QApplication>
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

/// The wait pointer rests while the user is asked.
class PointerRest {
  public:
    PointerRest() {
        while (QApplication::overrideCursor()) {
            ++depth_;
            QApplication::restoreOverrideCursor();
        }
    }
    ~PointerRest() {
        while (depth_-- > 0) QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    PointerRest(const PointerRest&) = delete;
    PointerRest& operator=(const PointerRest&) = delete;

  private:
    int depth_ = 0;
};

} // namespace

void QtInteraction::setMainScreen(ScreenBinder* screen) {
    open_.clear();
    if (screen) open_.push_back(screen);
}

const Worksheet* QtInteraction::top() const {
    return open_.empty() ? nullptr : &open_.back()->model();
}

/// Never the help window: it may be closed while the box stands.
QWidget* QtInteraction::owner() const {
    return open_.empty() ? nullptr : &open_.back()->window();
}

void QtInteraction::flush() {
    for (ScreenBinder* screen : open_) screen->flush();
}

Answer QtInteraction::show(const Box& box) {
    flush();
    const PointerRest rest;
    const QPointer<QWidget> before = QApplication::focusWidget();
    QMessageBox message(iconOf(box.icon), qt(box.title), qt(box.text), buttonsOf(box.buttons), owner());
    message.setWindowModality(Qt::WindowModal); // help stays within reach
    message.setTextFormat(Qt::PlainText);
    message.setTextInteractionFlags(Qt::TextSelectableByMouse);
    const int pressed = message.exec();
    // Not every window manager gives the focus back.
    if (before) before->window()->activateWindow();
    return answerOf(pressed, box.buttons);
}

void QtInteraction::run(Worksheet& screen, const std::function<void()>& work) {
    flush();
    WorksheetDialog dialog(screen, layoutOf_, owner());
    open_.push_back(&dialog.binder());
    {
        const PointerRest rest;
        dialog.run(work);
    }
    open_.pop_back();
    if (QWidget* window = owner()) window->activateWindow();
}

void QtInteraction::refresh(Worksheet& screen) {
    for (ScreenBinder* each : open_) {
        if (&each->model() != &screen) continue;
        each->repaint();
        each->flush();
    }
}

void QtInteraction::repaintMainScreen() {
    if (!open_.empty()) open_.front()->repaint();
}

void QtInteraction::focus(const ControlName& control, bool select) {
    for (ScreenBinder* each : open_)
        if (each->model().name == control.screen) each->focus(qt(control.control), select);
}

void QtInteraction::highlight(std::string_view panel) {
    if (!open_.empty()) open_.front()->highlight(qt(panel));
}

void QtInteraction::yield() {
    flush();
    QApplication::processEvents();
}

void QtInteraction::status(std::string_view text) {
    if (onStatus) onStatus(std::string(text));
}

void QtInteraction::help(std::string_view page) {
    if (onHelp) onHelp(std::string(page));
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
