// Every screen is whole, told to those who do not see it, and readable in light and dark.
#include "drawing/PaperColours.h"
#include "tests/window/support/Desk.h"
#include "tests/window/support/EveryScreen.h"
#include "window/kit/ColourRoles.h"
#include "window/kit/ScreenBinder.h"
#include "window/kit/ToolIcon.h"
#include "window/kit/WhatsThis.h"
#include "window/kit/Widgets.h"
#include "window/kit/WorksheetDialog.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <cmath>
#include <tuple>

namespace metrisk::testing {

class LookTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

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

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
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
            // Plots, previews and menus have no act but to be looked at.
            const QStringList withoutAct{"Print_SS", "ColorScheme", "RiskMap",
                                         "SUPlot",   "MTEPlot",     "ErrorPlot"};
            QVERIFY2(primary == (withoutAct.contains(screen->name) ? 0 : 1), screen->name);
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

    void boxesOfTheGuardbandsStandBelowEachOther() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.boxes.expectScreen("GuardbandAnalysis", [&](QWidget& window) {
            for (const auto& column :
                 {QStringList{"ModeBox", "UpperMultiplierBox", "txt_kFactor_0", "UpperGuardbandBox",
                              "FARiskBox"},
                  {"pnl_ProcessUncertainty", "LowerMultiplierBox", "txt_kFactor_1", "LowerGuardbandBox"}}) {
                QSet<int> lefts, widths;
                for (const QString& name : column) {
                    auto* box = d.control<QLineEdit>(name, &window);
                    lefts += box->mapTo(&window, QPoint()).x();
                    widths += box->width();
                    QVERIFY2(box->fontMetrics().horizontalAdvance("-0.0005556232929") + 14 <= box->width(),
                             qPrintable(name));
                }
                QVERIFY2(lefts.size() == 1 && widths.size() == 1, qPrintable(column.join(' ')));
            }
            qobject_cast<QDialog*>(&window)->reject();
        });
        d.choose("CtrlGuardband");
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

    void plotsAreReadable() {
        const auto rgb = [](Colour c) { return QColor(c.red, c.green, c.blue); };
        for (const auto& [what, colour, least] : {std::tuple{"false accept", plotColours::falseAccept, 4.5},
                                                  {"false reject", plotColours::falseReject, 4.5},
                                                  {"limits", plotColours::limit, 4.5},
                                                  {"curves", plotColours::curve, 4.5},
                                                  {"remarks", plotColours::second, 4.5}})
            for (const ColourRoles* roles : {&lightRoles(), &darkRoles()}) {
                const Colour paper{static_cast<std::uint8_t>(roles->base.red()),
                                   static_cast<std::uint8_t>(roles->base.green()),
                                   static_cast<std::uint8_t>(roles->base.blue())};
                const double a = luminance(rgb(colour.on(paper))) + 0.05, b = luminance(roles->base) + 0.05;
                QVERIFY2(std::max(a, b) / std::min(a, b) >= least, what);
            }
    }

    /// Whoever hides it has the room at the next start as well, and the keyboard in the first box that is
    /// seen.
    void identificationIsHiddenOnWish() {
        Desk& d = *desk_;
        QCOMPARE(d.focused(), QString("ModeBox"));
        const int before = d.control("ComputeResults")->mapTo(d.window.get(), QPoint()).y();
        d.choose("mnu_HideIdentification");
        d.settle();
        QVERIFY(d.control("pnl_IDData")->isHidden());
        QVERIFY(d.control("ComputeResults")->mapTo(d.window.get(), QPoint()).y() < before);
        d.open();
        d.settle();
        QVERIFY(d.control("pnl_IDData")->isHidden());
        QVERIFY(d.control<QAction>("mnu_HideIdentification")->isChecked());
        d.choose("mnu_HideIdentification");
        QVERIFY(!d.control("pnl_IDData")->isHidden());
    }

    /// An icon has other colours on dark ground than on light.
    void iconsFollowTheGround() {
        const QPalette before = QApplication::palette();
        QImage drawn[2];
        for (const bool dark : {false, true}) {
            QApplication::setPalette(paletteOf(dark ? darkRoles() : lightRoles()));
            drawn[dark] = toolIcon("open").pixmap(20, 20).toImage();
        }
        QApplication::setPalette(before);
        QVERIFY(drawn[0] != drawn[1] && !drawn[0].isNull());
        QVERIFY(toolIcon("no such image").isNull());
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
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::LookTest)
#include "test_look.moc"
