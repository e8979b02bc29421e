// Entering an analysis on the main screen.
#include "desk/shell/Toolbar.h"
#include "tests/window/support/Desk.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTextDocument>
#include <QToolTip>

namespace metrisk::testing {

class EntryTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    void everyToolbarImageIsThere() {
        for (const char* image : toolbarImages())
            QVERIFY2(QFile::exists(QString(":/icons/%1.svg").arg(image)), image);
    }

    void twoSidedFromBlank() {
        Desk& d = *desk_;
        QCOMPARE(d.window->windowTitle(), QString("(Untitled) - Metrisk[*]"));
        for (const char* box : {"ModeBox", "UpperLimitBox", "LowerLimitBox", "PctInTolBox", "MTEOffsetBox"})
            QVERIFY2(d.text(box).isEmpty(), box);
        d.click("chk_Symmetric");
        enterTwoSided(d);
        QCOMPARE(d.text("ModeBox"), QString("10.00"));
        QCOMPARE(d.text("UpperLimitBox"), QString("0.50"));
        QCOMPARE(d.text("LowerLimitBox"), QString("0.50")); // symmetric: it follows
        QCOMPARE(d.text("PctInTolBox"), QString("95.0000"));
        QCOMPARE(d.text("MTEFixedOffsetBox"), d.text("MTEOffsetBox"));
        QCOMPARE(d.text("MTEPctInTolBox"), QString("95.0000"));
        QCOMPARE(d.text("pnl_UncRatio"), QString("4 : 1"));

        d.click("ComputeResults");
        QCOMPARE(d.focused(), QString("SystemIDBox"));
        const QString accept = d.text("AcceptRisk");
        QVERIFY(d.record.FalseAcceptRisk > 0 && d.record.FalseRejectRisk > 0);
        QCOMPARE(d.text("AccRatEquivalent2Box"), QString("1.00"));

        d.boxes.expectBox("Compute Not Required", "Compute not required.\nNo changes have been made.");
        d.click("ComputeResults");
        QCOMPARE(d.boxes.faults(), QString());

        QVERIFY(d.window->isWindowModified());
        d.enter("MTEOffsetBox", "0.25");
        QCOMPARE(d.text("AcceptRisk"), accept); // no rule clears results, but they fade
        QVERIFY(!d.control("AcceptRisk")->isEnabled());
        d.click("ComputeResults");
        QVERIFY2(d.text("AcceptRisk") != accept, qPrintable(accept));
    }

