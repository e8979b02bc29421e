// The process errors table as numbers.
#pragma once

#include "model/Analysis.h"
#include "model/Regional.h"

namespace metrisk {

/// One error source, in tolerance units of the measuring parameter.
struct ErrorRow {
    double uncertainty = 0; // 0 when the row is not included
    double degFreedom = 0;  // not above 0 means infinite
    int decimals = 0;       // of the uncertainty as typed, 0 when the row is not included
};

struct ErrorRows {
    OneBased<ErrorRow, 8> rows;
    bool anyUncertainty = false; // in any row, included or not
};

ErrorRows readErrorRows(const ProcessErrors& errors, const Regional& regional);

/// Sums of the Welch-Satterthwaite formula: effective degrees of freedom = A^2 / B.
struct EffectiveFreedom {
    double squares = 0;            // A = sum of u^2
    double quarticsPerFreedom = 0; // B = sum of u^4 / v, rows with infinite v left out

    /// Raises RuntimeFault on overflow.
    void add(double uncertainty, double degFreedom);
    /// 0 means infinite.
    double value() const;
};

/// Beyond this a t distribution counts as normal.
inline constexpr double largestDegFreedom = 4999;

} // namespace metrisk
