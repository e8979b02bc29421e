// The options of the equivalent accuracy ratio, screen EqRatio.
#pragma once

namespace metrisk {

struct Session;

/// Members bear the names of the option groups.
class EqRatioScreen {
  public:
    static constexpr const char* opt_Compute[] = {"  &Yes", "  &No (faster)"};
    static constexpr const char* OptFalseAcceptCaption = "  False &accept risk";
    static constexpr const char* OptFalseRejectCaption = "  False &reject risk";
    static constexpr const char* BeepOnCaption = "   &Beep when finished";

    bool computeRatio = true;   // opt_Compute
    bool OptFalseAccept = true; // else OptFalseReject
    bool BeepOn = false;

    explicit EqRatioScreen(Session& session);

    bool changed() const;
    /// Stores the choices; the next compute searches the ratio again.
    void ok();
    /// False when the screen stays open.
    bool cancel();

  private:
    Session& session_;
};

/// The next compute counts the baseline as changed and searches again; the ratio found before is gone.
void dropEquivalentRatio(Session& session);

} // namespace metrisk
