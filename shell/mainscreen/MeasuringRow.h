// The row of the measuring parameter, entered by tolerance or by uncertainty.
#pragma once

#include "shell/mainscreen/MainDisplay.h"

namespace metrisk {

/// The four labels, their boxes, and the signs between them.
void showMeasuringRow(ScreenState& screen, const Session& session);

} // namespace metrisk
