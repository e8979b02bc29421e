#include "window/kit/PrintPicture.h"

#include "desk/kit/Controls.h"
#include "window/kit/PainterSurface.h"

#include <QPainter>
#include <QPrinter>
#include <algorithm>

namespace metrisk {

namespace {

constexpr double unitsPerInch = 96; // in which line widths are meant
constexpr double heightShare = 0.7; // of the width
constexpr double mostWidth = 9 * unitsPerInch;

} // namespace

bool printPicture(QPrinter& printer, const PictureArea& picture) {
    QPainter painter;
    if (!picture.paint() || !painter.begin(&printer)) return false;
    const double scale = printer.resolution() / unitsPerInch;
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const double width = std::min({page.width() / scale, page.height() / scale / heightShare, mostWidth});
    painter.scale(scale, scale);
    PainterSurface surface = PainterSurface::onPaper(painter, {width, width * heightShare});
    picture.paint()(surface);
    return painter.end() && printer.printerState() != QPrinter::Error;
}

} // namespace metrisk
