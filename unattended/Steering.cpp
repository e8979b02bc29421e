#include "unattended/Steering.h"

#include <algorithm>

namespace metrisk {

namespace {

bool turnsDirection(char32_t code) {
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

} // namespace

Steering steeringAt(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(at + i < text.size() ? text[at + i] : 0));
    };
    const char32_t first = byte(0);
    if (first < 0x20 || first == 0x7F) return {first, 1};
    if (first == 0xC2 && byte(1) >= 0x80 && byte(1) < 0xA0) return {byte(1), 2};
    const char32_t two = (first & 0x1F) << 6 | (byte(1) & 0x3F);
    if ((first & 0xE0) == 0xC0 && turnsDirection(two)) return {two, 2};
    const char32_t three = (first & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
    if ((first & 0xF0) == 0xE0 && turnsDirection(three)) return {three, 3};
    return {0, 0};
}

std::string unicodeEscape(char32_t code) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text = "\\u";
    for (int shift = 12; shift >= 0; shift -= 4) text += digits[code >> shift & 15];
    return text;
}

std::string withoutSteering(std::string_view text, std::string (*escape)(char32_t code)) {
    std::string shown;
    for (std::size_t i = 0; i < text.size();) {
        const auto [code, size] = steeringAt(text, i);
        if (size > 0)
            shown += escape(code);
        else
            shown += text[i];
        i += std::max<std::size_t>(size, 1);
    }
    return shown;
}

} // namespace metrisk
