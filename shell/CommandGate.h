// What must hold before a command shows or prints results.
#pragma once

namespace metrisk {

struct Session;

enum class GatedCommand {
    SubjectPlot, // needs the subject parameter alone
    OtherPlot,
    Print // reports, previews and whatever else needs both parameters
};

/// Validates and fits what the command needs; false when it cannot go on, the user having been told.
bool commandMayRun(Session& session, GatedCommand command);

} // namespace metrisk
