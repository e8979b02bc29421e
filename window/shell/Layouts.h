// The layout of every screen of the program.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

QWidget* layoutMainScreen(const WidgetMaker& w);
QWidget* layoutColorScheme(const WidgetMaker& w);
QWidget* layoutSystemInfo(const WidgetMaker& w);

/// Lays out the modal screen of that name; null if there is none.
QWidget* layoutOf(const char* screen, const WidgetMaker& w);

} // namespace metrisk
