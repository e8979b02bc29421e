// The line below the computed risks: the worst false accept risk over an unknown % in-tolerance.
#pragma once

#include "desk/kit/Background.h"

#include <functional>
#include <optional>
#include <string>

namespace metrisk {

struct Label;
struct Session;

/// Computed beside the screens, of the entries that the shown risks belong to; without those it is empty. The
/// user's choice whether it is shown is kept in the settings.
class WorstCaseLine {
  public:
    /// `arrived` is called in the thread of the screens when there is another text.
    WorstCaseLine(Session& session, std::function<void()> arrived);

    bool isOn() const { return on_; }
    void turn(bool on);

    /// The text in the label, and in its tool tip both conventions, TUR and U.
    void show(Label& label);
    bool isComputing() const { return background_.isBusy(); }

  private:
    struct Texts {
        std::string line, tip;
    };

    Session& session_;
    std::function<void()> arrived_;
    bool on_;
    std::string entries_; // that texts_ belongs to, by their fingerprint
    std::optional<Texts> texts_;
    Background background_;
};

} // namespace metrisk
