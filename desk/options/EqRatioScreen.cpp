#include "desk/options/EqRatioScreen.h"

#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "risk/Snapshot.h"

namespace metrisk {

namespace {

void chooseOne(Button& chosen, Button& other, bool first) {
    chosen.checked = first;
    other.checked = !first;
}

} // namespace

EqRatioScreen::EqRatioScreen(Session& session)
    : Worksheet("EqRatio", "Equivalent Accuracy Ratio", "equivalent-ratio"), session_(session) {
    const Analysis& r = session.record;
    chooseOne(opt_Compute_0, opt_Compute_1, r.ComputeEqRatio);
    chooseOne(OptFalseAccept, OptFalseReject, r.EqRatioOnFalseAccept);
    BeepOn.checked = r.BeepWhenFinished;
    opt_Compute_0.clicked = [this](bool) { chooseOne(opt_Compute_0, opt_Compute_1, true); };
    opt_Compute_1.clicked = [this](bool) { chooseOne(opt_Compute_0, opt_Compute_1, false); };
    OptFalseAccept.clicked = [this](bool) { chooseOne(OptFalseAccept, OptFalseReject, true); };
    OptFalseReject.clicked = [this](bool) { chooseOne(OptFalseAccept, OptFalseReject, false); };
    BeepOn.clicked = [this](bool on) { BeepOn.checked = on; };
    mnu_Exit_0.closes = Way::Ok;
    mnu_Exit_0.isDefault = true;
    mnu_Exit_0.isPrimary = true;
    mnu_Exit_1.closes = Way::Cancel;
}

bool EqRatioScreen::changed() const {
    const Analysis& r = session_.record;
    return r.ComputeEqRatio != opt_Compute_0.checked || r.EqRatioOnFalseAccept != OptFalseAccept.checked ||
           r.BeepWhenFinished != BeepOn.checked;
}

void EqRatioScreen::store() {
    Analysis& r = session_.record;
    r.ComputeEqRatio = opt_Compute_0.checked;
    r.EqRatioOnFalseAccept = OptFalseAccept.checked;
    r.BeepWhenFinished = BeepOn.checked;
    r.FileChanged = true;
    dropEquivalentRatio(session_.record);
}

bool EqRatioScreen::mayClose(Way way) {
    if (!changed()) return true;
    const Answer retain = way == Way::Ok ? Answer::Yes : ask(session_.ui, retainChanges);
    if (retain == Answer::Yes) store();
    return retain != Answer::Cancel;
}

} // namespace metrisk
