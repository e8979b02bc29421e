// The screens that the main screen opens: false accept option, baseline, ratio options, progress, help.
#include "desk/options/EqRatioScreen.h"
#include "persistence/Fingerprint.h"
#include "tests/window/support/Desk.h"
#include "window/kit/Widgets.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTextBrowser>
#include <QTimer>

namespace metrisk::testing {

class DialogTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

    void press(const QString& button, QWidget& within) { desk_->click(button, &within); }

    /// An analysis whose search takes a while: its % in-tolerances differ from the baseline's.
    void computed() {
        enterTwoSided(*desk_);
        desk_->enter("LowerLimitBox", "0.5");
        desk_->click("ComputeResults");
        QCOMPARE(desk_->boxes.faults(), QString());
        QVERIFY(desk_->record.RisksComputed);
    }

    static constexpr const char* keepTitle = "Change Made";
    static constexpr const char* keepText = "Do you want to keep the new risk option?";
    static constexpr const char* noticeTitle = "False Accept Risk Option Change";
    static constexpr const char* noticeText = "Changing the False Accept Risk option will cause a\n"
                                              "recalculation of the Baseline False Accept Risk.\n"
                                              "\n"
                                              "The Computed False Accept Risk, and the Equivalent\n"
                                              "Accuracy Ratio will automatically be updated when\n"
                                              "the Baseline Risk Analysis screen is closed.";

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    void producerSwitch() {
        Desk& d = *desk_;
        computed();
        const QString accept = d.text("AcceptRisk");
        const QString baseline = d.text("BaseAcceptRisk");
        const std::string settings = fileContent(d.settings.path());
        d.boxes.expectScreen("FAFORM", [this](QWidget& screen) {
            press("ProducerRiskOption", screen);
            press("cmd_Close", screen);
        });
        d.boxes.expectBox(keepTitle, keepText, "Yes");
        d.boxes.expectBox(noticeTitle, noticeText);
        d.boxes.expectScreen("BaselineAnalysis", [this](QWidget& screen) {
            QCOMPARE(desk_->text("pnl_FAOption", &screen), QString("Producer Option"));
            press("cmd_OK", screen);
        });
        d.choose("FalseAcceptOptions");
        QCOMPARE(d.boxes.faults(), QString());
        QCOMPARE(d.text("Heading_0"), QString("COMPUTED RISKS (Producer Option)"));
        QCOMPARE(d.text("Heading_1"), QString("BASELINE RISKS (Producer Option)"));
        QVERIFY2(d.text("AcceptRisk") != accept, qPrintable(accept));
        QVERIFY2(d.text("BaseAcceptRisk") != baseline, qPrintable(baseline));
        QCOMPARE(fileContent(d.settings.path()), settings); // no default was asked for
    }

