#include "cli/Readers.h"

#include "base/DisplayRule.h"
#include "base/RelativeUnits.h"
#include "rows/Cell.h"

#include <charconv>
#include <cmath>

namespace metrisk::cli {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

template <class Count>
std::optional<Count> digitsOf(std::string_view text) {
    Count count = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), count);
    const bool whole = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return whole ? std::optional(count) : std::nullopt;
}

} // namespace

std::optional<double> numberOf(std::string_view text) {
    return plainNumberOf(text);
}

std::string withoutPercentSign(std::string_view text) {
    if (text.ends_with(percentUnits)) text.remove_suffix(1);
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::optional<double> percentOf(std::string_view text) {
    return percentCellOf(text);
}

std::optional<double> ratioOf(std::string_view text) {
    const auto ratio = ratioCellOf(text);
    return ratio && *ratio > 0 && std::isfinite(*ratio) ? ratio : std::nullopt;
}

std::optional<unsigned> countOf(std::string_view text) {
    return digitsOf<unsigned>(text);
}

std::optional<double> riskOf(std::string_view text) {
    const auto read = quantityOf(text);
    const bool known = read && (read->unit.empty() || read->unit == percentUnits || read->unit == ppmUnits);
    return known ? std::optional(riskFraction(read->number, read->unit == ppmUnits ? ppmUnits : percentUnits))
                 : std::nullopt;
}

std::string isNumber(const std::string& text) {
    return numberOf(text) ? "" : quoted(text) + " is not a number.";
}

std::string isPercent(const std::string& text) {
    return percentOf(text) ? "" : quoted(text) + " is not a percentage.";
}

std::string isRatio(const std::string& text) {
    return ratioOf(text) ? "" : quoted(text) + " is not an accuracy ratio such as 4:1.";
}

std::string isCount(const std::string& text) {
    return countOf(text) ? "" : quoted(text) + " is not a count such as 4.";
}

std::string isRisk(const std::string& text) {
    return riskOf(text) ? "" : quoted(text) + " is not a risk such as 2% or 500ppm.";
}

std::optional<Sides> sidesOf(std::string_view text, std::size_t least, std::size_t most) {
    const auto mark = text.find('x');
    if (mark == text.npos) return std::nullopt;
    const auto across = digitsOf<std::size_t>(text.substr(0, mark));
    const auto up = digitsOf<std::size_t>(text.substr(mark + 1));
    const auto fits = [&](const auto& side) { return side && *side >= least && *side <= most; };
    return fits(across) && fits(up) ? std::optional(Sides{*across, *up}) : std::nullopt;
}

} // namespace metrisk::cli
