// A decision in one sentence for a certificate: result, limits and rule, as ISO/IEC 17025 7.8.6.2 asks.
#pragma once

#include "base/Regional.h"
#include "risk/decision/Decide.h"

#include <functional>
#include <optional>
#include <string>

namespace metrisk {

/// How the numbers of an analysis are written.
struct DecisionTexts {
    std::function<std::string(double reading)> reading; // nominal units, its unit behind it
    std::function<std::string(double width)> width;     // of U and of guard bands, their unit behind it
    /// A limit in nominal units without its unit, rounded inwards: an upper one down, a lower one up.
    std::function<std::string(double limit, bool upper)> limit;
    std::string unit{};  // of limits
    Regional regional{}; // of all other numbers
};

/// Decimals behind the mark with which limits in nominal units are shown: those of the pictures that are
/// shown of the tolerance, and enough for two digits of U.
int decimalsOfLimits(int shownDecimals, double expanded);

/// A limit rounded inwards at that many decimals; one that is there to rounding stays.
double inwards(double limit, int decimals, bool upper);

/// Two digits of a width, its decimals: 0.10 has two.
int decimalsOfWidth(double width);

/// "guard band w = U = 0.10 mV (ILAC-G8, two outcomes)".
std::string ruleSentence(const DecisionRule& rule, const DecisionBasis& basis, const DecisionTexts& texts);

/// The population that was taken as prior, and its name: "population of 95 % in tolerance".
struct DecisionPrior {
    SubjectBias subject{};
    std::string name{};
};

/// The probability as it is shown: of a population that is all in tolerance, which no reading can change, 100
/// %.
std::string shownConformance(const Decision& decision, const DecisionRule& rule, const DecisionPrior* prior,
                             const Regional& regional);

/// `acceptance` are the limits as deviations from the mode, none where nothing can pass; `prior` is null for
/// none.
std::string decisionSentence(const DecisionBasis& basis, double reading, const DecisionRule& rule,
                             const Decision& decision, const std::optional<Interval>& acceptance,
                             const DecisionPrior* prior, const DecisionTexts& texts);

/// "9.99969 V to 10.00031 V", "at most 10.00031 V", "at least 9.99969 V".
std::string limitsText(const DecisionBasis& basis, const Interval& deviations, const DecisionTexts& texts);

} // namespace metrisk
