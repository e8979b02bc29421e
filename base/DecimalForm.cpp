#include "base/DecimalForm.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace metrisk {
namespace {

constexpr int largestPoint = std::numeric_limits<double>::max_exponent10 + 1;

} // namespace

DecimalForm DecimalForm::of(double value, int significant) {
    DecimalForm form;
    form.negative = value < 0;
    if (value == 0 || !std::isfinite(value)) return form;

    std::array<char, 64> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                       std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer.data(), written.ptr);
    const auto exponentMark = text.find('e');
    for (char c : text.substr(0, exponentMark))
        if (c != '.') form.digits += c;
    const bool down = text[exponentMark + 1] == '-';
    int exponent = 0;
    std::from_chars(text.data() + exponentMark + 2, text.data() + text.size(), exponent);
    form.point = (down ? -exponent : exponent) + 1;
    form.digits.resize(form.digits.find_last_not_of('0') + 1);
    // The largest doubles round up to a number that is none any more.
    if (form.point == largestPoint && !std::isfinite(form.value())) --form.digits.back();
    return form;
}

void DecimalForm::roundTo(int decimals) {
    const long kept = static_cast<long>(point) + decimals;
    if (kept >= static_cast<long>(digits.size())) return;
    if (kept < 0) {
        digits.clear();
        return;
    }
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    if (up) {
        while (!digits.empty() && digits.back() == '9') digits.pop_back();
        if (digits.empty()) {
            digits.assign(1, '1');
            ++point;
        } else {
            ++digits.back();
        }
    }
    digits.resize(digits.find_last_not_of('0') + 1);
}

double DecimalForm::value() const {
    if (digits.empty()) return 0;
    const std::string text = "0." + digits + "e" + std::to_string(point);
    double magnitude = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    if (read.ec != std::errc{}) magnitude = point > 0 ? std::numeric_limits<double>::infinity() : 0;
    return negative ? -magnitude : magnitude;
}

std::string shortestText(double value, int significant, bool leadingZero) {
    if (!std::isfinite(value)) return {};
    const DecimalForm form = DecimalForm::of(value, significant);
    if (form.digits.empty()) return "0";

    std::string text = form.negative ? "-" : "";
    const int count = static_cast<int>(form.digits.size());
    const int decimals = std::max(count - form.point, 0);
    if (std::max(form.point, 0) + decimals <= significant) {
        const auto whole = static_cast<std::size_t>(std::max(form.point, 0));
        if (whole > 0)
            text += (form.digits + std::string(whole, '0')).substr(0, whole);
        else if (leadingZero)
            text += '0';
        if (decimals > 0) {
            text += '.';
            text += std::string(static_cast<std::size_t>(std::max(-form.point, 0)), '0');
            text += form.digits.substr(whole);
        }
        return text;
    }
    text += form.digits[0];
    if (count > 1) text += '.' + form.digits.substr(1);
    const int exponent = form.point - 1;
    text += exponent < 0 ? "E-" : "E+";
    if (std::abs(exponent) < 10) text += '0';
    return text + std::to_string(std::abs(exponent));
}

double roundedToDecimals(double value, int decimals) {
    if (!std::isfinite(value)) return 0;
    DecimalForm form = DecimalForm::of(value);
    form.roundTo(std::max(decimals, 0)); // as a picture, which has no fewer
    return form.value();
}

} // namespace metrisk
