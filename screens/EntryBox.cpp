#include "screens/EntryBox.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace metrisk {

namespace {

/// The box keeps its entry while the user looks at a menu, a box or another program.
bool goesOn(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason ||
           reason == Qt::ActiveWindowFocusReason;
}

} // namespace

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!goesOn(event->reason())) emit entered();
}

void EntryBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!goesOn(event->reason())) emit left();
}

void EntryBox::keyPressEvent(QKeyEvent* event) {
    emit keyPressed();
    // Enter commits as leaving does and goes on to the next box.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        focusNextPrevChild(true);
        return;
    }
    QLineEdit::keyPressEvent(event);
}

} // namespace metrisk
