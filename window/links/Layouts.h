// The layouts of the screens of other programs.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

QWidget* layoutRunExternal(const WidgetMaker& w);

} // namespace metrisk
