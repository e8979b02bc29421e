// Windows keep to the desktop.
#pragma once

class QSize;
class QWidget;

namespace metrisk {

/// How large the inside of the window may be: what its frame leaves of the desktop. Before there is a frame
/// its measures are those of the style.
QSize roomFor(const QWidget& window);

/// Shrinks and moves the window until its frame is on the desktop as a whole.
void keepOnDesktop(QWidget& window);

} // namespace metrisk
