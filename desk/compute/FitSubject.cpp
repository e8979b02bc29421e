#include "desk/compute/FitSubject.h"

#include "desk/kit/FaultMessages.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/kit/Validation.h"
#include "risk/SubjectFit.h"

namespace metrisk {

namespace {

constexpr const char* fittingText = "Fitting the subject parameter...";

} // namespace

void FitSubjectParameter(Session& session) {
    Analysis& r = session.record;
    SubjectParameter& subject = r;
    r.AbortFlag = false;
    const auto abort = [&r] {
        r.AbortFlag = true;
        r.ComputeNeeded = true;
    };
    try {
        const StatusText status(session.ui, fittingText);
        r.SilentFault.clear();
        subject = faultsNamed("FitSubjectParameter", [&] { return fitSubject(subject, session.regional); });
    } catch (const RuntimeFault& fault) {
        r.SilentFault = describe(fault);
        abort();
    } catch (const FitRefusal& refusal) {
        tell(session.ui, {refusal.text, refusal.title});
        if (refusal.box && !validationIsQuiet(session)) session.ui.focus(refusal.box, true);
        abort();
    }
}

} // namespace metrisk
