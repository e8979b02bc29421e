// What readings, decisions and strategies are computed from: the entries of a test and its fits, as values.
#pragma once

#include "base/Refusal.h"
#include "numerics/Distribution.h"
#include "risk/RiskModel.h"
#include "risk/TestEntries.h"

namespace metrisk {

/// Deviations from the mode in nominal units, the lower one negative; the absent side is infinite.
struct Interval {
    double lower;
    double upper;
};

struct DecisionBasis {
    SubjectEntry subject{};
    Guardband guardband{}; // 1, 1 where guardbands are not included
    Convention convention = Convention::Consumer;
    double sigma = 0;                        // of the measurement, nominal units, above 0
    double degFreedom = 0;                   // that belong to it; 0 is infinite
    bool withProcess = false;                // whether the process errors are in both
    double coverage = 2;                     // k of U = k sigma
    Result<SubjectBias> fit = SubjectBias{}; // or why the entries allow none

    double expanded() const { return coverage * sigma; }
    bool hasUpper() const { return subject.sides != Sides::Lower; }
    bool hasLower() const { return subject.sides != Sides::Upper; }
    bool twoSided() const { return subject.sides == Sides::Two; }
    /// Half the width of a two-sided tolerance, the offset of a single-sided one.
    double halfWidth() const;
    /// d/U: not the accuracy ratio of the main screen, which has 1.959964 in place of k.
    double ratio() const { return halfWidth() / expanded(); }

    /// Of a guard band: where nothing is left to accept, since the limits meet or, single-sided, reach the
    /// physical limit behind the mode, beyond which nothing is accepted. Infinite without one.
    double vanishingWidth() const;

    Interval tolerance() const;
    Interval testLimits() const;
    /// The tolerance narrowed by the same width on both sides; a negative width widens it.
    Interval narrowed(double lowerWidth, double upperWidth) const;
};

/// With the fit that belongs to the entry. Refused without a tolerance and without an uncertainty.
Result<DecisionBasis> decisionBasis(const SubjectEntry& subject, double sigma, double degFreedom);

/// Of validated entries: refused by their rules, never because the subject parameter allows no fit. The
/// degrees of freedom are those of the measuring parameter or, where process errors count, the effective ones
/// of both.
Result<DecisionBasis> decisionBasis(const TestEntries& entries);

/// The subject parameter of the entry, fitted. Refused where its rules or the fit say no.
Result<SubjectBias> fittedBias(const SubjectEntry& subject);

} // namespace metrisk
