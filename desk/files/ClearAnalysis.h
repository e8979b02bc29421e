// Brings the record of a session to the values of a new analysis.
#pragma once

#include "desk/kit/Session.h"
#include "persistence/NewAnalysis.h"

namespace metrisk {

/// clearAnalysis by the session's settings; repaints the main screen.
inline void ClearAnalysis(Session& session) {
    clearAnalysis(session.record, session.settings);
    session.ui.repaintMainScreen();
}

} // namespace metrisk
