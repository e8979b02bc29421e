// Interaction in the window program: message boxes, screens, focus and patience by Qt.
#pragma once

#include "desk/kit/Interaction.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace metrisk {

class ScreenBinder;
class WidgetMaker;
class WorksheetDialog;

/// Lays out the screen of that name; null if there is none.
using LayoutOf = std::function<QWidget*(const char* screen, const WidgetMaker& widgets)>;

class QtInteraction final : public Interaction {
  public:
    explicit QtInteraction(LayoutOf layoutOf);
    ~QtInteraction() override;

    /// The main screen, on top of which all else is shown; it may come later and goes with the window.
    void setMainScreen(ScreenBinder* screen);

    std::function<void(const std::string&)> onStatus;
    std::function<void(const std::string& page)> onHelp;

    Answer show(const Box& box) override;
    void run(Worksheet& screen, const std::function<void()>& work) override;
    void open(Worksheet& screen) override;
    void placeBeside(Worksheet& left, Worksheet& right) override;
    void refresh(Worksheet& screen) override;
    void repaintMainScreen() override;
    void focus(const ControlName& control, bool select) override;
    void highlight(std::string_view panel) override;
    void yield() override;
    void status(std::string_view text) override;
    void help(std::string_view page) override;
    void setBusy(bool busy) override;
    void peekBehind(Worksheet& screen) override;
    void beep() override;
    void post(std::function<void()> action) override;
    bool perform(Worksheet& screen, const std::function<void()>& action) override;
    void copyText(std::string_view text) override;
    bool print(const PictureArea& picture, std::string_view title) override;
    void copyPicture(const PictureArea& picture) override;

    /// The worksheet seen on top; null before the main screen has come.
    const Worksheet* top() const;

  private:
    /// What the user sees is up to date before he is asked or time passes.
    void flush();
    QWidget* owner() const;
    ScreenBinder* binderOf(const Worksheet& screen) const;
    void forget(ScreenBinder* screen);
    /// Until the screens opened beside the one that has just been left have been left as well.
    void waitForCompanions(std::size_t first, QWidget* parent);

    LayoutOf layoutOf_;
    std::vector<ScreenBinder*> open_; // the main screen first
    std::vector<std::unique_ptr<WorksheetDialog>> companions_;
    std::vector<WorksheetDialog*> running_; // the modal ones, over each other
};

} // namespace metrisk
