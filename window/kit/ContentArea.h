// The part of a screen that is scrolled where the desktop has no room for it.
#pragma once

#include <QScrollArea>

namespace metrisk {

/// As large as its content wishes to be and no narrower than that must be, so that it is only ever scrolled
/// up and down; on a desktop that is narrower still, sideways as well. What takes the focus is brought into
/// sight.
class ContentArea final : public QScrollArea {
    Q_OBJECT

  public:
    explicit ContentArea(QWidget* content);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// The width that a vertical scroll bar takes from the content.
    int barWidth() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace metrisk
