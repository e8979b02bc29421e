#include "risk/decision/ShownFigures.h"

#include <array>
#include <charconv>

namespace metrisk {

namespace {

constexpr double least = 1e-30;
constexpr int mostDecimals = 34;
constexpr double nearCertain = 5e-11; // what is missing from 100 % when 10 digits do not show it

std::string fixedText(double value, int decimals) {
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals).ptr;
    return {text.data(), end};
}

bool reads(const std::string& text, double pct, int decimals) {
    return text == fixedText(pct, decimals);
}

} // namespace

std::string shownPercent(const Conformance& probability, std::optional<double> level,
                         const Regional& regional) {
    const auto marked = [&](std::string text) {
        if (const auto mark = text.find('.'); mark != text.npos)
            text.replace(mark, 1, regional.DecimalSymbol);
        return text + " %";
    };
    const double p = probability.conforming;
    if (p < least) return "< 1e-30";
    if (probability.nonconforming < nearCertain) return marked("> 99.99999999");
    for (int decimals = 2;; ++decimals) {
        const std::string text = fixedText(100 * p, decimals);
        const bool misread = reads(text, 0, decimals) || reads(text, 100, decimals) ||
                             (level && p != *level && reads(text, 100 * *level, decimals));
        if (!misread || decimals == mostDecimals) return marked(text);
    }
}

} // namespace metrisk
