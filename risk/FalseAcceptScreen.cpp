#include "risk/FalseAcceptScreen.h"

#include "model/Message.h"
#include "model/Session.h"
#include "persistence/BaselineDefaults.h"
#include "risk/RiskConvention.h"

namespace metrisk {

namespace {

constexpr Question keepOption{"Do you want to keep the new risk option?", "Change Made",
                              BoxButtons::YesNoCancel, Answer::Cancel};

} // namespace

FalseAcceptScreen::FalseAcceptScreen(Session& session)
    : ConsumerRiskOption(session.record.FalseAcceptOption != 1),
      ProducerRiskOption(session.record.FalseAcceptOption == 1), session_(session) {}

void FalseAcceptScreen::choose(int option) {
    ConsumerRiskOption = option == 0;
    ProducerRiskOption = option == 1;
}

bool FalseAcceptScreen::changed() const {
    return option() != session_.record.FalseAcceptOption;
}

bool FalseAcceptScreen::leave() {
    if (changed()) {
        const Answer answer = ask(session_.ui, keepOption);
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::No) return true;
        Analysis& r = session_.record;
        r.FalseAcceptOption = option();
        r.RisksNeedCompute = true;
        r.FileChanged = true;
    }
    if (Chk_SetDefault) storeAsDefault();
    return true;
}

void FalseAcceptScreen::storeAsDefault() {
    WriteFalseAcceptConvention(session_.settings, option());
    BaselineDefaults baseline = ReadBaselineDefaults(session_.settings, session_.record.Base_EqRatioTarget);
    if (baseline.FalseAcceptOption == option()) return;
    ConvertRiskConvention(baseline, option());
    WriteBaselineDefaults(session_.settings, baseline);
}

} // namespace metrisk
