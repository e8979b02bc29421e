// What the reliability worksheet shows: its boxes and its plot.
#include "base/NumberText.h"
#include "desk/compute/Reliability.h"
#include "desk/kit/FaultMessages.h"
#include "desk/kit/Session.h"
#include "desk/reliability/ReliabilityScreen.h"
#include "reliability/ReliabilityPlot.h"
#include "reliability/ReliabilityTexts.h"
#include "reliability/TimeUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr Message outOfRange{"Must be between 0 and 100.", "Metrisk"};
constexpr const char* shownPicture = "#,##0.00";

} // namespace

void ReliabilityScreen::refresh() {
    ReliabilitySlot shown = slot();
    const ReliabilityModel* model = shown.model();
    optParameter_0.checked = slotNumber() == subjectSlot;
    optParameter_1.checked = slotNumber() == measuringSlot;
    cbo_RModels.index = model ? model->number - 1 : -1;
    ReliabilityModelCaption.text = model ? model->equation : "";
    const auto unit = std::ranges::find(timeUnits, std::string_view(shown.units()));
    IntervalUnitsBox.index = unit == timeUnits.end() ? -1 : static_cast<int>(unit - timeUnits.begin());
    for (std::size_t i = 0; i < figures; ++i)
        entries_[i].box.text = entries_[i].typed.value_or(figureText(static_cast<Figure>(i)));
    BOPBox.enabled = Lbl_BOP.enabled = !model || model->takesBOP;
    AOPBox.enabled = Lbl_AOP.enabled = !model || model->needsAOP;
    theta3Box.enabled = Lbl_theta3.enabled = !model || model->hasC;
    Lbl_Questionable.visible = shown.questionable();
    Lbl_Questionable.emphasised = true;
    showPlot();
}

/// As the slot has it; empty for what it does not have.
std::string ReliabilityScreen::figureText(Figure figure) const {
    ReliabilitySlot shown = slot();
    const Regional& regional = session_.regional;
    const ReliabilityModel* model = shown.model();
    const auto percentage = [&](double fraction, const std::string& picture) {
        return fraction == 0 ? "" : reliabilityText(fraction, picture, regional);
    };
    const Coefficients theta = shown.theta();
    const auto coefficient = [&](double value, bool there) {
        return there && !theta.allZero() ? coefficientText(value, regional) : "";
    };
    switch (figure) {
    case Interval:
        return shown.interval() == 0
                   ? ""
                   : FormatNumber(shown.interval(),
                                  shown.intervalPicture().empty()
                                      ? PictureForDecimals(DecimalsOfValue(shown.interval(), 0))
                                      : shown.intervalPicture(),
                                  regional);
    case Bop: return model && !model->takesBOP ? "100.000" : percentage(shown.bop(), shown.bopPicture());
    case Aop: return percentage(shown.aop(), shown.aopPicture());
    case Eop: return percentage(shown.eop(), shown.eopPicture());
    case A: return coefficient(theta.a, true);
    case B: return coefficient(theta.b, true);
    case C: return coefficient(theta.c, model && model->hasC);
    case figures: break;
    }
    return "";
}

/// There is nothing to plot.
void ReliabilityScreen::clearCurve() {
    plotTheta_ = {};
    plotTime_ = plotReliability_ = plotLimit_ = 0;
    redraw();
}

/// The plot of the slot's coefficients, marked at the end of the interval.
void ReliabilityScreen::startPlot() {
    plotTheta_ = slot().theta();
    plotTime_ = slot().interval();
    plotReliability_ = slot().eop();
    const ReliabilityModel* model = slot().model();
    plotLimit_ = PlotTimeLimit(model->number, plotTheta_, plotTime_, slot().bop());
    redraw();
}

bool ReliabilityScreen::plotted() const {
    return !plotTheta_.allZero() && plotLimit_ > 0;
}

void ReliabilityScreen::redraw() {
    ReliabilityCurve curve;
    if (plotted()) {
        try {
            curve = ReliabilityCurve(slot().model()->number, plotTheta_, plotLimit_, plotTime_);
            curve.isInterval = plotTime_ == slot().interval();
            curve.units = record().Rel_IntervalUnits[static_cast<std::size_t>(slotNumber())];
        } catch (const RuntimeFault& fault) {
            tellFault(session_.ui, fault);
        }
    }
    pic_RPlot.draw([curve](DrawingSurface& surface) { DrawReliabilityPlot(surface, curve); });
}

void ReliabilityScreen::showPlot() {
    const Regional& regional = session_.regional;
    const bool there = plotted();
    txt_RPlotData_0.text = there ? timeText(plotTime_, regional) : "";
    txt_RPlotData_1.text = there ? reliabilityText(plotReliability_, shownPicture, regional) : "";
    txt_RPlotData_2.text = there ? timeText(plotLimit_, regional) : "";
    for (TextBox* box : {&txt_RPlotData_0, &txt_RPlotData_1, &txt_RPlotData_2}) box->locked = !there;
}

/// A value that is refused, or found to be that of the plot, leaves it as it is.
FieldResult ReliabilityScreen::leavePlotBox(int box, const std::string& text) {
    const double value = ParseValue(text, session_.regional);
    const int model = slot().model()->number;
    if (box == 1 && (value <= 0 || value >= 100)) {
        tell(session_.ui, outOfRange);
        return {true, txt_RPlotData_1.text};
    }
    if (box == 0 && value >= 0) {
        if (const auto found = ReliabilityAt(session_, model, plotTheta_, value)) {
            plotTime_ = value;
            plotReliability_ = *found;
        }
    } else if (box == 1) {
        if (const auto found = IntervalForReliability(session_, model, plotTheta_, value / 100)) {
            plotTime_ = *found;
            plotReliability_ = value / 100;
        }
    } else if (box == 2 && value > 0) {
        plotLimit_ = value;
    }
    session_.record.AbortFlag = false;
    redraw();
    return {false, text};
}

} // namespace metrisk
