// The two rows of the subject parameter's limits, and those of its guardbands.
#pragma once

namespace metrisk {

class MainScreen;
struct Session;

/// pnl_SUUpper, UpperLimitBox, pnl_SULower, LowerLimitBox.
void showLimitRows(MainScreen& screen, const Session& session);

void showGuardbandRows(MainScreen& screen, const Session& session);

} // namespace metrisk
