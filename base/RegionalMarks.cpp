#include "base/RegionalMarks.h"

#include <algorithm>
#include <array>

namespace metrisk {
namespace {

// No-break, figure, thin, and narrow no-break space: what locales and typeset texts group with.
constexpr std::array<std::string_view, 5> blanks = {" ", "\u00A0", "\u2007", "\u2009", "\u202F"};
constexpr std::array<std::string_view, 2> apostrophes = {"'", "\u2019"};

std::size_t oneOfAt(std::string_view text, auto& marks) {
    for (std::string_view mark : marks)
        if (text.starts_with(mark)) return mark.size();
    return 0;
}

bool isOneOf(std::string_view mark, auto& marks) {
    return std::ranges::find(marks, mark) != marks.end();
}

/// A mark that cannot be mistaken for a part of the number itself.
bool usable(std::string_view mark) {
    return !mark.empty() && mark.find_first_of("0123456789eE%$") == mark.npos &&
           static_cast<unsigned char>(mark.front()) >= ' ';
}

} // namespace

std::string decimalSymbol(const Regional& regional) {
    const std::string& mark = regional.DecimalSymbol;
    return usable(mark) && mark != "+" && mark != "-" && !isOneOf(mark, blanks) ? mark : ".";
}

std::string negativeSign(const Regional& regional) {
    const std::string& sign = regional.NegativeSign;
    return usable(sign) && sign != "." && sign != "+" && sign != decimalSymbol(regional) &&
                   !isOneOf(sign, blanks)
               ? sign
               : "-";
}

std::size_t blankAt(std::string_view text) {
    const unsigned char first = text.empty() ? '0' : static_cast<unsigned char>(text.front());
    if (first > ' ' && first < 0x80) return 0;
    return oneOfAt(text, blanks);
}

std::size_t groupingMarkAt(std::string_view text, const Regional& regional) {
    const std::string& mark = regional.ThousandSeparator;
    if (isOneOf(mark, blanks)) return blankAt(text);
    // A typographic blank inside a number is never the end of it, whatever the user's own mark.
    if (const std::size_t blank = blankAt(text); blank > 1) return blank;
    if (isOneOf(mark, apostrophes)) return oneOfAt(text, apostrophes);
    // A period may be a decimal mark after all: the reader decides from the whole number.
    if (mark.empty() || mark == "." || mark == decimalSymbol(regional)) return 0;
    return text.starts_with(mark) ? mark.size() : 0;
}

bool groupingReadsBack(const Regional& regional) {
    const std::string& mark = regional.ThousandSeparator;
    return usable(mark) && mark != "." && mark != "+" && mark != decimalSymbol(regional) &&
           mark != negativeSign(regional);
}

} // namespace metrisk
