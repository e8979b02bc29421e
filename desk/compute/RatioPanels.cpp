#include "desk/compute/RatioPanels.h"

#include "base/NumberText.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/kit/Session.h"

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

} // namespace

RatioPanels ratioPanels(const Session& session) {
    const Analysis& r = session.record;
    return {ratioText(r.SU_Sigma, r.MTE_Sigma, session.regional),
            ratioText(ratioTolerance(r), z95 * r.MTE_Sigma, session.regional)};
}

void UpdateRatioPanels(Session& session) {
    session.ui.repaintMainScreen();
}

} // namespace metrisk
