// What tells two analyses with the same entries from any others.
#pragma once

#include <string>

namespace metrisk {

struct Analysis;

/// SHA-256 of the analysis as a file would hold it but for its results: two analyses with the same entries
/// have the same, whether computed or not. Empty for a record that no file can hold.
std::string inputsFingerprint(const Analysis& record);

} // namespace metrisk
