#include "base/NumberText.h"

#include "base/RegionalMarks.h"

#include <algorithm>
#include <charconv>

namespace metrisk {
namespace {

/// A longer text is no number; the bound keeps the search for units short.
constexpr std::size_t longestNumberText = 4096;

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Length of an invisible character (direction marks, joiners, byte order mark) at the start.
std::size_t invisibleAt(std::string_view text) {
    if (text.size() < 3) return 0;
    const auto byte = [&](int i) { return static_cast<unsigned char>(text[static_cast<std::size_t>(i)]); };
    const bool direction = byte(0) == 0xE2 && byte(1) == 0x80 &&
                           ((byte(2) >= 0x8B && byte(2) <= 0x8F) || (byte(2) >= 0xAA && byte(2) <= 0xAE));
    const bool isolate = byte(0) == 0xE2 && byte(1) == 0x81 && byte(2) >= 0xA0 && byte(2) <= 0xAF;
    const bool orderMark = byte(0) == 0xEF && byte(1) == 0xBB && byte(2) == 0xBF;
    return direction || isolate || orderMark ? 3 : 0;
}

/// Without invisible characters, "%" and "$"; control characters (pasted line ends) become blanks.
std::string withoutDecoration(std::string_view text) {
    std::string kept;
    for (std::size_t i = 0; i < text.size();) {
        if (const std::size_t invisible = invisibleAt(text.substr(i))) {
            i += invisible;
            continue;
        }
        const char c = text[i++];
        if (c == '%' || c == '$') continue;
        kept += (c >= 0 && c < ' ') || c == '\x7f' ? ' ' : c;
    }
    return kept;
}

std::string_view trimmed(std::string_view text) {
    while (const std::size_t blank = blankAt(text)) text.remove_prefix(blank);
    for (std::size_t length = 1; length <= 3 && length <= text.size();) {
        const bool blank = blankAt(text.substr(text.size() - length)) == length;
        if (blank) text.remove_suffix(length);
        length = blank ? 1 : length + 1;
    }
    return text;
}

struct ScannedNumber {
    std::string plain;      // sign, digits, period, digits, E, sign, digits
    std::size_t length = 0; // bytes taken from the text, 0 if it does not start with a number
};

class Scanner {
  public:
    Scanner(std::string_view text, const Regional& regional)
        : text_(text), regional_(regional), decimal_(decimalSymbol(regional)),
          minus_(withoutDecoration(negativeSign(regional))) {}

    ScannedNumber scan() {
        std::string plain = sign();
        decideMarks();
        bool digits = wholePart(plain);
        if (decimalMark()) {
            plain += '.';
            digits |= run(plain);
        }
        if (!digits) return {};
        exponent(plain);
        return {plain, at_};
    }

  private:
    bool starts(std::string_view mark) const { return !mark.empty() && text_.substr(at_).starts_with(mark); }
    bool digitAt(std::size_t i) const { return i < text_.size() && isDigit(text_[i]); }

    bool take(std::string_view mark) {
        if (!starts(mark)) return false;
        at_ += mark.size();
        return true;
    }

    std::string sign() {
        if (take("-") || take("\u2212") || take(minus_)) return "-";
        return take("+") ? "+" : "";
    }

    /// Which mark of this number stands before its decimals, and which only group its digits?
    void decideMarks() {
        const std::size_t start = at_;
        const bool periodIsSymbol = decimal_ == ".";
        int periods = 0, commas = 0;
        std::size_t comma = start;
        bool symbol = false, periodBehindComma = false;
        while (at_ < text_.size()) {
            if (take(".")) {
                ++periods;
                periodBehindComma |= commas > 0;
            } else if (periodIsSymbol && starts(",")) {
                ++commas;
                comma = at_++;
            } else if (take(decimal_)) {
                symbol = true;
            } else if (const std::size_t mark = groupingMarkAt(text_.substr(at_), regional_)) {
                at_ += mark;
            } else if (digitAt(at_)) {
                ++at_;
            } else {
                break;
            }
        }
        at_ = start;
        if (periodIsSymbol) {
            commaIsDecimal_ =
                commas == 1 && !periodBehindComma && digitAt(comma + 1) &&
                (periods == 0 ? !commaCanGroup(start, comma) : isGroup(comma - 3) && text_[start] != '0');
            periodGroups_ = commaIsDecimal_;
        } else {
            periodIsDecimal_ = !symbol && periods == 1;
            periodGroups_ = !periodIsDecimal_;
        }
    }

    /// Exactly three digits behind a mark.
    bool isGroup(std::size_t at) const {
        return digitAt(at) && digitAt(at + 1) && digitAt(at + 2) && !digitAt(at + 3) && !digitAt(at - 1);
    }

    /// No grouped number begins with a zero or with four digits. A comma that cannot group was typed where
    /// it is the decimal symbol.
    bool commaCanGroup(std::size_t start, std::size_t comma) const {
        const std::size_t before = comma - start;
        return regional_.ThousandSeparator == "," && isGroup(comma + 1) && before >= 1 && before <= 3 &&
               text_[start] != '0';
    }

    bool decimalMark() {
        if (commaIsDecimal_) return take(",");
        return take(decimal_) || (periodIsDecimal_ && take("."));
    }

    /// Length of a grouping mark here; a blank is one only before a group of exactly three digits.
    std::size_t groupingMark() const {
        if (at_ == 0 || !isDigit(text_[at_ - 1]) || (commaIsDecimal_ && starts(","))) return 0;
        std::size_t length = groupingMarkAt(text_.substr(at_), regional_);
        if (length == 0 && periodGroups_ && starts(".")) length = 1;
        const std::size_t next = at_ + length;
        if (length == 0 || !digitAt(next)) return 0;
        const bool three = digitAt(next + 1) && digitAt(next + 2) && !digitAt(next + 3);
        return blankAt(text_.substr(at_)) > 0 && !three ? 0 : length;
    }

