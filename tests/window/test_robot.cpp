// A robot that clicks and types on whatever can be reached, answers every window at random, and must
// neither crash nor hang the program nor bring a figure into the record that is none.
// METRISK_ROBOT_SEED and METRISK_ROBOT_STEPS repeat or lengthen a run.
#include "tests/window/support/Desk.h"
#include "tests/window/support/FiniteRecord.h"
#include "window/kit/CellTable.h"
#include "window/kit/EntryBox.h"
#include "window/kit/PictureWidget.h"
#include "window/kit/SheetView.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QSlider>
#include <random>

namespace metrisk::testing {

namespace {

const QStringList texts = {"0",    "1",        "10",    "0.5",  "0.125",  "95",    "99.9",  "100",
                           "50",   "-3",       "1e300", "1e-9", "1e5000", "2,5",   "abc",   "",
                           "  ",   "%",        "4:1",   "\"",   "12 V",   "--1",   "1.2.3", "+7 mm",
                           "1E+3", "99999999", "$5.00", "85.0", "72.0",   "0.0001"};

class Robot {
  public:
    Robot(Desk& desk, unsigned seed) : desk_(desk), random_(seed) {
        // Copies: the robot saves what it has done.
        std::filesystem::copy(METRISK_SOURCE_DIR "/examples", desk_.folder / "examples");
        examples_ = QDir(desk_.path("examples")).entryInfoList({"*.mrk"});
        desk_.boxes.answerAll = [this](QWidget& window) { actIn(window); };
    }

    /// One action on the main screen.
    void step() {
        QWidget* window = desk_.window.get();
        desk_.settle();
        if (chance(1)) {
            last = "help key";
            QTest::keyClick(window, Qt::Key_F1);
        } else if (chance(1)) {
            last = "close the main screen";
            leaveNoMore_ = true; // the exit question is answered by Cancel
            window->close();
            leaveNoMore_ = false;
        } else if (chance(1)) {
            openExample();
        } else if (chance(10)) {
            triggerAny(window);
        } else {
            handle(window);
        }
        // No menu or help window stays in front of the next step.
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top != window && top->isVisible() && top->windowModality() == Qt::NonModal) top->close();
    }

    QString last;

  private:
    bool chance(int percent) { return static_cast<int>(random_() % 100) < percent; }
    template <class List>
    auto any(const List& list) {
        return list[static_cast<qsizetype>(random_() % static_cast<std::size_t>(list.size()))];
    }

    /// A modal window is open: works in it for a while, then leaves it.
    void actIn(QWidget& window) {
        if (auto* file = qobject_cast<QFileDialog*>(&window)) {
            last = "cancel file dialog";
            file->reject();
        } else if (qobject_cast<QPrintDialog*>(&window) || qobject_cast<QPageSetupDialog*>(&window)) {
            last = "cancel printing";
            qobject_cast<QDialog*>(&window)->reject();
        } else if (auto* box = qobject_cast<QMessageBox*>(&window)) {
            QAbstractButton* button = any(box->buttons());
            if (leaveNoMore_ && box->button(QMessageBox::Cancel)) button = box->button(QMessageBox::Cancel);
            last = "answer " + box->windowTitle() + " " + button->text();
            if (chance(10)) QTest::keyClick(box, Qt::Key_F1);
            if (chance(10)) {
                box->close(); // by its title bar, or not at all
            } else {
                button->click();
            }
        } else if (window.objectName() == "Computing") {
            if (chance(10)) desk_.click("Cmd_Cancel", &window);
        } else if (chance(15)) {
            last = "close " + window.objectName();
            window.close();
        } else if (chance(10)) {
            triggerAny(&window);
        } else {
            handle(&window);
        }
    }

    /// Random entries seldom make a whole analysis.
    void openExample() {
        const QString path = any(examples_).filePath();
        last = "open " + path;
        desk_.window->openAtStart(path);
    }

    void triggerAny(QWidget* window) {
        QList<QAction*> actions;
        for (QAction* action : window->findChildren<QAction*>())
            if (action->isEnabled() && !action->menu() && !action->objectName().isEmpty() &&
                action->objectName() != "ExitAnalysis" && action->objectName() != "tb_Main_exit")
                actions += action;
        if (actions.empty()) return;
        QAction* action = any(actions);
        last = "choose " + action->objectName();
        action->trigger();
    }

