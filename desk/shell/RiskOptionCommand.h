// Changing the false accept option from the main menu, and the reminder of it after a file opens.
#pragma once

namespace metrisk {

struct Session;

/// FalseAcceptOptions: the choice, then with figures that were current the notice and the baseline
/// computed afresh; a changed choice ends in the compute button.
void FalseAcceptOptions_Click(Session& session);

/// Tells the user when the analysis goes by another option than the settings' default.
void remindOfRiskOption(Session& session);

} // namespace metrisk
