#include "uncertainty/ErrorCell.h"

#include "base/DecimalForm.h"
#include "base/NumberText.h"
#include "base/RegionalMarks.h"
#include "uncertainty/ErrorRows.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// A computed text bears so many, zeros at its end included; nobody types them.
constexpr int computedDigits = 15;
/// Beyond these a number is easier to read with an exponent.
constexpr int mostDecimals = 15;
constexpr double longestNumber = 1e15;

/// With all its digits; a number that would need more zeros than those has an exponent instead.
std::string computedText(double value, const Regional& regional) {
    const int decimals = computedDigits - DecimalForm::of(value).point;
    if (decimals < 0 || decimals > 2 * computedDigits) return GeneralText(value, regional);
    return FormatNumber(value, "0." + std::string(static_cast<std::size_t>(decimals), '0'), regional);
}

std::string shownText(double value, int decimals, const Regional& regional) {
    if (decimals > mostDecimals || std::fabs(value) >= longestNumber) return GeneralText(value, regional);
    return FormatNumber(value, PictureForDecimals(decimals), regional);
}

/// 0 for an empty or computed text.
int typedDecimals(const std::string& text, const Regional& regional) {
    if (text.empty() || significantDigits(text, regional) >= computedDigits) return 0;
    return DigitsForEntry(text, regional);
}

/// A text that was typed where numbers have another decimal mark.
std::string inRegionalMarks(const std::string& text, const Regional& regional) {
    const bool foreign = CountDecimals(text, regional) > 0 &&
                         text.find(decimalSymbol(regional)) == text.npos &&
                         text.find_first_of("eE") == text.npos;
    return foreign ? NormalizeBoxText(text, regional) : text;
}

} // namespace

int significantDigits(const std::string& text, const Regional& regional) {
    const std::string number = CleanNumberText(text, regional);
    int digits = 0;
    for (const char c : number) {
        if (c == 'e' || c == 'E' || c == 'd' || c == 'D') break;
        const bool digit = c >= '0' && c <= '9';
        if (digit && (digits > 0 || c != '0')) ++digits;
    }
    return digits;
}

int readableDecimals(double value, int decimals) {
    constexpr int digits = 3;
    return value == 0 ? decimals : std::max(decimals, digits - DecimalForm::of(value, digits).point);
}

ErrorCell ErrorCell::ofTyped(const std::string& text, const Regional& regional) {
    const double value = ParseValue(text, regional);
    if (value == 0) return {};
    return {value, text, text, DigitsForEntry(text, regional), true};
}

ErrorCell ErrorCell::ofComputed(double value, int decimals, const Regional& regional) {
    if (value == 0) return {};
    const int shown = readableDecimals(value, decimals);
    return {value, computedText(value, regional), shownText(value, shown, regional), shown, false};
}

ErrorCell ErrorCell::ofConfidence(double percent, const Regional& regional) {
    constexpr double largestBelow100 = 99.9999999999999; // in 15 digits
    percent = std::min(percent, largestBelow100);
    int decimals = readableDecimals(percent, 2);
    while (roundedToDecimals(percent, decimals) >= 100) ++decimals;
    return ofComputed(percent, decimals, regional);
}

std::string ErrorCell::readable(double value, int decimals, const Regional& regional) {
    return shownText(value, readableDecimals(value, decimals), regional);
}

ErrorCell ErrorCell::ofStored(const std::string& text, int decimals, const Regional& regional) {
    ErrorCell cell{ParseValue(text, regional), text, inRegionalMarks(text, regional),
                   DigitsForEntry(text, regional), true};
    if (cell.value == 0 || significantDigits(text, regional) < computedDigits) return cell;
    ErrorCell computed = ofComputed(cell.value, decimals, regional);
    computed.stored = text;
    return computed;
}

int rowDecimals(const Analysis& record, int row, const Regional& regional) {
    const auto& cells = record.ErrTableText[row];
    int decimals = std::max(typedDecimals(cells[errorColumn::limit], regional),
                            typedDecimals(cells[errorColumn::uncertainty], regional));
    if (isSampleRow(row) && record.Stat_Include[sampleSlot(row)])
        decimals = std::max(decimals, PictureDecimals(record.Stat_SampleFmt[sampleSlot(row)]));
    return decimals;
}

ErrorCell readUncertainty(const Analysis& record, int row, const Regional& regional) {
    const std::string& text = record.ErrTableText[row][errorColumn::uncertainty];
    ErrorCell cell = ErrorCell::ofStored(text, 0, regional);
    if (cell.typed) return cell;
    return ErrorCell::ofStored(text, rowDecimals(record, row, regional), regional);
}

} // namespace metrisk
