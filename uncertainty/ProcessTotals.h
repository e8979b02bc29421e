// Totals of the process errors table: uncertainty and effective degrees of freedom.
#pragma once

#include "model/Session.h"

namespace metrisk {

/// Combines the included rows 1 to 8 of ErrTableText, correlations included, into ProcessUncertainty
/// (nominal units, row 0 excluded) with its picture, Process_DegFreedom and Total_DegFreedom (row 0
/// included, whatever its tick). A variance below 0 counts as 0. A table without any uncertainty leaves
/// ProcessUncertainty. A numeric fault leaves every figure.
void SumProcessUncertainty(Session& session);

/// Rewrites the numbers of ErrTableText that were typed under the other decimal mark ("1,234" for 1.234):
/// done when the table gives the stored ProcessUncertainty read so, and does not as it stands.
void SettleTableMarks(Session& session);

} // namespace metrisk
