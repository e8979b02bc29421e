// Analysis files: reads every version of the format, writes the newest.
#pragma once

#include "base/AtomicFile.h"
#include "desk/kit/Session.h"

#include <string>
#include <string_view>

namespace metrisk {

/// Why a file was not read.
enum class ReadFault {
    None,
    Missing,
    NotPermitted,
    NotAFile,
    Unreadable,
    NotAnAnalysis,
    UnknownVersion,
    TooLarge,
    Declined, // by the user, who was asked whether to convert it
    Damaged
};
struct ReadOutcome {
    ReadFault fault = ReadFault::None;
    std::size_t line = 0; // of the damage, from 1
};
/// The fault in a few words, empty if there is none.
std::string causeOf(const ReadOutcome& outcome);
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

/// The content that WriteAnalysis gives a file. Raises RuntimeFault if the record holds a number that
/// could not be read back.
std::string AnalysisText(const Analysis& record);

/// The name under which an analysis is saved: ".dat" becomes ".mrk", ".mrk" in any case stays, to any
/// other name ".mrk" is added.
std::string NormalizeAnalysisName(std::string_view path);

/// The name of an analysis that has no file yet.
bool isUntitled(std::string_view name);

} // namespace metrisk
