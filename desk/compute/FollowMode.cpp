#include "desk/compute/FollowMode.h"

#include "base/RelativeUnits.h"
#include "desk/kit/Session.h"
#include "record/ComposedOffset.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ProcessTotals.h"
#include "units/ToleranceDecimals.h"

#include <cmath>

namespace metrisk {

void followModeInTolerances(Analysis& r, double before) {
    const double mode = r.SU_Mode;
    if (mode == before) return;
    const bool ppm = subjectUnits(r).isPpm();
    for (const SubjectSide* side : {&upperSide, &lowerSide})
        followReading(r.*side->offset, r.*side->fixed, r.*side->pctReading, ppm, before, mode);
    if (!r.MTE_EntryByUncertainty) {
        followReading(r.MTE_Offset, r.MTE_FixedOffset, r.MTE_PctReading, measuringUnits(r).isPpm(), before,
                      mode);
    } else if (measuringUnits(r).isPpm()) {
        followReading(r.MTE_Offset, r.MTE_FixedOffset, 0, true, before, mode);
        double none = 0;
        followReading(r.MTE_StdUncertainty, none, 0, true, before, mode);
    }
}

void followModeInUnits(Session& session) {
    Analysis& r = session.record;
    if (r.NominalUnits != ppmUnits && !r.MeasurementArea.empty() && r.SU_Mode != 0) {
        const double factor = perMillion / std::fabs(r.SU_Mode);
        if (subjectUnits(r).isPpm()) r.SU_TolUnitsFactor = factor;
        if (measuringUnits(r).isPpm() && r.MTE_TolUnitsFactor != factor) {
            r.MTE_TolUnitsFactor = factor;
            SumProcessUncertainty(
                session.record,
                session.regional); // the table's figures are parts of the reading, and stay so
        }
    }
    UpdateToleranceDecimals(r);
    UpdateMTEToleranceDecimals(r);
}

} // namespace metrisk
