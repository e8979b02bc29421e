// Characters that steer a terminal instead of being shown: control characters, and those that turn the
// direction of writing, so that a name can pretend to be another.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace metrisk {

struct Steering {
    char32_t code;
    std::size_t size; // bytes; 0 where there is no such character
};

/// The one at that place of a UTF-8 text.
Steering steeringAt(std::string_view text, std::size_t at);

/// As JSON and C write it.
std::string unicodeEscape(char32_t code);

/// The text with each of them written as `escape` says.
std::string withoutSteering(std::string_view text, std::string (*escape)(char32_t code));

} // namespace metrisk