    void cancelInTheSearchKeepsTheRisks() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.4");
        // Looks at every turn of the event loop: the search is faster than a clock's tick.
        bool pressed = false;
        QTimer press;
        connect(&press, &QTimer::timeout, this, [&] {
            QWidget* screen = QApplication::activeModalWidget();
            if (!screen || screen->objectName() != "Computing") return;
            if (pressed || !d.control("Meter", screen)->isVisible()) return;
            QVERIFY(d.control("Cmd_Cancel", screen)->isEnabled());
            d.control<QPushButton>("Cmd_Cancel", screen)->click();
            QVERIFY(!d.control("Cmd_Cancel", screen)->isEnabled());
            pressed = true;
        });
        press.start(0);
        d.click("ComputeResults");
        QCOMPARE(d.boxes.faults(), QString());
        QVERIFY(pressed);
        QCOMPARE(d.record.EqAccRat, 0.0);
        QVERIFY(d.record.FalseAcceptRisk > 0);
        QVERIFY(d.control("ComputeResults")->isEnabled());
    }

    void remarksAreTypedInLines() {
        Desk& d = *desk_;
        d.boxes.expectScreen("PrintOpt", [&](QWidget& options) {
            QTest::keyClicks(d.control("txt_Remarks", &options), "one\rtwo");
            d.click("cmd_OK", &options);
        });
        d.choose("PrintOptions");
        QCOMPARE(d.record.Remarks, std::string("one\ntwo"));
    }

    void aReadingIsJudgedWhileItIsTyped() {
        Desk& d = *desk_;
        enterTwoSided(d);
        const Analysis before = d.record;
        d.boxes.expectScreen("Reading", [&](QWidget& screen) {
            auto* box = d.control<QLineEdit>("txt_Reading", &screen);
            d.settle(&screen);
            QCOMPARE(screen.focusWidget(), box);
            const auto verdict = [&] { return d.text("Lbl_Verdict", &screen); };
            QTest::keyClicks(box, "10.1");
            QVERIFY2(verdict().endsWith("Pass"), qPrintable(verdict()));
            QTest::keyClick(box, Qt::Key_Return);
            d.settle(&screen);
            QTest::keyClicks(box, "99"); // over what is selected
            QVERIFY2(verdict().endsWith("Fail"), qPrintable(verdict()));
            QTest::keyClick(box, Qt::Key_Return);
            QCOMPARE(d.control<QTableView>("tbl_History", &screen)->model()->rowCount(), 2);
            press("cmd_CopySentence", screen);
            QVERIFY(QApplication::clipboard()->text().startsWith("Reading 99"));
            press("cmd_Close", screen);
        });
        d.choose("mnu_Reading");
        QCOMPARE(inputsFingerprint(d.record), inputsFingerprint(before));
    }

    void aRefusedFigureDoesNotKeepFromCancelling() {
        Desk& d = *desk_;
        d.boxes.expectScreen("BaselineAnalysis", [this](QWidget& screen) {
            desk_->type("BaselinePctInTol1", "100", &screen);
            desk_->boxes.expectBox("Inappropriate MTE % In-tolerance",
                                   "Must be between 0.0001% and 99.9999%.");
            press("mnu_Exit", screen);
            QVERIFY(!screen.isVisible());
        });
        d.click("cmd_Baseline");
        QCOMPARE(d.record.Base_MTEPctInTol, 85.0);
    }

    void whatComesUnaskedWaitsForNoScreen() {
        Desk& d = *desk_;
        int done = 0;
        const auto offer = [&] { return d.ui.perform(d.window->model(), [&done] { ++done; }); };
        d.type("ModeBox", "12.5"); // not left yet
        QVERIFY(offer());
        QCOMPARE(d.record.SU_Mode, 12.5);
        d.boxes.expectScreen("EqRatio", [&](QWidget& screen) {
            QVERIFY(!offer());
            qobject_cast<QDialog*>(&screen)->reject();
        });
        d.choose("EqAccRatOptions");
        d.boxes.answerAll = [&](QWidget& box) {
            QVERIFY(!offer());
            qobject_cast<QDialog*>(&box)->reject();
        };
        d.window->close();
        d.boxes.answerAll = nullptr;
        QVERIFY(!d.ui.perform(*std::make_unique<EqRatioScreen>(d.session), [&done] { ++done; }));
        QCOMPARE(done, 1);
    }

    void theDefaultSideIsShownOnDemand() {
        Desk& d = *desk_;
        d.boxes.expectScreen("BaselineAnalysis", [this](QWidget& screen) {
            Desk& on = *desk_;
            QVERIFY(!on.control("DefAccRat1", &screen)->isVisible());
            on.control<QAction>("mnu_ShowDefaults", &screen)->trigger();
            QCOMPARE(on.control<QAction>("mnu_ShowDefaults", &screen)->text(), QString("Hide &Defaults"));
            on.boxes.expectBox("Default Baseline Procedure",
                               "To change the default baseline, enter changes in the analysis baseline and "
                               "click 'Set default baseline.'");
            QTest::keyClicks(on.control("DefAccRat1", &screen), "7");
            QCOMPARE(on.text("DefAccRat1", &screen), QString("4.00"));
            screen.close();
        });
        d.click("cmd_Baseline");
    }

    void helpShowsThePageOfTheScreenInFrontAndOutlivesIt() {
        Desk& d = *desk_;
        const auto helpText = [] {
            for (QWidget* top : QApplication::topLevelWidgets())
                if (auto* text = top->findChild<QTextBrowser*>("helpText"); text && top->isVisible())
                    return text->toPlainText();
            return QString();
        };
        d.boxes.expectScreen("EqRatio", [&](QWidget& screen) {
            QTest::keyClick(d.control("BeepOn", &screen), Qt::Key_F1);
            QVERIFY(helpText().startsWith("Equivalent Accuracy Ratio"));
            qobject_cast<QDialog*>(&screen)->reject();
        });
        d.choose("EqAccRatOptions");
        QVERIFY(!helpText().isEmpty());
        // A box over the main screen is no child of the help window, which may be closed while it stands.
        bool asked = false;
        d.boxes.answerAll = [&](QWidget& box) {
            if (asked) return;
            asked = true;
            QTest::keyClick(&box, Qt::Key_F1);
            QVERIFY(helpText().contains("message", Qt::CaseInsensitive));
            d.help.close();
            qobject_cast<QDialog*>(&box)->reject();
        };
        d.window->close();
        d.boxes.answerAll = nullptr;
        QVERIFY(asked && d.window->isVisible());
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::DialogTest)
#include "test_dialogs.moc"
