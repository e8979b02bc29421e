// What a load derives from the items it has read.
#pragma once

#include "model/Session.h"
#include "persistence/AnalysisItems.h"

namespace metrisk {

/// The work due at a point of the layout.
void runLoadStep(Session& session, LayoutPoint point);

/// The work after the last item: first row of ErrTableDisplay, pictures that are not saved.
void finishLoad(Session& session);

} // namespace metrisk
