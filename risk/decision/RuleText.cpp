#include "risk/decision/RuleText.h"

#include <charconv>
#include <cmath>

namespace metrisk {

std::optional<double> numberIn(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> percentIn(std::string_view text) {
    if (!text.ends_with('%')) return std::nullopt;
    text.remove_suffix(1);
    return numberIn(text.substr(0, text.find_last_not_of(' ') + 1));
}

} // namespace metrisk
