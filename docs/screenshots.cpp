// Takes the pictures of the documentation: every screen with an example in it, into a folder as PNG.
#include "tests/window/support/Desk.h"

#include "desk/compute/ComputingScreen.h"
#include "links/AppsList.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/Samples.h"
#include "units/database/UnitsDatabase.h"
#include "window/kit/ColourRoles.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Widgets.h"
#include "window/shell/SplashScreen.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QListWidget>
#include <QPalette>
#include <QTableView>
#include <cstdio>

namespace {

using namespace metrisk;
using namespace metrisk::testing;

/// Percentages of a year that show a curve.
void fillReliability(Analysis& r) {
    r.Rel_Model[0] = "Weibull";
    r.Rel_Interval[0] = 12;
    r.Rel_IntervalUnits[0] = "Months";
    r.Rel_BOP[0] = 0.99;
    r.Rel_AOP[0] = 0.96;
    r.Rel_EOP[0] = 0.9;
}

void makeUnits(const std::string& path) {
    makeUnitsDatabase(path);
    const auto units = openUnitsDatabase(path);
    const auto length = units->addArea("Length", {.symbol = "m", .description = "metre"});
    units->addUnit(length, {.symbol = "mm", .description = "millimetre", .multiplier = 0.001});
    units->addUnit(length, {.symbol = "\u00b5m", .description = "micrometre", .multiplier = 1e-6});
    units->addUnit(length, {.symbol = "in", .description = "inch", .group = "US", .multiplier = 0.0254});
    units->addArea("Temperature", {.symbol = "K", .description = "kelvin"});
    units->addArea("Voltage", {.symbol = "V", .description = "volt"});
}

void makePrograms(const std::string& home) {
    QDir(qt(home)).mkpath("Include");
    AppsFile(home + "/Include/Selected Apps.ss3")
        .save({{"Spreadsheet", "/usr/bin/gnumeric", "csv"},
               {"Statistics", "/usr/share/applications/rstudio.desktop", ""}});
}

class Camera {
  public:
    Camera(Desk& desk, const QString& folder, const QString& suffix)
        : desk_(desk), folder_(folder), suffix_(suffix) {}

    void take(QWidget& window, const char* name) {
        if (&window == desk_.window.get()) window.resize(window.sizeHint());
        QCoreApplication::processEvents();
        const QString path = folder_.filePath(QString("%1%2.png").arg(name, suffix_));
        if (!window.grab().save(path)) qFatal("cannot write %s", qPrintable(path));
        std::printf("%s %d x %d\n", qPrintable(path), window.width(), window.height());
    }

    /// The picture of a dialog that a menu item opens.
    void takeDialog(const char* item, const char* screen, const char* name) {
        desk_.boxes.expectScreen(screen, [&](QWidget& window) {
            if (auto* apps = window.findChild<QListWidget*>("Lst_Apps")) apps->setCurrentRow(0);
            if (auto* defaults = window.findChild<QAction*>("mnu_ShowDefaults")) defaults->trigger();
            take(window, name);
            qobject_cast<QDialog*>(&window)->reject();
        });
        desk_.choose(item);
    }

    /// The table of examples, scrolled to its figures.
    void takeTestPoints() {
        desk_.boxes.expectScreen("TestPoints", [&](QWidget& window) {
            auto* sheet = window.findChild<QTableView*>("tbl_Points");
            sheet->scrollTo(sheet->model()->index(0, sheet->model()->columnCount() - 2));
            take(window, "test-points");
            qobject_cast<QDialog*>(&window)->reject();
        });
        desk_.window->openAtStart(METRISK_SOURCE_DIR "/examples/points.csv");
    }

    /// The picture of a risk plot over a range, both risks shown.
    void takeRiskPlot(const char* item, const char* from, const char* to, const char* name) {
        desk_.boxes.expectScreen("GuardPlot", [&](QWidget& window) {
            const auto type = [&](const char* box, const char* text) {
                auto* edit = desk_.control<QLineEdit>(box, &window);
                edit->setFocus();
                edit->clear();
                QTest::keyClicks(edit, text);
            };
            type("LowerLimitBox", from);
            type("UpperLimitBox", to);
            type("NumberPointsBox", "31");
            desk_.click("CmdPlotGraph", &window);
            for (const char* choice : {"Opt_Both", "Chk3D_ThickLines", "chk_SmoothCurve"})
                desk_.click(choice, &window);
            QTest::qWait(200); // for the curve
            take(window, name);
            qobject_cast<QDialog*>(&window)->reject();
        });
        desk_.choose(item);
    }

    /// A reading near its limit, by a guard band.
    void takeReading() {
        desk_.session.settings.WriteSetting("Reading", "Rule", "guard=1");
        desk_.boxes.expectScreen("Reading", [&](QWidget& window) {
            QApplication::setActiveWindow(&window); // a box without the focus starts at its first letter
            auto* box = desk_.control<QLineEdit>("txt_Reading", &window);
            box->setFocus();
            QTest::keyClicks(box, "25.00026");
            QTest::keyClick(box, Qt::Key_Return);
            take(window, "reading");
            qobject_cast<QDialog*>(&window)->reject();
        });
        desk_.choose("mnu_Reading");
    }

