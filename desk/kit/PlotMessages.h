// What is said where there is nothing to plot.
#pragma once

#include "desk/kit/Message.h"

namespace metrisk {

inline constexpr Message noPlotData{"No data to plot.", "No Data Available", BoxIcon::Information};

} // namespace metrisk
