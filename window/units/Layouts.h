// The layouts of the screens of units.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

QWidget* layoutOffsetCalc(const WidgetMaker& w);
QWidget* layoutUnitsRevision(const WidgetMaker& w);

} // namespace metrisk
