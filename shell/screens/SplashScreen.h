// The start-up screen Copyright: what is being loaded, the date and the time.
#pragma once

#include <QDialog>

class QLabel;

namespace metrisk {

struct Regional;

class SplashScreen final : public QDialog {
    Q_OBJECT

  public:
    explicit SplashScreen(const Regional& regional);
};

} // namespace metrisk
