#include "window/kit/LookStyle.h"

#include "window/kit/ColourRoles.h"
#include "window/kit/ToolIcon.h"
#include "window/kit/Widgets.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* primaryProperty = "primary";
constexpr int indicatorSize = 13;
constexpr int toolIconSize = 20;
constexpr int toolMargin = 6;
constexpr int leastBoxHeight = 24;
constexpr int leastButtonHeight = 26;
constexpr int columnGap = 8;
constexpr int rowGap = 4;

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

void drawFrame(QPainter& painter, const QRectF& room, const QColor& ground, const QColor& frame, int thick) {
    const qreal inset = thick / 2.;
    painter.setBrush(ground);
    painter.setPen(thick ? QPen(frame, thick) : QPen(Qt::NoPen));
    painter.drawRoundedRect(room.adjusted(inset, inset, -inset, -inset), 3, 3);
}

/// An entry has a frame; what is computed or locked has a ground of its own instead. A screen has fifty boxes
/// of a few sizes, and rounding corners is most of what painting one costs: each kind is drawn once.
void drawBox(QPainter& painter, const QStyleOption& option, const QLineEdit& box) {
    const ColourRoles& roles = rolesFor(option.palette);
    const QColor ground = option.palette.color(QPalette::Base);
    const bool focused = option.state & QStyle::State_HasFocus;
    const bool live = option.state & QStyle::State_Enabled;
    const QColor frame = focused ? roles.accent : live ? roles.field : roles.line;
    const int thick = focused ? 2 : box.isReadOnly() ? 0 : 1;
    const qreal scale = painter.device()->devicePixelRatioF();
    const QString key = QString("box %1 %2 %3 %4 %5 %6")
                            .arg(option.rect.width())
                            .arg(option.rect.height())
                            .arg(ground.rgba(), 0, 16)
                            .arg(frame.rgba(), 0, 16)
                            .arg(thick)
                            .arg(scale);
    QPixmap drawn;
    if (!QPixmapCache::find(key, &drawn)) {
        drawn = QPixmap(option.rect.size() * scale);
        drawn.setDevicePixelRatio(scale);
        drawn.fill(Qt::transparent);
        QPainter once(&drawn);
        once.setRenderHint(QPainter::Antialiasing);
        drawFrame(once, QRectF(QPointF(), option.rect.size()), ground, frame, thick);
        QPixmapCache::insert(key, drawn);
    }
    painter.drawPixmap(option.rect.topLeft(), drawn);
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

/// The bar, and its text at the right of it, never over it.
void drawMeter(QPainter& painter, const QStyleOptionProgressBar& bar) {
    constexpr double thick = 6, gap = 8;
    const ColourRoles& roles = rolesFor(bar.palette);
    const int text = bar.textVisible ? std::max(bar.fontMetrics.horizontalAdvance(bar.text),
                                                bar.fontMetrics.horizontalAdvance("100.0 %"))
                                     : 0;
    QRectF groove(bar.rect.x(), bar.rect.center().y() + 0.5 - thick / 2,
                  bar.rect.width() - text - (text ? gap : 0), thick);
    painter.setPen(Qt::NoPen);
    painter.setBrush(roles.line);
    painter.drawRoundedRect(groove, thick / 2, thick / 2);
    const double share = double(bar.progress - bar.minimum) / std::max(1, bar.maximum - bar.minimum);
    if (share > 0) {
        groove.setWidth(std::max(thick, share * groove.width()));
        painter.setBrush(roles.accent);
        painter.drawRoundedRect(groove, thick / 2, thick / 2);
    }
    painter.setPen(bar.palette.color(QPalette::WindowText));
    painter.drawText(bar.rect, Qt::AlignRight | Qt::AlignVCenter, text ? bar.text : QString());
}

/// As an entry, with an arrow.
void drawChoice(QPainter& painter, const QStyleOptionComboBox& box) {
    const ColourRoles& roles = rolesFor(box.palette);
    const bool live = box.state & QStyle::State_Enabled;
    const bool focused = box.state & QStyle::State_HasFocus;
    painter.setPen(QPen(focused ? roles.accent : live ? roles.field : roles.line, focused ? 2 : 1));
    painter.setBrush(live ? box.palette.color(QPalette::Base) : roles.readOnly);
    const qreal inset = focused ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(box.rect).adjusted(inset, inset, -inset, -inset), 3, 3);
    const QPointF tip(box.rect.right() - 10.5, box.rect.center().y() + 2.5);
    painter.setPen(QPen(box.palette.color(QPalette::Text), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)});
}

void drawGroup(QPainter& painter, const QStyleOptionGroupBox& box, const QWidget* widget) {
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
    if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
        bar && element == CE_ProgressBar && bar->maximum > bar->minimum) {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        drawMeter(*painter, *bar);
        painter->restore();
        return;
    }
    const auto* label = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_PushButtonLabel && label && widget && widget->property(headingProperty).toBool()) {
        drawItemText(painter, option->rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                     option->palette, option->state & State_Enabled, label->text, QPalette::ButtonText);
        return;
    }
    if (element != CE_PushButtonLabel || !label || !isPrimary(widget) || !(option->state & State_Enabled))
        return QProxyStyle::drawControl(element, option, painter, widget);
    QStyleOptionButton on(*label);
    on.palette.setColor(QPalette::ButtonText, rolesFor(option->palette).onAccent);
    QProxyStyle::drawControl(element, &on, painter, widget);
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
    const auto* choice = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (!box && (!choice || choice->editable))
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    box ? drawGroup(*painter, *box, widget) : drawChoice(*painter, *choice);
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

/// Every menu bar asks for the first, and Qt's own is a pixel image: reading one loads a plugin for each
/// format.
QIcon LookStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    switch (icon) {
    case SP_ToolBarHorizontalExtensionButton: return toolIcon("more-right");
    case SP_ToolBarVerticalExtensionButton: return toolIcon("more-down");
    default: return QProxyStyle::standardIcon(icon, option, widget);
    }
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight: return indicatorSize + 1;
    case PM_LayoutHorizontalSpacing: return columnGap;
    case PM_LayoutVerticalSpacing: return rowGap;
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin: return panelGap;
    case PM_ToolBarFrameWidth: return 0;
    case PM_ToolBarItemSpacing: return 1;
    case PM_ToolBarItemMargin: return 2;
    case PM_ToolBarIconSize: return toolIconSize;
    default: return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& content,
                                  const QWidget* widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, content, widget);
    if (const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option);
        tool && type == CT_ToolButton && tool->toolButtonStyle == Qt::ToolButtonIconOnly)
        size = tool->iconSize + QSize(toolMargin, toolMargin);
    if (type == CT_ComboBox) size.setHeight(std::max(size.height(), leastBoxHeight));
    if (type == CT_PushButton) size.setHeight(std::max(size.height(), leastButtonHeight));
    return size;
}

void installLook() {
    if (QApplication::style()->name() != "fusion") return;
    QApplication::setStyle(new LookStyle);
}

bool lookIsInstalled() {
    return qobject_cast<LookStyle*>(QApplication::style());
}

QPalette::ColorRole captionRole() {
    return lookIsInstalled() ? secondRole : QPalette::WindowText;
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
