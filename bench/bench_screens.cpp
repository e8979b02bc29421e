// The main screen against an empty window of the same size, in one run: time to the first paint, resident
// memory, time to leave a box, time to open a file. On the offscreen platform unless QT_QPA_PLATFORM names
// another. Usage: bench_screens [EXAMPLE.mrk]; the process starts itself anew for each start that it
// measures.
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/guardband/GuardbandScreen.h"
#include "desk/plots/ParameterPlotScreens.h"
#include "desk/plots/PlotDesk.h"
#include "desk/points/TestPointsScreen.h"
#include "desk/reliability/ReliabilityScreen.h"
#include "desk/sweeps/RiskMapScreen.h"
#include "desk/uncertainty/MTEErrorScreen.h"
#include "tests/support/SilentSession.h"
#include "uncertainty/Samples.h"
#include "window/kit/EntryBox.h"
#include "window/kit/LookStyle.h"
#include "window/kit/QtInteraction.h"
#include "window/kit/ScreenBinder.h"
#include "window/kit/WorksheetDialog.h"
#include "window/shell/Layouts.h"
#include "window/shell/MainWindow.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFocusEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>
#include <QProcess>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QTemporaryFile>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace metrisk;
using Ticks = std::chrono::steady_clock;

constexpr QSize windowSize(1024, 768);
constexpr int starts = 15;

double milliseconds(Ticks::time_point from) {
    return std::chrono::duration<double, std::milli>(Ticks::now() - from).count();
}

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

