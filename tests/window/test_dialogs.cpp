// The screens that the main screen opens: false accept option, baseline, ratio options, progress, help.
#include "desk/options/EqRatioScreen.h"
#include "desk/plots/PlotDesk.h"
#include "desk/reports/ReportDesk.h"
#include "desk/sweeps/GuardPlot.h"
#include "drawing/DrawingSurface.h"
#include "tests/window/support/Desk.h"
#include "tests/window/support/EveryScreen.h"
#include "window/kit/ColourRoles.h"
#include "window/kit/DialogOver.h"
#include "window/kit/PrintPicture.h"
#include "window/kit/WhatsThis.h"
#include "window/kit/Widgets.h"
#include "window/reports/QtReportPrinter.h"

#include <QAccessible>
#include <QFile>
#include <QFileInfo>
#include <QHelpEvent>
#include <QVBoxLayout>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QPushButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <QToolTip>
#include <cmath>

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

    static double luminance(const QColor& color) {
        const auto part = [](double c) {
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    }

    /// The letters of menu bar, buttons and labels that stand for more than one thing.
    static QStringList lettersGivenTwice(const Worksheet& screen) {
        QStringList letters, twice;
        const auto take = [&](const std::string& caption) {
            const QString letter = QKeySequence::mnemonic(qt(caption)).toString();
            if (!letter.isEmpty() && letters.contains(letter)) twice += letter;
            letters += letter;
        };
        for (const MenuItem& item : screen.menus) take(item.caption);
        for (const Control* control : screen.controls())
            if (dynamic_cast<const Button*>(control) || dynamic_cast<const Label*>(control))
                take(control->text);
        return twice;
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

    /// Every control of the program's screens has its widget, and every box says what it is.
    void everyScreenIsWhole() {
        Desk& d = *desk_;
        const EveryScreen screens(d);
        // Run and Notes; captions of the menu bar and of boxes that users know.
        const QStringList byTradition{"Alt+N", "Alt+G", "Alt+R", "Alt+C"};
        for (const auto& screen : screens.all()) {
            QWidget window;
            auto* layout = new QVBoxLayout(&window);
            const bool isMain = screen == screens.all().front();
            layout->addWidget(isMain ? layoutMainScreen(WidgetMaker(*screen))
                                     : layoutOf(screen->name, WidgetMaker(*screen)));
            ScreenBinder binder(window, *screen);
            QCOMPARE(binder.unpaired(), QStringList());
            int primary = 0;
            for (const auto* button : window.findChildren<QPushButton*>())
                primary += button->property("primary").toBool();
            QVERIFY2(primary <= 1, screen->name);
            QVERIFY2(QFile::exists(QString(":/help/%1.html").arg(screen->helpPage)), screen->helpPage);
            for (Control* control : screen->controls())
                if (takesEntry(*control))
                    QVERIFY2(!whatsThis(*screen, *control).isEmpty(),
                             qPrintable(QString(screen->name) + "." + control->name));
            for (const QString& letter : lettersGivenTwice(*screen))
                QVERIFY2(byTradition.contains(letter), qPrintable(screen->name + (": " + letter)));
            for (QLineEdit* box : window.findChildren<QLineEdit*>()) {
                if (box->objectName() == "txt_LostFocus") continue;
                QAccessibleInterface* told = QAccessible::queryAccessibleInterface(box);
                const QString name = told->text(QAccessible::Name);
                QVERIFY2(!name.isEmpty() && !told->text(QAccessible::Description).isEmpty(),
                         qPrintable(QString(screen->name) + " " + box->objectName()));
            }
        }
    }

    void coloursAreReadable() {
        struct Pair {
            const char* what;
            QColor ColourRoles::*text;
            QColor ColourRoles::*ground;
            double least;
        };
        using R = ColourRoles;
        const Pair pairs[] = {{"text on windows", &R::text, &R::window, 4.5},
                              {"text in boxes", &R::text, &R::base, 4.5},
                              {"text in locked boxes", &R::text, &R::readOnly, 4.5},
                              {"captions", &R::second, &R::window, 4.5},
                              {"disabled", &R::disabled, &R::window, 3},
                              {"hints", &R::disabled, &R::base, 3},
                              {"disabled in locked boxes", &R::disabled, &R::readOnly, 3},
                              {"frames of boxes", &R::field, &R::base, 3},
                              {"results", &R::resultText, &R::result, 4.5},
                              {"the act of a screen", &R::onAccent, &R::accent, 4.5},
                              {"focus", &R::accent, &R::window, 3},
                              {"links", &R::link, &R::base, 4.5},
                              {"good", &R::good, &R::window, 4.5},
                              {"warnings", &R::warn, &R::window, 4.5},
                              {"bad", &R::bad, &R::window, 4.5}};
        for (const ColourRoles* roles : {&lightRoles(), &darkRoles()})
            for (const Pair& pair : pairs) {
                const double a = luminance(roles->*pair.text) + 0.05,
                             b = luminance(roles->*pair.ground) + 0.05;
                QVERIFY2(std::max(a, b) / std::min(a, b) >= pair.least,
                         qPrintable(
                             QString("%1, %2").arg(pair.what).arg(roles == &darkRoles() ? "dark" : "light")));
            }
    }

    /// One colour of the user's on a dark desktop, then none.
    void aSchemeIsReadableOnADarkDesktop() {
        Desk& d = *desk_;
        const QPalette before = QApplication::palette();
        QApplication::setPalette(paletteOf(darkRoles()));
        const auto readable = [&](const QWidget& widget, QPalette::ColorRole text,
                                  QPalette::ColorRole ground) {
            const double a = luminance(widget.palette().color(QPalette::Active, text)) + 0.05;
            const double b = luminance(widget.palette().color(QPalette::Active, ground)) + 0.05;
            return std::max(a, b) / std::min(a, b) > 4.5;
        };
        ColorScheme scheme;
        scheme.BackColor_Metrisk = 0xE0F0D0;
        for (const ColorScheme& shown : {ColorScheme{}, scheme}) {
            d.session.desktop->looks->ApplyColorScheme(shown);
            d.settle();
            QTextBrowser links;
            QPalette ofLinks = links.palette();
            ofLinks.setColor(QPalette::Text, QColor(linkStyle(ofLinks).section(' ', 3).left(7)));
            links.setPalette(ofLinks);
            QVERIFY2(readable(links, QPalette::Text, QPalette::Base), qPrintable(linkStyle(ofLinks)));
            for (const QWidget* widget : d.window->findChildren<QWidget*>()) {
                const QByteArray name = widget->objectName().toUtf8();
                if (qobject_cast<const QLineEdit*>(widget))
                    QVERIFY2(readable(*widget, QPalette::Text, QPalette::Base), name);
                else if (qobject_cast<const QPushButton*>(widget))
                    QVERIFY2(readable(*widget, QPalette::ButtonText, QPalette::Button), name);
                else
                    QVERIFY2(readable(*widget, QPalette::WindowText, QPalette::Window), name);
            }
        }
        const auto ground = [&](const char* box) { return d.control(box)->palette().color(QPalette::Base); };
        QCOMPARE(ground("AcceptRisk"), qtColor(scheme.BackColor_ResultsBox));
        QCOMPARE(ground("pnl_UncRatio"), qtColor(scheme.BackColor_Metrisk));
        d.session.desktop->looks->ApplyColorScheme({});
        d.settle();
        QCOMPARE(ground("AcceptRisk"), rolesFor(QApplication::palette()).result);
        QApplication::setPalette(before);
    }

    void reportOnPaperAndOnScreen() {
        Desk& d = *desk_;
        computed();
        QPrinter printer(QPrinter::HighResolution);
        printer.setFullPage(true);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(d.path("report.pdf"));
        std::size_t pages = 0;
        const auto compose = [&](DrawingSurface& metrics, const PageSetup& page) {
            auto report = reportPages(d.session, {.Report_IncludePlots = true}, page, metrics, true);
            pages = report ? report->pages.size() : 0;
            return report;
        };
        QVERIFY(QtReportPrinter::printOn(printer, compose));
        QVERIFY(pages >= 2 && QFileInfo(d.path("report.pdf")).size() > 5000);
        d.boxes.expectScreen("Print_SS", [&](QWidget& preview) {
            const QImage page = d.control("vs_Print", &preview)->grab().toImage();
            QCOMPARE(page.pixelColor(page.width() / 2, 20), QColor(Qt::white));
            QVERIFY(std::abs(page.width() - 794) <= 1); // A4 as it is on paper
            QCOMPARE(preview.size(),
                     QSize(900, 680).boundedTo(preview.screen()->availableSize() - QSize(24, 24)));
            auto* bar = preview.findChild<QMenuBar*>();
            const QPoint over = bar->actionGeometry(preview.findChild<QAction*>("mnu_Export")).center();
            QHelpEvent asked(QEvent::ToolTip, over, bar->mapToGlobal(over));
            QCoreApplication::sendEvent(bar, &asked);
            QVERIFY(QToolTip::text().contains("PDF") && QToolTip::text().contains("HTML"));
            preview.findChild<QAction*>("mnu_Page_Larger")->trigger();
            QCOMPARE(d.control("vs_Print", &preview)->minimumWidth() > 300, true);
            preview.findChild<QAction*>("mnu_Copy")->trigger();
            QVERIFY(!QApplication::clipboard()->image().isNull());
            preview.findChild<QAction*>("mnu_Exit")->trigger();
        });
        d.choose("mnu_Preview");
        QCOMPARE(d.boxes.faults(), QString());
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

    void riskPlotByTheKeyboard() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.5");
        d.boxes.expectScreen("GuardPlot", [&](QWidget& plot) {
            const auto typeInto = [&](const char* name, const char* text, Qt::Key last) {
                auto* box = d.control<QLineEdit>(name, &plot);
                box->setFocus();
                QTest::keyClicks(box, text);
                QTest::keyClick(box, last);
            };
            typeInto("LowerLimitBox", "80", Qt::Key_Return);
            QTRY_COMPARE(plot.focusWidget()->objectName(), QString("UpperLimitBox"));
            typeInto("UpperLimitBox", "9", Qt::Key_Escape);
            QVERIFY(d.text("UpperLimitBox", &plot).isEmpty() && plot.isVisible());
            typeInto("UpperLimitBox", "95", Qt::Key_Return);
            QCOMPARE(d.record.PlotPointCount, 11);
            d.control<QAbstractButton>("chk_SmoothCurve", &plot)->click();
            const auto names = [&] { return d.control("Graph1", &plot)->accessibleName(); };
            QTRY_VERIFY2(names().contains("Greatest FA"), qPrintable(names()));
            plot.findChild<QAction*>("mnu_CopyData")->trigger();
            QVERIFY(QApplication::clipboard()->text().startsWith("MTE Pct In-tolerance\n"));
            plot.resize(0, 0);
            typeInto("LowerLimitBox", "7", Qt::Key_Escape);
            QVERIFY(plot.isVisible());
            typeInto("LowerLimitBox", "", Qt::Key_Escape);
            QVERIFY2(!plot.isVisible(), "a second Escape leaves the plot");
        });
        d.choose("mnu_Plot_Risk_1");
        d.boxes.expectScreen("RiskMap", [&](QWidget& map) {
            const auto name = [&] { return d.control("pic_Map", &map)->accessibleName(); };
            QTRY_VERIFY2(name().startsWith("False Accept Risk"), qPrintable(name()));
            auto* slider = d.control<QSlider>("sld_Multiplier", &map);
            QTest::keyClick(slider, Qt::Key_PageUp);
            QVERIFY(d.text("Lbl_Multiplier", &map) != "Guardband Multiplier: 1.00");
            d.control<QAbstractButton>("cmd_Present", &map)->click();
            QCOMPARE(d.text("Lbl_Multiplier", &map), QString("Guardband Multiplier: 1.00"));
            map.close();
        });
        d.choose("mnu_Plot_RiskMap");
    }

    void printsWhereItCan() {
        GuardPlot plot(desk_->session, Swept::Multiplier);
        QTemporaryDir folder;
        QPrinter printer;
        printer.setOutputFileName(folder.filePath("no/such/folder.pdf"));
        QVERIFY(!printPicture(printer, plot.Graph1));
        plot.Graph1.draw([](DrawingSurface& surface) { surface.Print("text"); });
        QVERIFY(!printPicture(printer, plot.Graph1));
        QPrinter paper(QPrinter::HighResolution);
        paper.setOutputFileName(folder.filePath("page.pdf"));
        QVERIFY(printPicture(paper, plot.Graph1));
        QVERIFY(QFileInfo(folder.filePath("page.pdf")).size() > 500);
    }

    void plotsStandSideBySide() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.5");
        const auto plot = [](const char* name) {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->objectName() == name && window->isVisible()) return window;
            return static_cast<QWidget*>(nullptr);
        };
        // By the window itself, as a mouse does it: one that is blocked takes no click.
        const auto opens = [](QWidget& window, const char* name) {
            auto* bar = window.findChild<QMenuBar*>();
            auto* menu = bar->findChild<QMenu*>(name);
            const QPoint at = bar->mapTo(&window, bar->actionGeometry(menu->menuAction()).center());
            QTest::mouseClick(window.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
            const bool opened = menu->isVisible();
            menu->close();
            return opened;
        };
        QVERIFY(opens(*d.window, "PlotControl"));
        for (const bool firstLeftFirst : {true, false}) {
            d.boxes.expectScreen("SUPlot", [&](QWidget& su) {
                su.findChild<QAction*>("Cmd_ShowMTEPlot")->trigger();
                QWidget& mte = *plot("MTEPlot");
                const int half = mte.screen()->availableGeometry().width() / 2;
                QTRY_COMPARE(mte.frameGeometry().left(), half);
                QTRY_COMPARE(su.frameGeometry().left(), 0);
                QVERIFY(opens(mte, "mnu_Zoom") && opens(su, "mnu_Zoom") && !opens(*d.window, "PlotControl"));
                mte.findChild<QAction*>("mnu_ZoomFactor_0")->trigger();
                QCOMPARE(d.record.MTEPlot_Zoom, 0.25);
                // What a plot asks for stands over that plot.
                mte.activateWindow();
                QTRY_COMPARE(screenInFront(d.window.get()), &mte);
                su.activateWindow();
                QTRY_COMPARE(screenInFront(d.window.get()), &su);
                (firstLeftFirst ? su : mte).close();
                QTimer::singleShot(200, d.window.get(), [&, firstLeftFirst] {
                    QWidget& left = firstLeftFirst ? mte : su;
                    QVERIFY(left.isVisible() && opens(left, "mnu_Zoom") && !opens(*d.window, "PlotControl"));
                    left.close();
                });
            });
            if (firstLeftFirst) d.boxes.expectScreen("MTEPlot", [](QWidget&) {}); // in the other's place
            d.choose("SUPlotScreenControl");
            QVERIFY(!plot("SUPlot") && !plot("MTEPlot") && opens(*d.window, "PlotControl"));
            QCOMPARE(d.boxes.faults(), QString());
        }
    }

    void escapeLeavesAPlotAfterAMenu() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.boxes.expectScreen("SUPlot", [&](QWidget& plot) {
            d.settle(&plot);
            QTest::keyClick(plot.windowHandle(), Qt::Key_Z, Qt::AltModifier);
            QVERIFY(plot.findChild<QMenu*>("mnu_Zoom")->isVisible());
            // The menu, its bar, the screen.
            for (int i = 0; i < 3 && plot.isVisible(); ++i) {
                QWidget* menu = QApplication::activePopupWidget();
                if (!menu) d.settle(&plot);
                QTest::keyClick((menu ? menu : &plot)->windowHandle(), Qt::Key_Escape);
            }
            QVERIFY(!plot.isVisible());
        });
        d.choose("SUPlotScreenControl");
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
