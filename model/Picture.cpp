// Formatting of numbers by pictures.
#include "model/DecimalForm.h"
#include "model/NumberText.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace metrisk {

namespace {

constexpr int groupLength = 3;
constexpr double minutesPerDay = 24 * 60;

/// A number picture taken apart.
struct Picture {
    std::string prefix; // literal text before and after the digit places
    std::string suffix;
    int forcedInteger = 0;
    int decimals = 0;
    int forcedDecimals = 0;
    bool grouping = false;
    bool percent = false;
    bool exponent = false;
};

bool isPlace(char c) { return c == '#' || c == '0'; }

Picture parsePicture(std::string_view text) {
    Picture picture;
    bool behindPoint = false;
    bool places = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (isPlace(c)) {
            places = true;
            if (behindPoint) {
                ++picture.decimals;
                if (c == '0') picture.forcedDecimals = picture.decimals;
            } else if (c == '0' || picture.forcedInteger > 0) {
                ++picture.forcedInteger;
            }
        } else if (c == '.' && !behindPoint) {
            behindPoint = true;
            places = true;
        } else if (c == ',' && places && !behindPoint) {
            picture.grouping = true;
        } else if (c == 'E' && i + 1 < text.size() && text[i + 1] == '+') {
            picture.exponent = true;
            break;
        } else {
            if (c == '%') picture.percent = true;
            (places ? picture.suffix : picture.prefix) += c;
        }
    }
    return picture;
}

std::string grouped(const std::string& digits, const std::string& separator) {
    std::string text;
    const auto length = static_cast<int>(digits.size());
    for (int i = 0; i < length; ++i) {
        if (i > 0 && (length - i) % groupLength == 0) text += separator;
        text += digits[static_cast<std::size_t>(i)];
    }
    return text;
}

std::string digitsText(const DecimalForm& form, const Picture& picture, const Regional& regional) {
    const auto digit = [&form](int place) { // 0 is the first digit of the form
        const bool held = place >= 0 && place < static_cast<int>(form.digits.size());
        return held ? form.digits[static_cast<std::size_t>(place)] : '0';
    };
    std::string integer;
    for (int place = 0; place < form.point; ++place) integer += digit(place);
    if (static_cast<int>(integer.size()) < picture.forcedInteger)
        integer.insert(0, static_cast<std::size_t>(picture.forcedInteger) - integer.size(), '0');
    if (picture.grouping && regional.ThousandSeparator != ".")
        integer = grouped(integer, regional.ThousandSeparator);

    const int shown = std::clamp(form.decimals(), picture.forcedDecimals, picture.decimals);
    std::string decimals;
    for (int place = 0; place < shown; ++place) decimals += digit(form.point + place);
    return decimals.empty() ? integer : integer + regional.DecimalSymbol + decimals;
}

std::string exponentText(const DecimalForm& form, const Picture& picture, const Regional& regional) {
    DecimalForm mantissa = form;
    if (!form.isZero()) mantissa.point = 1;
    mantissa.round(picture.decimals);
    const int exponent = form.isZero() ? 0 : form.point - 1 + (mantissa.point - 1);
    mantissa.point = mantissa.isZero() ? 0 : 1;
    char power[16];
    std::snprintf(power, sizeof power, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
    return digitsText(mantissa, picture, regional) + power;
}

std::string timeText(double value) {
    const double day = value - std::floor(value);
    const int minutes = static_cast<int>(std::floor(day * minutesPerDay + 0.5)) % static_cast<int>(minutesPerDay);
    const int hour = minutes / 60;
    char text[16];
    std::snprintf(text, sizeof text, "%d:%02d %s", hour % 12 == 0 ? 12 : hour % 12, minutes % 60,
                  hour < 12 ? "AM" : "PM");
    return text;
}

std::string_view pictureOfName(std::string_view name) {
    if (name == "Fixed") return "0.00";
    if (name == "Standard" || name == "Currency") return "#,##0.00";
    if (name == "Percent") return "0.00%";
    if (name == "Scientific") return "0.00E+00";
    return name;
}

} // namespace

std::string FormatNumber(double value, std::string_view text, const Regional& regional) {
    if (!std::isfinite(value)) return "";
    if (text.empty() || text == "General Number") return GeneralText(value, regional);
    if (text == "h:mm AM/PM") return timeText(value);
    const Picture picture = parsePicture(pictureOfName(text));
    DecimalForm form = decimalForm(value);
    if (picture.percent && !form.isZero()) form.point += 2;
    std::string digits;
    if (picture.exponent) {
        digits = exponentText(form, picture, regional);
    } else {
        form.round(picture.decimals);
        digits = digitsText(form, picture, regional);
    }
    const bool minus = form.negative && !digits.empty() && value != 0;
    return (minus ? regional.NegativeSign : "") + picture.prefix + digits + picture.suffix;
}

std::string GeneralText(double value, const Regional& regional) {
    std::string text = shortText(value, doubleDigits, true);
    if (const auto mark = text.find('.'); mark != std::string::npos) text.replace(mark, 1, regional.DecimalSymbol);
    if (text.starts_with('-')) text.replace(0, 1, regional.NegativeSign);
    return text;
}

std::string PictureForDecimals(int n) {
    if (n < 1) return "#,##0";
    return "#,##0." + std::string(static_cast<std::size_t>(n), '0');
}

int decimalsOfPicture(std::string_view picture) { return parsePicture(pictureOfName(picture)).decimals; }

std::string WidenPicture(double value, std::string_view picture) {
    constexpr int mostDecimals = 11;
    if (value == 0 || !std::isfinite(value)) return std::string(picture);
    int decimals = decimalsOfPicture(picture);
    double shown = value * std::pow(10.0, decimals);
    if (std::trunc(shown) != 0) return std::string(picture);
    while (decimals < mostDecimals && std::trunc(shown) == 0) {
        ++decimals;
        shown *= 10;
    }
    return PictureForDecimals(decimals);
}

} // namespace metrisk
