#include "desk/mainscreen/ResultMarks.h"

#include "base/RelativeUnits.h"
#include "desk/mainscreen/MainScreen.h"
#include "record/Analysis.h"
#include "risk/evaluate/BaselineFigures.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/evaluate/ExactRemarks.h"

namespace metrisk {

namespace {

double fraction(double value, const std::string& units) {
    return units == ppmUnits ? value / 1e6 : value / 100;
}

void showMark(Label& label, double risk, double baseline) {
    label.text = risk < baseline ? "below baseline" : risk > baseline ? "above baseline" : "";
    label.toolTip = label.text;
    label.visible = !label.text.empty();
    label.tone = risk < baseline ? Label::Tone::Good : Label::Tone::Warn;
    label.sign = risk < baseline ? Label::Sign::Tick : Label::Sign::Up;
}

} // namespace

void showResultMarks(MainScreen& screen, const Analysis& r, const ExactRemarks& remarks) {
    const bool computed = everComputed(r);
    const bool current = computed && risksAreCurrent(r);
    screen.Lbl_State.text = !computed ? "not computed" : current ? "current" : "entries changed";
    screen.Lbl_State.tone = !computed ? Label::Tone::Second : current ? Label::Tone::Good : Label::Tone::Warn;
    showMark(screen.Lbl_AcceptMark, fraction(r.FalseAcceptRisk, r.FalseAcceptUnits),
             fraction(r.Base_FalseAccept, r.Base_AcceptUnits));
    showMark(screen.Lbl_RejectMark, fraction(r.FalseRejectRisk, r.FalseRejectUnits),
             fraction(r.Base_FalseReject, r.Base_RejectUnits));
    for (Label* mark : {&screen.Lbl_AcceptMark, &screen.Lbl_RejectMark})
        mark->visible = mark->visible && current && baselineIsCurrent(r);
    const bool parted =
        !remarks.falseAccept.empty() || !remarks.falseReject.empty() || !remarks.ratio.empty();
    screen.agreement = !current ? "" : parted ? "Exact integration differs" : "Exact integration agrees";
}

} // namespace metrisk
