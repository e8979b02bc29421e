#include "window/kit/ContentArea.h"

#include "window/kit/DesktopFit.h"
#include "window/kit/Widgets.h"

#include <QApplication>
#include <QEvent>
#include <QLayout>
#include <QScrollBar>
#include <algorithm>

namespace metrisk {

namespace {

constexpr int leastLines = 6; // that are seen of the content at once

} // namespace

ContentArea::ContentArea(QWidget* content) {
    setWidget(content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setAlignment(Qt::AlignHCenter);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        if (now && widget()->isAncestorOf(now)) ensureWidgetVisible(now);
    });
}

int ContentArea::barWidth() const {
    return verticalScrollBar()->sizeHint().width();
}

QSize ContentArea::sizeHint() const {
    const QSize wanted = widget()->sizeHint().expandedTo(widget()->minimumSize());
    const QLayout* layout = widget()->layout();
    if (!layout->hasHeightForWidth()) return wanted;
    // Running text takes fewer lines at that width than its layout supposes.
    const int width = std::max(wanted.width(), preferredSize(widget()).width());
    return {width, layout->totalHeightForWidth(width)};
}

QSize ContentArea::minimumSizeHint() const {
    const QSize content = widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
    const QMargins around = parentWidget()->layout()->contentsMargins();
    return {
        std::min(content.width() + barWidth(), roomFor(*window()).width() - around.left() - around.right()),
        std::min(content.height(), fontMetrics().lineSpacing() * leastLines)};
}

bool ContentArea::eventFilter(QObject* watched, QEvent* event) {
    const bool handled = QScrollArea::eventFilter(watched, event);
    // A scroll area keeps to itself what its content needs.
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return handled;
}

} // namespace metrisk
