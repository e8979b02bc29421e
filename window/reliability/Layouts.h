// The layouts of the screens of reliability.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

/// Lays out all the controls of the screen ReliabilityModelCoefficients.
QWidget* layoutReliability(const WidgetMaker& w);

} // namespace metrisk
