#include "desk/compute/RatioPanels.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/kit/Session.h"
#include "risk/SubjectFit.h"

#include <cmath>

namespace metrisk {

namespace {

constexpr double z95 = 1.959964;
constexpr double labelTolerance = 0.001;

std::string ratioText(double numerator, double denominator, const Regional& regional) {
    const double ratio = numerator / denominator;
    if (!(ratio > 0) || !std::isfinite(ratio)) return "";
    return FormatNumber(ratio, RatioPicture(ratio, labelTolerance), regional) + " : 1";
}

/// Fitted here: not every choice fits at once, and the last fit was of other entries. 0 if there is no fit.
double subjectSigma(const Session& session) {
    const Analysis& r = session.record;
    try {
        return r.SU_PctInTol > 0 ? fitSubject(r, session.regional).SU_Sigma : 0;
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    }
    return 0;
}

} // namespace

RatioPanels ratioPanels(const Session& session) {
    const Analysis& r = session.record;
    return {ratioText(subjectSigma(session), r.MTE_Sigma, session.regional),
            ratioText(ratioTolerance(r), z95 * r.MTE_Sigma, session.regional)};
}

void UpdateRatioPanels(Session& session) {
    session.ui.repaintMainScreen();
}

} // namespace metrisk
