// The progress screen of a compute, screen Computing: its texts, its meter and its cancel button.
#pragma once

#include "model/Flag.h"
#include "model/Worksheet.h"

namespace metrisk {

class ComputingScreen final : public Worksheet {
  public:
    Label Label1{*this, "Label1", "Please Wait"};
    Label Lbl_Message1{*this, "Lbl_Message1"};
    Label Lbl_Message2{*this, "Lbl_Message2"};
    Label Lbl_MeterTitle{*this, "Lbl_MeterTitle", "Precision of Solution:"};
    metrisk::Meter Meter{*this, "Meter", "Precision of solution"};
    PushButton Cmd_Cancel{*this, "Cmd_Cancel", "Cancel", "Stop the search; the risks stay"};

    /// `abortFlag` is the flag that stops the search; it outlives the screen.
    explicit ComputingScreen(Flag& abortFlag)
        : Worksheet("Computing", "Computing", "computing"), abortFlag_(abortFlag) {
        Cmd_Cancel.closes = Way::Cancel;
        showSearch(false);
    }

    /// The controls of the ratio search: Lbl_MeterTitle, Lbl_Message2 and Meter.
    void showSearch(bool on) { Lbl_MeterTitle.visible = Lbl_Message2.visible = Meter.visible = on; }

    void refresh() override {}

  protected:
    /// Stops the search from its next pass on; a second press does nothing. The screen ends with its work.
    bool mayClose(Way) override {
        if (Cmd_Cancel.enabled) abortFlag_ = true;
        Cmd_Cancel.enabled = false;
        return false;
    }

  private:
    Flag& abortFlag_;
};

} // namespace metrisk