    void takeStrategies() {
        desk_.boxes.expectScreen("Strategies", [&](QWidget& window) {
            QTest::qWait(300); // for the table
            take(window, "strategies");
            qobject_cast<QDialog*>(&window)->reject();
        });
        desk_.choose("mnu_Strategies");
    }

    void takeRiskMap() {
        desk_.boxes.expectScreen("RiskMap", [&](QWidget& window) {
            QTest::qWait(500); // for the fine grid
            take(window, "risk-map");
            qobject_cast<QDialog*>(&window)->reject();
        });
        desk_.choose("mnu_Plot_RiskMap");
    }

    void takeComputing() {
        ComputingScreen progress(desk_.session);
        progress.showSearch(true);
        progress.Lbl_Message1.text = "False Accept Risk: 0.90 %\nFalse Reject Risk: 1.03 %";
        progress.Lbl_Message2.text = "Solving for Equivalent Accuracy Ratio\nIteration 12 = 8.43 : 1";
        progress.Meter.value = 62;
        desk_.ui.run(progress, [this] { take(*QApplication::activeModalWidget(), "computing"); });
    }

    /// The budget with samples of both parameters, and the screens above it.
    void takeUncertainty() {
        desk_.window->openAtStart(desk_.examplePath("thermometer-process-uncertainty"));
        desk_.record.CorrelationMatrix[correlationIndex(4)][correlationIndex(8)] = 0.35;
        const auto sample = [this](int slot, double mean) {
            std::vector<double> values;
            for (int i = 0; i < 40; ++i)
                values.push_back(mean + 0.01 * ((i * 7 + slot) % 11 - 5) + 0.005 * (i % 5 - 2));
            desk_.record.Stat_Flag1[slot] = 1;
            desk_.record.Stat_Flag2[slot] = -1;
            StoreSamples(desk_.record, slot, values, 3, desk_.session.regional);
        };
        sample(1, 100.01);
        sample(2, 99.93);
        desk_.boxes.expectScreen("MTEError", [this](QWidget& budget) {
            desk_.click("cmd_BiasAnalysis", &budget);
            take(budget, "uncertainty");
            desk_.boxes.expectScreen("DataEntryWorksheet", [this](QWidget& window) {
                take(window, "samples");
                qobject_cast<QDialog*>(&window)->reject();
            });
            desk_.click("cmd_Random_0", &budget);
            desk_.boxes.expectScreen("CorrelationList", [this](QWidget& window) {
                take(window, "correlations");
                qobject_cast<QDialog*>(&window)->reject();
            });
            budget.findChild<QAction*>("mnu_Correlations")->trigger();
            qobject_cast<QDialog*>(&budget)->reject();
        });
        desk_.choose("mnu_Uncertainty");
        desk_.record.FileChanged = false;
    }

