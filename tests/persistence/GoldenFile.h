// The golden analysis file, line by line, and what older versions would have made of it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace metrisk::testing {

using Lines = std::vector<std::string>;

inline const std::string goldenPath = METRISK_SOURCE_DIR "/tests/persistence/data/golden.mrk";

Lines linesOf(const std::string& text);
std::string joined(const Lines& lines);

/// The golden text with one line (counted from 1) replaced.
std::string goldenWith(std::size_t line, const std::string& replacement);

struct OldFile {
    Lines lines;     // what the version holds
    Lines rewritten; // what a load and a save make of it
};

/// An old file and its conversion, made from the golden file line by line, so without the description of
/// the layout that is under test. `fresh` is the file of a new analysis.
OldFile oldFile(const std::string& version, const Lines& golden, const Lines& fresh);

} // namespace metrisk::testing
