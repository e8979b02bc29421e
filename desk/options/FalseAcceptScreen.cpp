#include "desk/options/FalseAcceptScreen.h"

#include "desk/compute/RiskConvention.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "persistence/BaselineDefaults.h"

namespace metrisk {

namespace {

constexpr Question keepOption{"Do you want to keep the new risk option?", "Change Made",
                              BoxButtons::YesNoCancel, Answer::Cancel};

} // namespace

FalseAcceptScreen::FalseAcceptScreen(Session& session)
    : Worksheet("FAFORM", "False Accept Risk Option", "false-accept-option"), session_(session) {
    choose(session.record.FalseAcceptOption == 1 ? 1 : 0);
    ConsumerRiskOption.clicked = [this](bool) { choose(0); };
    ProducerRiskOption.clicked = [this](bool) { choose(1); };
    Chk_SetDefault.clicked = [this](bool on) { Chk_SetDefault.checked = on; };
    cmd_Close.closes = Way::Ok;
    cmd_Close.isDefault = true;
    cmd_Close.isPrimary = true;
}

void FalseAcceptScreen::choose(int option) {
    ConsumerRiskOption.checked = option == 0;
    ProducerRiskOption.checked = option == 1;
}

bool FalseAcceptScreen::mayClose(Way) {
    if (option() != session_.record.FalseAcceptOption) {
        const Answer answer = ask(session_.ui, keepOption);
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::No) return true;
        Analysis& r = session_.record;
        r.FalseAcceptOption = option();
        r.RisksNeedCompute = true;
        r.FileChanged = true;
    }
    if (Chk_SetDefault.checked) storeAsDefault();
    return true;
}

void FalseAcceptScreen::storeAsDefault() {
    BaselineDefaults baseline = ReadBaselineDefaults(session_.settings, session_.record.Base_EqRatioTarget);
    if (baseline.FalseAcceptOption == option())
        return WriteFalseAcceptConvention(session_.settings, option());
    ConvertRiskConvention(baseline, option());
    WriteBaselineDefaults(session_.settings, baseline, option());
}

} // namespace metrisk
