// The data summary: an analysis and its results as a flat table of texts, for spreadsheets.
#pragma once

#include <string>

namespace metrisk {

struct Session;

/// Lines of a label and a value, parted by a tab or, by the report option, a comma; UTF-8, line ends CR LF.
/// Figures that do not belong to the entries read "Not Computed"; numbers are never grouped.
std::string summaryText(const Session& session);

/// Replaces the file. Never the file of the analysis itself. False if it could not be written: the user has
/// been told, the old file and the analysis are as they were.
bool WriteSummary(Session& session, const std::string& path);

/// Whether there are results to be summed up: fits both parameters and tells the user of what is amiss.
bool summaryAllowed(Session& session);

/// Asks for a name and writes the summary.
void SaveSummary(Session& session);

} // namespace metrisk
