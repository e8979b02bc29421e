// Answers the modal windows of a test as its script says; a window that the script does not foresee, or
// that nothing ends, fails the test.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <deque>
#include <functional>

class QFileDialog;
class QMessageBox;

namespace metrisk::testing {

class BoxAnswerer final : public QObject {
  public:
    BoxAnswerer();

    /// The next window must be a message box of this title and text; the button of that text is pressed.
    void expectBox(const QString& title, const QString& text, const QString& button = "OK");
    /// The next window must be a file dialog; an empty path cancels it.
    void expectFile(const QString& path);
    /// The next window must have this object name; `act` works in it and must see to its end.
    void expectScreen(const QString& name, std::function<void(QWidget&)> act);

    /// Every window goes to this routine instead of the script, as often as it is seen.
    std::function<void(QWidget&)> answerAll;

    /// Everything that went wrong or has not come; empty if all is well. Starts the script anew.
    QString faults();

  private:
    struct Step {
        QString what;
        std::function<QString(QWidget&)> act; // what went wrong, or nothing
    };

    void look();
    void answer(QWidget& window);
    static void dismiss(QWidget& window);

    std::deque<Step> script_;
    QStringList faults_;
    QList<QPointer<QWidget>> answered_; // a screen comes to the front again when a box over it has closed
    QElapsedTimer sinceAnswered_;
};

} // namespace metrisk::testing
