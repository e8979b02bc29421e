#include "window/kit/PainterSurface.h"

#include "window/kit/Widgets.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>

namespace metrisk {

namespace {

Colour colourOf(const QColor& colour) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

QPointF qt(Point point) {
    return {point.x, point.y};
}

} // namespace

QColor qt(Colour colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

PainterSurface::PainterSurface(QPainter& painter, QSizeF size, QColor ink, QColor paper)
    : PainterSurface(painter, size, ink, paper, false) {}

PainterSurface::PainterSurface(QPainter& painter, QSizeF size, QColor ink, QColor paper, bool scaled)
    : DrawingSurface(colourOf(ink), colourOf(paper)), painter_(painter), size_(size), scaled_(scaled) {
    painter_.setRenderHint(QPainter::Antialiasing);
}

PainterSurface PainterSurface::onPaper(QPainter& painter, QSizeF size) {
    return {painter, size, Qt::black, Qt::white, true};
}

void PainterSurface::clear() {
    painter_.fillRect(QRectF({0, 0}, size_), metrisk::qt(BackColor));
}

void PainterSurface::drawLine(Point from, Point to, Colour colour) {
    painter_.setPen(QPen(metrisk::qt(colour), DrawWidth, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(qt(toDevice(from)), qt(toDevice(to)));
}

void PainterSurface::drawBox(Point corner, Point opposite, Colour colour) {
    // Sharp edges: boxes beside each other would show their seams.
    painter_.setRenderHint(QPainter::Antialiasing, false);
    painter_.fillRect(QRectF(qt(toDevice(corner)), qt(toDevice(opposite))).normalized(), metrisk::qt(colour));
    painter_.setRenderHint(QPainter::Antialiasing);
}

void PainterSurface::takeFont() const {
    QFont font = painter_.font();
    if (scaled_)
        font.setPixelSize(std::max(1, qRound(Font.Size * 96 / 72)));
    else
        font.setPointSizeF(Font.Size);
    font.setBold(Font.Bold);
    font.setItalic(Font.Italic);
    if (Font.Fixed) font.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
    if (!Font.Family.empty()) font.setFamily(metrisk::qt(Font.Family));
    if (font != painter_.font()) painter_.setFont(font);
}

void PainterSurface::drawText(Point topLeft, std::string_view text) {
    takeFont();
    painter_.setPen(metrisk::qt(ForeColor));
    const QPointF at = qt(toDevice(topLeft));
    painter_.drawText(QPointF(at.x(), at.y() + painter_.fontMetrics().ascent()), metrisk::qt(text));
}

double PainterSurface::measureText(std::string_view text) const {
    takeFont();
    return QFontMetricsF(painter_.font(), painter_.device()).horizontalAdvance(metrisk::qt(text));
}

double PainterSurface::measureLine() const {
    takeFont();
    return QFontMetricsF(painter_.font(), painter_.device()).height();
}

} // namespace metrisk
