// Entering an analysis on the main screen.
#include "model/RiskText.h"
#include "shell/Menus.h"
#include "shell/mainscreen/MainDisplay.h"
#include "tests/screens/support/Desk.h"
#include "tests/screens/support/FiniteRecord.h"

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QFile>
#include <QLineEdit>

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
        QCOMPARE(d.window->windowTitle(), QString("(Untitled) - Metrisk"));
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
        QCOMPARE(accept + " " + d.text("AcceptUnits"),
                 QString::fromStdString(riskText({d.record.FalseAcceptRisk, d.record.FalseAcceptUnits},
                                                 d.record.FalseAccept_fmt, d.session.regional) +
                                        " " + d.record.FalseAcceptUnits));
        QVERIFY(d.record.FalseAcceptRisk > 0 && d.record.FalseRejectRisk > 0);
        QCOMPARE(d.text("AccRatEquivalent2Box"), QString("1.00"));

        d.boxes.expectBox("Compute Not Required", "Compute not required.\nNo changes have been made.");
        d.click("ComputeResults");
        QCOMPARE(d.boxes.faults(), QString());

        d.enter("MTEOffsetBox", "0.25");
        QCOMPARE(d.text("AcceptRisk"), accept); // no rule clears results
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

    void eachBoxTellsWhatItIs() {
        for (const QLineEdit* box : desk_->window->findChildren<QLineEdit*>()) {
            if (box->objectName() == "txt_LostFocus") continue;
            QVERIFY2(!box->objectName().isEmpty(), "a box without a name");
            QVERIFY2(!box->accessibleName().isEmpty(), qPrintable(box->objectName()));
            QVERIFY2(!box->toolTip().isEmpty(), qPrintable(box->objectName()));
        }
    }

    void refusedEntriesRestoreAndKeepFocus_data() {
        QTest::addColumn<QString>("box");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("message");
        const QString subject =
            "The Subject Parameter % In-Tolerance must be greater than 0 and less than or "
            "equal to 100.";
        const QString measuring =
            "The Measuring Parameter % In-Tolerance must be greater than 0 and less than 100.";
        const QString negative = "Must be greater than or equal to zero.";
        for (const char* typed : {"0", "-5", "100.1", "1e300", "abc"})
            QTest::addRow("subject %s", typed) << "PctInTolBox" << typed << "Illegal Entry" << subject;
        for (const char* typed : {"0", "100", "-1"})
            QTest::addRow("measuring %s", typed) << "MTEPctInTolBox" << typed << "Illegal Entry" << measuring;
        QTest::addRow("upper") << "UpperLimitBox"
                               << "-0.5"
                               << "Upper Tolerance Offset" << negative;
        QTest::addRow("lower") << "LowerLimitBox"
                               << "-0.5"
                               << "Lower Tolerance Offset" << negative;
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

    void oddTextsInABox_data() {
        QTest::addColumn<QString>("typed");
        QTest::addRow("empty") << "";
        QTest::addRow("letters") << "volts";
        QTest::addRow("signs") << "--+5";
        QTest::addRow("400 digits") << QString(400, '9');
        QTest::addRow("exponent") << "1e999";
        QTest::addRow("right to left") << QString::fromUtf8("\u202e\u0661\u0662\u0663");
        QTest::addRow("combining") << QString::fromUtf8("5\u0301\u0302");
        QTest::addRow("currency") << "$5.00%";
    }
    void oddTextsInABox() {
        QFETCH(QString, typed);
        for (const char* box : {"ModeBox", "UpperLimitBox", "MTEOffsetBox", "MTEPctOfReadingBox"}) {
            Desk d;
            enterTwoSided(d);
            d.boxes.answerAll = [](QWidget& window) { qobject_cast<QDialog*>(&window)->accept(); };
            d.control<QLineEdit>(box)->setFocus();
            d.control<QLineEdit>(box)->selectAll();
            QApplication::clipboard()->setText(typed + "\n");
            QTest::keyClick(d.control(box), typed.isEmpty() ? Qt::Key_Delete : Qt::Key_V,
                            typed.isEmpty() ? Qt::NoModifier : Qt::ControlModifier);
            QTest::keyClick(d.control(box), Qt::Key_Tab);
            d.settle();
            QCOMPARE(firstNonFinite(d.record), QString());
            QVERIFY2(!d.text(box).contains("nan") && !d.text(box).contains("inf"), qPrintable(d.text(box)));
        }
    }

    void singleSidedWithPhysicalLimit() {
        Desk& d = *desk_;
        d.click("SingleUpperOption");
        QVERIFY(!d.control("chk_Symmetric")->isEnabled());
        QVERIFY(d.control<QLineEdit>("LowerLimitBox")->isReadOnly());
        d.enter("ModeBox", "0.4");
        d.enter("UpperLimitBox", "0.15");
        d.enter("PctInTolBox", "90");
        d.enter("MTEOffsetBox", "0.03");
        d.enter("MTEPctInTolBox", "95");
        d.click("PhysLimitRequired");
        QVERIFY(!d.control<QLineEdit>("LowerLimitBox")->isReadOnly());

        d.boxes.expectBox(
            "Missing Physical Limit",
            "You indicated an Physical Limit was to entered,\nbut did not enter one.  Try again.");
        d.click("ComputeResults");
        QCOMPARE(d.focused(), QString("LowerLimitBox"));
        QVERIFY(d.record.FalseAcceptRisk == 0);

        d.enter("LowerLimitBox", "0");
        QVERIFY(d.record.PhysicalLimitEntered);
        d.click("ComputeResults");
        QVERIFY(d.record.FalseAcceptRisk > 0);
        QVERIFY(!d.control("Lbl_Guardbands_1")->isVisible());

        d.click("TwoSideOption");
        QVERIFY(!d.record.PhysicalLimitEntered && !d.isChecked("PhysLimitRequired"));
    }

    void allInToleranceIsAskedOnce() {
        const char* title = "Non-Physical Situation";
        const char* question =
            "You have indicated 100% in-tolerance.\nThis is a non-physical situation.\n"
            "(Note that continuing will cause the computed\nequivalent accuracy ratio to be "
            "based on\nthe false reject risk.)  Continue anyway?";
        Desk& d = *desk_;
        enterTwoSided(d);
        d.click("chk_Symmetric"); // equal sides
        d.boxes.expectBox(title, question, "No");
        d.enter("PctInTolBox", "100");
        QCOMPARE(d.boxes.faults(), QString());
        d.enter("PctInTolBox", "90");
        d.boxes.expectBox(title, question, "Yes");
        d.enter("PctInTolBox", "100");
        d.click("ComputeResults");
        QCOMPARE(d.boxes.faults(), QString());
        QVERIFY(d.record.RisksComputed);
        QCOMPARE(d.record.FalseAcceptRisk, 0.0);
        QCOMPARE(d.text("AcceptRisk").trimmed(), QString("< 1"));
    }

    void limitsOrTolerances() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.click("chk_Symmetric");
        d.click("optOffsets_0");
        QCOMPARE(d.text("UpperLimitBox"), QString("10.50"));
        QCOMPARE(d.text("LowerLimitBox"), QString("9.50"));
        QCOMPARE(d.text("pnl_SUUpper"), QString("Upper Tolerance"));
        d.boxes.expectBox("Upper Tolerance Offset", "Must be greater than or equal to zero.");
        d.enter("UpperLimitBox", "9");
        QCOMPARE(d.text("UpperLimitBox"), QString("10.50"));
        d.enter("UpperLimitBox", "10.75");
        QCOMPARE(d.record.SU_LowerLimit, 9.25);
        d.click("optOffsets_1");
        QCOMPARE(d.text("UpperLimitBox"), QString("0.75"));
        QCOMPARE(d.text("pnl_SUUpper"), QString("Upper Tolerance Limit"));
    }

    void symmetryCopiesTheUpperSide() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.20");
        QCOMPARE(d.record.SU_LowerLimit, 9.8);
        QCOMPARE(d.record.SU_UpperOffset, 0.5);
        d.click("chk_Symmetric");
        QCOMPARE(d.record.SU_LowerOffset, 0.5);
        QCOMPARE(d.text("LowerLimitBox"), d.text("UpperLimitBox"));
        QVERIFY(d.control<QLineEdit>("LowerLimitBox")->isReadOnly());
        QTest::mouseClick(d.control("LowerLimitBox"), Qt::LeftButton);
        QTest::keyClicks(d.control("LowerLimitBox"), "7");
        QCOMPARE(d.text("LowerLimitBox"), d.text("UpperLimitBox"));
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

    void aQuoteBecomesADoublePrime() {
        Desk& d = *desk_;
        d.enter("SUDescriptionBox", "Rule 12\"");
        QCOMPARE(d.text("SUDescriptionBox"), QString::fromUtf8("Rule 12\u2033"));
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::EntryTest)
#include "test_entry.moc"
