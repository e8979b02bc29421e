#include "model/NumberText.h"

#include "model/DecimalForm.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace metrisk {

namespace {

constexpr int targetDecimals = 14;
constexpr int mostDecimalsTyped = 20; // beyond these a box keeps the exponent
constexpr std::string_view blanks = " \t\r\n\v\f";
constexpr std::string_view noBreakSpace = "\u00A0";
constexpr std::string_view narrowSpace = "\u202F";
constexpr std::string_view minusSign = "\u2212";

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

bool isDigit(char c) { return c >= '0' && c <= '9'; }

void replaceAll(std::string& text, std::string_view from, std::string_view to) {
    if (from.empty() || from == to) return;
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

/// Blanks that only group digits, as some languages write them, do not end a number.
void dropGroupingBlanks(std::string& text) {
    for (std::size_t i = 1; i + 3 < text.size(); ++i) {
        const bool groupFollows = isDigit(text[i + 1]) && isDigit(text[i + 2]) && isDigit(text[i + 3]) &&
                                  (i + 4 == text.size() || !isDigit(text[i + 4]));
        if (text[i] == ' ' && isDigit(text[i - 1]) && groupFollows) text.erase(i, 1);
    }
}

/// One way to write signs and blanks, whatever the language.
std::string plainSigns(std::string_view given, const Regional& regional) {
    std::string text(given);
    replaceAll(text, minusSign, "-");
    replaceAll(text, regional.NegativeSign, "-");
    replaceAll(text, noBreakSpace, " ");
    replaceAll(text, narrowSpace, " ");
    const bool blankGroups = regional.ThousandSeparator == " " || regional.ThousandSeparator == noBreakSpace ||
                             regional.ThousandSeparator == narrowSpace;
    if (blankGroups) dropGroupingBlanks(text);
    return text;
}

std::string withoutMoneyAndPercent(std::string_view text) {
    std::string plain;
    for (char c : text)
        if (c != '%' && c != '$') plain += c;
    return plain;
}

/// Drops grouping marks and makes the decimal mark a period.
std::string withPeriod(std::string text, const Regional& regional) {
    const std::string& decimal = regional.DecimalSymbol;
    if (decimal == ".") {
        replaceAll(text, regional.ThousandSeparator, "");
        return text;
    }
    if (regional.ThousandSeparator != ".") replaceAll(text, regional.ThousandSeparator, "");
    const auto mark = text.find(decimal);
    if (mark != std::string::npos || std::count(text.begin(), text.end(), '.') > 1) std::erase(text, '.');
    replaceAll(text, decimal, ".");
    return text;
}

/// Length of the number that a cleaned text begins with; 0 if there is none.
std::size_t numberLength(std::string_view text) {
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
    const auto skipDigits = [&] {
        const std::size_t start = i;
        while (i < text.size() && isDigit(text[i])) ++i;
        return i > start;
    };
    bool digits = skipDigits();
    if (i < text.size() && text[i] == '.') {
        ++i;
        digits = skipDigits() || digits;
    }
    if (!digits) return 0;
    const std::size_t mantissa = i;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        if (i < text.size() && (text[i] == '-' || text[i] == '+')) ++i;
        if (!skipDigits()) i = mantissa;
    }
    return i;
}

bool isNumericPlain(std::string_view text, const Regional& regional) {
    const std::string number = withPeriod(withoutMoneyAndPercent(trimmed(text)), regional);
    const std::string_view core = trimmed(number);
    return !core.empty() && numberLength(core) == core.size();
}

/// Drops leading words until a number stands first, and what follows it.
std::string_view withoutUnits(std::string_view text, const Regional& regional) {
    for (auto blank = text.find(' '); blank != std::string_view::npos; blank = text.find(' ')) {
        const std::string_view left = text.substr(0, blank);
        if (isNumericPlain(left, regional)) return left;
        text = trimmed(text.substr(blank + 1));
        if (isNumericPlain(text, regional)) return text;
    }
    return text;
}

double readPrefix(std::string_view text) {
    text = text.substr(0, numberLength(text));
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() ? value : 0;
}

/// Where the exponent of a text begins; npos if it has none.
std::size_t exponentMark(std::string_view cleaned) {
    const std::size_t length = numberLength(cleaned);
    return cleaned.substr(0, length).find_first_of("eE");
}

int typedDecimals(std::string_view cleaned) {
    const auto point = cleaned.find('.');
    if (point == std::string_view::npos) return 0;
    int count = 0;
    for (std::size_t i = point + 1; i < cleaned.size() && isDigit(cleaned[i]); ++i) ++count;
    return count;
}

/// The decimal form that a shown text reads back as.
double readBack(double value, int decimals) {
    return ParseValue(FormatNumber(value, PictureForDecimals(decimals), {}), {});
}

} // namespace

