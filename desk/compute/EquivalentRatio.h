// The search of the equivalent accuracy ratio on the record, behind its progress screen.
#pragma once

#include "risk/RatioSearch.h"

namespace metrisk {

struct Session;
class ComputingScreen;
struct SearchProgress;

/// The tolerances themselves give the ratio when the analysis is its own baseline.
bool isOwnBaseline(const Analysis& record);

/// The risk in use of the targets, which are fractions, follows EqRatioOnFalseAccept, except that a uniform
/// subject parameter is always searched on false reject risk (and the flag is cleared). `ratio` receives the
/// last ratio tried, also on failure; with MTE_Offset not above 0 it is unchanged. False when the step became
/// too small. AbortFlag, tested at each pass, ends the search: cancel, or a fault, which is told: a baseline
/// that is none, or an integral that cannot be formed.
bool SolveEquivalentRatio(Session& session, ComputingScreen& screen, const Risks& targets, double& ratio);

/// Shows where the search stands and yields.
void ShowSearchProgress(Session& session, ComputingScreen& screen, const SearchProgress& progress);

} // namespace metrisk
