// The layouts of the screens of uncertainty.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

/// Each lays out all the controls of its screen.
QWidget* layoutBiasCalcOption(const WidgetMaker& w);
QWidget* layoutCorrelationList(const WidgetMaker& w);
QWidget* layoutDataEntry(const WidgetMaker& w);
QWidget* layoutMTEError(const WidgetMaker& w);

} // namespace metrisk
