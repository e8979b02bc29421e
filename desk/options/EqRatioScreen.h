// The options of the equivalent accuracy ratio, screen EqRatio.
#pragma once

#include "desk/kit/Worksheet.h"

namespace metrisk {

struct Session;

class EqRatioScreen final : public Worksheet {
  public:
    RadioButton opt_Compute_0{*this, "opt_Compute_0", "  &Yes",
                              "Compute the equivalent accuracy ratio with the risks", 0};
    RadioButton opt_Compute_1{*this, "opt_Compute_1", "  &No (faster)", "Compute the risks alone", 0};
    RadioButton OptFalseAccept{*this, "OptFalseAccept", "  False &accept risk",
                               "Find the baseline ratio with the same false accept risk", 1};
    RadioButton OptFalseReject{*this, "OptFalseReject", "  False &reject risk",
                               "Find the baseline ratio with the same false reject risk", 1};
    CheckBox BeepOn{*this, "BeepOn", "   &Beep when finished", "Beep when a compute ends"};
    PushButton mnu_Exit_0{*this, "mnu_Exit_0", "&OK", "Keep the changes"};
    PushButton mnu_Exit_1{*this, "mnu_Exit_1", "&Cancel", "Leave without them"};

    explicit EqRatioScreen(Session& session);

    void refresh() override {}

  protected:
    /// Stored choices make the next compute search the ratio again.
    bool mayClose(Way way) override;

  private:
    Session& session_;

    bool changed() const;
    void store();
};

} // namespace metrisk
