// Analysis files, with what is told and asked about them.
#pragma once

#include "base/AtomicFile.h"
#include "desk/kit/Session.h"
#include "persistence/AnalysisContent.h"

#include <string>

namespace metrisk {

/// What is told of a file that cannot be read, under its name.
inline constexpr const char* readErrorText = "Error Reading Analysis Data";
/// What is told when LimitsReformed is set.
inline constexpr const char* limitsReformedText =
    "The tolerance limits of the file contradict its mode and offsets and were formed anew from them.";

/// Fills the record from a file. On failure a box titled with the file's name tells so, AbortFlag is
/// set and the record holds what had been read so far; FileChanged then stays. Afterwards FileChanged
/// is true if the file has the oldest two forms, limits that contradict its offsets (LimitsReformed then
/// is true too) or correlations beyond 1, since it would be saved differently. Tolerance kinds of
/// which not exactly one is true become two-sided, a FalseAcceptOption other than 1 becomes 0. The caller
/// clears the record first and sets AnalysisFileName.
ReadOutcome ReadAnalysis(Session& session, const std::string& path);

/// The same from the content of a file; `name` is the title of the boxes.
ReadOutcome ReadAnalysisText(Session& session, std::string content, const std::string& name);

/// Writes the record in the newest form, clears FileChanged and takes the session's fileStamp anew. On
/// failure a box titled with the file's name tells so, AbortFlag is set, and an existing file stays as it
/// was; the cause is given, which is empty otherwise. The same without a box where `holds` says no at last.
std::string WriteAnalysis(Session& session, const std::string& path, const DiskProbe& probe = {},
                          const Condition& holds = {});

} // namespace metrisk
