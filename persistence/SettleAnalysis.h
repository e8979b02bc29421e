// What a load derives from the items it has read, without a user.
#pragma once

#include "base/Box.h"
#include "base/Regional.h"
#include "persistence/AnalysisItems.h"

#include <vector>

namespace metrisk {

struct Analysis;

/// What is to be told of an analysis that has been read, in that order.
using LoadNotes = std::vector<Message>;

/// The work due at a point of the layout. True if the analysis no longer is what the file says: a negative
/// error or a correlation beyond 1 is noted and dropped.
bool settle(Analysis& record, LayoutPoint point, const Regional& regional, LoadNotes& notes);

/// The work after the last item: first row of ErrTableDisplay, pictures that are not saved. A limit that
/// contradicts mode and offset by more than the digits of the file account for is formed anew from them;
/// LimitsReformed and a result of true tell so, but not for a side that the tolerance does not have.
bool settleEnd(Analysis& record, const Regional& regional);

} // namespace metrisk
