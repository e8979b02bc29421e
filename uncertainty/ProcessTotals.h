// Totals of the process errors table: uncertainty, effective degrees of freedom, shares.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"
#include "uncertainty/EffectiveFreedom.h"
#include "uncertainty/ErrorRows.h"

namespace metrisk {

using Correlations = OneBased<OneBased<double, 10>, 10>;

/// Uncertainties in tolerance units of the measuring parameter. Degrees of freedom by the formula of Welch
/// and Satterthwaite, without the correlations; 0 means infinite.
struct Totals {
    double process = 0;                         // without row 0
    double total = 0;                           // with row 0 if that is included
    int processDecimals = 0;                    // most of the included rows 1 to 8
    int totalDecimals = 0;                      // with those of row 0
    bool anyProcess = false;                    // some included row has an uncertainty
    bool anyTotal = false;                      // the same with row 0, whatever its mark
    double processFreedom = 0;                  // without row 0
    double totalFreedom = 0;                    // with row 0, whatever its mark; 0 beyond largestDegFreedom
    bool contradictory = false;                 // no set of errors has such correlations
    std::array<double, errorRowCount> shares{}; // of the squared total; negative for a row that lessens it
};

/// Sums u_i^2 and 2 rho_ij u_i u_j over the included rows; a sum below 0 counts as 0. Free of the units and
/// of the size of the figures. Raises RuntimeFault if a result is not finite.
Totals ComputeTotals(const ErrorRows& rows, const Correlations& correlations);

/// Puts the totals of ErrTableText into ProcessUncertainty (nominal units) with its picture,
/// Process_DegFreedom and Total_DegFreedom. A table without any uncertainty leaves ProcessUncertainty. A
/// numeric fault leaves every figure.
void SumProcessUncertainty(Analysis& record, const Regional& regional);

/// Empties negative limits and uncertainties of ErrTableText and unticks their rows, as their boxes would
/// refuse them. True if there were any, which is to be told.
bool emptyNegativeErrors(Analysis& record, const Regional& regional);

/// Rewrites the numbers of ErrTableText that were typed under the other decimal mark ("1,234" for 1.234):
/// done when the table gives the stored ProcessUncertainty read so, and does not as it stands.
void SettleTableMarks(Analysis& record, const Regional& regional);

/// Brings the table and the samples to other tolerance units of the measuring parameter; `ratio` is the new
/// factor over the old one. The totals in nominal units stay. Raises RuntimeFault.
void RescaleProcessTable(Analysis& record, double ratio, const Regional& regional);

} // namespace metrisk
