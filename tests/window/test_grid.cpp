// The measures of every screen, over all examples: distances, columns, figures, the way of the keyboard.
#include "desk/kit/Controls.h"
#include "tests/window/support/Desk.h"
#include "tests/window/support/EveryScreen.h"
#include "window/kit/EntryBox.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Widgets.h"
#include "window/kit/WorksheetDialog.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSet>
#include <algorithm>
#include <utility>
#include <vector>

namespace metrisk::testing {

class GridTest final : public QObject {
    Q_OBJECT

  private:
    static QRect placeOf(const QWidget& widget, const QWidget& in) {
        return {widget.mapTo(&in, QPoint()), widget.size()};
    }

    static bool isControl(const QWidget& widget) {
        return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
               qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QComboBox*>(&widget);
    }

    /// One that is hidden counts where its room is kept.
    static bool takesRoom(const QWidget& widget) {
        return widget.isVisible() || (widget.isHidden() && widget.sizePolicy().retainSizeWhenHidden() &&
                                      widget.parentWidget()->isVisible());
    }

    /// Width of the widest strip between these that nothing stands on; by (first, last) places.
    static int widestGap(std::vector<std::pair<int, int>> spans) {
        std::ranges::sort(spans);
        int widest = 0, end = spans.empty() ? 0 : spans.front().second;
        for (const auto& [first, last] : spans) {
            widest = std::max(widest, first - end - 1);
            end = std::max(end, last);
        }
        return widest;
    }

    static QString called(const Worksheet& screen, const QWidget& widget) {
        const QString name = widget.objectName();
        return QString("%1 %2").arg(screen.name, name.isEmpty() ? widget.accessibleName() : name);
    }

    /// No panel is scattered over more room than it fills.
    static void checkGaps(const QGroupBox& panel, const Worksheet& screen) {
        constexpr int widest = 16;
        std::vector<std::pair<int, int>> across, down;
        for (const auto* widget : panel.findChildren<QWidget*>()) {
            const bool other = !isControl(*widget) && widget->findChild<QWidget*>();
            if (other || !takesRoom(*widget) || widget->size().isEmpty()) continue;
            const QRect place = placeOf(*widget, panel);
            // A heading may have something at the far end of its row.
            if (!widget->property(headingProperty).toBool()) across.emplace_back(place.left(), place.right());
            // A command at the foot is level with that of the panel beside.
            if (!qobject_cast<const QPushButton*>(widget)) down.emplace_back(place.top(), place.bottom());
        }
        QVERIFY2(widestGap(across) <= widest, qPrintable("across " + called(screen, panel)));
        QVERIFY2(widestGap(down) <= widest, qPrintable("down " + called(screen, panel)));
    }

    /// Boxes behind captions begin at one place in all panels that stand below each other.
    static void checkColumns(const QWidget& window, const Worksheet& screen) {
        constexpr int edge = 12;                     // of a panel, where its captions begin
        QMap<std::pair<int, int>, QSet<int>> begins; // by left edge and width of the panels
        QMap<std::pair<int, int>, int> panels;
        for (const auto* panel : window.findChildren<QGroupBox*>()) {
            if (!panel->isVisible()) continue;
            const QRect frame = placeOf(*panel, window);
            ++panels[{frame.left(), frame.width()}];
            for (const auto* label : panel->findChildren<QLabel*>()) {
                if (!label->isVisible() || !label->buddy() || !label->buddy()->isVisible()) continue;
                const QRect caption = placeOf(*label, window), box = placeOf(*label->buddy(), window);
                const bool beside = box.top() < caption.bottom() && caption.top() < box.bottom();
                if (beside && caption.left() == frame.left() + edge)
                    begins[{frame.left(), frame.width()}] += box.left() - frame.left();
            }
        }
        for (const auto& stack : begins.keys())
            QVERIFY2(begins[stack].size() == 1 || panels[stack] == 1, screen.name);
    }

    static void checkTexts(const QWidget& window, const Worksheet& screen, const QString& example) {
        constexpr int margins = 14;
        QSet<double> sizes;
        for (const auto* widget : window.findChildren<QWidget*>())
            if (isControl(*widget) && widget->isVisible()) sizes += widget->font().pointSizeF();
        QVERIFY2(sizes.size() <= 4, screen.name);
        for (const Control* control : screen.controls()) {
            const auto* box = dynamic_cast<const TextBox*>(control);
            const auto* widget = window.findChild<EntryBox*>(control->name);
            if (!box || !widget) continue;
            const bool words = box->holds == Holds::Words;
            QVERIFY2(widget->alignment().testFlags(words ? Qt::AlignLeft : Qt::AlignRight), control->name);
            // What observes is called as its maker likes; its tool tip has the whole.
            const bool name = QString(control->name).startsWith("ObsID");
            const int text = widget->fontMetrics().horizontalAdvance(widget->text());
            QVERIFY2(name || !widget->isVisible() || text + margins <= widget->width(),
                     qPrintable(example + ": " + called(screen, *widget) + " " + widget->text()));
        }
    }

