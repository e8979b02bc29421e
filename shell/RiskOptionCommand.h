// Changing the false accept option from the main menu, and the reminder of it after a file opens.
#pragma once

#include "risk/BaselineScreen.h"
#include "risk/FalseAcceptScreen.h"

#include <functional>

namespace metrisk {

struct Session;

/// Shows the screen and returns when mnu_Exit() or cmd_OK() has closed it.
using RunBaselineScreen = std::function<void(BaselineScreen&)>;

/// FalseAcceptOptions: the choice, then with figures that were current the notice and the baseline
/// computed afresh; a changed choice ends in the compute button.
void FalseAcceptOptions_Click(Session& session, const RunFalseAcceptScreen& runChoice,
                              const RunBaselineScreen& runBaseline);

/// Tells the user when the analysis goes by another option than the settings' default.
void remindOfRiskOption(Session& session);

} // namespace metrisk
