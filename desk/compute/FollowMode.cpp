#include "desk/compute/FollowMode.h"

#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "desk/kit/Session.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ProcessTotals.h"
#include "units/ToleranceDecimals.h"

#include <cmath>

namespace metrisk {

namespace {

/// What was entered stays: a fixed part in ppm is one of the new reading, and so is a part in percent of it.
void follow(double& offset, double& fixed, double pctReading, bool ppm, double before, double mode) {
    const double scale = ppm && before != 0 && mode != 0 ? std::fabs(mode / before) : 1;
    double rest = offset - std::fabs(before) * pctReading / 100;
    if (std::fabs(rest - fixed) <= 1e-12 * std::fabs(offset)) rest = fixed; // no trace of the difference
    offset = checked(rest * scale + std::fabs(mode) * pctReading / 100);
    fixed = checked(fixed * scale);
}

} // namespace

void followModeInTolerances(Analysis& r, double before) {
    const double mode = r.SU_Mode;
    if (mode == before) return;
    const bool ppm = subjectUnits(r).isPpm();
    for (const SubjectSide* side : {&upperSide, &lowerSide})
        follow(r.*side->offset, r.*side->fixed, r.*side->pctReading, ppm, before, mode);
    if (!r.MTE_EntryByUncertainty) {
        follow(r.MTE_Offset, r.MTE_FixedOffset, r.MTE_PctReading, measuringUnits(r).isPpm(), before, mode);
    } else if (measuringUnits(r).isPpm()) {
        follow(r.MTE_Offset, r.MTE_FixedOffset, 0, true, before, mode);
        double none = 0;
        follow(r.MTE_StdUncertainty, none, 0, true, before, mode);
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
