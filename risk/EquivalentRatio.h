// Search of the accuracy ratio that would give the same risk in the baseline model.
#pragma once

#include "risk/RiskModel.h"

namespace metrisk {

struct Analysis;
struct Session;
class ComputingScreen;
struct SearchProgress;

/// A search whose target no ratio reaches ends at a figure without a meaning. True for one from 0.01 to
/// 10,000 : 1.
bool ratioAttained(double ratio);
/// What stands for a ratio of such a search.
inline constexpr const char* noSuchRatioText = "no such ratio";

/// The risk in use of the targets, which are fractions, follows EqRatioOnFalseAccept, except that a uniform
/// subject parameter is always searched on false reject risk (and the flag is cleared). `ratio` receives the
/// last ratio tried, also on failure; with MTE_Offset not above 0 it is unchanged. False when the step became
/// too small. AbortFlag, tested at each pass, ends the search: cancel, or a fault, which is told: a baseline
/// that is none, or an integral that cannot be formed.
bool SolveEquivalentRatio(Session& session, ComputingScreen& screen, const Risks& targets, double& ratio);

/// Shows where the search stands and yields.
void ShowSearchProgress(Session& session, ComputingScreen& screen, const SearchProgress& progress);

/// The subject tolerance that accuracy ratios are made of: the mean offset when two-sided, else the
/// offset of the existing side. Nominal units.
double ratioTolerance(const Analysis& record);

} // namespace metrisk
