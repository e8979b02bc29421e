// The process errors of a measurement as numbers: what a fit needs of the table of texts.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"
#include "uncertainty/ErrorRows.h"

#include <array>

namespace metrisk {

struct Combined {
    double uncertainty = 0; // nominal units
    double degFreedom = 0;  // effective (Welch-Satterthwaite); 0 means infinite
};

/// One source beside the measuring parameter's bias; a row that does not count has an uncertainty of 0.
struct BudgetSource {
    double uncertainty = 0; // standard, nominal units
    double degFreedom = 0;  // not above 0 means infinite
    double correlation = 0; // with the bias
};

/// The process errors of an analysis, to be taken together with one measuring uncertainty after another.
struct Budget {
    double process = 0;           // all sources together, nominal units
    double processDegFreedom = 0; // of them, where no source counts on its own
    std::array<BudgetSource, errorRowCount - 1> sources{};

    /// sqrt(u0^2 + P^2 + 2 sum of rho_j u0 u_j) for a standard measuring uncertainty of u0, nominal units; a
    /// sum below 0 counts as 0. Raises RuntimeFault on a numeric fault.
    double with(double bias) const;
    /// The same with its degrees of freedom. Without a source that counts P is one source.
    Combined combined(double bias, double biasDegFreedom) const;
};

/// The only reading of the text cells: the included rows 1 to 8 of ErrTableText, ProcessUncertainty and
/// Process_DegFreedom. Raises RuntimeFault on a numeric fault.
Budget budgetOf(const Analysis& record, const Regional& regional);

/// With MTE_StdUncertainty and MTE_DegFreedom. Raises RuntimeFault on a numeric fault.
Combined CombinedUncertainty(const Analysis& record, const Regional& regional);

} // namespace metrisk
