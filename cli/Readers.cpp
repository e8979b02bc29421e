#include "cli/Readers.h"

#include "base/DisplayRule.h"
#include "base/RelativeUnits.h"
#include "risk/decision/RuleText.h"

#include <charconv>
#include <cmath>

namespace metrisk::cli {

namespace {

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

std::optional<std::size_t> countOf(std::string_view text) {
    std::size_t count = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), count);
    const bool whole = read.ec == std::errc{} && read.ptr == text.data() + text.size();
    return whole ? std::optional(count) : std::nullopt;
}

} // namespace

std::optional<double> numberOf(std::string_view text) {
    return numberIn(text);
}

std::string withoutPercentSign(std::string_view text) {
    if (text.ends_with(percentUnits)) text.remove_suffix(1);
    return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::optional<double> percentOf(std::string_view text) {
    return numberOf(withoutPercentSign(text));
}

std::optional<double> ratioOf(std::string_view text) {
    const auto colon = text.find(':');
    const auto numerator = numberOf(text.substr(0, colon));
    const auto denominator = colon == text.npos ? 1 : numberOf(text.substr(colon + 1));
    if (!numerator || !denominator || !(*numerator > 0) || !(*denominator > 0)) return std::nullopt;
    const double ratio = *numerator / *denominator;
    return ratio > 0 && std::isfinite(ratio) ? std::optional(ratio) : std::nullopt;
}

std::optional<double> riskOf(std::string_view text) {
    const bool ppm = text.ends_with(ppmUnits);
    const auto value = ppm ? numberOf(text.substr(0, text.size() - 3)) : percentOf(text);
    if (!value) return std::nullopt;
    return riskFraction(*value, ppm ? ppmUnits : percentUnits);
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

std::string isRisk(const std::string& text) {
    return riskOf(text) ? "" : quoted(text) + " is not a risk such as 2% or 500ppm.";
}

std::optional<Sides> sidesOf(std::string_view text, std::size_t least, std::size_t most) {
    const auto mark = text.find('x');
    if (mark == text.npos) return std::nullopt;
    const auto across = countOf(text.substr(0, mark));
    const auto up = countOf(text.substr(mark + 1));
    const auto fits = [&](const auto& side) { return side && *side >= least && *side <= most; };
    return fits(across) && fits(up) ? std::optional(Sides{*across, *up}) : std::nullopt;
}

} // namespace metrisk::cli
