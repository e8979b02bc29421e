// The help window: plain pages shown in the program.
#pragma once

#include <QMainWindow>

class QLineEdit;
class QTextBrowser;

namespace metrisk {

class HelpWindow final : public QMainWindow {
    Q_OBJECT

  public:
    HelpWindow();

    /// Shows the page of that name, help/NAME.html.
    void open(const QString& page);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void search();
    void showColours();

    QTextBrowser* browser_;
    QLineEdit* wanted_;
};

} // namespace metrisk
