// What ErrorLedger's data become in an analysis.
#pragma once

#include "desk/kit/Session.h"
#include "links/ExchangeFile.h"

namespace metrisk {

/// The process errors and samples. Figures come into the record's own tolerance units; a cell that its box
/// would refuse stays empty. Correlations of the errors that were there before go with them. Sums are formed,
/// nothing is fitted. Raises RuntimeFault.
void takeProcessErrors(Session& session, const Exchange& data);

/// The identification, units and tolerances of both parameters, without their fit. A limit takes the place
/// of an offset that is not there. Raises RuntimeFault.
void takeTolerances(Session& session, const Exchange& data);

/// Empties the process errors, their names and the samples.
void resetProcessErrors(Session& session);

} // namespace metrisk
