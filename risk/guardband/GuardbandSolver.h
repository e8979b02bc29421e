// Guardbands that give a wanted risk: one multiplier or one k-factor for both sides.
#pragma once

#include "record/ParameterGroups.h"
#include "risk/RiskModel.h"

#include <string_view>

namespace metrisk {

/// A k-factor that cannot be found, or that moves a test limit beyond the mode.
inline constexpr std::string_view noKFactorsText = "Could not compute k-factors for the entered risk.";
inline constexpr std::string_view noEqualKFactorsText = "Could not compute k-Factors to equalize risks.";

/// As held in GB_KeyOn.
enum class GuardbandKey { FalseAccept, FalseReject, Equalize };

/// The risk that a solve is keyed on. `risk` is a fraction, not read when risks are to be equal.
struct GuardbandTarget {
    GuardbandKey key;
    double risk = 0;
};

/// Test limits of a multiplier m: mode - m x lower offset, mode + m x upper offset; of a k-factor: the
/// tolerance limits moved inwards by k measuring sigmas.
class GuardbandSolver {
  public:
    /// A fitted subject parameter, and the fitted measuring sigma in nominal units.
    GuardbandSolver(const SubjectParameter& subject, double mteSigma, int falseAcceptOption);

    /// Each raises SolveFailure.
    double multiplierFor(const GuardbandTarget& target);
    double kFactorFor(const GuardbandTarget& target);
    /// The multiplier at which the share of items that pass is the share in tolerance, a fraction.
    double multiplierForObserved(double inTolerance);

    /// Risks computed so far.
    int evaluations() const { return evaluations_; }

  private:
    struct Bracket {
        double low;
        double high;
    };

    double equalizingMultiplier();
    double equalizingKFactor();

    /// Both risks, never negative. Test limits that cross, or that nothing in tolerance passes, count as
    /// rejecting everything. Raises SolveFailure with these words where there are no risks.
    Risks at(AcceptanceRange range, std::string_view words);
    Risks atMultiplier(double multiplier, std::string_view words);
    Risks atKFactor(double k, std::string_view words);

    Bracket bracketMultipliers(const GuardbandTarget& target);
    Bracket bracketKFactors(const GuardbandTarget& target);
    Bracket bracketEqualizingKFactors();

    RiskModel model_;
    double lowerOffset_;
    double upperOffset_;
    double mteSigma_;
    int falseAcceptOption_;
    bool uniform_;
    int evaluations_ = 0;
};

} // namespace metrisk
