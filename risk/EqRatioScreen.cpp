#include "risk/EqRatioScreen.h"

#include "model/Message.h"
#include "model/Session.h"

namespace metrisk {

EqRatioScreen::EqRatioScreen(Session& session)
    : computeRatio(session.record.ComputeEqRatio), OptFalseAccept(session.record.EqRatioOnFalseAccept),
      BeepOn(session.record.BeepWhenFinished), session_(session) {}

bool EqRatioScreen::changed() const {
    const Analysis& r = session_.record;
    return r.ComputeEqRatio != computeRatio || r.EqRatioOnFalseAccept != OptFalseAccept ||
           r.BeepWhenFinished != BeepOn;
}

void EqRatioScreen::ok() {
    if (!changed()) return;
    Analysis& r = session_.record;
    r.ComputeEqRatio = computeRatio;
    r.EqRatioOnFalseAccept = OptFalseAccept;
    r.BeepWhenFinished = BeepOn;
    r.FileChanged = true;
    dropEquivalentRatio(session_);
}

bool EqRatioScreen::cancel() {
    if (!changed()) return true;
    switch (ask(session_.ui, retainChanges)) {
    case Answer::Yes: ok(); return true;
    case Answer::Cancel: return false;
    default: return true;
    }
}

void dropEquivalentRatio(Session& session) {
    Analysis& r = session.record;
    r.EqAccRat = 0;
    r.EqAccRatDen.clear();
    r.Last_Base1 = -1; // no accuracy ratio is negative
}

} // namespace metrisk
