// Fingerprints and text forms of bytes.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

/// SHA-256 as 64 hexadecimal digits.
std::string sha256(std::string_view bytes);
std::string base64(std::string_view bytes);

} // namespace metrisk
