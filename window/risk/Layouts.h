// The layouts of the screens of risk.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

/// Each lays out all the controls of its screen.
QWidget* layoutBaselineAnalysis(const WidgetMaker& w);
QWidget* layoutComputing(const WidgetMaker& w);
QWidget* layoutEqRatio(const WidgetMaker& w);
QWidget* layoutFalseAccept(const WidgetMaker& w);
QWidget* layoutGuardPlot(const WidgetMaker& w);
QWidget* layoutGuardbandAnalysis(const WidgetMaker& w);
QWidget* layoutObservedPct(const WidgetMaker& w);
QWidget* layoutRiskMap(const WidgetMaker& w);

} // namespace metrisk
