// Measuring uncertainty and process uncertainty taken together.
#pragma once

#include "model/Analysis.h"
#include "model/Regional.h"
#include "uncertainty/ErrorRows.h"

#include <array>

namespace metrisk {

struct Combined {
    double uncertainty = 0; // nominal units
    double degFreedom = 0;  // effective (Welch-Satterthwaite); 0 means infinite
};

/// The process errors of an analysis, to be taken together with one measuring uncertainty after another.
class ProcessSpread {
  public:
    /// Raises RuntimeFault on a numeric fault.
    ProcessSpread(const Analysis& record, const Regional& regional);

    /// sqrt(u0^2 + P^2 + 2 sum of rho[2][j] u0 u_j) for a measuring uncertainty of u0, nominal units, as
    /// CombinedUncertainty has it. Raises RuntimeFault on a numeric fault.
    double with(double bias) const;

  private:
    double process_;
    std::array<double, errorRowCount> correlations_{};
    std::array<double, errorRowCount> uncertainties_{};
};

/// sqrt(u0^2 + P^2 + 2 sum of rho[2][j] u0 u_j) with u0 = MTE_StdUncertainty, P = ProcessUncertainty
/// and u_j the included rows of the process errors table, all in nominal units; a sum below 0 counts as 0.
/// Without such rows P
/// counts as one source with Process_DegFreedom. Raises RuntimeFault on a numeric fault.
Combined CombinedUncertainty(const Analysis& record, const Regional& regional);

} // namespace metrisk
