#include "window/kit/ToneLabel.h"

#include "window/kit/ColourRoles.h"
#include "window/kit/LookStyle.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

namespace metrisk {

namespace {

constexpr int signSize = 10;
constexpr int behindSign = 4;
constexpr int captionLength = 60; // characters; what is longer is running text

QColor colourOf(Label::Tone tone, const QPalette& palette) {
    const ColourRoles& roles = rolesFor(palette);
    switch (tone) {
    case Label::Tone::Second: return roles.second;
    case Label::Tone::Accent: return roles.accent;
    case Label::Tone::Good: return roles.good;
    case Label::Tone::Warn: return roles.warn;
    case Label::Tone::Bad: return roles.bad;
    default: return palette.color(QPalette::WindowText);
    }
}

/// Drawn, since not every font has them.
void drawSign(QPainter& painter, Label::Sign sign, const QRectF& box, const QColor& color) {
    painter.setRenderHint(QPainter::Antialiasing);
    const auto at = [&box](double x, double y) {
        return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
    };
    if (sign == Label::Sign::Tick) {
        painter.setPen(QPen(color, 1.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{at(0.1, 0.55), at(0.4, 0.85), at(0.9, 0.15)});
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPolygon(QPolygonF{at(0.5, 0.1), at(1, 0.95), at(0, 0.95)});
    }
}

} // namespace

void ToneLabel::setTone(Label::Tone tone, Label::Sign sign) {
    if (tone == tone_ && sign == sign_) return;
    if (sign != sign_) updateGeometry();
    tone_ = tone;
    sign_ = sign;
    update();
}

void ToneLabel::setTerse(bool terse) {
    terse_ = terse;
    updateGeometry();
}

int ToneLabel::signRoom() const {
    return sign_ == Label::Sign::None ? 0 : signSize + behindSign;
}

/// QLabel measures its text three times whenever it is asked, and a little short of one with an underlined
/// letter. A screen has fifty captions and asks each more than once.
QSize ToneLabel::textSize() const {
    if (measured_.isNull() || measuredText_ != text() || measuredFont_ != font()) {
        measuredText_ = text();
        measuredFont_ = font();
        const bool underlined = text().contains('&');
        measured_ = fontMetrics().size(underlined ? Qt::TextShowMnemonic : 0, text());
        if (underlined) measured_ += QSize(2, 0);
    }
    return measured_;
}

QSize ToneLabel::sizeHint() const {
    if (terse_ && sign_ != Label::Sign::None) return minimumSizeHint(); // words take what room is left
    if (!wordWrap()) return minimumSizeHint();
    // A caption takes a second line only where it must.
    const QSize unfolded = textSize() + QSize(2 * margin() + signRoom() + 4, 0);
    return unfolded.width() < fontMetrics().averageCharWidth() * captionLength
               ? QSize(unfolded.width(), std::max(unfolded.height(), fontMetrics().lineSpacing()))
               : QLabel::sizeHint() + QSize(signRoom(), 0);
}

QSize ToneLabel::minimumSizeHint() const {
    if (terse_ && sign_ != Label::Sign::None) return {signSize + 1, QLabel::minimumSizeHint().height()};
    const QSize frame(2 * margin(), 2 * margin());
    const bool oneLine = !wordWrap() && !text().isEmpty();
    const QSize hint = oneLine ? textSize().grownBy(contentsMargins()) + frame : QLabel::minimumSizeHint();
    return hint + QSize(signRoom(), 0);
}

int ToneLabel::heightForWidth(int width) const {
    const QSize unfolded = textSize().grownBy(contentsMargins()) + QSize(2 * margin(), 2 * margin());
    return wordWrap() && !text().isEmpty() && unfolded.width() < width ? unfolded.height()
                                                                       : QLabel::heightForWidth(width);
}

void ToneLabel::paintEvent(QPaintEvent* event) {
    if (tone_ == Label::Tone::Plain && sign_ == Label::Sign::None) return QLabel::paintEvent(event);
    QPainter painter(this);
    const QRect room = contentsRect();
    QPalette toned = palette();
    if (!paletteIsKept() && isEnabled()) toned.setColor(QPalette::WindowText, colourOf(tone_, toned));
    const QColor color = toned.color(QPalette::WindowText);
    if (sign_ != Label::Sign::None)
        drawSign(painter, sign_, QRectF(room.x(), room.center().y() - signSize / 2., signSize, signSize),
                 color);
    if (terse_ && width() < QLabel::sizeHint().width() + signRoom()) return;
    style()->drawItemText(&painter, room.adjusted(signRoom(), 0, 0, 0),
                          int(alignment()) | (buddy() ? Qt::TextShowMnemonic : 0) |
                              (wordWrap() ? Qt::TextWordWrap : 0),
                          toned, isEnabled(), text(), QPalette::WindowText);
}

} // namespace metrisk
