// The plots of an analysis: subject parameter, measuring parameter, total measurement error.
#pragma once

#include "plots/DistributionPlot.h"
#include "record/Analysis.h"

namespace metrisk {

/// Zoom factors of the ranges shown, by the position of their entry: 400% to 25%.
inline constexpr double zoomFactors[] = {0.25, 0.5, 1 / 1.5, 1, 1 / 0.75, 2, 4};
inline constexpr const char* zoomNames[] = {"400%", "200%", "150%", "100%", "75%", "50%", "25%"};

inline constexpr const char* totalErrorReference = "Error"; // ErrorPlot_Param: two standard deviations

/// Curve and figures as the last fit left them, with the plot's own options and zoom. A plot without data has
/// no points and no peak. They raise RuntimeFault where the figures give no finite density.
DistributionPlot subjectPlot(const Analysis& record, const Regional& regional);
DistributionPlot measuringPlot(const Analysis& record, const Regional& regional);
DistributionPlot errorPlot(const Analysis& record, const Regional& regional);

/// Titles of the measuring plot, by what is in it.
const char* measuringTitle(const Analysis& record, bool onOpening);

/// There is a subject limit to refer to.
bool hasSubjectLimits(const Analysis& record);

/// The record holds what that plot shows.
bool hasPlotData(const Analysis& record, PlotKind kind);

} // namespace metrisk
