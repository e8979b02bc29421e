// The layouts of the screens of tables of test points.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

/// Each lays out all the controls of its screen.
QWidget* layoutTestPoints(const WidgetMaker& w);
QWidget* layoutPointColumn(const WidgetMaker& w);

} // namespace metrisk
