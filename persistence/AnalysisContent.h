// The content of an analysis file: read in every version, written in the newest.
#pragma once

#include "base/FunctionRef.h"
#include "persistence/SettleAnalysis.h"

#include <string>

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

/// Beyond any analysis: with 200 samples a parameter a file has some 20 thousand characters.
inline constexpr std::size_t largestAnalysis = std::size_t{16} * 1024 * 1024;

/// What a reader is asked and told on the way.
struct ParseWatch {
    FunctionRef<bool()> convertOldest; // whether to read a file of the oldest form
    FunctionRef<void()> optionsRead;   // the tolerance options are in the record, the rest is not yet
};

struct ParseResult {
    ReadOutcome outcome;
    LoadNotes notes;
};

/// Fills the record from the content of a file; what has been read before a fault stays. FileChanged is true
/// afterwards if the record would be saved differently; it stays on a fault. Raises nothing.
ParseResult parseAnalysis(Analysis& record, std::string content, const Regional& regional,
                          const ParseWatch& watch);

/// The content that the record has as a file. Raises RuntimeFault if it holds a number that could not be read
/// back.
std::string AnalysisText(const Analysis& record);

} // namespace metrisk
