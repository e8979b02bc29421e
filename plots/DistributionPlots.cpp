#include "plots/DistributionPlots.h"

#include "base/NumberText.h"
#include "base/Picture.h"
#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "numerics/Distribution.h"
#include "numerics/SpecialFunctions.h"
#include "numerics/SubjectDensity.h"
#include "plots/FalseDecisions.h"
#include "record/ToleranceUnits.h"
#include "risk/FittedSubject.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/Budget.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double sigmasShown = 4;

/// The value as the user sees it, with enough decimals not to read 0.
double asSeen(double value, std::string_view picture, const Regional& regional) {
    return ParseValue(FormatNumber(value, WidenPicture(value, picture), regional), regional);
}

/// More points where the curve leaves the straight line between two by more than the eye can see: around a
/// peak, and at a wall, where they come so near to each other that it stands upright.
template <class Density>
class Refined {
  public:
    Refined(Density density, double peak, std::vector<PlotPoint>& line)
        : density_(density), seen_(peak / 1000), line_(line) {}

    void add(PlotPoint from, PlotPoint to, int depth = 0) {
        const float middle = from.x + (to.x - from.x) / 2;
        const PlotPoint between{middle, density_(middle)};
        if (depth < deepest && middle > from.x && middle < to.x &&
            std::abs(between.density - (from.density + to.density) / 2) > seen_) {
            add(from, between, depth + 1);
            add(between, to, depth + 1);
        } else {
            line_.push_back(to);
        }
    }

  private:
    static constexpr int deepest = 12;

    Density density_;
    double seen_;
    std::vector<PlotPoint>& line_;
};

template <class Density>
void setCurve(DistributionPlot& plot, Density density) {
    const Real width = Real(plot.rightValue) - plot.leftValue;
    for (int i = 0; i < curvePoints; ++i) {
        const double share = static_cast<double>(i) / (curvePoints - 1);
        const double y = density((plot.leftValue + width * share).value());
        plot.points.push_back({static_cast<float>(share), y});
        plot.peak = std::max(plot.peak, y);
    }
    const auto position = [&](double x) {
        return static_cast<float>(((x - plot.leftValue) / width).value());
    };
    plot.positions = {position(plot.centralValue), position(plot.lowerValue), position(plot.upperValue)};
    const auto at = [&](float share) {
        return density((plot.leftValue + width * static_cast<double>(share)).value());
    };
    std::vector<PlotPoint> knots = plot.points;
    for (const float limit : {plot.positions.lower, plot.positions.upper})
        if (limit > 0 && limit < 1) knots.push_back({limit, at(limit)});
    std::ranges::sort(knots, {}, &PlotPoint::x);
    Refined refined(at, plot.peak, plot.line);
    plot.line.push_back(knots.front());
    for (std::size_t i = 1; i < knots.size(); ++i) refined.add(knots[i - 1], knots[i]);
}

/// A symmetric curve about the centre.
void setErrorCurve(DistributionPlot& plot, double zoom) {
    const bool normal = plot.degFreedom <= 0 || plot.degFreedom >= infiniteDegFreedom;
    plot.distribution = normal ? normalName : studentsTName;
    if (!(plot.sigma > 0)) return;
    plot.leftValue = plot.centralValue - sigmasShown * plot.sigma * zoom;
    plot.rightValue = plot.centralValue + sigmasShown * plot.sigma * zoom;
    setCurve(plot, [&](double x) {
        return DensityAt(x, plot.distribution, plot.sigma, plot.centralValue, plot.degFreedom);
    });
}

void setLimits(DistributionPlot& plot, double below, double above, const ToleranceUnits& units) {
    plot.lowerValue = plot.centralValue - below;
    plot.upperValue = plot.centralValue + above;
    plot.unitsFactor = units.factor;
    plot.toleranceUnits = units.name;
}

DistributionPlot begin(PlotKind kind, const Analysis& r) {
    DistributionPlot plot;
    plot.kind = kind;
    plot.byUncertainty = r.MTE_EntryByUncertainty;
    plot.lowerExists = kind != PlotKind::SU || !r.OptSingleUpper;
    plot.upperExists = kind != PlotKind::SU || !r.OptSingleLower;
    plot.nominalUnits = r.NominalUnits;
    return plot;
}

/// Mean of a sample as a deviation from the mode, nominal units.
double meanDeviation(const Analysis& r, int slot) {
    const bool measuredValues = r.Stat_Flag1[slot] != 0;
    return measuredValues ? r.Stat_SampleMean[slot] - r.SU_Mode
                          : measuringUnits(r).toNominal(r.Stat_SampleMean[slot]);
}

bool holdsSample(const Analysis& r, int slot) {
    return r.Stat_Include[slot] != 0 && r.Stat_SampleSize[slot] > 0;
}

/// The best estimate of the error, and what it is called.
void setErrorCentre(DistributionPlot& plot, const Analysis& r, const Regional& regional) {
    plot.caption = "Sample";
    plot.secondCaption = "Mean";
    if (r.SMPC_Computed && BiasResultsStand(r, regional)) {
        plot.caption = "Measurand";
        plot.secondCaption = "Bias";
        plot.centralValue = r.SMPC_Bias[2];
    } else if (holdsSample(r, 1)) {
        plot.centralValue = meanDeviation(r, 1);
    } else if (holdsSample(r, 2)) {
        plot.centralValue = meanDeviation(r, 2);
    } else {
        plot.caption.clear();
        plot.secondCaption = "Deviation";
    }
}

