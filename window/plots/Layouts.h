// The layouts of the screens of plots.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

/// A distribution plot: of the subject parameter, the measuring parameter or the total error.
QWidget* layoutPlot(const WidgetMaker& w);

} // namespace metrisk