    void handle(QWidget* window) {
        QList<QWidget*> reachable;
        for (QWidget* widget : window->findChildren<QWidget*>())
            if (widget->isVisible() && widget->isEnabled() && !widget->objectName().startsWith("qt_") &&
                (qobject_cast<QLineEdit*>(widget) || qobject_cast<QAbstractButton*>(widget) ||
                 qobject_cast<QComboBox*>(widget) || qobject_cast<QSlider*>(widget) ||
                 qobject_cast<PictureWidget*>(widget) || qobject_cast<QTableView*>(widget) ||
                 qobject_cast<QPlainTextEdit*>(widget)))
                reachable += widget;
        if (reachable.empty()) return;
        QWidget* widget = any(reachable);
        last = "use " + widget->objectName();
        if (widget->objectName() == "tb_Main_exit") return;
        if (auto* table = qobject_cast<CellTable*>(widget)) return handle(*table);
        if (auto* sheet = qobject_cast<SheetView*>(widget)) return handle(*sheet);
        if (auto* choice = qobject_cast<QComboBox*>(widget)) {
            choice->setFocus();
            for (auto steps = random_() % 9; steps > 0; --steps)
                QTest::keyClick(choice, chance(60) ? Qt::Key_Down : Qt::Key_Up);
            return;
        }
        if (qobject_cast<QSlider*>(widget) || qobject_cast<PictureWidget*>(widget)) {
            const QPoint at(static_cast<int>(random_() % 1000) * widget->width() / 1000,
                            static_cast<int>(random_() % 1000) * widget->height() / 1000);
            QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, at);
            return;
        }
        if (qobject_cast<QPlainTextEdit*>(widget)) {
            QTest::keyClicks(widget, any(texts) + "\r" + any(texts));
            return;
        }
        if (!qobject_cast<QLineEdit*>(widget)) {
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            // A toolbar button of the window's end.
            if (button->toolTip().startsWith("Exit")) return;
            QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier,
                              QPoint(std::min(10, widget->width() / 2), widget->height() / 2));
            return;
        }
        QTest::mouseClick(widget, Qt::LeftButton);
        if (chance(80)) QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
        const QString typed = any(texts);
        last += " type " + typed;
        QTest::keyClicks(widget, typed);
        if (chance(70)) QTest::keyClick(widget, chance(80) ? Qt::Key_Tab : Qt::Key_Return);
    }

    /// Types into a cell, or pastes a few lines from there on.
    void handle(SheetView& sheet) {
        sheet.setFocus();
        const QAbstractItemModel& model = *sheet.model();
        if (model.rowCount() > 0)
            sheet.setCurrentIndex(
                model.index(static_cast<int>(random_() % static_cast<unsigned>(model.rowCount())),
                            static_cast<int>(random_() % static_cast<unsigned>(model.columnCount()))));
        constexpr std::pair<Qt::Key, Qt::KeyboardModifier> keys[] = {
            {Qt::Key_V, Qt::ControlModifier},      {Qt::Key_C, Qt::ControlModifier},
            {Qt::Key_Z, Qt::ControlModifier},      {Qt::Key_Y, Qt::ControlModifier},
            {Qt::Key_D, Qt::ControlModifier},      {Qt::Key_Insert, Qt::NoModifier},
            {Qt::Key_Delete, Qt::ControlModifier}, {Qt::Key_Delete, Qt::NoModifier}};
        if (chance(50)) {
            if (chance(50))
                QApplication::clipboard()->setText(any(texts) + "\t" + any(texts) + "\n" + any(texts));
            const auto [key, modifier] = keys[random_() % std::size(keys)];
            last += " key " + QString::number(key);
            QTest::keyClick(&sheet, key, modifier);
            return;
        }
        const QString typed = any(texts);
        last += " type " + typed;
        QTest::keyClick(&sheet, Qt::Key_F2);
        if (auto* editor = sheet.viewport()->findChild<QLineEdit*>()) {
            editor->setText(typed);
            QTest::keyClick(editor, chance(80) ? Qt::Key_Return : Qt::Key_Escape);
        }
    }

    void handle(CellTable& table) {
        if (table.rowCount() == 0) return;
        table.setFocus();
        table.setCurrentCell(static_cast<int>(random_() % static_cast<unsigned>(table.rowCount())),
                             table.columnCount() - 1);
        if (chance(30)) {
            QApplication::clipboard()->setText(any(texts) + "\r\n" + any(texts) + "\r\n" + any(texts));
            QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
        } else if (chance(20)) {
            QTest::keyClick(&table, Qt::Key_Delete);
        } else {
            const QString typed = any(texts);
            last += " type " + typed;
            QTest::keyClick(&table, Qt::Key_F2);
            if (auto* editor = table.viewport()->findChild<QLineEdit*>()) {
                editor->setText(typed);
                QTest::keyClick(editor, Qt::Key_Return);
            }
        }
    }

    Desk& desk_;
    std::mt19937 random_;
    QFileInfoList examples_;
    bool leaveNoMore_ = false;
};

unsigned fromEnvironment(const char* name, unsigned otherwise) {
    const QByteArray value = qgetenv(name);
    return value.isEmpty() ? otherwise : value.toUInt();
}

} // namespace

class RobotTest final : public QObject {
    Q_OBJECT

  private slots:
    void anythingGoes() {
        const unsigned seed = fromEnvironment("METRISK_ROBOT_SEED", 20240);
        const unsigned steps = fromEnvironment("METRISK_ROBOT_STEPS", 2000);
        qInfo("seed %u, %u steps", seed, steps);
        Desk desk;
        enterTwoSided(desk);
        Robot robot(desk, seed);
        for (unsigned i = 0; i < steps; ++i) {
            robot.step();
            const QString wrong = firstNonFinite(desk.record);
            QVERIFY2(wrong.isEmpty(),
                     qPrintable(
                         QString("seed %1, step %2, after %3: %4").arg(seed).arg(i).arg(robot.last, wrong)));
            QVERIFY2(desk.window->isVisible() && !desk.record.EntryBoxChanged && !desk.record.Computing,
                     qPrintable(QString("seed %1, step %2, after %3").arg(seed).arg(i).arg(robot.last)));
        }
        // The program still works.
        desk.boxes.answerAll = nullptr;
        desk.open();
        enterTwoSided(desk);
        desk.record.ComputeEqRatio = false;
        desk.click("ComputeResults");
        QCOMPARE(desk.boxes.faults(), QString());
        QVERIFY(desk.record.FalseAcceptRisk > 0);
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::RobotTest)
#include "test_robot.moc"
