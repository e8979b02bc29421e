#include "window/reports/QtReportPrinter.h"

#include "window/kit/DialogOver.h"
#include "window/kit/PainterSurface.h"
#include "window/kit/Widgets.h"

#include <QFontDatabase>
#include <QImage>
#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

namespace metrisk {

namespace {

constexpr double unitsPerInch = 96;
constexpr double unitsPerTwip = unitsPerInch / 1440;

/// Measures as the screen does, at 96 dots to the inch.
struct ScreenMeasure {
    QImage image{1, 1, QImage::Format_RGB32};
    QPainter painter{&image};
    PainterSurface surface;

    explicit ScreenMeasure(QSizeF size) : surface(PainterSurface::onPaper(painter, size)) {}
};

PageSetup paperOf(const QPrinter& printer) {
    const QSizeF size = printer.pageLayout().fullRect(QPageLayout::Millimeter).size();
    return PageSetup::ofMillimetres(size.width(), size.height());
}

QSizeF unitsOf(const PageSetup& page) {
    return {page.width * unitsPerTwip, page.height * unitsPerTwip};
}

} // namespace

QtReportPrinter::QtReportPrinter(QWidget* mainWindow) : mainWindow_(mainWindow) {}

QtReportPrinter::~QtReportPrinter() = default;

QPrinter& QtReportPrinter::printer() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setFullPage(true);                     // the report has margins of its own
        printer_->setPageSize(QPageSize(QPageSize::A4)); // whatever the locale's paper is
    }
    return *printer_;
}

/// Without a printer of its own a system still prints into a file.
bool QtReportPrinter::isThere() {
    return printer().isValid() || printer().outputFormat() == QPrinter::PdfFormat;
}

std::vector<std::string> QtReportPrinter::fonts() {
    std::vector<std::string> names;
    for (const QString& family : QFontDatabase::families())
        if (!QFontDatabase::isPrivateFamily(family)) names.push_back(family.toStdString());
    return names;
}

void QtReportPrinter::setUp() {
    QPageSetupDialog dialog(&printer(), screenInFront(mainWindow_));
    runOver(dialog);
}

PageSetup QtReportPrinter::page() {
    return paperOf(printer());
}

std::shared_ptr<DrawingSurface> QtReportPrinter::metrics(const PageSetup& page) {
    const auto measure = std::make_shared<ScreenMeasure>(unitsOf(page));
    return {measure, &measure->surface};
}

bool QtReportPrinter::print(const Composer& compose, std::string_view title) {
    QPrinter& target = printer();
    target.setDocName(qt(title));
    QPrintDialog dialog(&target, screenInFront(mainWindow_));
    if (runOver(dialog) != QDialog::Accepted) return true;
    return printOn(target, compose);
}

bool QtReportPrinter::printOn(QPrinter& target, const Composer& compose) {
    const PageSetup paper = paperOf(target);
    QPainter painter;
    if (!painter.begin(&target)) return false;
    const double scale = target.resolution() / unitsPerInch;
    painter.scale(scale, scale);
    PainterSurface metrics = PainterSurface::onPaper(painter, unitsOf(paper));
    const auto report = compose(metrics, paper);
    if (!report) {
        target.abort();
        return false;
    }
    for (std::size_t i = 0; i < report->pages.size(); ++i) {
        if (i > 0 && !target.newPage()) return false;
        PainterSurface sheet = PainterSurface::onPaper(painter, unitsOf(paper));
        drawPage(sheet, *report, i);
    }
    return painter.end() && target.printerState() != QPrinter::Error;
}

} // namespace metrisk
