#include "window/kit/HintList.h"

#include <QPainter>

namespace metrisk {

void HintList::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    if (count() == 0) paintWhenEmpty(*viewport(), whenEmpty_);
}

void paintWhenEmpty(QWidget& viewport, const QString& text, int below) {
    constexpr int margin = 8;
    QPainter painter(&viewport);
    painter.setPen(viewport.palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport.rect().adjusted(margin, below + margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, text);
}

} // namespace metrisk