    /// A button that cannot be used says why instead of what it would do.
    static void checkResting(const QWidget& window, const Worksheet& screen) {
        for (const Control* control : screen.controls()) {
            const auto* widget = window.findChild<QAbstractButton*>(control->name);
            if (!widget || !widget->isVisible() || widget->isEnabled()) continue;
            const QString said = widget->accessibleDescription();
            QVERIFY2(!said.isEmpty() && said != qt(control->toolTip), qPrintable(called(screen, *widget)));
        }
    }

    /// Tab goes to the right and down; up only to a column at the right.
    static void checkTabs(const QWidget& window, const Worksheet& screen) {
        const QWidget* before = nullptr;
        for (const auto* each = window.nextInFocusChain(); each != &window; each = each->nextInFocusChain()) {
            const bool reached = window.isAncestorOf(each) && each->isVisible() && each->isEnabled() &&
                                 (each->focusPolicy() & Qt::TabFocus) && !each->size().isEmpty();
            if (!reached || !screen.find(each->objectName().toStdString())) continue;
            if (before) {
                const QRect from = placeOf(*before, window), to = placeOf(*each, window);
                const bool up = to.bottom() < from.top() && to.left() <= from.right();
                const bool level = to.top() <= from.bottom() && to.bottom() >= from.top();
                QVERIFY2(!up && !(level && to.right() < from.left()),
                         qPrintable(called(screen, *before) + " to " + each->objectName()));
            }
            before = each;
        }
    }

    static void check(const QWidget& window, const Worksheet& screen, const QString& example) {
        for (const auto* panel : window.findChildren<QGroupBox*>()) {
            QVERIFY2(panel->findChildren<QGroupBox*>().empty(), qPrintable(called(screen, *panel)));
            if (panel->isVisible()) checkGaps(*panel, screen);
            for (const auto* label : panel->findChildren<QLabel*>())
                if (panel->title().isEmpty() && label->property(headingProperty).toBool() &&
                    label->isVisible() && label->mapTo(panel, QPoint()).y() < label->height())
                    QVERIFY2(label->mapTo(panel, QPoint()) == QPoint(12, 6), screen.name);
        }
        checkColumns(window, screen);
        checkTexts(window, screen, example);
        checkResting(window, screen);
        checkTabs(window, screen);
    }

  private slots:
    void initTestCase() {
        QApplication::setStyle("fusion");
        installLook();
    }

    void everyScreenKeepsToOneGrid_data() {
        QTest::addColumn<QString>("path");
        for (const auto& file : QDir(METRISK_SOURCE_DIR "/examples").entryInfoList({"*.mrk"}))
            QTest::newRow(file.baseName().toUtf8()) << file.filePath();
    }
    void everyScreenKeepsToOneGrid() {
        QFETCH(QString, path);
        Desk d;
        d.window->openAtStart(path);
        d.window->resize(d.window->sizeHint());
        d.settle();
        check(*d.window, d.window->model(), QTest::currentDataTag());
        const auto left = [&](const char* box) { return placeOf(*d.control(box), *d.window).x(); };
        QCOMPARE(left("MTEOffsetBox"), left("ModeBox"));
        QCOMPARE(left("MTEPctInTolBox"), left("PctInTolBox"));
        const EveryScreen screens(d);
        for (const auto& screen : screens.all()) {
            if (screen == screens.all().front()) continue; // the window itself, above
            WorksheetDialog dialog(*screen, layoutOf, d.window.get());
            dialog.setWindowModality(Qt::NonModal);
            dialog.show();
            d.settle(&dialog);
            check(dialog, *screen, QTest::currentDataTag());
        }
    }

    void aLongResultIsShownSmaller_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("size");
        QTest::newRow("usual") << "0.54" << 1.6;
        QTest::newRow("ratio") << "1,234.56" << 1.6;
        QTest::newRow("long") << "123,456.78" << 1.2;
        QTest::newRow("longer") << "1.2345678E-12" << 1.0;
    }
    void aLongResultIsShownSmaller() {
        QFETCH(QString, text);
        Desk d;
        d.window->resize(d.window->sizeHint());
        d.settle();
        auto* box = d.control<EntryBox>("AcceptRisk");
        const QSize before = box->size();
        box->setText(text);
        d.settle();
        QTEST(box->font().pointSizeF() / d.window->font().pointSizeF(), "size");
        QCOMPARE(box->size(), before);
    }

    /// In the small no text of the screen is bold: a figure that changes does not become so again.
    void aLargeFigureStaysAsBoldAsItIs() {
        EntryBox box;
        box.setSizes({1.6, 1.2, 1.0});
        for (const bool bold : {false, true}) {
            QFont font = box.font();
            font.setBold(bold);
            box.setFont(font);
            box.setText(bold ? "0.54" : "1.23");
            QCOMPARE(box.font().bold(), bold);
        }
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::GridTest)
#include "test_grid.moc"
