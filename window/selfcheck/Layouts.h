// The layout of the self-check.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

QWidget* layoutSelfCheck(const WidgetMaker& w);

} // namespace metrisk
