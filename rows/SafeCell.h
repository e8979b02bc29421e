// Texts that a spreadsheet would run as a formula.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

inline bool startsFormula(std::string_view text) {
    return !text.empty() && std::string_view("=+-@").find(text.front()) != std::string_view::npos;
}

/// With an apostrophe before one.
inline std::string safeCell(std::string_view text) {
    return (startsFormula(text) ? "'" : "") + std::string(text);
}

} // namespace metrisk
