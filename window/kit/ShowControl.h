// Puts what a control shows into its widget.
#pragma once

class QWidget;

namespace metrisk {

struct Control;

/// Touches what differs and nothing else: each touch costs a layout or a repaint.
void showControl(Control& control, QWidget& widget);

} // namespace metrisk
