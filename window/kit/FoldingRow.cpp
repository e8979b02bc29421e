#include "window/kit/FoldingRow.h"

#include <QBoxLayout>
#include <algorithm>

namespace metrisk {

FoldingRow::FoldingRow(std::initializer_list<QWidget*> widgets)
    : layout_(new QBoxLayout(QBoxLayout::LeftToRight, this)) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSizeConstraint(QLayout::SetNoConstraint);
    for (QWidget* widget : widgets) layout_->addWidget(widget);
}

bool FoldingRow::isFolded() const {
    return layout_->direction() == QBoxLayout::TopToBottom;
}

int FoldingRow::widthBeside() const {
    int width = layout_->spacing() * (layout_->count() - 1);
    for (int i = 0; i < layout_->count(); ++i) width += layout_->itemAt(i)->sizeHint().width();
    return width;
}

QSize FoldingRow::sizeHint() const {
    return {widthBeside(), layout_->sizeHint().height()};
}

QSize FoldingRow::minimumSizeHint() const {
    int width = 0;
    for (int i = 0; i < layout_->count(); ++i)
        width = std::max(width, layout_->itemAt(i)->sizeHint().width());
    return {width, layout_->minimumSize().height()};
}

void FoldingRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const bool fold = width() < widthBeside();
    if (fold == isFolded()) return;
    layout_->setDirection(fold ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    updateGeometry();
}

} // namespace metrisk
