// The two rows of the subject parameter's limits, and those of its guardbands.
#pragma once

#include "shell/mainscreen/MainDisplay.h"

namespace metrisk {

/// pnl_SUUpper, UpperLimitBox, pnl_SULower, LowerLimitBox.
void showLimitRows(ScreenState& screen, const Session& session);

void showGuardbandRows(ScreenState& screen, const Session& session, bool asLimits);

} // namespace metrisk
