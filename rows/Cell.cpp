#include "rows/Cell.h"

#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace metrisk {

namespace {

constexpr std::string_view noBreakSpace = "\xc2\xa0";
constexpr std::string_view minusSign = "\xe2\x88\x92";
// A high comma, a thin and a narrow blank.
constexpr std::string_view groupMarks[] = {"\xe2\x80\x99", "\xe2\x80\x89", "\xe2\x80\xaf"};
constexpr std::size_t longestNumber = 400;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The size of the number in front without its sign; 0 if there is none.
std::size_t numberSize(std::string_view text, char mark) {
    std::size_t at = 0, digits = 0;
    const auto run = [&] {
        while (at < text.size() && isDigit(text[at])) ++at, ++digits;
    };
    run();
    if (at < text.size() && text[at] == mark) ++at, run();
    if (digits == 0) return 0;
    if (at == text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    if (exponent == text.size() || !isDigit(text[exponent])) return at;
    while (exponent < text.size() && isDigit(text[exponent])) ++exponent;
    return exponent;
}

/// What from_chars leaves without a value: 0 where the exponent is far below, else none.
std::optional<double> beyond(std::string_view digits) {
    const auto e = digits.find_first_of("eE");
    const bool small =
        e != digits.npos ? digits[e + 1] == '-' : digits.front() == '0' || digits.front() == '.';
    return small ? std::optional(0.0) : std::nullopt;
}

std::optional<double> valueOf(std::string_view digits, char mark) {
    char copy[longestNumber];
    if (mark != '.') {
        if (digits.size() > longestNumber) return std::nullopt;
        std::replace_copy(digits.begin(), digits.end(), copy, mark, '.');
        digits = {copy, digits.size()};
    }
    double value = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (read.ec == std::errc::result_out_of_range) return beyond(digits);
    return read.ec == std::errc{} && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

} // namespace

std::string_view trimmedCell(std::string_view text) {
    for (;;) {
        if (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
            text.remove_prefix(1);
        else if (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
            text.remove_suffix(1);
        else if (text.starts_with(noBreakSpace))
            text.remove_prefix(noBreakSpace.size());
        else if (text.ends_with(noBreakSpace))
            text.remove_suffix(noBreakSpace.size());
        else
            return text;
    }
}

std::optional<Quantity> quantityOf(std::string_view text, NumberMarks marks) {
    text = trimmedCell(text);
    const char mark = marks.decimalComma ? ',' : '.';
    bool negative = false;
    if (text.starts_with(minusSign))
        negative = true, text.remove_prefix(minusSign.size());
    else if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        negative = text.front() == '-', text.remove_prefix(1);
    const std::size_t size = numberSize(text, mark);
    if (size == 0) return std::nullopt;
    const auto value = valueOf(text.substr(0, size), mark);
    if (!value) return std::nullopt;
    const std::string_view behind = text.substr(size);
    // A second mark or group is no unit, nor is a second number.
    if (!behind.empty() && std::string_view(".,'_").find(behind.front()) != std::string_view::npos)
        return std::nullopt;
    for (const std::string_view group : groupMarks)
        if (behind.starts_with(group)) return std::nullopt;
    if (text.starts_with("0x") || text.starts_with("0X")) return std::nullopt;
    const std::string_view unit = trimmedCell(behind);
    if (!unit.empty() && (isDigit(unit.front()) || unit.front() == '-' || unit.front() == '+' ||
                          unit.front() == '/' || unit.front() == ':'))
        return std::nullopt;
    return Quantity{negative ? -*value : *value, unit};
}

std::optional<double> plainNumberOf(std::string_view text, NumberMarks marks) {
    const auto read = quantityOf(text, marks);
    return read && read->unit.empty() ? std::optional(read->number) : std::nullopt;
}

std::optional<double> percentCellOf(std::string_view text, NumberMarks marks) {
    const auto read = quantityOf(text, marks);
    return read && (read->unit.empty() || read->unit == "%") ? std::optional(read->number) : std::nullopt;
}

std::optional<double> ratioCellOf(std::string_view text, NumberMarks marks) {
    const auto colon = text.find(':');
    if (colon == text.npos) return plainNumberOf(text, marks);
    const auto left = plainNumberOf(text.substr(0, colon), marks);
    const auto right = plainNumberOf(text.substr(colon + 1), marks);
    if (!left || !right || !(*right > 0)) return std::nullopt;
    return *left / *right;
}

std::string noNumberText(std::string_view text, const char* what, NumberMarks marks) {
    std::string said = std::string(firstCharacters(text, 60)) + " is no " + what;
    if (!marks.decimalComma && text.find(',') != text.npos) said += "; use --decimal-comma";
    return said;
}

bool isInfinite(std::string_view text) {
    text = trimmedCell(text);
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    return equalCaseBlind(text, "inf") || equalCaseBlind(text, "infinity") || equalCaseBlind(text, "none");
}

} // namespace metrisk
