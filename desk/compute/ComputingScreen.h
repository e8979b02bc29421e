// The progress screen of a compute, screen Computing: its texts, its meter and its cancel button.
#pragma once

#include "desk/kit/Session.h"
#include "desk/kit/Worksheet.h"

#include <optional>

namespace metrisk {

/// Where a search stands after a pass.
struct SearchProgress {
    const char* message; // a literal
    int iteration;
    double ratio;
    double error;
    double tolerance;
};

/// 0 to 100: how far |error| has come down to the tolerance, by orders of magnitude.
double searchMeter(double error, double tolerance);

class ComputingScreen final : public Worksheet {
  public:
    Label Label1{*this, "Label1", "Please Wait"};
    Label Lbl_Message1{*this, "Lbl_Message1"};
    Label Lbl_Message2{*this, "Lbl_Message2"};
    Label Lbl_MeterTitle{*this, "Lbl_MeterTitle", "Precision of Solution:"};
    metrisk::Meter Meter{*this, "Meter", "Precision of solution"};
    PushButton Cmd_Cancel{*this, "Cmd_Cancel", "Cancel", "Stop the search; the risks stay"};

    /// A cancel sets the session's AbortFlag.
    explicit ComputingScreen(Session& session)
        : Worksheet("Computing", "Computing", "computing"), session_(session) {
        Cmd_Cancel.closes = Way::Cancel;
        Cmd_Cancel.isPrimary = true;
        showSearch(false);
    }

    /// The controls of the ratio search: Lbl_MeterTitle, Lbl_Message2 and Meter.
    void showSearch(bool on) { Lbl_MeterTitle.visible = Lbl_Message2.visible = Meter.visible = on; }

    void startSearch(const char* message);
    /// The text and the meter of a search are formed when they are shown: most passes nobody sees.
    void setProgress(const SearchProgress& progress) { progress_ = progress; }

    void refresh() override;

  protected:
    /// Stops the search from its next pass on; a second press does nothing. The screen ends with its work.
    bool mayClose(Way) override {
        if (Cmd_Cancel.enabled) session_.record.AbortFlag = true;
        Cmd_Cancel.allow(false, "It ends with the step under way");
        return false;
    }

  private:
    Session& session_;
    std::optional<SearchProgress> progress_;
};

} // namespace metrisk
