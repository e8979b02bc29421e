// What the rules need of whoever sits before the program: boxes, focus, progress, patience.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace metrisk {

class ComputingScreen;

enum class BoxIcon { None, Information, Exclamation, Question };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// A modal message box. `unattended` is the answer of a run that nobody watches; each question
/// names it where it is asked.
struct Box {
    std::string text;
    std::string title = "Metrisk";
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    Answer unattended = Answer::Ok;
};

class Interaction {
  public:
    virtual ~Interaction() = default;

    /// Shows the box and returns the button pressed.
    virtual Answer show(const Box& box) = 0;

    /// Moves focus to the control of that name; with `select` its whole text is selected.
    virtual void focus(std::string_view control, bool select = false) = 0;

    /// Makes a panel stand out until the next entry.
    virtual void highlight(std::string_view /*panel*/) {}

    /// Lets pending events run (cancel, repaint).
    virtual void yield() = 0;

    /// The status line; an empty text clears it.
    virtual void status(std::string_view text) = 0;

    /// Runs `step` behind the modal progress screen and returns when it has closed.
    virtual void runComputing(ComputingScreen& screen, const std::function<void()>& step) = 0;

    /// The progress screen's texts or meter have changed.
    virtual void updateComputing(const ComputingScreen& screen) = 0;

    /// The record changed in a way that the main screen shows.
    virtual void repaintMainScreen() = 0;

    /// The accuracy ratios of the fitted parameters may differ now.
    virtual void repaintRatioPanels() {}

    /// Wait pointer; calls nest. Use WaitPointer.
    virtual void setBusy(bool busy) = 0;

    virtual void beep() = 0;
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
