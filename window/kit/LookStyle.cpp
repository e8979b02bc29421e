#include "window/kit/LookStyle.h"

#include "window/kit/ColourRoles.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>

namespace metrisk {

namespace {

constexpr const char* primaryProperty = "primary";
constexpr int indicatorSize = 13;

bool schemeOfUser = false;

bool isPrimary(const QWidget* widget) {
    return widget && widget->property(primaryProperty).toBool();
}

QRectF indicatorOf(const QRect& room) {
    QRectF square(0, 0, indicatorSize, indicatorSize);
    square.moveCenter(QRectF(room).center());
    return square.adjusted(0.5, 0.5, -0.5, -0.5);
}

void drawTick(QPainter& painter, const QRectF& box, const QColor& color) {
    QPainterPath tick;
    tick.moveTo(box.x() + 2.6, box.y() + 6.2);
    tick.lineTo(box.x() + 5, box.y() + 8.8);
    tick.lineTo(box.x() + 9.4, box.y() + 3.2);
    painter.setPen(QPen(color, 1.9, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(tick);
}

void drawIndicator(QPainter& painter, const QStyleOption& option, bool round) {
    const ColourRoles& roles = rolesFor(option.palette);
    const bool live = option.state & QStyle::State_Enabled;
    const bool on = option.state & QStyle::State_On;
    const QRectF box = indicatorOf(option.rect);
    const QColor mark = live ? roles.accent : roles.disabled;
    painter.setPen(QPen(on && live ? roles.accent : live ? roles.field : roles.disabled, 1.2));
    painter.setBrush(on && !round ? mark : live ? option.palette.color(QPalette::Base) : roles.readOnly);
    if (round)
        painter.drawEllipse(box);
    else
        painter.drawRoundedRect(box, 2.5, 2.5);
    if (!on) return;
    if (!round) return drawTick(painter, box, roles.onAccent);
    painter.setBrush(mark);
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(box.adjusted(3.2, 3.2, -3.2, -3.2));
}

void drawButton(QPainter& painter, const QStyleOption& option, bool primary) {
    const ColourRoles& roles = rolesFor(option.palette);
    const bool live = option.state & QStyle::State_Enabled;
    const bool filled = primary && live;
    QColor ground = filled ? roles.accent : option.palette.color(live ? QPalette::Base : QPalette::Window);
    if (option.state & QStyle::State_Sunken)
        ground = ground.darker(115);
    else if (live && (option.state & QStyle::State_MouseOver))
        ground = filled ? ground.lighter(108) : roles.readOnly;
    const bool focused = option.state & QStyle::State_HasFocus;
    painter.setPen(QPen(filled || focused ? roles.accent : live ? roles.field : roles.line, focused ? 2 : 1));
    painter.setBrush(ground);
    const qreal inset = focused ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), 4, 4);
    if (filled && focused) { // on its own colour a frame of it would not be seen
        painter.setPen(QPen(roles.onAccent, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(option.rect).adjusted(3, 3, -3, -3), 2, 2);
    }
}

/// An entry has a frame; what is computed or locked has a ground of its own instead.
void drawBox(QPainter& painter, const QStyleOption& option, const QLineEdit& box) {
    const ColourRoles& roles = rolesFor(option.palette);
    const QRectF room(option.rect);
    painter.setBrush(option.palette.brush(QPalette::Base));
    const bool focused = option.state & QStyle::State_HasFocus;
    if (box.isReadOnly() && !focused) {
        painter.setPen(Qt::NoPen);
        painter.drawRoundedRect(room, 3, 3);
        return;
    }
    const bool live = option.state & QStyle::State_Enabled;
    painter.setPen(QPen(focused ? roles.accent : live ? roles.field : roles.line, focused ? 2 : 1));
    const qreal inset = focused ? 1 : 0.5;
    painter.drawRoundedRect(room.adjusted(inset, inset, -inset, -inset), 3, 3);
}

/// A heading stands inside its frame, at the same place everywhere.
constexpr QPoint headingAt(12, 6);
constexpr int belowHeading = 2;
constexpr int insideFrame = 4;

QFont headingFont(const QWidget* widget) {
    QFont font = widget ? widget->font() : QApplication::font();
    font.setBold(true);
    return font;
}

QRect headingRect(const QStyleOptionGroupBox& box, const QWidget* widget) {
    if (box.text.isEmpty()) return {};
    const QFontMetrics metrics(headingFont(widget));
    return {box.rect.topLeft() + headingAt,
            QSize(metrics.horizontalAdvance(box.text) + metrics.averageCharWidth(), metrics.height())};
}

void drawGroup(QPainter& painter, const QStyleOptionGroupBox& box, const QWidget* widget) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(rolesFor(box.palette).line, 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(box.rect).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    painter.setPen(box.palette.color(QPalette::WindowText));
    painter.setFont(headingFont(widget));
    painter.drawText(headingRect(box, widget), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                     box.text);
}

} // namespace

LookStyle::LookStyle() : QProxyStyle("fusion") {}

void LookStyle::polish(QPalette& palette) {
    QProxyStyle::polish(palette);
    if (!schemeOfUser) palette = paletteOf(rolesFor(palette));
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto drawn = [&](auto draw) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        draw();
        painter->restore();
    };
    const auto* button = qobject_cast<const QPushButton*>(widget);
    const auto* box = qobject_cast<const QLineEdit*>(widget);
    if (element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox)
        drawn([&] { drawIndicator(*painter, *option, element == PE_IndicatorRadioButton); });
    else if (element == PE_PanelButtonCommand && button && !button->isFlat())
        drawn([&] { drawButton(*painter, *option, isPrimary(widget)); });
    else if (element == PE_PanelLineEdit && box && box->hasFrame())
        drawn([&] { drawBox(*painter, *option, *box); });
    else if (element == PE_FrameFocusRect && button)
        return; // the frame of a button tells it
    else
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void LookStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    const auto* label = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != CE_PushButtonLabel || !label || !isPrimary(widget) || !(option->state & State_Enabled))
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionButton on(*label);
    on.palette.setColor(QPalette::ButtonText, rolesFor(option->palette).onAccent);
    QProxyStyle::drawControl(element, &on, painter, widget);
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || !box)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->save();
    drawGroup(*painter, *box, widget);
    painter->restore();
}

QRect LookStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    if (control != CC_GroupBox || !box) return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect heading = headingRect(*box, widget);
    const int top = heading.isEmpty() ? insideFrame : headingAt.y() + heading.height() + belowHeading;
    switch (part) {
    case SC_GroupBoxFrame: return box->rect;
    case SC_GroupBoxLabel: return heading;
    case SC_GroupBoxContents: return box->rect.adjusted(insideFrame, top, -insideFrame, -insideFrame);
    default: return QProxyStyle::subControlRect(control, option, part, widget);
    }
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: return indicatorSize + 1;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

void installLook() {
    if (QApplication::style()->name() != "fusion") return;
    QApplication::setStyle(new LookStyle);
}

void keepPalette(bool own) {
    schemeOfUser = own;
}

bool paletteIsKept() {
    return schemeOfUser;
}

void setPrimary(QWidget& button, bool primary) {
    if (isPrimary(&button) == primary) return;
    button.setProperty(primaryProperty, primary);
    QFont font = button.font();
    font.setBold(primary);
    button.setFont(font);
    button.update();
}

} // namespace metrisk
