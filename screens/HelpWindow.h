// The help window: plain pages shown in the program.
#pragma once

#include <QMainWindow>

class QTextBrowser;

namespace metrisk {

class HelpWindow final : public QMainWindow {
    Q_OBJECT

  public:
    explicit HelpWindow(QWidget* parent = nullptr);

    /// Shows the page of that name, help/NAME.html.
    void open(const QString& page);

  private:
    QTextBrowser* browser_;
};

} // namespace metrisk
