// Which screens are seen, and where the focus is.
#pragma once

#include <functional>
#include <string_view>

namespace metrisk {

class Worksheet;

/// A control of a screen; by its name alone one of the main screen.
struct ControlName {
    std::string_view screen = "MainScreen";
    std::string_view control;

    ControlName(const char* name) : control(name) {}
    ControlName(std::string_view itsScreen, std::string_view name) : screen(itsScreen), control(name) {}
};

class Screens {
  public:
    virtual ~Screens() = default;

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

    /// Lets the screen behind that one be seen for a moment.
    virtual void peekBehind(Worksheet& screen) = 0;

    /// Runs the action as if the user had asked for it on that screen, after committing the entry being made.
    /// False, and nothing done, unless the user could ask for it: another screen or a box in front, an action
    /// under way, or a refused entry keeps him from it.
    virtual bool perform(Worksheet& screen, const std::function<void()>& action) = 0;
};

} // namespace metrisk
