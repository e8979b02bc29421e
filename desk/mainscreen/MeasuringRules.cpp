// The measuring parameter's boxes.
#include "base/NumberEntry.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "desk/compute/CoveragePatience.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/FieldRules.h"
#include "desk/mainscreen/OffsetPictures.h"
#include "desk/mainscreen/PctEntry.h"
#include "record/AnalysisTexts.h"
#include "record/ComposedOffset.h"
#include "record/EntryRules.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/Counts.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr const char* noPctReading = "##0";

std::string pctReadingPicture(int decimals) {
    return decimals < 1 ? noPctReading : "##0." + std::string(static_cast<std::size_t>(decimals), '0');
}

/// The expanded uncertainty belongs to the standard uncertainty, confidence and degrees of freedom.
void expandUncertainty(Session& session) {
    Analysis& r = session.record;
    const double factor = SolveCoverageFactor(r.MTE_PctInTol, r.MTE_DegFreedom, session.ui);
    if (factor <= 0 || r.MTE_StdUncertainty == 0) return;
    r.MTE_kFactor = factor;
    r.MTE_Offset = checked(factor * r.MTE_StdUncertainty);
    r.MTE_Offset_fmt = fullPicture(r.MTE_Offset, r.MTE_StdUncertainty_fmt);
}

/// The other way round: an entered expanded uncertainty gives the standard one.
void reduceUncertainty(Session& session) {
    Analysis& r = session.record;
    const double factor = SolveCoverageFactor(r.MTE_PctInTol, r.MTE_DegFreedom, session.ui);
    if (factor <= 0) return;
    r.MTE_kFactor = factor;
    r.MTE_StdUncertainty = checked(r.MTE_Offset / factor);
    r.MTE_StdUncertainty_fmt = fullPicture(r.MTE_StdUncertainty, r.MTE_Offset_fmt);
}

void compose(Analysis& r) {
    const auto [value, picture] = composeOffset(
        {r.MTE_FixedOffset, r.MTE_PctReading, r.MTE_FixedOffset_fmt, r.MTE_PctReading_fmt}, r.SU_Mode);
    r.MTE_Offset = value;
    r.MTE_Offset_fmt = picture;
}

void fitMeasuring(Session& session) {
    Analysis& r = session.record;
    r.MTE_UpperLimit = checked(r.MTE_Mode + r.MTE_Offset);
    r.MTE_LowerLimit = checked(r.MTE_Mode - r.MTE_Offset);
    r.markChanged("MTE");
    r.AbortFlag = false;
    ValidateAndFit(session);
}

/// The number typed, also as a part of the tolerance.
struct PartEntry {
    NumberEntry typed;
    double value;        // nominal units
    std::string picture; // held
};

void commitTolerance(Analysis& r, MeasuringBox box, const PartEntry& entry) {
    switch (box) {
    case MeasuringBox::Offset:
        r.MTE_Offset = entry.value;
        r.MTE_Offset_fmt = entry.picture;
        if (r.OffsetWorksheetFlag) return;
        r.MTE_PctReading = 0;
        r.MTE_PctReading_fmt = noPctReading;
        r.MTE_FixedOffset = r.MTE_Offset;
        r.MTE_FixedOffset_fmt = r.MTE_Offset_fmt;
        return;
    case MeasuringBox::Fixed:
        r.MTE_FixedOffset = entry.value;
        r.MTE_FixedOffset_fmt = entry.picture;
        break;
    case MeasuringBox::PctOfReading:
        r.MTE_PctReading = entry.typed.value;
        r.MTE_PctReading_fmt = pctReadingPicture(entry.typed.decimals);
        break;
    }
    compose(r);
}

void commitUncertainty(Session& session, MeasuringBox box, const PartEntry& entry) {
    Analysis& r = session.record;
    switch (box) {
    case MeasuringBox::Offset:
        r.MTE_Offset = entry.value;
        r.MTE_Offset_fmt = entry.picture;
        reduceUncertainty(session);
        return;
    case MeasuringBox::Fixed:
        r.MTE_StdUncertainty = entry.value;
        r.MTE_StdUncertainty_fmt = entry.picture;
        if (entry.value == 0) r.MTE_Offset = 0;
        break;
    case MeasuringBox::PctOfReading: r.MTE_DegFreedom = std::max(entry.typed.value, 0.0); break;
    }
    expandUncertainty(session);
}

} // namespace

FieldResult commitMeasuring(Session& session, MeasuringBox box, const std::string& text) {
    Analysis& r = session.record;
    const ToleranceUnits units = measuringUnits(r);
    r.MTE_TolUnitsFactor = units.factor; // a factor of 0 is not kept
    const NumberEntry typed = NumberEntry::read(text, session.regional);
    const PartEntry entry{typed, units.toNominal(typed.value), units.heldPicture(typed)};
    if (r.MTE_EntryByUncertainty)
        commitUncertainty(session, box, entry);
    else
        commitTolerance(r, box, entry);
    fitMeasuring(session);
    return {false, text};
}

FieldResult commitMTEPctInTol(Session& session, const std::string& text) {
    Analysis& r = session.record;
    const std::string shown = pctEntryText(r.MTE_PctInTol, session.regional);
    if (r.MTE_EntryByUncertainty && countsOf(text)) return refuseEntry(session.ui, noCountsMessage, shown);
    const auto value = pctEntered(session, text);
    if (!value) return {true, shown};
    const bool tooHigh = r.MTE_EntryByUncertainty ? *value > 100 : *value >= 100;
    if (tooHigh || *value <= 0) return refuseEntry(session.ui, measuringPctMessage, shown);
    if (*value == r.MTE_PctInTol) return {false, text};
    r.MTE_PctInTol = *value;
    r.markChanged();
    if (r.MTE_EntryByUncertainty) expandUncertainty(session);
    // A bias that a worksheet has computed is not fitted again from here.
    if (!r.MTE_EntryByUncertainty || !r.MTE_BiasFromWorksheet) fitMeasuring(session);
    return {false, text};
}

} // namespace metrisk
