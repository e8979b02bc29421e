#include "shell/mainscreen/OffsetPictures.h"

#include "model/NumberText.h"
#include "model/RelativeUnits.h"
#include "model/Session.h"
#include "model/ToleranceUnits.h"
#include "uncertainty/ProcessTotals.h"
#include "units/ToleranceDecimals.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace metrisk {

namespace {

void movePicture(double value, std::string& picture, int decimals) {
    const int held = PictureDecimals(picture);
    const int needed = std::min(held, DecimalsOfValue(value, 0));
    picture = PictureForDecimals(std::max(held + decimals, needed));
}

} // namespace

void followModeInUnits(Session& session) {
    Analysis& r = session.record;
    if (r.NominalUnits != ppmUnits && !r.MeasurementArea.empty() && r.SU_Mode != 0) {
        const double factor = perMillion / std::fabs(r.SU_Mode);
        if (subjectUnits(r).isPpm()) r.SU_TolUnitsFactor = factor;
        if (measuringUnits(r).isPpm() && r.MTE_TolUnitsFactor != factor) {
            r.MTE_TolUnitsFactor = factor;
            SumProcessUncertainty(session); // the table's figures are parts of the reading, and stay so
        }
    }
    UpdateToleranceDecimals(r);
    UpdateMTEToleranceDecimals(r);
}

void moveOffsetPictures(Analysis& r, int decimals) {
    if (decimals == 0) return;
    movePicture(r.SU_UpperOffset, r.SU_UpperOffset_fmt, decimals);
    movePicture(r.SU_LowerOffset, r.SU_LowerOffset_fmt, decimals);
    movePicture(r.MTE_Offset, r.MTE_Offset_fmt, decimals);
    movePicture(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt, decimals);
    movePicture(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt, decimals);
}

} // namespace metrisk
