#include "window/kit/ToolIcon.h"

#include "window/kit/ColourRoles.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <utility>

namespace metrisk {

namespace {

constexpr double disabledOpacity = 0.38;

/// The images have the colours of dark grounds; the others keep 3 to 1 on light ones as well.
QByteArray onLight(QByteArray svg) {
    for (const auto& [dark, light] : {std::pair{"#e0952b", "#a85c00"}, {"#f2b33d", "#a85c00"}})
        svg.replace(dark, light);
    return svg;
}

class Engine final : public QIconEngine {
  public:
    Engine(QByteArray svg, bool ofGround) : svg_(std::move(svg)), ofGround_(ofGround) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const bool dark = &rolesFor(QApplication::palette()) == &darkRoles();
        QByteArray coloured = dark || !ofGround_ ? svg_ : onLight(svg_);
        coloured.replace(
            "currentColor",
            rolesFor(QApplication::palette()).onAccent.name().toUtf8()); // on the act of a screen
        QSvgRenderer renderer(coloured);
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * disabledOpacity);
        renderer.render(painter, rect);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap made(size);
        made.fill(Qt::transparent);
        QPainter painter(&made);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return made;
    }
    QIconEngine* clone() const override { return new Engine(svg_, ofGround_); }

  private:
    QByteArray svg_;
    bool ofGround_; // or in its own colours on any
};

QIcon iconOf(const QString& name, bool ofGround) {
    QFile file(QString(":/icons/%1.svg").arg(name));
    return file.open(QIODevice::ReadOnly) ? QIcon(new Engine(file.readAll(), ofGround)) : QIcon();
}

} // namespace

QIcon toolIcon(const QString& name) {
    return iconOf(name, true);
}

QIcon programIcon() {
    return iconOf("metrisk", false);
}

} // namespace metrisk
