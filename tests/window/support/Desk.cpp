#include "tests/window/support/Desk.h"

#include "desk/files/ClearAnalysis.h"
#include "window/kit/LookStyle.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>

namespace metrisk::testing {

Desk::Desk() : settings(folder / "settings.ini") {
    installLook();
    open();
}

Desk::~Desk() = default;

void Desk::missing(const QString& name, const QWidget& screen) {
    QStringList there;
    for (const QObject* object : screen.findChildren<QObject*>())
        if (!object->objectName().isEmpty() && !object->objectName().startsWith("qt_"))
            there += object->objectName();
    qFatal("no control %s on %s, but %s", qPrintable(name), qPrintable(screen.objectName()),
           qPrintable(there.join(' ')));
}

void Desk::open() {
    window.reset();
    ClearAnalysis(session);
    window = std::make_unique<MainWindow>(session, ui);
    desktop.emplace(Desktop{session.desktop->files, programs, session.desktop->printer,
                            session.desktop->errorLedger, session.desktop->looks});
    session.desktop = &*desktop;
    record.FileChanged = false;
    window->model().TakeSavedCopy();
    window->resize(1024, 768);
    window->show();
    settle();
}

void Desk::settle(QWidget* screen) {
    QWidget* top = screen ? screen : window.get();
    QCoreApplication::processEvents();
    // After a box has closed, no window is active under the offscreen platform.
    const QWidget* modal = QApplication::activeModalWidget();
    if (top->isVisible() && QApplication::activeWindow() != top && (!modal || modal == top)) {
        top->activateWindow();
        QCoreApplication::processEvents();
        if (QApplication::activeWindow() != top && !QTest::qWaitForWindowActive(top))
            qWarning("%s does not become active", qPrintable(top->objectName()));
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Desk::type(const QString& box, const QString& text, QWidget* within) {
    settle(within);
    auto* edit = control<QLineEdit>(box, within);
    QTest::mouseClick(edit, Qt::LeftButton);
    settle(within);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

void Desk::enter(const QString& box, const QString& text, QWidget* within) {
    type(box, text, within);
    QTest::keyClick(control<QLineEdit>(box, within), Qt::Key_Tab);
    settle(within);
}

void Desk::click(const QString& name, QWidget* within) {
    auto* button = control<QAbstractButton>(name, within);
    // The indicator of a check box or radio button stands at the left; the rest of the widget may be air.
    const QPoint spot(std::min(10, button->width() / 2), button->height() / 2);
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, spot);
    settle(within);
}

void Desk::choose(const QString& item) {
    control<QAction>(item)->trigger();
    settle();
}

QString Desk::text(const QString& name, QWidget* within) {
    auto* widget = control(name, within);
    if (const auto* edit = qobject_cast<QLineEdit*>(widget)) return edit->text();
    if (const auto* label = qobject_cast<QLabel*>(widget)) return label->text();
    if (const auto* button = qobject_cast<QAbstractButton*>(widget)) return button->text();
    return {};
}

bool Desk::isChecked(const QString& name, QWidget* within) {
    return control<QAbstractButton>(name, within)->isChecked();
}

QString Desk::focused() {
    const QWidget* widget = window->focusWidget();
    return widget ? widget->objectName() : QString();
}

QString Desk::allTexts() {
    QStringList lines;
    for (const QLineEdit* box : window->findChildren<QLineEdit*>())
        lines += box->objectName() + "=" + box->text();
    lines.sort();
    return lines.join('\n');
}

QString Desk::examplePath(const QString& name) const {
    return QString(METRISK_SOURCE_DIR) + "/examples/" + name + ".mrk";
}

void enterTwoSided(Desk& desk) {
    desk.enter("SystemIDBox", "Granite");
    desk.enter("MTESystemIDBox", "Reference");
    desk.enter("ModeBox", "10.00");
    desk.enter("UpperLimitBox", "0.50");
    desk.enter("PctInTolBox", "95");
    desk.enter("MTEOffsetBox", "0.125");
    desk.enter("MTEPctInTolBox", "95");
}

} // namespace metrisk::testing
