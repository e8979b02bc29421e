// Fingerprints and text forms of bytes.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

struct Analysis;

/// SHA-256 as 64 hexadecimal digits.
std::string sha256(std::string_view bytes);
std::string base64(std::string_view bytes);

/// Of the analysis as a file would hold it but for its results: two analyses with the same entries have the
/// same, whether computed or not. Empty for a record that no file can hold.
std::string inputsFingerprint(const Analysis& record);

} // namespace metrisk
