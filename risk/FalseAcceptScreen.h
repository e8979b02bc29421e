// The choice between the two false accept risk conventions, screen FAFORM.
#pragma once

#include <functional>

namespace metrisk {

struct Session;

/// Members bear the names of the controls.
class FalseAcceptScreen {
  public:
    static constexpr const char* ConsumerRiskOptionCaption = " Consumer's false accept risk (Option &1)";
    static constexpr const char* ProducerRiskOptionCaption = " Producer's false accept risk (Option &2)";
    static constexpr const char* Chk_SetDefaultCaption = " &Set as default";

    bool ConsumerRiskOption;
    bool ProducerRiskOption;
    bool Chk_SetDefault = false;

    explicit FalseAcceptScreen(Session& session);

    void chooseConsumer() { choose(0); }
    void chooseProducer() { choose(1); }
    int option() const { return ProducerRiskOption ? 1 : 0; }
    bool changed() const;

    /// Asks about a change; kept, it goes to the analysis (whose risks then need a compute) and, with
    /// Chk_SetDefault, to the settings at once. False when the screen stays open.
    bool leave();

  private:
    Session& session_;

    void choose(int option);
    void storeAsDefault();
};

/// Shows the screen and returns when leave() has closed it.
using RunFalseAcceptScreen = std::function<void(FalseAcceptScreen&)>;

} // namespace metrisk
