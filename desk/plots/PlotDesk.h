// The plot screens that are open, alone or side by side.
#pragma once

#include "plots/DistributionPlot.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace metrisk {

class PlotScreen;
struct Session;

class PlotDesk {
  public:
    explicit PlotDesk(Session& session);
    ~PlotDesk();

    Session& session() { return session_; }

    /// Shows the plot's screen until it and those beside it have been left. A total error without process
    /// uncertainty is told and not shown.
    void show(PlotKind kind);

    /// Brings up another plot beside that screen, or draws it anew if it stands there already.
    void showBeside(PlotScreen& screen, PlotKind other);
    /// Back to where the plots came from: the screen is left, and its partner of a comparison as well.
    void comeBack(PlotScreen& screen);
    /// The screen is being left on its own; a partner stays.
    void left(PlotScreen& screen);

    /// What the command for another plot reads, and whether there is anything to show.
    std::string captionFor(const PlotScreen& screen, PlotKind other) const;
    bool hasData(PlotKind kind) const;

  private:
    PlotScreen* showing(PlotKind kind) const;
    bool compared(const PlotScreen& screen) const;
    PlotScreen& make(PlotKind kind);
    void refreshAll();

    Session& session_;
    std::vector<std::unique_ptr<PlotScreen>> screens_; // also those left, until all are
    std::pair<PlotScreen*, PlotScreen*> comparison_{};
    bool everCompared_ = false;
};

} // namespace metrisk