std::string CleanNumberText(std::string_view given, const Regional& regional) {
    const std::string text = plainSigns(given, regional);
    const std::string number = withoutMoneyAndPercent(withoutUnits(trimmed(text), regional));
    return std::string(trimmed(withPeriod(number, regional)));
}

double ParseValue(std::string_view text, const Regional& regional) {
    return readPrefix(CleanNumberText(text, regional));
}

bool isNumeric(std::string_view text, const Regional& regional) {
    return isNumericPlain(plainSigns(text, regional), regional);
}

int CountDecimals(std::string_view text, const Regional& regional) {
    return typedDecimals(CleanNumberText(text, regional));
}

int CountSignificantDecimals(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    const auto decimals = static_cast<std::size_t>(typedDecimals(cleaned));
    if (decimals == 0) return 0;
    const std::string_view behind = std::string_view(cleaned).substr(cleaned.find('.') + 1, decimals);
    return static_cast<int>(behind.find_last_not_of('0') + 1);
}

int DecimalsOfValue(double value, int n) {
    if (!std::isfinite(value)) return n;
    const double target = readBack(value, targetDecimals);
    while (n < targetDecimals && readBack(value, n) != target) ++n;
    return n;
}

std::string RatioPicture(double value, double tolerance, const Regional&) {
    if (value == 0 || !std::isfinite(value)) return "###";
    const double size = std::fabs(value);
    const double target = readBack(size, targetDecimals);
    if (target == 0) return "##0";
    int n = 0;
    while (n < targetDecimals && std::fabs(readBack(size, n) - target) > tolerance * target) ++n;
    return PictureForDecimals(n);
}

int DigitsForEntry(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    const auto mark = exponentMark(cleaned);
    if (mark == std::string::npos) return typedDecimals(cleaned);
    const double value = readPrefix(cleaned);
    if (value == 0) return 0;
    // The places of the mantissa move with the exponent.
    int exponent = 0;
    std::string_view power = std::string_view(cleaned).substr(mark + 1);
    if (power.starts_with('+')) power.remove_prefix(1);
    std::from_chars(power.data(), power.data() + power.size(), exponent);
    return std::max(0, typedDecimals(cleaned) - exponent);
}

std::string DisplayValueText(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    if (exponentMark(cleaned) == std::string::npos) {
        std::string plain(trimmed(text));
        std::erase(plain, '%');
        return plain;
    }
    return NormalizeBoxText(text, regional);
}

std::string NormalizeBoxText(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    if (numberLength(cleaned) == 0) return "";
    const double value = readPrefix(cleaned);
    const int decimals = DigitsForEntry(text, regional);
    if (decimals > mostDecimalsTyped) return GeneralText(value, regional);
    return FormatNumber(value, PictureForDecimals(decimals), regional);
}

std::string heldPicture(std::string_view entryText, int shift, const Regional& regional) {
    return PictureForDecimals(DigitsForEntry(entryText, regional) + shift);
}

std::string shownPicture(std::string_view held, int shift) {
    return PictureForDecimals(decimalsOfPicture(held) - shift);
}

} // namespace metrisk
