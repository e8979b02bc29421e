#include "units/AreaContent.h"

#include "base/Text.h"

#include <cmath>
#include <locale.h>
#include <wctype.h>

namespace metrisk {

namespace {

/// The character at `at`, which moves behind it; a byte that is no UTF-8 stands for itself.
char32_t next(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) {
        return static_cast<unsigned char>(i < text.size() ? text[i] : 0);
    };
    const unsigned char first = byte(at);
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
    char32_t code = more == 3 ? first & 0x07 : more == 2 ? first & 0x0F : more == 1 ? first & 0x1F : first;
    for (int i = 1; i <= more; ++i) {
        if ((byte(at + static_cast<std::size_t>(i)) & 0xC0) != 0x80) {
            ++at;
            return first;
        }
        code = code << 6 | (byte(at + static_cast<std::size_t>(i)) & 0x3F);
    }
    at += static_cast<std::size_t>(more) + 1;
    return code;
}

char32_t lower(char32_t c) {
    if (c < 0x80) return c >= U'A' && c <= U'Z' ? c + (U'a' - U'A') : c;
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode ? static_cast<char32_t>(towlower_l(static_cast<wint_t>(c), unicode)) : c;
}

} // namespace

bool isAreaName(std::string_view name) {
    return !name.empty() && countCharacters(name) <= longestAreaName;
}

bool isUnit(const MeasurementUnit& unit) {
    return !unit.symbol.empty() && countCharacters(unit.symbol) <= longestUnit &&
           countCharacters(unit.description) <= longestDescription &&
           countCharacters(unit.group) <= longestUnitsGroup && std::isfinite(unit.multiplier) &&
           unit.multiplier > 0;
}

int compareNames(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        const char32_t left = lower(next(a, i));
        const char32_t right = lower(next(b, j));
        if (left != right) return left < right ? -1 : 1;
    }
    return static_cast<int>(i < a.size()) - static_cast<int>(j < b.size());
}

} // namespace metrisk
