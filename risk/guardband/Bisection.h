// The halving by which guardbands are found, and how a solve fails.
#pragma once

#include "base/FunctionRef.h"
#include "base/Real.h"

#include <optional>
#include <string_view>

namespace metrisk {

/// Thrown by a solve; leaves the record as it was.
struct SolveFailure {
    std::string_view text;               // the solver's own words; empty where it ends in silence
    std::string_view bracketText{};      // shown before them
    std::optional<RuntimeFault> fault{}; // of the risks, told before both
};

/// A function of which the zero is sought, at one point. `scale` is the risk that it is small or large
/// against; both are fractions.
struct Residual {
    double value;
    double scale;
};

struct BisectionWords {
    std::string_view couldNot;
    std::string_view notPrecise;
};

/// The zero between low and high, which the function's signs must differ at: the last point of at most 100
/// halvings, down to a step of 1e-10. It is near enough at 1e-4 of the scale, 1e-8 at most, and where the
/// step has run out at 1e-2 of it. Raises SolveFailure.
double bisect(FunctionRef<Residual(double)> f, double low, double high, const BisectionWords& words);

} // namespace metrisk
