// The choice between the two false accept risk conventions, screen FAFORM.
#pragma once

#include "desk/kit/Worksheet.h"

namespace metrisk {

struct Session;

class FalseAcceptScreen final : public Worksheet {
  public:
    RadioButton ConsumerRiskOption{*this, "ConsumerRiskOption", " Consumer's false accept risk (Option &1)",
                                   "The risk that an accepted unit is out of tolerance"};
    RadioButton ProducerRiskOption{*this, "ProducerRiskOption", " Producer's false accept risk (Option &2)",
                                   "The risk that a unit is out of tolerance and accepted"};
    CheckBox Chk_SetDefault{*this, "Chk_SetDefault", " &Set as default",
                            "New analyses start with this option"};
    PushButton cmd_Close{*this, "cmd_Close", "&Close", "Leave this screen"};

    explicit FalseAcceptScreen(Session& session);

    void refresh() override {}

  protected:
    /// Asks about a change; kept, it goes to the analysis (whose risks then need a compute) and, with
    /// Chk_SetDefault, to the settings at once.
    bool mayClose(Way way) override;

  private:
    Session& session_;

    void choose(int option);
    int option() const { return ProducerRiskOption.checked ? 1 : 0; }
    void storeAsDefault();
};

} // namespace metrisk
