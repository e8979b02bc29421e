// The two rows of the subject parameter's limits, and those of its guardbands.
#pragma once

namespace metrisk {

class MainScreen;
struct Analysis;
struct AnalysisTexts;
struct Session;

/// pnl_SUUpper, UpperLimitBox, pnl_SULower, LowerLimitBox.
void showLimitRows(MainScreen& screen, const Analysis& record, const AnalysisTexts& texts);

void showGuardbandRows(MainScreen& screen, const Session& session, const AnalysisTexts& texts);

} // namespace metrisk
