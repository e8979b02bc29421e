// The coefficients of a model from the reliabilities of a period.
#pragma once

#include "reliability/ReliabilityPeriod.h"

namespace metrisk {

struct Message;

enum class SolveStatus {
    Computed,
    Questionable, ///< the form of the model may not fit; coefficients of 0 where there is none at all
    Refused
};

struct ReliabilitySolution {
    Coefficients theta{}; // in the unit of the interval; 0 unless there are any
    SolveStatus status = SolveStatus::Refused;
    const Message* message = nullptr; // what the user is to be told, if it is not Computed
};

/// R(0), R(interval) and, where it is needed, the mean between are those of `period` (fractions); where it is
/// not, the mean becomes that of the solution, and R(0) becomes 1 where the model says so. The search runs in
/// units of the interval, so that the unit of time does not matter. What has been solved is compared with the
/// reliabilities given: a difference above 1e-6 makes it questionable. Raises RuntimeFault where the numbers
/// do not suffice.
ReliabilitySolution solveReliability(int model, PeriodReliability& period, double interval);

/// The coefficients say R(interval) and, where the model needs it, the mean, both to 1e-6.
bool solutionAgrees(int model, const Coefficients& theta, double interval, const PeriodReliability& given);

/// What a search over x zeroes: AOP (model 4: EOP) less that of the model at x. x is a T/b of model 2, 1/c
/// of 3, b T of 4, c of 5 and 8; the other coefficients follow from BOP and EOP. Raises RuntimeFault.
double ReliabilityEquation(const PeriodReliability& given, double interval, int model, double x);

/// Of SolveReliabilityCoefficients.
extern const Message illegalProbabilities;
extern const Message questionableSolution;

} // namespace metrisk
