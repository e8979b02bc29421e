// Help on the screen that is seen on top, by its key or from a menu.
#pragma once

#include <QObject>
#include <memory>
#include <string>

namespace metrisk {

class HelpWindow;
class QtInteraction;

class HelpDesk final : public QObject {
    Q_OBJECT

  public:
    /// The help key is seen wherever it is pressed.
    explicit HelpDesk(QtInteraction& ui);
    ~HelpDesk() override;

    /// A help file of the user's own, opened in place of the pages if it exists.
    std::string HelpFilePath;

    void open(const std::string& page);
    /// Closes the window, if it is open.
    void close();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QtInteraction& ui_;
    std::unique_ptr<HelpWindow> window_; // no window's child: whatever closes, it stays
};

} // namespace metrisk
