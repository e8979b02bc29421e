// The layouts of the screens of reports.
#pragma once

class QWidget;

namespace metrisk {

class WidgetMaker;

QWidget* layoutPrintDialog(const WidgetMaker& widgets);
QWidget* layoutReportOptions(const WidgetMaker& widgets);
QWidget* layoutPreview(const WidgetMaker& widgets);

} // namespace metrisk
