// What a load derives from the items it has read.
#pragma once

#include "desk/kit/Session.h"
#include "persistence/AnalysisItems.h"

namespace metrisk {

/// The work due at a point of the layout. True if the analysis no longer is what the file says: a
/// correlation beyond 1 is told and becomes 0.
bool runLoadStep(Session& session, LayoutPoint point);

/// The work after the last item: first row of ErrTableDisplay, pictures that are not saved. A limit that
/// contradicts mode and offset by more than the digits of the file account for is formed anew from them;
/// LimitsReformed and a result of true tell so, but not for a side that the tolerance does not have.
bool finishLoad(Session& session);

} // namespace metrisk