    void anEntryBeingTypedIsComputed() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.type("MTEOffsetBox", "0.25");
        QTest::mouseClick(d.control("ComputeResults"), Qt::LeftButton);
        QCOMPARE(d.record.MTE_Offset, 0.25);
        QVERIFY(d.record.FalseAcceptRisk > 0);
    }

    void aQuestionOfTheEntryDoesNotSwallowTheClick() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.click("chk_Symmetric"); // equal sides
        d.type("PctInTolBox", "100");
        d.boxes.expectBox("Non-Physical Situation",
                          "You have indicated 100% in-tolerance.\nThis is a non-physical situation.\n"
                          "(Note that continuing will cause the computed\nequivalent accuracy ratio to be "
                          "based on\nthe false reject risk.)  Continue anyway?",
                          "Yes");
        QTest::mouseClick(d.control("ComputeResults"), Qt::LeftButton);
        d.settle();
        QVERIFY(d.record.RisksComputed);
    }

    void theKeyboardReachesButtons() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.control("ComputeResults")->setFocus();
        QTest::keyClick(d.control("ComputeResults"), Qt::Key_Return);
        QVERIFY(d.record.RisksComputed);
        d.control("TwoSideOption")->setFocus();
        QTest::keyClick(d.control("TwoSideOption"), Qt::Key_Tab);
        QCOMPARE(d.focused(), QString("chk_Symmetric")); // one stop a group
        // The letter of the menu bar acts at the first press though a button bears it too.
        d.boxes.expectScreen("BaselineAnalysis", [](QWidget& screen) { screen.close(); });
        QTest::keyClick(d.window.get(), Qt::Key_B, Qt::AltModifier);
        d.settle();
    }

    /// An analysis from elsewhere names no pictures to load by what it calls its parts and itself.
    void markUpInDataIsShownToTheLetter() {
        Desk& d = *desk_;
        const QString name = "<img src='x'>&amp; <b>0</b>";
        const auto shown = [](const QString& tip) {
            QTextDocument document;
            document.setHtml(tip);
            return Qt::mightBeRichText(tip) ? document.toPlainText() : tip;
        };
        d.enter("SystemIDBox", name.repeated(9));
        auto* box = d.control<QLineEdit>("SystemIDBox");
        QHelpEvent over(QEvent::ToolTip, QPoint(5, 5), box->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(box, &over);
        QVERIFY(shown(QToolTip::text()).startsWith(name.repeated(9) + "\n"));
        QVERIFY(QFile::copy(d.examplePath("gauge-block-25mm"), d.path("<i>a.mrk")));
        d.window->openAtStart(d.path("<i>a.mrk"));
        auto* recent = d.control<QMenu>("mnu_RecentFiles");
        emit recent->aboutToShow();
        QCOMPARE(shown(recent->actions().first()->toolTip()), d.path("<i>a.mrk"));
        d.boxes.expectScreen("MTEError", [&](QWidget& budget) {
            d.enter("txt_Description_6", name, &budget);
            QCOMPARE(shown(d.control("pnl_Share_6", &budget)->toolTip()),
                     "Share of " + name + " in the squared total");
            for (const QLabel* label : budget.findChildren<QLabel*>())
                QVERIFY(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()));
            budget.findChild<QAction*>("tb_Sigma_cancel")->trigger();
        });
        d.choose("mnu_Uncertainty");
    }

    void enterGoesOnToTheNextBox() {
        Desk& d = *desk_;
        d.type("ModeBox", "7.5");
        QTest::keyClick(d.control("ModeBox"), Qt::Key_Return);
        QCOMPARE(d.record.SU_Mode, 7.5);
        QCOMPARE(d.focused(), QString("UpperLimitBox"));
    }

    void tabFollowsTheWork() {
        Desk& d = *desk_;
        QStringList seen;
        d.control("SystemIDBox")->setFocus();
        for (int i = 0; i < 60 && !seen.contains(d.focused()); ++i) {
            seen += d.focused();
            QTest::keyClick(d.control(d.focused()), Qt::Key_Tab);
        }
        const QStringList work = {
            "SystemIDBox",       "SUModelNumberBox", "Qualifier2Box",  "MTESystemIDBox", "MTEQualifier2Box",
            "ModeBox",           "UpperLimitBox",    "PctInTolBox",    "TwoSideOption",  "MTEOffsetBox",
            "MTEFixedOffsetBox", "MTEPctInTolBox",   "ComputeResults", "cmd_Baseline"};
        qsizetype at = -1;
        for (const QString& name : work) {
            QVERIFY2(seen.indexOf(name) > at, qPrintable(name + " in " + seen.join(' ')));
            at = seen.indexOf(name);
        }
    }

    void refusedEntriesRestoreAndKeepFocus_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        QTest::addRow("percentage") << "PctInTolBox"
                                    << "100.1"
                                    << "Illegal Entry"
                                    << "The Subject Parameter % In-Tolerance must be greater than 0 and less "
                                       "than or equal to 100.";
        QTest::addRow("limit") << "LowerLimitBox"
                               << "-0.5"
                               << "Lower Tolerance Offset"
                               << "Must be greater than or equal to zero.";
    }
    void refusedEntriesRestoreAndKeepFocus() {
        QFETCH(QString, box);
        QFETCH(QString, typed);
        QFETCH(QString, title);
        QFETCH(QString, message);
        Desk& d = *desk_;
        enterTwoSided(d);
        const QString before = d.text(box);
        d.boxes.expectBox(title, message);
        d.enter(box, typed);
        QCOMPARE(d.text(box), before);
        QCOMPARE(d.focused(), box);
        QCOMPARE(d.control<QLineEdit>(box)->selectedText(), before);
        // The same text is refused again, and leaving without a change is not.
        d.boxes.expectBox(title, message);
        d.enter(box, typed);
        QTest::keyClick(d.control(box), Qt::Key_Tab);
        QVERIFY(d.focused() != box);
    }

    void aRefusedEntryStopsTheCommand() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.type("PctInTolBox", "101");
        d.boxes.expectBox("Illegal Entry",
                          "The Subject Parameter % In-Tolerance must be greater than 0 and less "
                          "than or equal to 100.");
        d.choose("mnu_File_Save"); // no file dialog comes
        QCOMPARE(d.focused(), QString("PctInTolBox"));
        QCOMPARE(d.text("PctInTolBox"), QString("95.0000"));
    }

    void undoTakesBackTheText() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.type("ModeBox", "20.00");
        d.choose("mnu_Edit_Undo");
        QCOMPARE(d.focused(), QString("ModeBox"));
        QVERIFY(!d.control<QLineEdit>("ModeBox")->isUndoAvailable());
        QVERIFY2(d.text("ModeBox") != "20.00", qPrintable(d.text("ModeBox")));
        d.enter("ModeBox", "30.00");
        QCOMPARE(d.record.SU_Mode, 30.0);
        // Once it is committed and has got its picture, the text before it comes back, the record by leaving.
        d.type("UpperLimitBox", ".25");
        d.click("optOffsets_1");
        QCOMPARE(d.text("UpperLimitBox"), QString("0.25"));
        d.choose("mnu_Edit_Undo");
        QCOMPARE(d.text("UpperLimitBox"), QString("0.50"));
        QCOMPARE(d.record.SU_UpperOffset, 0.25);
        QTest::keyClick(d.control("UpperLimitBox"), Qt::Key_Tab);
        QCOMPARE(d.record.SU_UpperOffset, 0.5);
    }

    void editMenuWorksOnTheActiveBox() {
        Desk& d = *desk_;
        d.type("SystemIDBox", "Granite");
        d.control<QLineEdit>("SystemIDBox")->selectAll();
        d.choose("mnu_Edit_Cut");
        QCOMPARE(d.text("SystemIDBox"), QString());
        d.choose("mnu_Edit_Paste");
        d.choose("mnu_Edit_Paste");
        QCOMPARE(d.text("SystemIDBox"), QString("GraniteGranite"));
        QCOMPARE(d.record.SU_Manufacturer, std::string("GraniteGranite"));
        d.control<QLineEdit>("SystemIDBox")->selectAll();
        d.choose("mnu_Edit_Delete");
        QCOMPARE(d.record.SU_Manufacturer, std::string());
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::EntryTest)
#include "test_entry.moc"
