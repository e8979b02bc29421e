// Opens an analysis: what every program does between a new analysis and the one of a file.
#pragma once

#include "desk/files/AnalysisFile.h"

#include <string>

namespace metrisk {

/// The record is that of a new analysis and becomes that of the file, LoadInProgress set meanwhile.
/// On failure the box tells so and AbortFlag is set; what was
/// read stays to be seen, but under the name of a new analysis, so that no save goes over the file that
/// it is a part of.
ReadOutcome OpenAnalysis(Session& session, const std::string& path);

/// The same of a content that has been read already; the analysis has no file, and `name` is the title of the
/// boxes.
ReadOutcome OpenAnalysisText(Session& session, std::string content, const std::string& name);

} // namespace metrisk