/// Measuring uncertainty, with the process in it where that is asked for.
Combined spread(const Analysis& r, const Regional& regional, bool withProcess) {
    if (withProcess) return CombinedUncertainty(r, regional);
    return {r.MTE_StdUncertainty, r.MTE_DegFreedom};
}

} // namespace

bool hasSubjectLimits(const Analysis& r) {
    return r.SU_Sigma != 0 || r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0;
}

const char* measuringTitle(const Analysis& r, bool onOpening) {
    if (!r.MTEPlot_IncludeUncertainty) return "Probability Density vs. MTE Bias";
    return onOpening ? "Probability Density vs. Measured Value" : "Probability Density vs. Measurement Error";
}

DistributionPlot subjectPlot(const Analysis& r, const Regional& regional) {
    DistributionPlot plot = begin(PlotKind::SU, r);
    plot.title = "Probability Density vs. Parameter Value";
    plot.caption = "Nominal";
    plot.showOffsets = r.SUPlot_ShowTolerances;
    plot.distribution = r.SU_Distribution;
    plot.sigma = r.SU_Sigma;
    plot.physicalLimit = r.PhysicalLimit;
    plot.physicalPicture = WidenPicture(r.PhysicalLimit, r.PhysicalLimit_fmt);
    plot.centralValue = asSeen(r.SU_Mode, r.SU_Mode_fmt, regional);
    const double offset = asSeen(r.MTE_Offset, r.MTE_Offset_fmt, regional);
    if (r.SUPlot_UseMTETols)
        setLimits(plot, offset, offset, measuringUnits(r));
    else
        setLimits(plot, asSeen(r.SU_LowerOffset, r.SU_LowerOffset_fmt, regional),
                  asSeen(r.SU_UpperOffset, r.SU_UpperOffset_fmt, regional), subjectUnits(r));
    const SubjectBias subject = subjectBiasOf(r);
    PlotBounds bounds;
    SetPlotBounds(subject, r.SUPlot_Zoom, bounds);
    plot.leftValue = bounds.lower;
    plot.rightValue = bounds.upper;
    if (bounds.upper > bounds.lower)
        setCurve(plot, [&](double x) { return SubjectDensity(subject, x, 0, 1); });
    addFalseDecisions(plot, r);
    return plot;
}

DistributionPlot measuringPlot(const Analysis& r, const Regional& regional) {
    DistributionPlot plot = begin(PlotKind::MTE, r);
    plot.title = r.MTEPlot_Title.empty() ? measuringTitle(r, true) : r.MTEPlot_Title;
    plot.caption = "Nominal";
    plot.showOffsets = r.MTEPlot_ShowOffsets;
    const Combined total = spread(r, regional, r.MTEPlot_IncludeUncertainty);
    plot.sigma = total.uncertainty;
    plot.degFreedom = total.degFreedom;
    plot.centralValue = asSeen(r.SU_Mode, r.SU_Mode_fmt, regional);
    const double offset = asSeen(r.MTE_Offset, r.MTE_Offset_fmt, regional);
    if (r.MTEPlot_UseSUTols)
        setLimits(plot, asSeen(r.SU_LowerOffset, r.SU_LowerOffset_fmt, regional),
                  asSeen(r.SU_UpperOffset, r.SU_UpperOffset_fmt, regional), subjectUnits(r));
    else
        setLimits(plot, offset, offset, measuringUnits(r));
    setErrorCurve(plot, r.MTEPlot_Zoom);
    return plot;
}

DistributionPlot errorPlot(const Analysis& r, const Regional& regional) {
    DistributionPlot plot = begin(PlotKind::Error, r);
    plot.title = "Probability Density vs. Measurement Error";
    plot.showOffsets = r.ErrorPlot_Flag;
    plot.biasIncluded = r.IncludeMTEBias;
    setErrorCentre(plot, r, regional);
    const Combined total =
        r.IncludeMTEBias ? spread(r, regional, true) : Combined{r.ProcessUncertainty, r.Process_DegFreedom};
    plot.sigma = total.uncertainty;
    plot.degFreedom = total.degFreedom;
    setLimits(plot, 2 * plot.sigma, 2 * plot.sigma, measuringUnits(r));
    if (r.ErrorPlot_Param == "SU") {
        plot.lowerValue = -r.SU_LowerOffset;
        plot.upperValue = r.SU_UpperOffset;
    } else if (r.ErrorPlot_Param == "MTE") {
        plot.lowerValue = -r.MTE_Offset;
        plot.upperValue = r.MTE_Offset;
    }
    setErrorCurve(plot, r.ErrorPlot_Zoom);
    return plot;
}

bool hasPlotData(const Analysis& r, PlotKind kind) {
    switch (kind) {
    case PlotKind::SU: return r.SU_PctInTol > 0;
    case PlotKind::MTE: return r.MTE_Offset > 0 && r.MTE_PctInTol > 0;
    case PlotKind::Error: return r.ProcessUncertainty > 0;
    }
    return false;
}

} // namespace metrisk
