// The layouts of the screens of readings and decision rules.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

/// Each lays out all the controls of its screen.
QWidget* layoutReading(const WidgetMaker& w);
QWidget* layoutStrategies(const WidgetMaker& w);

} // namespace metrisk