  private:
    Desk& desk_;
    QDir folder_;
    QString suffix_; // of the files' names
};

/// The screens that fill a desktop most.
void takeLargest(Desk& desk, Camera& camera) {
    desk.session.places.UnitsDatabasePath = desk.path("Measurement Units.mdb").toStdString();
    makeUnits(desk.session.places.UnitsDatabasePath);
    desk.window->openAtStart(desk.examplePath("thermometer-process-uncertainty"));
    desk.settle();
    camera.take(*desk.window, "main-screen");
    camera.takeDialog("CtrlGuardband", "GuardbandAnalysis", "guardbands");
    camera.takeDialog("mnu_Uncertainty", "MTEError", "uncertainty");
    camera.takeDialog("mnu_ToleranceLimits", "OffsetCalc", "tolerance-offsets");
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc != 2 && argc != 3) {
        std::fprintf(stderr, "usage: screenshots FOLDER [SUFFIX: a few, for a desktop of another size]\n");
        return 2;
    }
    QApplication::setStyle("fusion");
    installLook();
    const QPalette light = QApplication::palette();
    Desk desk;
    Camera camera(desk, QDir(argv[1]).absolutePath(), argc == 3 ? argv[2] : "");
    if (argc == 3) {
        takeLargest(desk, camera);
        return desk.boxes.faults().isEmpty() ? 0 : 1;
    }
    SplashScreen splash(desk.session.regional, desk.session.clock.now());
    splash.adjustSize();
    camera.take(splash, "start-up");
    camera.take(*desk.window, "main-screen-empty");
    desk.window->openAtStart(desk.examplePath("gauge-block-25mm"));
    desk.settle();
    camera.take(*desk.window, "main-screen");
    desk.enter("MTEOffsetBox", "0.00001");
    camera.take(*desk.window, "main-screen-stale");
    desk.record.FileChanged = false;
    desk.window->openAtStart(desk.examplePath("gauge-block-25mm"));
    desk.settle();
    camera.takeComputing();
    camera.takeDialog("FalseAcceptOptions", "FAFORM", "false-accept-option");
    camera.takeDialog("EqAccRatOptions", "EqRatio", "equivalent-ratio-options");
    camera.takeDialog("BaselineAnalysisScreen", "BaselineAnalysis", "baseline");
    camera.takeDialog("CtrlGuardband", "GuardbandAnalysis", "guardbands");
    camera.takeRiskPlot("mnu_Plot_Risk_0", "60", "99.5", "risk-plot");
    camera.takeRiskMap();
    camera.takeReading();
    camera.takeStrategies();
    camera.takeTestPoints();
    camera.takeDialog("CtrlSURel", "ObservedPctWorksheet", "observed");
    fillReliability(desk.record);
    camera.takeDialog("mnu_Reliability_Parameter_0", "ReliabilityModelCoefficients", "reliability");
    camera.takeUncertainty();
    desk.record.Rel_EOP[0] = 0.87;
    desk.record.Rel_AOP[0] = 0.9325;
    desk.record.Rel_Interval[0] = 12;
    desk.record.Rel_IntervalUnits[0] = "Months";
    camera.takeDialog("mnu_BiasRef_Parameter_0", "BiasCalcOption", "in-tolerance-reference");
    QDir::setCurrent(QString::fromStdString(desk.folder.path().string())); // no long path in the picture
    desk.session.places.UnitsDatabasePath = "Measurement Units.mdb";
    makeUnits(desk.session.places.UnitsDatabasePath);
    camera.takeDialog("mnu_Units", "UnitsRevision", "units");
    makePrograms(desk.session.places.HomeDirectory = ".");
    camera.takeDialog("mnu_File_RunExternal", "form_RunExternal", "external-programs");
    camera.takeDialog("mnu_ToleranceLimits", "OffsetCalc", "tolerance-offsets");
    desk.record.MTE_EntryByUncertainty = true;
    camera.takeDialog("mnu_ToleranceLimits", "OffsetCalc", "uncertainty-offsets");
    desk.record.MTE_EntryByUncertainty = false;
    camera.takeDialog("SUPlotScreenControl", "SUPlot", "plot-subject");
    camera.takeDialog("MTEPlotScreenControl", "MTEPlot", "plot-measuring");
    desk.record.FileChanged = false;
    desk.window->openAtStart(desk.examplePath("thermometer-process-uncertainty"));
    desk.settle();
    camera.takeDialog("mnu_Plots_ProcessError", "ErrorPlot", "plot-error");
    desk.window->openAtStart(desk.examplePath("gauge-block-25mm"));
    camera.takeDialog("CtrlFormColor", "ColorScheme", "appearance");
    camera.takeDialog("PrintAnalysisResults", "PrintDialog", "print-dialog");
    camera.takeDialog("mnu_Preview", "Print_SS", "print-preview");
    camera.takeDialog("PrintOptions", "PrintOpt", "report-options");
    camera.takeDialog("mnu_SelfCheck", "SelfCheck", "self-check");
    desk.choose("mnu_HelpContents");
    for (QWidget* top : QApplication::topLevelWidgets())
        if (top->objectName() == "HelpWindow") camera.take(*top, "help");
    desk.help.close();

    QApplication::setPalette(paletteOf(darkRoles()));
    desk.window->binder().repaint();
    desk.settle();
    camera.take(*desk.window, "main-screen-dark");
    desk.window->openAtStart(desk.examplePath("thermometer-process-uncertainty"));
    camera.takeDialog("mnu_Uncertainty", "MTEError", "uncertainty-dark");
    camera.takeDialog("CtrlGuardband", "GuardbandAnalysis", "guardbands-dark");
    camera.takeDialog("SUPlotScreenControl", "SUPlot", "plot-subject-dark");
    camera.takeDialog("mnu_Plot_Risk_0", "GuardPlot", "risk-plot-proposed-dark");
    camera.takeDialog("CtrlFormColor", "ColorScheme", "appearance-dark");
    ColorScheme green;
    green.BackColor_Metrisk = 0xD8E8D8;
    green.BackColor_Labels = 0xC0D8C0;
    desk.session.desktop->looks->ApplyColorScheme(green);
    camera.take(*desk.window, "main-screen-colors");
    desk.session.desktop->looks->ApplyColorScheme({});
    QApplication::setPalette(light);
    desk.session.regional = {.ListSeparator = ";", .DecimalSymbol = ",", .ThousandSeparator = "."};
    desk.window->openAtStart(desk.examplePath("thermometer-process-uncertainty"));
    desk.settle();
    camera.take(*desk.window, "main-screen-german");
    camera.takeDialog("CtrlGuardband", "GuardbandAnalysis", "guardbands-german");
    const QString faults = desk.boxes.faults();
    if (faults.isEmpty()) return 0;
    std::fprintf(stderr, "%s\n", qPrintable(faults));
    return 1;
}
