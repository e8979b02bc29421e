// Tables of cells as widgets, on the sample worksheet and the list of correlations.
#include "tests/window/support/Desk.h"
#include "window/kit/CellTable.h"
#include "window/kit/ColourRoles.h"
#include "window/kit/SheetView.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <fstream>

namespace metrisk::testing {

class TableTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

    /// Opens the budget and works in it; it is left by its toolbar.
    void inBudget(const std::function<void(QWidget&)>& act) {
        desk_->boxes.expectScreen("MTEError", [act](QWidget& budget) {
            act(budget);
            budget.findChild<QAction*>("tb_Sigma_OK")->trigger();
        });
        desk_->choose("mnu_Uncertainty");
    }
    void inSamples(QWidget& budget, const std::function<void(QWidget&, CellTable&)>& act) {
        desk_->boxes.expectScreen("DataEntryWorksheet", [this, act](QWidget& window) {
            desk_->settle(&window);
            act(window, *window.findChild<CellTable*>("ss"));
            desk_->click("mnu_Exit_0", &window);
        });
        desk_->click("cmd_Random_0", &budget);
    }
    static void type(CellTable& table, int row, const QString& text, bool leave = true) {
        table.setFocus();
        table.setCurrentCell(row, 0);
        QTest::keyClicks(&table, text.left(1)); // opens the cell
        auto* editor = table.viewport()->findChild<QLineEdit*>();
        QVERIFY(editor);
        QTest::keyClicks(editor, text.mid(1));
        if (leave) QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(
            nullptr, QEvent::DeferredDelete); // a cell is committed once its key has been handled
    }

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    void aColumnIsTypedCopiedAndPasted() {
        inBudget([this](QWidget& budget) {
            inSamples(budget, [this](QWidget& window, CellTable& table) {
                type(table, 0, "1.25");
                QCOMPARE(table.currentRow(), 1);
                type(table, 1, "word");
                QCOMPARE(table.item(1, 0)->toolTip(), QString("not a number, not counted"));
                const auto edge = [&](int row) {
                    const QRect cell = table.visualItemRect(table.item(row, 0));
                    return table.viewport()->grab().toImage().pixelColor(cell.center().x(), cell.top());
                };
                QCOMPARE(edge(1), rolesFor(table.palette()).bad);
                QVERIFY(edge(0) != edge(1));
                table.clearSelection();
                table.setRangeSelected({0, 0, 1, 0}, true);
                QTest::keyClick(&table, Qt::Key_X, Qt::ControlModifier);
                QCOMPARE(QApplication::clipboard()->text(), QString("1.25\nword\n"));
                QCOMPARE(desk_->text("SampleSizePanel", &window), QString("0"));
                QApplication::clipboard()->setText("1,5\t7\r\n-0,25\t8\r\n");
                table.setCurrentCell(2, 0);
                QTest::keyClick(&table, Qt::Key_V, Qt::ControlModifier);
                QCOMPARE(table.item(3, 0)->text(), QString("-0.25"));
                QCOMPARE(desk_->text("SampleSizePanel", &window), QString("2"));
                QTest::keyClick(&table, Qt::Key_Tab);
                QVERIFY2(!table.hasFocus(), "the keyboard leaves the table");
                type(table, 5, "9", false); // OK takes what is being typed
            });
            QCOMPARE(desk_->text("txt_DegreesFreedom_1", &budget), QString("2.00"));
        });
        QCOMPARE(desk_->record.Stat_SampleSize[1], 3);
        QCOMPARE(desk_->record.Stat_Sample[3][1], 9.0);
    }

    void pairsAreDragged() {
        inBudget([this](QWidget& budget) {
            desk_->boxes.expectScreen("CorrelationList", [this](QWidget& window) {
                desk_->settle(&window);
                auto* from = window.findChild<CellTable*>("lst_Variable_0");
                auto* onto = window.findChild<CellTable*>("lst_Variable_1");
                QVERIFY(from->dragEnabled() && onto->acceptDrops());
                emit onto->dropped(from, 2, 8);
                auto* pairs = window.findChild<CellTable*>("ss");
                QCOMPARE(pairs->rowCount(), 1);
                QCOMPARE(pairs->currentColumn(), 2);
                QVERIFY(!pairs->item(0, 0)->flags().testFlag(Qt::ItemIsEditable));
                pairs->item(0, 2)->setText("0.5");
                desk_->click("mnu_Exit_0", &window);
            });
            budget.findChild<QAction*>("tb_Sigma_correlations")->trigger();
        });
        QCOMPARE(desk_->record.CorrelationMatrix[4][10], 0.5);
    }

    void testPointsAreTypedPastedAndTakenBack() {
        const QString path = desk_->path("points.csv");
        std::ofstream(path.toStdString()) << "nominal,tol,su_pct,mte_u\n10,0.5,95,0.1\n10,0.4,95,0.1\n";
        desk_->boxes.expectScreen("TestPoints", [this](QWidget& window) {
            desk_->settle(&window);
            auto& sheet = *window.findChild<SheetView*>("tbl_Points");
            const auto cell = [&](int row, int column) {
                return sheet.model()->index(row, column).data().toString();
            };
            QCOMPARE(window.focusWidget(), &sheet);
            QCOMPARE(cell(0, 4), QString("ok"));
            const QString before = cell(0, 5);
            sheet.setCurrentIndex(sheet.model()->index(0, 1));
            QTest::keyClick(&sheet, Qt::Key_F2);
            auto* editor = sheet.viewport()->findChild<QLineEdit*>();
            QVERIFY(editor);
            editor->setText("word");
            QTest::keyClick(editor, Qt::Key_Return);
            desk_->settle(&window);
            QCOMPARE(cell(0, 4), QString("bad"));
            QVERIFY(sheet.model()->index(0, 1).data(Qt::ToolTipRole).toString().contains("word"));
            QCOMPARE(sheet.currentIndex().row(), 1);
            QApplication::clipboard()->setText("0.3\t90\n0.2\t80\n");
            sheet.setCurrentIndex(sheet.model()->index(1, 1));
            QTest::keyClick(&sheet, Qt::Key_V, Qt::ControlModifier);
            QCOMPARE(sheet.model()->rowCount(), 3);
            QCOMPARE(cell(2, 4), QString("refused")); // a nominal of 0 is missing
            QTest::keyClick(&sheet, Qt::Key_Z, Qt::ControlModifier);
            QTest::keyClick(&sheet, Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(sheet.model()->rowCount(), 2);
            QCOMPARE(cell(0, 5), before);
            sheet.selectAll();
            QTest::keyClick(&sheet, Qt::Key_C, Qt::ControlModifier);
            QVERIFY(QApplication::clipboard()->text().startsWith("10\t0.5\t95\t0.1\tok\t"));
            // By the arrow keys the bar has the focus when the next menu opens, the cells have not.
            QApplication::clipboard()->clear();
            QTest::keyClick(&window, Qt::Key_F, Qt::AltModifier);
            QVERIFY(QApplication::activePopupWidget());
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Right);
            QCOMPARE(QApplication::activePopupWidget(), window.findChild<QMenu*>("mnu_EditTable"));
            QVERIFY(window.findChild<QAction*>("mnu_Edit_Undo")->isEnabled());
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_C);
            QVERIFY(QApplication::clipboard()->text().startsWith("10\t0.5\t95\t0.1\tok\t"));
            QCOMPARE(window.focusWidget(), &sheet);
            desk_->click("cmd_Close", &window);
        });
        desk_->window->openAtStart(path);
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::TableTest)
#include "test_tables.moc"
