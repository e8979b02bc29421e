// The share of items that pass a test, from the share in tolerance and the way back.
#pragma once

#include "base/Regional.h"
#include "record/ParameterGroups.h"
#include "risk/RiskModel.h"
#include "risk/exact/ExactRisks.h"

#include <optional>

namespace metrisk {

struct Analysis;

enum class GuardbandUse {
    Ignore,  // accepted within the tolerance limits
    Use,     // accepted within the test limits
    Equalize // guardbands are solved for, so that both shares are the same
};

/// A subject parameter under test by a fitted measuring parameter. The parameter is fitted anew at each true
/// share; figures are fractions. Without an answer (entries that allow no fit at a share, no risks, a numeric
/// fault) the functions return nothing.
class ObservedModel {
  public:
    /// Reads the entries of the subject parameter, MTE_Sigma, FalseAcceptOption and, if they are used, the
    /// multipliers. Equalize accepts within the tolerance limits here.
    ObservedModel(const Analysis& record, GuardbandUse use, const Regional& regional);

    /// (x - FR)/(1 - FA) for the Consumer, FA + x - FR for the Producer, not below 0; x from 0 to 1.
    std::optional<double> observedAt(double x) const;

    /// The true share, between 0 and 1, at which `observed` is seen: by iteration until it moves by less than
    /// 10^-(d + 3), d being `decimals` (of the percentage shown) but at least 4; but never by less than
    /// four spacings of the number; by halving to 1e-12 where the iteration leaves the range.
    std::optional<double> trueAt(double observed, int decimals) const;

    /// The same shares by exact integration. That which passes is that which is accepted, under either
    /// option. The true share is the one nearest to `near`, that of trueAt().
    std::optional<BoundedFigure> exactObservedAt(double x) const;
    std::optional<double> exactTrueAt(double observed, double near) const;

    /// The multiplier that makes both shares x. Raises SolveFailure, which has no text for a share of 0.
    double equalizingMultiplier(double x) const;

  private:
    /// Risks never negative. Raises RuntimeFault, FitRefusal or NoRisks.
    Risks risksAt(double x) const;
    SubjectParameter fittedAt(double x) const;
    std::optional<double> bisected(double observed, double inside, double end) const;

    SubjectParameter subject_;
    Regional regional_;
    AcceptanceRange range_;
    double mteSigma_;
    int falseAcceptOption_;
};

} // namespace metrisk
