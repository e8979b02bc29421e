// The start-up screen Copyright: what is being loaded, the date and the time.
#pragma once

#include <QDialog>

class QLabel;

namespace metrisk {

struct Moment;
struct Regional;

class SplashScreen final : public QDialog {
    Q_OBJECT

  public:
    SplashScreen(const Regional& regional, const Moment& now);

    /// Closes as soon as the window has been painted, and no later than so many milliseconds after this
    /// screen's own first paint.
    void closeWith(QWidget& window, int atMost);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace metrisk
