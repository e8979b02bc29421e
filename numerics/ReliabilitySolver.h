// The bracket search and halving by which the coefficients of a reliability model are found.
#pragma once

#include "base/FunctionRef.h"

namespace metrisk {

/// F(x), the residual to be zeroed. Puts it into `value` and returns true, or returns false after having
/// raised the abort flag; the search then stops.
using ReliabilityResidual = FunctionRef<bool(double x, double& value)>;

inline constexpr int gammaReliabilityModel = 4;

struct ReliabilitySearch {
    int model = 0;       ///< 1 to 8; the Gamma model (4) has its own bracket search
    double eps = 0;      ///< out: the tolerance on |F| that was used
    double x = 0;        ///< in: the starting guess, out: the root; also the last point of a failed search
    bool failed = false; ///< out: no root was reached. Stays false where F itself reported the failure.
};

/// Searches the root of F from search.x, which is reset to 1 when outside [1, 100000]. A numeric fault,
/// in a bracket that runs out of the numbers or in F, is reported through `failed`. No box is shown.
void SolveReliabilityEquation(ReliabilityResidual F, ReliabilitySearch& search) noexcept;

} // namespace metrisk
