// What a rule says to whoever sits before the program, and how long it asks for patience.
#pragma once

#include "base/Box.h"

#include <functional>
#include <string_view>

namespace metrisk {

class Talk {
  public:
    virtual ~Talk() = default;

    /// Shows the box and returns the button pressed.
    virtual Answer show(const Box& box) = 0;

    /// The status line; an empty text clears it.
    virtual void status(std::string_view text) = 0;

    /// Lets pending events run (cancel, repaint).
    virtual void yield() = 0;

    /// Wait pointer; calls nest. Use WaitPointer.
    virtual void setBusy(bool busy) = 0;

    virtual void beep() = 0;

    /// Opens the help page of that name.
    virtual void help(std::string_view page) = 0;

    /// Has `action` run in the thread of the screens, between the user's actions or at a yield. The only
    /// procedure that may be called from any thread.
    virtual void post(std::function<void()> action) = 0;
};

/// Shows the wait pointer for the life of the object.
class WaitPointer {
  public:
    explicit WaitPointer(Talk& ui) : ui_(ui) { ui_.setBusy(true); }
    ~WaitPointer() { ui_.setBusy(false); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

  private:
    Talk& ui_;
};

/// Shows a status line for the life of the object and clears it then.
class StatusText {
  public:
    StatusText(Talk& ui, std::string_view text) : ui_(ui) { ui_.status(text); }
    ~StatusText() { ui_.status(""); }
    StatusText(const StatusText&) = delete;
    StatusText& operator=(const StatusText&) = delete;

  private:
    Talk& ui_;
};

} // namespace metrisk
