#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace metrisk {
namespace {

// Windows-1252 0x80 to 0x9F; the five unassigned bytes stay control characters.
constexpr std::array<std::uint16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned byteAt(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
}

/// Length of the valid UTF-8 sequence at i, 0 if there is none.
std::size_t sequenceAt(std::string_view text, std::size_t i) {
    const unsigned lead = byteAt(text, i);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || i + length > text.size()) return 0;
    for (std::size_t k = 1; k < length; ++k)
        if ((byteAt(text, i + k) & 0xC0) != 0x80) return 0;
    const unsigned second = byteAt(text, i + 1);
    const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool surrogate = lead == 0xED && second > 0x9F;
    const bool beyond = lead == 0xF4 && second > 0x8F;
    return overlong || surrogate || beyond ? 0 : length;
}

/// How many bytes from the start on are ASCII, in whole words: nearly every text is no more.
std::size_t asciiStart(std::string_view text) {
    std::size_t i = 0;
    for (std::uint64_t word; i + sizeof word <= text.size(); i += sizeof word) {
        std::memcpy(&word, text.data() + i, sizeof word);
        if (word & 0x8080808080808080U) break;
    }
    return i;
}

void appendUtf8(std::string& text, unsigned code) {
    const auto add = [&](unsigned byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | (code >> 6));
        add(0x80 | (code & 0x3F));
    } else {
        add(0xE0 | (code >> 12));
        add(0x80 | ((code >> 6) & 0x3F));
        add(0x80 | (code & 0x3F));
    }
}

} // namespace

bool equalCaseBlind(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::string_view withoutOuterBlanks(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::size_t i = 0;
    for (; count > 0 && i < text.size(); --count) i += std::max<std::size_t>(sequenceAt(text, i), 1);
    return text.substr(0, i);
}

std::size_t countCharacters(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < text.size(); ++count) i += std::max<std::size_t>(sequenceAt(text, i), 1);
    return count;
}

std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (text.starts_with(mark)) text.remove_prefix(mark.size());
    return text;
}

std::string withoutQuotes(std::string text) {
    constexpr const char* doublePrime = "\u2033";
    for (std::size_t at = 0; (at = text.find('"', at)) != text.npos;) text.replace(at, 1, doublePrime);
    return text;
}

bool isValidUtf8(std::string_view text) {
    for (std::size_t i = asciiStart(text); i < text.size();) {
        const std::size_t length = sequenceAt(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

std::string toUtf8(std::string text) {
    if (isValidUtf8(text)) return text;
    std::string decoded;
    decoded.reserve(text.size() + text.size() / 8);
    for (char c : text) {
        const unsigned byte = static_cast<unsigned char>(c);
        appendUtf8(decoded, byte >= 0x80 && byte < 0xA0 ? windows1252[byte - 0x80] : byte);
    }
    return decoded;
}

std::string drawableText(std::string_view given) {
    std::string text = toUtf8(std::string(given));
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    for (std::size_t at = 0; at < text.size();) {
        const unsigned char first = byte(at);
        const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        // The last two of each plane, and U+FDD0 to U+FDEF.
        const bool lastTwo = length >= 3 && byte(at + length - 1) >= 0xBE && byte(at + length - 2) == 0xBF &&
                             (length == 4 ? (byte(at + 1) & 0x0F) == 0x0F : first == 0xEF);
        const bool inBlock =
            first == 0xEF && byte(at + 1) == 0xB7 && byte(at + 2) >= 0x90 && byte(at + 2) <= 0xAF;
        if (!lastTwo && !inBlock) {
            at += length;
            continue;
        }
        text.replace(at, length, "\uFFFD");
        at += 3;
    }
    return text;
}

} // namespace metrisk
