// The reliability models for a session: each procedure tells the user why it has no answer.
#pragma once

#include "reliability/ReliabilitySolution.h"

#include <optional>

namespace metrisk {

struct Session;

/// Reliabilities are fractions; times are in the unit of the coefficients. Without an answer the user has
/// been told and AbortFlag is set.

/// R(t).
std::optional<double> ReliabilityAt(Session& session, int model, const Coefficients& theta, double t);

/// theta becomes 0 where there is no solution. Reliabilities that the model does not take or need become
/// those of the solution. AbortFlag is cleared first, and set with each message, that of a questionable
/// solution too.
SolveStatus SolveReliabilityCoefficients(Session& session, int model, PeriodReliability& period,
                                         double interval, Coefficients& theta);

/// None also for coefficients whose R(t) rises or leaves the range from 0 to 1.
std::optional<PeriodReliability> ReliabilityOverPeriod(Session& session, int model, const Coefficients& theta,
                                                       double interval);

/// The time at which R(t) has fallen to eop.
std::optional<double> IntervalForReliability(Session& session, int model, const Coefficients& theta,
                                             double eop);

} // namespace metrisk
