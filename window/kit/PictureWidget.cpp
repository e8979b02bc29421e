#include "window/kit/PictureWidget.h"

#include "window/kit/PainterSurface.h"

#include <QMouseEvent>
#include <QPainter>

namespace metrisk {

PictureWidget::PictureWidget() {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent); // each picture begins with a fill
}

void PictureWidget::setPaint(std::function<void(DrawingSurface&)> paint) {
    paint_ = std::move(paint);
    update();
}

void PictureWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette colours = palette();
    PainterSurface surface(painter, size(), colours.color(QPalette::Text), colours.color(QPalette::Base));
    surface.Cls();
    if (paint_) return paint_(surface);
    painter.setPen(colours.color(QPalette::Disabled, QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, accessibleName());
}

void PictureWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit resized(width(), height());
}

void PictureWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
    emit clicked(event->position().x() / width(), event->position().y() / height());
}

} // namespace metrisk
