// A list that says why it is empty.
#pragma once

#include <QListWidget>

namespace metrisk {

class HintList final : public QListWidget {
    Q_OBJECT

  public:
    void setWhenEmpty(const QString& text) { whenEmpty_ = text; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString whenEmpty_;
};

/// In the middle of the room where the rows would be, below that height, in the colour of hints.
void paintWhenEmpty(QWidget& viewport, const QString& text, int below = 0);

} // namespace metrisk
