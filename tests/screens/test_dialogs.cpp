// The screens that the main screen opens: false accept option, baseline, ratio options, progress, help.
#include "tests/screens/support/Desk.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
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
    static constexpr const char* changesTitle = "Changes Made";
    static constexpr const char* changesText = "Do you want to retain changes?";

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

    void optionChangeCanBeTakenBack() {
        Desk& d = *desk_;
        computed();
        d.boxes.expectScreen("FAFORM", [this](QWidget& screen) {
            press("ProducerRiskOption", screen);
            desk_->boxes.expectBox(keepTitle, keepText, "Cancel");
            press("cmd_Close", screen);
            QVERIFY(screen.isVisible());
            desk_->boxes.expectBox(keepTitle, keepText, "No");
            press("cmd_Close", screen);
        });
        d.choose("FalseAcceptOptions");
        QCOMPARE(d.record.FalseAcceptOption, 0);
    }

    void optionAsDefault() {
        Desk& d = *desk_;
        d.boxes.expectScreen("FAFORM", [this](QWidget& screen) {
            press("ProducerRiskOption", screen);
            press("Chk_SetDefault", screen);
            press("cmd_Close", screen);
        });
        d.boxes.expectBox(keepTitle, keepText, "Yes");
        d.boxes.expectBox(noticeTitle, noticeText);
        d.boxes.expectScreen("BaselineAnalysis", [this](QWidget& screen) { press("cmd_OK", screen); });
        // Nothing is entered yet, so the compute that follows has nothing to work on.
        d.boxes.expectBox("Insufficient Data Available", "No data have been entered for analysis.");
        d.choose("FalseAcceptOptions");
        QCOMPARE(d.boxes.faults(), QString());
        QVERIFY(fileContent(d.settings.path()).find("FalseAcceptConvention") != std::string::npos);
    }

    void z540Baseline() {
        Desk& d = *desk_;
        d.boxes.expectScreen("BaselineAnalysis", [this](QWidget& screen) {
            Desk& on = *desk_;
            press("optZ540Baseline", screen);
            QCOMPARE(on.text("BaseAccRat1", &screen), QString("4.00"));
            QCOMPARE(on.text("BaselinePctInTol1", &screen), QString("96.028"));
            QCOMPARE(on.text("BaselinePctInTol2", &screen), QString("85.000"));
            QVERIFY(on.control<QLineEdit>("BaseAccRat1", &screen)->isReadOnly());
            press("cmd_OK", screen);
        });
        d.choose("BaselineAnalysisScreen");
        QCOMPARE(d.record.UserOption, std::string("Z540"));
        QCOMPARE(d.record.Base_MTEPctInTol, 96.028);
        QCOMPARE(d.text("BaselineAccRat1Box"), QString("4.00"));
    }

    void baselineFiguresAreChecked() {
        Desk& d = *desk_;
        const char* range = "Must be between 0.0001% and 99.9999%.";
        d.boxes.expectScreen("BaselineAnalysis", [=, this](QWidget& screen) {
            Desk& on = *desk_;
            on.boxes.expectBox("Inappropriate MTE % In-tolerance", range);
            on.enter("BaselinePctInTol1", "100", &screen);
            on.enter("BaselinePctInTol1", "85", &screen);
            on.enter("BaseAccRat1", "0", &screen);
            on.boxes.expectBox("Baseline Accuracy Ratio", "Accuracy Ratio Entry must be greater than Zero");
            press("ComputeBaselineResults", screen);
            on.enter("BaseAccRat1", "5", &screen);
            press("ComputeBaselineResults", screen);
            on.boxes.expectBox(changesTitle, changesText, "Cancel");
            press("mnu_Exit", screen);
            QVERIFY(screen.isVisible());
            on.boxes.expectBox(changesTitle, changesText, "No");
            press("mnu_Exit", screen);
        });
        d.choose("BaselineAnalysisScreen");
        QCOMPARE(d.record.Base_AccRatNum, 4.0);
    }

    void defaultBaselineIsStoredOnlyWhenTold() {
        Desk& d = *desk_;
        d.boxes.expectScreen("BaselineAnalysis", [this](QWidget& screen) {
            Desk& on = *desk_;
            on.control<QAction>("mnu_ShowDefaults", &screen)->trigger();
            QCOMPARE(on.control<QAction>("mnu_ShowDefaults", &screen)->text(), QString("Hide &Defaults"));
            on.boxes.expectBox("Default Baseline Procedure",
                               "To change the default baseline, enter changes in the analysis baseline and "
                               "click 'Set default baseline.'");
            QTest::keyClicks(on.control("DefAccRat1", &screen), "7");
            QCOMPARE(on.text("DefAccRat1", &screen), QString("4.00"));
            on.enter("BaseAccRat1", "6", &screen);
            press("ComputeBaselineResults", screen);
            press("Cmd_SetDefaultBaseline", screen);
            QCOMPARE(on.text("DefAccRat1", &screen), QString("6.00"));
            QVERIFY(fileContent(on.settings.path()).find("BaselineDefaults") == std::string::npos);
            press("cmd_OK", screen);
        });
        d.click("cmd_Baseline");
        QVERIFY(fileContent(d.settings.path()).find("BaselineDefaults") != std::string::npos);
        QCOMPARE(d.record.Base_AccRatNum, 6.0);
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

    void ratioOptions() {
        Desk& d = *desk_;
        computed();
        d.boxes.expectScreen("EqRatio", [this](QWidget& screen) {
            press("opt_Compute_1", screen);
            press("mnu_Exit_1", screen);
        });
        d.boxes.expectBox(changesTitle, changesText, "No");
        d.choose("EqAccRatOptions");
        QVERIFY(d.record.ComputeEqRatio);
        d.boxes.expectScreen("EqRatio", [this](QWidget& screen) {
            press("OptFalseReject", screen);
            press("mnu_Exit_0", screen);
        });
        d.choose("EqAccRatOptions");
        QVERIFY(!d.record.EqRatioOnFalseAccept);
        QVERIFY(d.control("pnl_RiskLabel_1")->font().bold() && !d.control("pnl_RiskLabel_0")->font().bold());
    }

    void eachDialogBoxTellsWhatItIs() {
        Desk& d = *desk_;
        const auto told = [](QWidget& screen) {
            for (const QLineEdit* box : screen.findChildren<QLineEdit*>())
                QVERIFY2(!box->objectName().isEmpty() && !box->toolTip().isEmpty() &&
                             !box->accessibleName().isEmpty(),
                         qPrintable(screen.objectName() + " " + box->objectName()));
            qobject_cast<QDialog*>(&screen)->reject();
        };
        for (const char* item : {"BaselineAnalysisScreen", "FalseAcceptOptions", "EqAccRatOptions"}) {
            const QHash<QString, QString> names = {{"BaselineAnalysisScreen", "BaselineAnalysis"},
                                                   {"FalseAcceptOptions", "FAFORM"},
                                                   {"EqAccRatOptions", "EqRatio"}};
            d.boxes.expectScreen(names[item], told);
            d.choose(item);
        }
    }

    void helpKeyOpensThePageOfTheScreenInFront() {
        Desk& d = *desk_;
        d.boxes.expectScreen("EqRatio", [&d](QWidget& screen) {
            QTest::keyClick(d.control("BeepOn", &screen), Qt::Key_F1);
            QVERIFY(d.control<QTextBrowser>("helpText", &screen)
                        ->toPlainText()
                        .startsWith("Equivalent Accuracy Ratio"));
            qobject_cast<QDialog*>(&screen)->reject();
        });
        d.choose("EqAccRatOptions");
        d.choose("mnu_HelpContents"); // the dialogue's help has gone with it
        QVERIFY(d.control<QTextBrowser>("helpText")->toPlainText().startsWith("Metrisk Help"));
        d.control("HelpWindow")->close();
    }

    void helpOpensItsPage() {
        Desk& d = *desk_;
        d.choose("mnu_HelpContents");
        auto* text = d.control<QTextBrowser>("helpText");
        QVERIFY(text->isVisible());
        QVERIFY(!text->toPlainText().isEmpty());
        d.control("HelpWindow")->close();
    }
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::DialogTest)
#include "test_dialogs.moc"
