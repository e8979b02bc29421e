#include "model/DecimalForm.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace metrisk {

namespace {

void dropTrailingZeros(std::string& digits) { digits.erase(digits.find_last_not_of('0') + 1); }

std::string exponentText(const DecimalForm& form) {
    std::string text(1, form.digits[0]);
    if (form.digits.size() > 1) text += "." + form.digits.substr(1);
    const int exponent = form.point - 1;
    const std::string size = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
}

std::string plainText(const DecimalForm& form, bool leadingZero) {
    if (form.isZero()) return "0";
    const auto length = static_cast<int>(form.digits.size());
    if (form.point <= 0)
        return (leadingZero ? "0." : ".") + std::string(static_cast<std::size_t>(-form.point), '0') + form.digits;
    if (form.point >= length) return form.digits + std::string(static_cast<std::size_t>(form.point - length), '0');
    const auto point = static_cast<std::size_t>(form.point);
    return form.digits.substr(0, point) + "." + form.digits.substr(point);
}

} // namespace

int DecimalForm::decimals() const { return std::max(0, static_cast<int>(digits.size()) - point); }

void DecimalForm::round(int places) {
    const long keep = static_cast<long>(point) + places;
    if (keep >= static_cast<long>(digits.size())) return;
    const bool up = keep >= 0 && digits[static_cast<std::size_t>(keep)] >= '5';
    digits.resize(static_cast<std::size_t>(std::max(0L, keep)));
    if (up) {
        auto digit = digits.rbegin();
        while (digit != digits.rend() && *digit == '9') *digit++ = '0';
        if (digit != digits.rend()) {
            ++*digit;
        } else {
            digits.insert(digits.begin(), '1');
            ++point;
        }
    }
    dropTrailingZeros(digits);
    if (digits.empty()) point = 0;
}

DecimalForm decimalForm(double value, int significant) {
    DecimalForm form;
    form.negative = std::signbit(value);
    if (value == 0) return form;
    char text[64];
    const char* end = std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific,
                                   significant - 1)
                         .ptr;
    const char* mark = std::find<const char*>(text, end, 'e');
    for (const char* c = text; c != mark; ++c)
        if (*c != '.') form.digits += *c;
    dropTrailingZeros(form.digits);
    const char* exponent = mark + (mark[1] == '+' ? 2 : 1);
    std::from_chars(exponent, end, form.point);
    ++form.point;
    return form;
}

std::string shortText(double value, int significant, bool leadingZero) {
    if (!std::isfinite(value)) return "";
    const DecimalForm form = decimalForm(value, significant);
    const int plainDigits = std::max(form.point, 0) + form.decimals();
    std::string text = plainDigits > significant ? exponentText(form) : plainText(form, leadingZero);
    return form.negative && !form.isZero() ? "-" + text : text;
}

} // namespace metrisk
