// A picture of a worksheet, drawn anew at each size.
#pragma once

#include <QWidget>
#include <functional>

namespace metrisk {

class DrawingSurface;

/// Without a picture it says in words what there is to say of it.
class PictureWidget final : public QWidget {
    Q_OBJECT

  public:
    PictureWidget();

    void setPaint(std::function<void(DrawingSurface&)> paint);
    QSize sizeHint() const override { return {480, 300}; }
    QSize minimumSizeHint() const override { return {120, 60}; }

  signals:
    /// A place in it, as shares of width and height from the top left.
    void clicked(double x, double y);
    /// It has that size now, in pixels.
    void resized(double width, double height);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    std::function<void(DrawingSurface&)> paint_;
};

} // namespace metrisk
