#include "tests/window/support/BoxAnswerer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

namespace metrisk::testing {

namespace {

constexpr int lookEvery = 2;       // milliseconds
constexpr int hangsAfter = 20'000; // milliseconds

QString describe(const QWidget& window) {
    if (const auto* box = qobject_cast<const QMessageBox*>(&window))
        return QString("box \"%1\": \"%2\"").arg(box->windowTitle(), box->text());
    return QString("%1 \"%2\"").arg(window.metaObject()->className(), window.objectName());
}

} // namespace

BoxAnswerer::BoxAnswerer() {
    QTimer::singleShot(lookEvery, this, [this] { look(); });
}

void BoxAnswerer::expectBox(const QString& title, const QString& text, const QString& button) {
    script_.push_back(
        {QString("box \"%1\": \"%2\"").arg(title, text), [=](QWidget& window) {
             auto* box = qobject_cast<QMessageBox*>(&window);
             if (!box || box->windowTitle() != title || box->text() != text)
                 return QString("expected box \"%1\": \"%2\", got %3").arg(title, text, describe(window));
             for (QAbstractButton* each : box->buttons()) {
                 if (each->text().remove('&') != button) continue;
                 each->click();
                 return QString();
             }
             return QString("no button %1 in %2").arg(button, describe(window));
         }});
}

void BoxAnswerer::expectFile(const QString& path) {
    script_.push_back({"file dialog", [path](QWidget& window) {
                           auto* dialog = qobject_cast<QFileDialog*>(&window);
                           if (!dialog) return "expected a file dialog, got " + describe(window);
                           if (path.isEmpty()) {
                               dialog->reject();
                           } else {
                               dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
                               QMetaObject::invokeMethod(dialog, "accept");
                           }
                           return QString();
                       }});
}

void BoxAnswerer::expectScreen(const QString& name, std::function<void(QWidget&)> act) {
    script_.push_back({"screen " + name, [name, act = std::move(act)](QWidget& window) {
                           if (window.objectName() != name)
                               return QString("expected screen %1, got %2").arg(name, describe(window));
                           act(window);
                           return QString();
                       }});
}

QString BoxAnswerer::faults() {
    QStringList all = faults_;
    for (const Step& step : script_) all += "not shown: " + step.what;
    faults_.clear();
    script_.clear();
    return all.join('\n');
}

void BoxAnswerer::look() {
    // A timer does not tick within its own tick, but an answer may open the next window.
    QTimer::singleShot(lookEvery, this, [this] { look(); });
    QWidget* window = QApplication::activeModalWidget();
    answered_.removeIf([](const QPointer<QWidget>& each) { return !each || !each->isVisible(); });
    if (!window) return;
    if (answerAll) {
        answerAll(*window);
    } else if (!answered_.contains(window)) {
        answer(*window);
    } else if (sinceAnswered_.elapsed() > hangsAfter) {
        faults_ += "does not end: " + describe(*window);
        sinceAnswered_.restart();
        dismiss(*window);
    }
}

void BoxAnswerer::answer(QWidget& window) {
    // A progress screen ends itself; it is foreseen only where a test wants to work in it.
    if (window.objectName() == "Computing" && (script_.empty() || script_.front().what != "screen Computing"))
        return;
    answered_.append(&window);
    sinceAnswered_.start();
    if (script_.empty()) {
        faults_ += "unexpected " + describe(window);
        dismiss(window);
        return;
    }
    const Step step = std::move(script_.front());
    script_.pop_front();
    const QString fault = step.act(window);
    if (fault.isEmpty()) return;
    faults_ += fault;
    dismiss(window);
}

void BoxAnswerer::dismiss(QWidget& window) {
    if (auto* dialog = qobject_cast<QDialog*>(&window)) dialog->done(QDialog::Rejected);
}

} // namespace metrisk::testing
