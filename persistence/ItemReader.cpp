#include "persistence/ItemReader.h"

#include "base/Real.h"
#include "base/Text.h"
#include "record/WorksheetGroups.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace metrisk {
namespace {

// Characters are looked at one by one: items are short, so that a search by a library call costs more.

constexpr bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
constexpr bool endsItem(char c) {
    return c == ',' || c == '\r' || c == '\n';
}
constexpr bool mayBeInNumber(char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'e' || c == 'E';
}

/// The whole text as a number. Too small for a double is 0, too large is a fault.
double parseNumber(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
    if (digits.empty() || digits[0] == '+' || !std::ranges::all_of(digits, mayBeInNumber))
        throw RuntimeFault{};
    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ptr != text.data() + text.size() || read.ec == std::errc::invalid_argument) throw RuntimeFault{};
    if (read.ec == std::errc{}) return checked(value);

    // Out of range: a small number has a negative exponent or starts behind the point.
    const std::size_t exponent = digits.find_first_of("eE");
    const std::size_t firstDigit = std::min(digits.find_first_not_of('0'), digits.size() - 1);
    const bool small = exponent == digits.npos
                           ? digits[firstDigit] == '.'
                           : digits[exponent + 1] == '-' && digits.find_first_of(".eE") <= 20;
    if (!small) throw RuntimeFault{};
    return 0;
}

} // namespace

bool ItemReader::takeDelimiter() {
    if (at_ >= text_.size() || !endsItem(text_[at_])) return false;
    const bool carriageReturn = text_[at_++] == '\r';
    if (carriageReturn && at_ < text_.size() && text_[at_] == '\n') ++at_;
    return true;
}

void ItemReader::skipBlanks() {
    while (at_ < text_.size() && isBlank(text_[at_])) ++at_;
}

ItemReader::Item ItemReader::next() {
    skipBlanks();
    itemAt_ = at_;
    if (at_ >= text_.size()) throw RuntimeFault{};

    Item item;
    item.quoted = text_[at_] == '"';
    if (item.quoted) {
        const std::size_t close = text_.find('"', at_ + 1);
        if (close == text_.npos) throw RuntimeFault{};
        item.text = text_.substr(at_ + 1, close - at_ - 1);
        at_ = close + 1;
        skipBlanks();
    } else {
        const std::size_t start = at_;
        while (at_ < text_.size() && !endsItem(text_[at_])) ++at_;
        item.text = withoutOuterBlanks(text_.substr(start, at_ - start));
    }
    item.complete = takeDelimiter();
    return item;
}

std::size_t ItemReader::lineNumber() const {
    const std::string_view before = text_.substr(0, itemAt_);
    std::size_t ends = 0;
    for (std::size_t at = 0; (at = before.find_first_of("\r\n", at)) != before.npos; ++ends)
        at += before.substr(at).starts_with("\r\n") ? 2 : 1;
    return ends + 1;
}

double ItemReader::number() {
    const Item item = next();
    if (item.quoted || !item.complete) throw RuntimeFault{};
    return parseNumber(item.text);
}

long ItemReader::integer(long smallest, long largest) {
    const double value = number();
    if (!(value >= static_cast<double>(smallest) && value <= static_cast<double>(largest)))
        throw RuntimeFault{};
    if (value != std::trunc(value)) throw RuntimeFault{};
    return static_cast<long>(value);
}

void ItemReader::item(double& value) {
    value = number();
}

void ItemReader::item(float& value) {
    const double read = number();
    if (std::fabs(read) > 1e38) throw RuntimeFault{};
    value = static_cast<float>(read);
}

void ItemReader::item(int& value) {
    value = static_cast<int>(integer(-32768, 32767));
}

void ItemReader::item(bool& value) {
    const Item item = next();
    const bool on = equalCaseBlind(item.text, "#TRUE#");
    if (item.quoted || (!on && !equalCaseBlind(item.text, "#FALSE#"))) throw RuntimeFault{};
    value = on;
}

void ItemReader::item(Flag& value) {
    value = Flag::fromStored(integer(-32768, 32767));
}

std::string ItemReader::text() {
    const Item item = next();
    return item.quoted ? std::string(item.text) : withoutQuotes(std::string(item.text));
}

void ItemReader::item(std::string& value) {
    value = text();
}

void ItemReader::item(AsLong<Flag> value) {
    value.flag = Flag::fromStored(integer(-2147483648L, 2147483647L));
}

void ItemReader::item(AsFixed<std::string> value) {
    value.text = withoutOuterBlanks(firstCharacters(text(), fixedTextLength));
}

void ItemReader::item(AsSampleSize<int> value) {
    value.size = static_cast<int>(integer(0, maxSampleSize));
}

void ItemReader::item(AsMagnitude<int> value) {
    value.number = static_cast<int>(std::labs(integer(-32767, 32767)));
}

void ItemReader::item(UnusedItem) {
    next();
}

} // namespace metrisk
