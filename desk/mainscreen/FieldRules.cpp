// The subject parameter's boxes.
#include "desk/mainscreen/FieldRules.h"

#include "base/NumberEntry.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "desk/compute/FollowMode.h"
#include "desk/compute/RatioPanels.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/OffsetPictures.h"
#include "desk/mainscreen/PctEntry.h"
#include "record/AnalysisTexts.h"
#include "record/EntryRules.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// A limit or the mode alone is no reason to fit: the other data must be there.
void fitSubjectIfEntered(Session& session) {
    const Analysis& r = session.record;
    if (r.SU_PctInTol != 0 && (r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0)) ValidateAndFit(session);
}

void storeOffset(Analysis& r, const SubjectSide& side, double offset, const std::string& picture) {
    r.*side.offset = r.*side.fixed = offset;
    r.*side.offsetPicture = r.*side.fixedPicture = picture;
    r.*side.pctReading = 0;
    r.*side.limit = checked(r.SU_Mode + side.sign * offset);
}

void commitPhysicalLimit(Session& session, const std::string& text) {
    Analysis& r = session.record;
    const NumberEntry entry = NumberEntry::read(text, session.regional);
    r.PhysicalLimit = entry.value;
    r.PhysicalLimit_fmt = entry.picture();
    r.PhysicalLimitEntered = !entry.blank;
}

} // namespace

FieldResult commitMode(Session& session, const std::string& text, const std::string& last) {
    Analysis& r = session.record;
    const NumberEntry entry = NumberEntry::read(text, session.regional);
    const double mode = entry.value;
    if (mode == 0 && (r.NominalUnits == ppmUnits || subjectUnits(r).isPpm()))
        return refuseEntry(session.ui, ppmModeMessage, last);

    const int before = PictureDecimals(r.SU_Mode_fmt);
    const double oldMode = r.SU_Mode;
    r.SU_Mode = r.MTE_Mode = mode;
    r.SU_Mode_fmt = entry.picture();
    followModeInTolerances(r, oldMode);
    followModeInUnits(session);
    r.SU_UpperLimit = checked(mode + r.SU_UpperOffset);
    r.SU_LowerLimit = checked(mode - r.SU_LowerOffset);
    r.MTE_UpperLimit = checked(mode + r.MTE_Offset);
    r.MTE_LowerLimit = checked(mode - r.MTE_Offset);
    moveOffsetPictures(r, entry.decimals - before);

    const bool measuringEntered = r.MTE_Offset > 0 && r.MTE_PctInTol > 0;
    r.markChanged(measuringEntered ? "Both" : "SU");
    fitSubjectIfEntered(session);
    return {false, text};
}

FieldResult commitLimit(Session& session, const SubjectSide& side, const std::string& text,
                        const std::string& last) {
    Analysis& r = session.record;
    if (r.*side.absent) {
        if (!r.PhysLimitRequired) return {false, text};
        commitPhysicalLimit(session, text);
        r.markChanged("SU");
        fitSubjectIfEntered(session);
        return {false, text};
    }
    const bool followsUpper = &side == &lowerSide && r.OptTwoSided && r.SymmetricTolerances;
    if (followsUpper) return {false, text};
    const NumberEntry entry = NumberEntry::read(text, session.regional);
    double offset = 0;
    std::string picture;
    if (r.ShowLimits) {
        offset = checked(side.sign * (entry.value - r.SU_Mode));
        // The offset must show all digits of both the limit and the mode.
        picture = PictureForDecimals(std::max(entry.decimals, PictureDecimals(r.SU_Mode_fmt)));
    } else {
        const ToleranceUnits units = subjectUnits(r);
        r.SU_TolUnitsFactor = units.factor; // a factor of 0 is not kept
        offset = units.toNominal(entry.value);
        picture = units.heldPicture(entry);
    }
    if (offset < 0) return refuseEntry(session.ui, {zeroOrAboveText, side.offsetTitle}, last);

    storeOffset(r, side, offset, picture);
    if (r.SymmetricTolerances) storeOffset(r, otherSide(side), offset, picture);
    r.markChanged("SU");
    fitSubjectIfEntered(session);
    return {false, text};
}

FieldResult commitPctInTol(Session& session, const std::string& text) {
    Analysis& r = session.record;
    const auto value = pctEntered(session, text);
    if (!value) return {true, pctEntryText(r.SU_PctInTol, session.regional)};
    if (*value > 100 || *value <= 0)
        return refuseEntry(session.ui, subjectPctMessage, pctEntryText(r.SU_PctInTol, session.regional));
    if (*value == r.SU_PctInTol) return {false, text};
    r.SU_PctInTol = *value;
    r.markChanged("SU");
    ValidateAndFit(session);
    UpdateRatioPanels(session);
    return {false, text};
}

} // namespace metrisk
