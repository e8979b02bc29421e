// Plots and pages in windows of their own: by the keyboard, side by side, on paper.
#include "desk/plots/PlotDesk.h"
#include "desk/reports/ReportDesk.h"
#include "desk/sweeps/GuardPlot.h"
#include "drawing/DrawingSurface.h"
#include "files/PictureFile.h"
#include "plots/DistributionPlots.h"
#include "tests/window/support/Desk.h"
#include "window/kit/DialogOver.h"
#include "window/kit/PrintPicture.h"
#include "window/kit/Widgets.h"
#include "window/reports/QtReportPrinter.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPrinter>
#include <QSlider>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolTip>
#include <cmath>

namespace metrisk::testing {

class PlotWindowsTest final : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<Desk> desk_;

  private slots:
    void init() { desk_ = std::make_unique<Desk>(); }
    void cleanup() {
        QCOMPARE(desk_->boxes.faults(), QString());
        desk_.reset();
    }

    /// Letters, areas and hatchings: what one reader leaves out or puts elsewhere changes whole blocks.
    void aSavedSvgIsReadByOthersAsItWasDrawn() {
        constexpr PictureSize size{640, 480};
        enterTwoSided(*desk_);
        desk_->click("ComputeResults");
        const DistributionPlot plot = subjectPlot(desk_->record, {});
        QVERIFY(plot.falseDecisions);
        const auto saved = [&](PictureFormat format) {
            return QByteArray::fromStdString(pictureBytes(
                format, size, "", [&](DrawingSurface& sheet) { DrawDistributionPlot(sheet, plot, {}); }));
        };
        const QImage drawn =
            QImage::fromData(saved(PictureFormat::Png)).convertToFormat(QImage::Format_RGB32);
        QImage read(drawn.size(), QImage::Format_RGB32);
        read.fill(Qt::white);
        QPainter painter(&read);
        QSvgRenderer(saved(PictureFormat::Svg)).render(&painter);
        painter.end();
        // Letters stand a little elsewhere on a grid of pixels.
        constexpr int block = 32;
        const auto coarse = [&](const QImage& image) {
            return image.scaled(drawn.size() / block, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        };
        const QImage one = coarse(drawn), other = coarse(read);
        int most = 0;
        for (int y = 0; y < one.height(); ++y)
            for (int x = 0; x < one.width(); ++x)
                most = std::max(most, std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))));
        QVERIFY2(most < 32, qPrintable(QString::number(most)));
    }

    void reportOnPaperAndOnScreen() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.5");
        d.click("ComputeResults");
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

    void riskPlotByTheKeyboard() {
        Desk& d = *desk_;
        enterTwoSided(d);
        d.enter("LowerLimitBox", "0.5");
        d.boxes.expectScreen("GuardPlot", [&](QWidget& plot) {
            QVERIFY(QTest::qWaitForWindowActive(&plot));
            const auto typeInto = [&](const char* name, const char* text, Qt::Key last) {
                auto* box = d.control<QLineEdit>(name, &plot);
                box->setFocus();
                QTRY_VERIFY(box->hasFocus());
                if (*text) box->selectAll(); // over the proposed range
                QTest::keyClicks(box, text);
                QTest::keyClick(box, last);
            };
            QVERIFY2(d.control("Graph1", &plot)->accessibleName().contains("from 45"), "drawn at once");
            typeInto("UpperLimitBox", " ", Qt::Key_Backspace);
            typeInto("LowerLimitBox", "80", Qt::Key_Return);
            QTRY_COMPARE(plot.focusWidget()->objectName(), QString("UpperLimitBox"));
            typeInto("UpperLimitBox", "9", Qt::Key_Escape);
            QCOMPARE(d.text("UpperLimitBox", &plot), QString()); // as it was left
            QVERIFY(plot.isVisible());
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
};

} // namespace metrisk::testing

QTEST_MAIN(metrisk::testing::PlotWindowsTest)
#include "test_plot_windows.moc"
