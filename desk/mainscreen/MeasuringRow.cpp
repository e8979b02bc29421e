#include "desk/mainscreen/MeasuringRow.h"

#include "desk/mainscreen/MainScreen.h"
#include "record/Analysis.h"
#include "record/AnalysisTexts.h"
#include "record/ToleranceParts.h"

namespace metrisk {

namespace {

constexpr const char* otherParts = "These parts belong to another tolerance";

struct Labels {
    const char* limit;
    const char* fixed;
    const char* pctReading;
    const char* pctInTol;
};
constexpr Labels byTolerance{"Tolerance Limit", "Fixed Limit", "% of Reading", "% In-Tolerance"};
constexpr Labels byUncertainty{"Expanded Uncertainty", "Standard Uncertainty", "Deg Freedom",
                               "Confidence Level"};

} // namespace

void showMeasuringRow(MainScreen& screen, const Analysis& r, const AnalysisTexts& texts) {
    const bool uncertainty = r.MTE_EntryByUncertainty;
    const Labels& labels = uncertainty ? byUncertainty : byTolerance;
    screen.pnl_MTELimit.text = labels.limit;
    screen.pnl_MTEFixed.text = labels.fixed;
    screen.pnl_PctReading.text = labels.pctReading;
    screen.LbL_MTEPctInTol.text = labels.pctInTol;
    screen.Lbl_Equals.visible = !uncertainty;
    screen.Lbl_Plus.visible = !uncertainty;

    screen.MTEOffsetBox.text = texts.measuringOffset;
    screen.MTEFixedOffsetBox.text = texts.measuringFixed;
    screen.MTEPctOfReadingBox.text = texts.measuringLast;
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
    screen.MTEPctInTolBox.text = texts.measuringPct;
}

} // namespace metrisk
