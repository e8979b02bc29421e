#include "desk/mainscreen/MeasuringRow.h"

#include "base/NumberText.h"
#include "desk/kit/Session.h"
#include "desk/mainscreen/MainScreen.h"
#include "desk/mainscreen/OffsetPictures.h"
#include "record/ToleranceParts.h"
#include "record/ToleranceUnits.h"

namespace metrisk {

namespace {

constexpr const char* otherParts = "These parts belong to another tolerance";
constexpr const char* infinity = "\u221e";

struct Labels {
    const char* limit;
    const char* fixed;
    const char* pctReading;
    const char* pctInTol;
};
constexpr Labels byTolerance{"Tolerance Limit", "Fixed Limit", "% of Reading", "% In-Tolerance"};
constexpr Labels byUncertainty{"Expanded Uncertainty", "Standard Uncertainty", "Deg Freedom",
                               "Confidence Level"};

std::string offsetText(double value, const std::string& picture, const Session& session) {
    const ToleranceUnits units = measuringUnits(session.record);
    const double shown = units.shown(value);
    return FormatNumber(shown, WidenPicture(shown, units.shownPicture(picture)), session.regional);
}

std::string lastBoxText(const Session& session) {
    const Analysis& r = session.record;
    if (!r.MTE_EntryByUncertainty)
        return FormatNumber(r.MTE_PctReading, r.MTE_PctReading_fmt, session.regional);
    return r.MTE_DegFreedom == 0 ? infinity : GeneralText(r.MTE_DegFreedom, session.regional);
}

} // namespace

void showMeasuringRow(MainScreen& screen, const Session& session) {
    const Analysis& r = session.record;
    const bool uncertainty = r.MTE_EntryByUncertainty;
    const Labels& labels = uncertainty ? byUncertainty : byTolerance;
    screen.pnl_MTELimit.text = labels.limit;
    screen.pnl_MTEFixed.text = labels.fixed;
    screen.pnl_PctReading.text = labels.pctReading;
    screen.LbL_MTEPctInTol.text = labels.pctInTol;
    screen.Lbl_Equals.visible = !uncertainty;
    screen.Lbl_Plus.visible = !uncertainty;

    const bool entered =
        r.MTE_Offset != 0 || r.MTE_PctReading != 0 || (uncertainty && r.MTE_StdUncertainty != 0);
    screen.MTEOffsetBox.text = entered ? offsetText(r.MTE_Offset, r.MTE_Offset_fmt, session) : "";
    if (uncertainty)
        screen.MTEFixedOffsetBox.text =
            entered ? offsetText(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt, session) : "";
    else
        screen.MTEFixedOffsetBox.text =
            entered ? offsetText(r.MTE_FixedOffset, r.MTE_FixedOffset_fmt, session) : "";
    screen.MTEPctOfReadingBox.text = entered || uncertainty ? lastBoxText(session) : "";
    const bool others = measuringPartsAreOthers(r);
    for (Control* control :
         {static_cast<Control*>(&screen.Lbl_Equals), static_cast<Control*>(&screen.Lbl_Plus)}) {
        control->enabled = !others;
        control->toolTip = others ? otherParts : "";
    }
    screen.MTEFixedOffsetBox.faded = screen.MTEPctOfReadingBox.faded = others;
    screen.MTEFixedOffsetBox.toolTip =
        others ? otherParts : "Fixed part of the tolerance, or the standard uncertainty";
    screen.MTEPctOfReadingBox.toolTip =
        others ? otherParts : "Part of the tolerance in percent of the reading, or degrees of freedom";
    screen.MTEPctInTolBox.text = r.MTE_PctInTol == 0 ? "" : pctEntryText(r.MTE_PctInTol, session.regional);
}

} // namespace metrisk