    bool wholePart(std::string& plain) {
        bool any = run(plain);
        while (const std::size_t mark = groupingMark()) {
            at_ += mark;
            any |= run(plain);
        }
        return any;
    }

    bool run(std::string& plain) {
        const std::size_t start = at_;
        while (digitAt(at_)) plain += text_[at_++];
        return at_ > start;
    }

    void exponent(std::string& plain) {
        const std::size_t start = at_;
        if (take("E") || take("e")) {
            std::string power = "E" + sign();
            if (run(power)) {
                plain += power;
                return;
            }
        }
        at_ = start;
    }

    std::string_view text_;
    const Regional& regional_;
    std::string decimal_;
    std::string minus_;
    std::size_t at_ = 0;
    bool commaIsDecimal_ = false; // although it is not the symbol
    bool periodIsDecimal_ = false;
    bool periodGroups_ = false;
};

std::size_t exponentMark(std::string_view cleaned) {
    const std::size_t mark = cleaned.find_first_not_of("+-.0123456789");
    if (mark == cleaned.npos || mark == 0 || cleaned[mark] != 'E' || mark + 1 == cleaned.size())
        return cleaned.npos;
    const char next = cleaned[mark + 1];
    return isDigit(next) || next == '+' || next == '-' ? mark : cleaned.npos;
}

int digitsBehindPeriod(std::string_view cleaned) {
    const std::size_t period = cleaned.find_first_not_of("+-0123456789");
    if (period == cleaned.npos || cleaned[period] != '.') return 0;
    const std::string_view behind = cleaned.substr(period + 1);
    const auto end = std::ranges::find_if_not(behind, isDigit);
    return static_cast<int>(end - behind.begin());
}

/// Digits with at most one period behind a sign: every mark is what it is for a user of the period, and
/// nothing is to be cleaned. Files hold nothing else.
bool isPlainNumber(std::string_view text, const Regional& regional) {
    if (regional.DecimalSymbol != ".") return false;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) text.remove_prefix(1);
    int digits = 0, periods = 0;
    for (const char c : text) {
        digits += isDigit(c);
        periods += c == '.';
    }
    return digits > 0 && periods <= 1 && digits + periods == static_cast<int>(text.size());
}

} // namespace

std::string CleanNumberText(std::string_view text, const Regional& regional) {
    if (text.empty() || text.size() > longestNumberText) return {}; // most cells of an analysis are empty
    if (isPlainNumber(text, regional)) return std::string(text);
    const std::string plainText = withoutDecoration(text);
    std::string_view rest = trimmed(plainText);
    for (;;) {
        const ScannedNumber number = Scanner(rest, regional).scan();
        const std::string_view behind = rest.substr(number.length);
        if (number.length > 0 && (behind.empty() || blankAt(behind) > 0)) return number.plain;

        std::size_t blank = 0;
        while (blank < rest.size() && blankAt(rest.substr(blank)) == 0) ++blank;
        if (blank == rest.size()) return number.plain + std::string(behind);
        rest = trimmed(rest.substr(blank));
    }
}

double ParseValue(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    const bool signedText = cleaned.starts_with('-') || cleaned.starts_with('+');
    const std::string_view digits = std::string_view(cleaned).substr(signedText ? 1 : 0);
    if (digits.empty() || !(isDigit(digits[0]) || digits[0] == '.')) return 0;
    double magnitude = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), magnitude);
    if (read.ec != std::errc{}) return 0;
    return cleaned[0] == '-' ? -magnitude : magnitude;
}

bool isNumeric(std::string_view text, const Regional& regional) {
    if (text.empty() || text.size() > longestNumberText) return false;
    if (isPlainNumber(text, regional)) return true;
    const std::string plain = withoutDecoration(text);
    const std::string_view core = trimmed(plain);
    const ScannedNumber number = Scanner(core, regional).scan();
    return number.length > 0 && number.length == core.size();
}

int CountDecimals(std::string_view text, const Regional& regional) {
    return digitsBehindPeriod(CleanNumberText(text, regional));
}

int CountSignificantDecimals(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    const int all = digitsBehindPeriod(cleaned);
    if (all == 0) return 0;
    const std::string_view behind =
        std::string_view(cleaned).substr(cleaned.find('.') + 1, static_cast<std::size_t>(all));
    return static_cast<int>(behind.find_last_not_of('0') + 1);
}

std::string DisplayValueText(std::string_view text, const Regional& regional) {
    const std::string cleaned = CleanNumberText(text, regional);
    const std::size_t mark = exponentMark(cleaned);
    if (mark == cleaned.npos) {
        std::string shown(text);
        std::erase(shown, '%');
        return std::string(trimmed(shown));
    }
    const char* power = cleaned.data() + mark + (cleaned[mark + 1] == '+' ? 2 : 1);
    int exponent = 0;
    std::from_chars(power, cleaned.data() + cleaned.size(), exponent);
    const int typed = digitsBehindPeriod(cleaned);
    const int decimals = std::clamp(exponent, -maxPictureDecimals, maxPictureDecimals);
    return FormatNumber(ParseValue(text, regional), PictureForDecimals(typed - decimals), regional);
}

int DigitsForEntry(std::string_view text, const Regional& regional) {
    return CountDecimals(DisplayValueText(text, regional), regional);
}

std::string NormalizeBoxText(std::string_view text, const Regional& regional) {
    const std::string shown = DisplayValueText(text, regional);
    return FormatNumber(ParseValue(shown, regional), PictureForDecimals(CountDecimals(shown, regional)),
                        regional);
}

} // namespace metrisk
