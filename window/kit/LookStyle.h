// What Qt's own style leaves faint: boxes that tell what they are, the one act of a screen, indicators that
// are seen.
#pragma once

#include <QPalette>
#include <QProxyStyle>

namespace metrisk {

inline constexpr int panelGap = 8; // between panels, and from them to the edge of their window

/// Over Fusion alone: any other style of a desktop is left as it is.
class LookStyle final : public QProxyStyle {
    Q_OBJECT

  public:
    LookStyle();

    void polish(QPalette& palette) override;
    using QProxyStyle::polish;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& content,
                           const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

/// Puts it over the style of the desktop, where that is Fusion. Before any window is made.
void installLook();

/// The role of palettes that captions are drawn in.
QPalette::ColorRole captionRole();

/// A colour scheme of the user's own has the palette to itself.
void keepPalette(bool own);
bool paletteIsKept();

/// Marks the button as the act that its screen is for.
void setPrimary(QWidget& button, bool primary);

} // namespace metrisk
