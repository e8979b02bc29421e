// Screens on small desktops: the program's desktop and font are those that CMakeLists.txt runs this with.
#include "tests/window/support/Desk.h"
#include "tests/window/support/EveryScreen.h"
#include "window/kit/ContentArea.h"
#include "window/kit/DesktopFit.h"
#include "window/kit/SheetView.h"
#include "window/kit/Widgets.h"
#include "window/kit/WorksheetDialog.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolBar>
#include <algorithm>

namespace metrisk::testing {

class SizeTest final : public QObject {
    Q_OBJECT

  private:
    static bool fits(const QWidget& window) {
        const QSize room = roomFor(window);
        return window.width() <= room.width() && window.height() <= room.height();
    }

    static bool isRoomy(const QWidget& window) {
        return roomFor(window).height() >= 712 && !qEnvironmentVariableIsSet("METRISK_TEST_FONT");
    }

  private slots:
    void initTestCase() {
        QFont font = QApplication::font();
        if (const int points = qEnvironmentVariableIntValue("METRISK_TEST_FONT")) font.setPointSize(points);
        QApplication::setFont(font);
    }

    void everyScreenFitsAndIsScrolledUpAndDownAlone() {
        Desk d;
        d.window->resize(d.window->sizeHint());
        QVERIFY(fits(*d.window));
        const EveryScreen screens(d);
        for (const auto& screen : screens.all()) {
            if (screen == screens.all().front()) continue;
            WorksheetDialog dialog(*screen, layoutOf, d.window.get());
            dialog.setWindowModality(Qt::NonModal);
            dialog.show();
            d.settle(&dialog);
            const auto* area = dialog.findChild<ContentArea*>();
            QVERIFY2(fits(dialog), screen->name);
            QVERIFY2(area->horizontalScrollBar()->maximum() == 0, screen->name);
            const auto* foot = dialog.findChild<QWidget*>(footName, Qt::FindDirectChildrenOnly);
            QVERIFY2(!foot || dialog.rect().contains(foot->geometry()), screen->name);
            // The first box can be typed in at once.
            const auto boxes = dialog.findChildren<QLineEdit*>();
            const bool fillable = std::ranges::any_of(boxes, [](const auto* box) {
                return box->isVisible() && box->isEnabled() && !box->isReadOnly();
            });
            const auto* first = qobject_cast<QLineEdit*>(dialog.focusWidget());
            const bool inSheet = qobject_cast<SheetView*>(dialog.focusWidget());
            QVERIFY2(!fillable || inSheet || (first && !first->isReadOnly()), screen->name);
        }
        QCOMPARE(d.boxes.faults(), QString());
    }

    /// Nor does a button of the toolbar hide behind an arrow. On a desktop that has the room no analysis
    /// needs a bar at all.
    void theMainScreenNeedsNoBarSideways() {
        Desk d;
        QVERIFY(!isRoomy(*d.window) || d.window->sizeHint() == QSize(1016, 712));
        for (const auto& file : QDir(METRISK_SOURCE_DIR "/examples").entryInfoList({"*.mrk"})) {
            d.window->openAtStart(file.filePath());
            d.window->resize(d.window->sizeHint());
            d.settle();
            const auto* area = d.window->findChild<QScrollArea*>();
            QVERIFY2(area->horizontalScrollBar()->maximum() == 0, qPrintable(file.fileName()));
            const bool room = isRoomy(*d.window);
            QVERIFY2(!room || area->verticalScrollBar()->maximum() == 0, qPrintable(file.fileName()));
            QVERIFY2(!room || d.window->size() == QSize(1016, 712), qPrintable(file.fileName()));
        }
        auto* bar = d.window->findChild<QToolBar*>("tb_Main");
        for (QAction* action : bar->actions())
            QVERIFY2(bar->rect().contains(bar->actionGeometry(action)), qPrintable(action->objectName()));
    }

    void aFigureIsReadWithItsUnit() {
        Desk d;
        for (const auto& file : QDir(METRISK_SOURCE_DIR "/examples").entryInfoList({"*.mrk"})) {
            d.window->openAtStart(file.filePath());
            d.window->resize(d.window->sizeHint());
            d.settle();
            const auto* box = d.control<QLineEdit>("pnl_ProcessUncertainty");
            const QMargins margins = box->textMargins();
            const int room = box->width() - margins.left() - margins.right() - 6;
            QVERIFY2(box->fontMetrics().horizontalAdvance(box->text()) <= room, qPrintable(box->text()));
        }
    }

    /// In small letters too, as small desktops have them: frame and arrow are as wide as ever.
    void aUnitOfTimeIsReadInItsList_data() {
        QTest::addColumn<int>("points");
        QTest::newRow("usual") << QApplication::font().pointSize();
        QTest::newRow("small") << 7;
    }
    void aUnitOfTimeIsReadInItsList() {
        QFETCH(int, points);
        Desk d;
        const QFont before = QApplication::font();
        const auto back = qScopeGuard([&] { QApplication::setFont(before); });
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        const EveryScreen screens(d);
        for (const auto& screen : screens.all()) {
            if (std::string_view(screen->name) != "ReliabilityModelCoefficients") continue;
            WorksheetDialog dialog(*screen, layoutOf, d.window.get());
            dialog.setWindowModality(Qt::NonModal);
            dialog.show();
            d.settle(&dialog);
            auto* list = d.control<QComboBox>("IntervalUnitsBox", &dialog);
            QStyleOptionComboBox option;
            option.initFrom(list);
            constexpr auto field = QStyle::SC_ComboBoxEditField;
            const int room = list->style()->subControlRect(QStyle::CC_ComboBox, &option, field, list).width();
            QVERIFY(list->count() > 0);
            for (int i = 0; i < list->count(); ++i)
                QVERIFY2(list->fontMetrics().horizontalAdvance(list->itemText(i)) + 4 <= room,
                         qPrintable(list->itemText(i)));
        }
    }

    void aScreenFollowsWhatItShows_data() {
        QTest::addColumn<QString>("opener");
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("command");
        QTest::newRow("procedure") << "CtrlGuardband"
                                   << "GuardbandAnalysis"
                                   << "mnu_Procedure";
        QTest::newRow("defaults") << "BaselineAnalysisScreen"
                                  << "BaselineAnalysis"
                                  << "mnu_ShowDefaults";
    }
    void aScreenFollowsWhatItShows() {
        QFETCH(QString, opener);
        QFETCH(QString, screen);
        QFETCH(QString, command);
        Desk d;
        enterTwoSided(d);
        d.boxes.expectScreen(screen, [&](QWidget& window) {
            auto* show = d.control<QAction>(command, &window);
            d.settle(&window);
            const QSize opened = window.size();
            show->trigger();
            d.settle(&window);
            const QSize other = window.size();
            QVERIFY2(other != opened && fits(window), qPrintable(QString::number(other.width())));
            show->trigger();
            d.settle(&window);
            QCOMPARE(window.size(), opened);
            // What the user has made of the size stays: it differs by what is shown alone.
            if (opened.boundedTo(other).width() + 40 < roomFor(window).width()) {
                window.resize(opened + QSize(10, 10));
                show->trigger();
                show->trigger();
                d.settle(&window);
                QCOMPARE(window.size(), opened + QSize(10, 10));
            }
            qobject_cast<QDialog*>(&window)->reject();
        });
        d.choose(opener);
        QCOMPARE(d.boxes.faults(), QString());
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::SizeTest)
#include "test_sizes.moc"
