// The progress screen of a compute: its texts, its meter and its cancel button.
#pragma once

#include "model/Flag.h"

#include <string>

namespace metrisk {

/// Members bear the names of the controls. The meter runs from 0 to 100.
class ComputingScreen {
  public:
    static constexpr const char* Lbl_MeterTitle = "Precision of Solution:";
    static constexpr const char* Label1 = "Please Wait";

    std::string Lbl_Message1;
    std::string Lbl_Message2;
    double Meter = 0;
    bool searchVisible = false; // Lbl_MeterTitle, Lbl_Message2 and Meter are shown
    bool cancelEnabled = true;

    /// `abortFlag` is the flag that stops the search; it outlives the screen.
    explicit ComputingScreen(Flag& abortFlag) : abortFlag_(abortFlag) {}

    /// Stops the search from its next pass on; a second press does nothing.
    void Cmd_Cancel_Click() {
        if (!cancelEnabled) return;
        cancelEnabled = false;
        abortFlag_ = true;
    }

  private:
    Flag& abortFlag_;
};

} // namespace metrisk
