// A screen that shows one distribution plot; what the three of them have in common.
#pragma once

#include "desk/kit/Worksheet.h"
#include "plots/DistributionPlot.h"

namespace metrisk {

class PlotDesk;
struct Session;

/// The range, the options and the data of a plot stand in the record; a change of them draws it anew.
class PlotScreen : public Worksheet {
  public:
    const PlotKind kind;
    PictureArea pic_Plot{*this, "pic_Plot", "", ""};

    /// Fits anew if the curve is stale, and draws. The user is told where there is nothing to draw.
    void redraw();
    /// At the next redraw the curve is computed anew.
    void markStale() { stale_ = true; }
    /// What the screen shows; no data if it is empty.
    const DistributionPlot& plot() const { return plot_; }

    void refresh() override;

    /// It has been left, or is about to be.
    bool isGone() const { return gone_; }

  protected:
    PlotScreen(PlotDesk& desk, PlotKind plotKind, const char* screenName);

    Session& session();
    PlotDesk& desk() { return desk_; }
    bool mayClose(Way way) override;

    /// Fits what the curve needs; failure is AbortFlag.
    virtual void fit() = 0;
    virtual DistributionPlot compute() = 0;
    virtual double& zoom() = 0;
    virtual void afterFailedDrawing() {}
    /// Captions, check marks and states of the commands.
    virtual void showCommands() = 0;

    MenuItem zoomMenu();
    MenuItem copyItem();
    MenuItem redrawItem(const char* control);
    MenuItem returnItem(const char* control);
    MenuItem helpItem();
    /// The command that brings up the screen of another plot beside this one.
    MenuItem partnerItem(const char* control, PlotKind partner);
    /// An option with a check mark.
    MenuItem optionItem(const char* control, const char* caption, std::function<void()> choose);
    void check(const char* control, bool on);
    MenuItem& item(const char* control);
    /// An option that the file keeps has changed.
    void changed();
    void useSubjectLimits(const std::function<void()>& choose);

  private:
    void clear();
    bool tryDrawing();

    PlotDesk& desk_;
    DistributionPlot plot_;
    bool stale_ = true;
    bool gone_ = false;
};

} // namespace metrisk
