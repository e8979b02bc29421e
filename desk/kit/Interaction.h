// What the rules need of whoever sits before the program: boxes, focus, progress, patience.
#pragma once

#include "base/Box.h"

#include <functional>
#include <string>
#include <string_view>

namespace metrisk {

class Worksheet;
struct PictureArea;

/// A control of a screen; by its name alone one of the main screen.
struct ControlName {
    std::string_view screen = "MainScreen";
    std::string_view control;

    ControlName(const char* name) : control(name) {}
    ControlName(std::string_view itsScreen, std::string_view name) : screen(itsScreen), control(name) {}
};

class Interaction {
  public:
    virtual ~Interaction() = default;

    /// Shows the box and returns the button pressed.
    virtual Answer show(const Box& box) = 0;

    /// Shows the screen until it is left. `work` starts once the screen is seen and ends it: such a screen
    /// tells of progress.
    virtual void run(Worksheet& screen, const std::function<void()>& work = {}) = 0;

    /// Shows the screen beside those that run, without waiting; run() returns when it has been left as well.
    /// The screen must live until then.
    virtual void open(Worksheet& screen) = 0;

    /// Puts two screens side by side, each on a half of the desktop.
    virtual void placeBeside(Worksheet& left, Worksheet& right) = 0;

    /// The screen's own state has changed in the midst of a rule.
    virtual void refresh(Worksheet& screen) = 0;

    /// The record changed in a way that the main screen shows.
    virtual void repaintMainScreen() = 0;

    /// Moves focus to the control; with `select` its whole text is selected.
    virtual void focus(const ControlName& control, bool select = false) = 0;

    /// Makes a panel of the main screen stand out until the next entry; none if the name is empty.
    virtual void highlight(std::string_view panel) = 0;

    /// Lets pending events run (cancel, repaint).
    virtual void yield() = 0;

    /// The status line; an empty text clears it.
    virtual void status(std::string_view text) = 0;

    /// Opens the help page of that name.
    virtual void help(std::string_view page) = 0;

    /// Wait pointer; calls nest. Use WaitPointer.
    virtual void setBusy(bool busy) = 0;

    /// Lets the screen behind that one be seen for a moment.
    virtual void peekBehind(Worksheet& screen) = 0;

    virtual void beep() = 0;

    /// Has `action` run in the thread of the screens, between the user's actions or at a yield. The only
    /// procedure that may be called from any thread.
    virtual void post(std::function<void()> action) = 0;

    /// Runs the action as if the user had asked for it on that screen, after committing the entry being made.
    /// False, and nothing done, unless the user could ask for it: another screen or a box in front, an action
    /// under way, or a refused entry keeps him from it.
    virtual bool perform(Worksheet& screen, const std::function<void()>& action) = 0;

    /// Puts the text on the clipboard.
    virtual void copyText(std::string_view text) = 0;

    /// Prints the picture on a page, where and how the user says. False if it could not be printed; a user
    /// who thinks better of it is no failure.
    virtual bool print(const PictureArea& picture, std::string_view title) = 0;

    /// Puts the picture, in the size in which it is seen, on the clipboard.
    virtual void copyPicture(const PictureArea& picture) = 0;
};

/// Shows the wait pointer for the life of the object.
class WaitPointer {
  public:
    explicit WaitPointer(Interaction& ui) : ui_(ui) { ui_.setBusy(true); }
    ~WaitPointer() { ui_.setBusy(false); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

  private:
    Interaction& ui_;
};

/// Shows a status line for the life of the object and clears it then.
class StatusText {
  public:
    StatusText(Interaction& ui, std::string_view text) : ui_(ui) { ui_.status(text); }
    ~StatusText() { ui_.status(""); }
    StatusText(const StatusText&) = delete;
    StatusText& operator=(const StatusText&) = delete;

  private:
    Interaction& ui_;
};

} // namespace metrisk
