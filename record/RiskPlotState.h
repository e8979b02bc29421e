// The risk plot computed last, kept while the program runs; it is not saved.
#pragma once

#include "base/OneBased.h"

#include <string>
#include <vector>

namespace metrisk {

inline constexpr int mostPlotPoints = 31;

struct RiskPlotState {
    std::string GuardPlotMode; // the quantity that was varied
    int PlotPointCount = 0;    // 0: no plot is stored
    std::string PlotLowerText; // its range as entered
    std::string PlotUpperText;
    OneBased<float, mostPlotPoints> PlotX;  // what stands on the axis
    OneBased<float, mostPlotPoints> PlotFA; // percent
    OneBased<float, mostPlotPoints> PlotFR;
    std::vector<double> PlotInputs; // all that the risks were computed from
};

} // namespace metrisk