double residentMegabytes() {
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

/// Counts what is painted: a window that is never painted must not count as a fast one.
class PaintCounter final : public QObject {
  public:
    int paints = 0;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

void paint(QWidget& window) {
    PaintCounter counter;
    qApp->installEventFilter(&counter);
    window.resize(windowSize);
    window.show();
    // A window server asks for the painting when it has made the window.
    QDeadlineTimer patience(5000);
    while (counter.paints == 0 && !patience.hasExpired()) QCoreApplication::processEvents();
    if (counter.paints == 0) std::abort();
    qApp->removeEventFilter(&counter);
}

struct Desk {
    testing::NoSettings settings;
    QtInteraction ui{layoutOf};
    const SystemClock clock;
    Session session{settings, ui, clock};
    std::unique_ptr<MainWindow> window;

    Desk() {
        installLook(); // as the program does
        ClearAnalysis(session);
        window = std::make_unique<MainWindow>(session, ui);
    }
};

/// What a started process measures of itself, on its standard output.
int start(const std::string& what, Ticks::time_point begun) {
    std::unique_ptr<QMainWindow> empty;
    std::unique_ptr<Desk> desk;
    if (what == "--empty") {
        empty = std::make_unique<QMainWindow>();
        paint(*empty);
    } else if (what == "--label") {
        empty = std::make_unique<QMainWindow>();
        empty->setCentralWidget(new QLabel("Metrisk"));
        paint(*empty);
    } else {
        desk = std::make_unique<Desk>();
        paint(*desk->window);
    }
    std::printf("%f %f\n", milliseconds(begun), residentMegabytes());
    return 0;
}

struct Start {
    std::vector<double> milliseconds, megabytes;
};

void measureStart(const QString& what, Start& into) {
    QProcess process;
    // The clock is the system's: the other process counts from this moment, loading included.
    const QString now = QString::number(Ticks::now().time_since_epoch().count());
    process.start(QCoreApplication::applicationFilePath(), {what, now});
    if (!process.waitForFinished() || process.exitCode() != 0) std::abort();
    const QList<QByteArray> figures = process.readAllStandardOutput().trimmed().split(' ');
    into.milliseconds.push_back(figures.at(0).toDouble());
    into.megabytes.push_back(figures.at(1).toDouble());
}

void measureStarts() {
    Start empty;
    Start label; // an empty window never loads a font, which every window with a text must
    Start main;
    for (int i = 0; i < starts; ++i) {
        measureStart("--empty", empty);
        measureStart("--label", label);
        measureStart("--main", main);
    }
    const auto report = [](const char* what, const char* unit, double ours, double theirs, double wanted) {
        std::printf("%-28s %8.1f %s, empty window %8.1f %s, ratio %.2f (wanted at most %.1f)\n", what, ours,
                    unit, theirs, unit, ours / theirs, wanted);
    };
    report("start to first paint", "ms", median(main.milliseconds), median(empty.milliseconds), 2);
    std::printf("start to first paint         %8.1f ms, window with one label %.1f ms, ratio %.2f\n",
                median(main.milliseconds), median(label.milliseconds),
                median(main.milliseconds) / median(label.milliseconds));
    report("resident memory", "MiB", median(main.megabytes), median(empty.megabytes), 1.5);
}

/// Focus in, a new text, focus out, all painted: what a user waits for between two boxes.
double enter(QWidget& window, const char* name, const char* next, const QString& text) {
    auto* box = window.findChild<EntryBox*>(name);
    box->setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    box->setText(text);
    box->setModified(true);
    const Ticks::time_point begun = Ticks::now();
    window.findChild<QWidget*>(next)->setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    return milliseconds(begun);
}

void reportEntries(const char* what, std::vector<double>& times) {
    std::sort(times.begin(), times.end());
    std::printf("%-28s %8.2f ms median, %.2f ms at the 99th percentile of %zu (wanted below 16)\n", what,
                times[times.size() / 2], times[times.size() * 99 / 100], times.size());
}

/// The same on a worksheet, between its two multipliers.
void measureWorksheet(const QString& path) {
    Desk desk;
    desk.window->openAtStart(path);
    GuardbandScreen screen(desk.session);
    WorksheetDialog dialog(screen, layoutOf, nullptr);
    dialog.setWindowModality(Qt::NonModal);
    paint(dialog);
    dialog.activateWindow();
    QCoreApplication::processEvents();
    std::vector<double> times;
    for (int round = 0; round < 200; ++round) {
        const QString text = QString::number(0.9 + round * 0.0001, 'f', 4);
        times.push_back(enter(dialog, "UpperMultiplierBox", "LowerMultiplierBox", text));
        times.push_back(enter(dialog, "LowerMultiplierBox", "UpperMultiplierBox", text));
    }
    if (desk.session.record.GB_LowerMult >= 1) std::abort(); // nothing was entered
    reportEntries("leaving a worksheet's box", times);
}

/// A plot computed anew and painted, against the fill of its window.
void measurePlot(const QString& path) {
    Desk desk;
    desk.window->openAtStart(path);
    PlotDesk plots(desk.session);
    SUPlot screen(plots);
    screen.redraw();
    WorksheetDialog dialog(screen, layoutOf, nullptr);
    dialog.setWindowModality(Qt::NonModal);
    paint(dialog);
    if (!screen.plot().holdsData()) std::abort();
    std::vector<double> times;
    std::vector<double> fills;
    QImage image(windowSize, QImage::Format_ARGB32_Premultiplied);
    for (int i = 0; i < 200; ++i) {
        const Ticks::time_point begun = Ticks::now();
        screen.markStale();
        screen.redraw();
        dialog.binder().repaint();
        QCoreApplication::processEvents();
        times.push_back(milliseconds(begun));
        const Ticks::time_point filling = Ticks::now();
        QPainter(&image).fillRect(image.rect(), i % 2 ? Qt::white : Qt::black);
        fills.push_back(milliseconds(filling));
    }
    std::printf(
        "drawing a plot anew          %8.2f ms median (wanted below 8), a fill of the window %.2f ms\n",
        median(times), median(fills));
}

/// And on the uncertainty worksheet with nine rows, two samples of 200 and 36 correlations.
void measureBudget(const QString& path) {
    Desk desk;
    desk.window->openAtStart(path);
    Analysis& r = desk.session.record;
    std::vector<double> values;
    for (int i = 0; i < maxSampleSize; ++i) values.push_back(r.SU_Mode + 1e-5 * std::sin(i * 1.7));
    for (int slot = 1; slot <= 2; ++slot) {
        r.Stat_Flag1[slot] = 1;
        StoreSamples(r, slot, values, 7, desk.session.regional);
    }
    for (int i = 0; i < errorRowCount; ++i)
        for (int j = i + 1; j < errorRowCount; ++j)
            r.CorrelationMatrix[correlationIndex(i)][correlationIndex(j)] = 0.1;
    MTEErrorScreen screen(desk.session);
    WorksheetDialog dialog(screen, layoutOf, nullptr);
    dialog.setWindowModality(Qt::NonModal);
    paint(dialog);
    dialog.activateWindow();
    QCoreApplication::processEvents();
    std::vector<double> times;
    for (int row : {2, 3, 4, 5, 6, 8}) {
        const std::string name = "LimitsBox_" + std::to_string(row);
        const std::string next = "ConfidenceBox_" + std::to_string(row);
        for (int round = 0; round < 50; ++round) {
            times.push_back(
                enter(dialog, name.c_str(), next.c_str(), QString::number(0.01 + round * 0.0001)));
            times.push_back(enter(dialog, next.c_str(), name.c_str(), QString::number(90 + round * 0.1)));
        }
    }
    if (screen.rows[8].UncertaintyBox.text.empty()) std::abort(); // nothing was entered
    reportEntries("leaving a budget's box", times);
}

/// The curve of a reliability model for another plot limit, computed and painted.
void measureReliability() {
    Desk desk;
    Analysis& r = desk.session.record;
    r.Rel_Model[0] = "Restricted Random Walk";
    r.Rel_Interval[0] = 12;
    r.Rel_IntervalUnits[0] = "Months";
    r.Rel_BOP[0] = 0.99;
    r.Rel_AOP[0] = 0.93;
    r.Rel_EOP[0] = 0.9;
    ReliabilityScreen screen(desk.session);
    WorksheetDialog dialog(screen, layoutOf, nullptr);
    dialog.setWindowModality(Qt::NonModal);
    paint(dialog);
    if (screen.txt_RPlotData_2.text.empty()) std::abort();
    std::vector<double> times;
    for (int i = 0; i < 200; ++i) {
        const Ticks::time_point begun = Ticks::now();
        screen.leave(screen.txt_RPlotData_2, std::to_string(30 + i));
        dialog.binder().repaint();
        QCoreApplication::processEvents();
        times.push_back(milliseconds(begun));
    }
    std::printf("drawing R(t) anew            %8.2f ms median (wanted below 4)\n", median(times));
}

/// From a slider's step to the picture painted: of the coarse map, and of the fine one that takes its place.
void measureMap(const QString& path) {
    Desk desk;
    paint(*desk.window);
    desk.window->openAtStart(path);
    ValidateAndFit(desk.session);
    RiskMapScreen screen(desk.session);
    WorksheetDialog dialog(screen, layoutOf, nullptr);
    dialog.setWindowModality(Qt::NonModal);
    paint(dialog);
    auto* slider = dialog.findChild<QSlider*>("sld_Multiplier");
    std::vector<double> coarse, fine;
    for (int i = 0; i < 40; ++i) {
        const int before = screen.pic_Map.drawn();
        const Ticks::time_point begun = Ticks::now();
        slider->setValue(100 + 5 * i);
        const auto painted = [&](int pictures) {
            while (screen.pic_Map.drawn() < before + pictures)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            dialog.binder().repaint();
            dialog.findChild<QWidget*>("pic_Map")->repaint();
            return milliseconds(begun);
        };
        coarse.push_back(painted(1));
        fine.push_back(painted(2));
    }
    std::printf("a slider of the map moves    %8.2f ms median (wanted below 33), its fine map %.2f ms\n",
                median(coarse), median(fine));
}

/// A table of 100,000 test points: a page of it scrolled and painted, and a cell typed over, with its row
/// computed and the totals formed anew.
void measureSheet() {
    constexpr int rows = 100'000;
    Desk desk;
    PointDesk points;
    CellBlock cells;
    for (int i = 0; i < rows; ++i)
        cells.push_back(
            {"10", std::to_string(0.2 + i % 800 * 0.001), std::to_string(60 + i % 390 * 0.1), "0.1", "95"});
    points.sheet.put(0, 0, cells);
    TestPointsScreen screen(desk.session, nullptr, &points);
    const Ticks::time_point asked = Ticks::now();
    screen.begin();
    WorksheetDialog dialog(screen, layoutOf, nullptr);
    dialog.setWindowModality(Qt::NonModal);
    paint(dialog);
    const double shown = milliseconds(asked);
    while (screen.isComputing()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const double computed = milliseconds(asked);
    auto* sheet = dialog.findChild<QTableView*>("tbl_Points");
    std::vector<double> frames, edits;
    for (int i = 0; i < 200; ++i) {
        const Ticks::time_point begun = Ticks::now();
        sheet->verticalScrollBar()->setValue(i * 487 % rows);
        sheet->viewport()->repaint();
        frames.push_back(milliseconds(begun));
    }
    for (int i = 0; i < 100; ++i) {
        const std::string before = *points.sheet[static_cast<std::size_t>(i) * 911].answer.record;
        const Ticks::time_point begun = Ticks::now();
        screen.leaveCell(screen.tbl_Points, i * 911, 1, std::to_string(1.91 + i * 0.001));
        dialog.binder().repaint();
        QCoreApplication::processEvents();
        edits.push_back(milliseconds(begun));
        if (*points.sheet[static_cast<std::size_t>(i) * 911].answer.record == before) std::abort();
    }
    std::printf(
        "100,000 test points          %8.1f ms until they are seen, %.1f ms until they are computed\n", shown,
        computed);
    reportEntries("scrolling them by a page", frames);
    reportEntries("typing over a cell of them", edits);
}

void measureEntries() {
    Desk desk;
    paint(*desk.window);
    desk.window->activateWindow();
    QCoreApplication::processEvents();
    struct Box {
        const char* name;
        double from;
    };
    constexpr Box boxes[] = {{"ModeBox", 10},        {"UpperLimitBox", 0.5}, {"LowerLimitBox", 0.4},
                             {"PctInTolBox", 90},    {"MTEOffsetBox", 0.1},  {"MTEFixedOffsetBox", 0.12},
                             {"MTEPctInTolBox", 95}, {"SystemIDBox", 1}};
    std::vector<double> times;
    for (int round = 0; round < 100; ++round)
        for (const Box& box : boxes)
            times.push_back(enter(*desk.window, box.name, "txt_LostFocus",
                                  QString::number(box.from + round * 0.001, 'f', 4)));
    if (desk.session.record.SU_Sigma <= 0 || desk.session.record.MTE_Sigma <= 0)
        std::abort(); // nothing was entered
    reportEntries("leaving a box", times);
}

void measureOpening(const QString& path) {
    Desk desk;
    paint(*desk.window);
    std::vector<double> times;
    std::vector<double> own; // until nothing is left but Qt's painting
    for (int i = 0; i < 50; ++i) {
        desk.session.record.SU_Mode = 0;
        const Ticks::time_point begun = Ticks::now();
        desk.window->openAtStart(path);
        own.push_back(milliseconds(begun));
        QCoreApplication::processEvents();
        times.push_back(milliseconds(begun));
        if (desk.session.record.SU_Mode == 0) std::abort(); // nothing was read
    }
    std::printf(
        "opening a file               %8.2f ms median of our own, %.2f ms with the painting (own time wanted "
        "below 5)\n",
        median(own), median(times));
}

} // namespace

int main(int argc, char** argv) {
    // A desktop that the window fits on: the platform's own has 800 dots, so that it would be laid out twice.
    QTemporaryFile desktop;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) { // the processes that it starts inherit it
        desktop.open();
        desktop.write(R"({"screens": [{"name": "desktop", "x": 0, "y": 0, "width": 1920, "height": 1080}]})");
        desktop.close();
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + desktop.fileName().toUtf8());
    }
    const std::string argument = argc > 1 ? argv[1] : METRISK_SOURCE_DIR "/examples/gauge-block-25mm.mrk";
    QApplication app(argc, argv);
    if (argc > 2) return start(argument, Ticks::time_point(Ticks::duration(std::stoll(argv[2]))));
    measureStarts();
    measureEntries();
    measureSheet();
    measureWorksheet(QString::fromStdString(argument));
    measureBudget(QString::fromStdString(argument));
    measureOpening(QString::fromStdString(argument));
    measurePlot(QString::fromStdString(argument));
    measureReliability();
    measureMap(QString::fromStdString(argument));
    return 0;
}
