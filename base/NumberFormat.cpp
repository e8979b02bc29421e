#include "base/NumberFormat.h"

#include "base/DecimalForm.h"
#include "base/Picture.h"
#include "base/RegionalMarks.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace metrisk {
namespace {

struct DigitPlaces {
    int forcedWhole = 0;
    int forcedDecimals = 0;
    int decimals = 0;
    bool grouping = false;
    bool any = false;
};

DigitPlaces readPlaces(std::string_view picture) {
    DigitPlaces places;
    bool behindPoint = false;
    for (char c : picture) {
        if (c == '.') {
            behindPoint = true;
        } else if (c == ',') {
            places.grouping |= !behindPoint;
        } else if (c == '#' || c == '0') {
            places.any = true;
            if (behindPoint) {
                places.decimals = std::min(places.decimals + 1, maxPictureDecimals);
                if (c == '0') places.forcedDecimals = places.decimals;
            } else if (c == '0' || places.forcedWhole > 0) {
                places.forcedWhole = std::min(places.forcedWhole + 1, maxPictureDecimals);
            }
        }
    }
    return places;
}

std::string grouped(const std::string& whole, const std::string& mark) {
    std::string text;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        if (i > 0 && (whole.size() - i) % 3 == 0) text += mark;
        text += whole[i];
    }
    return text;
}

std::string showPlaces(double value, const DigitPlaces& places, const Regional& regional) {
    DecimalForm form = DecimalForm::of(value);
    form.roundTo(places.decimals);

    std::string whole, decimals;
    if (!form.digits.empty()) {
        const auto wholeCount = static_cast<std::size_t>(std::max(form.point, 0));
        whole = form.digits.substr(0, wholeCount);
        whole.resize(wholeCount, '0');
        if (form.digits.size() > wholeCount)
            decimals = std::string(static_cast<std::size_t>(std::max(-form.point, 0)), '0') +
                       form.digits.substr(wholeCount);
    }
    const auto forcedWhole = static_cast<std::size_t>(places.forcedWhole);
    if (whole.size() < forcedWhole) whole.insert(0, forcedWhole - whole.size(), '0');
    const auto forcedDecimals = static_cast<std::size_t>(places.forcedDecimals);
    if (decimals.size() < forcedDecimals) decimals.resize(forcedDecimals, '0');

    std::string text = form.negative ? negativeSign(regional) : "";
    const bool groups = places.grouping && groupingReadsBack(regional) && !whole.starts_with('0');
    text += groups ? grouped(whole, regional.ThousandSeparator) : whole;
    if (!decimals.empty()) text += decimalSymbol(regional) + decimals;
    return text;
}

/// The mantissa with two decimals, as a pocket calculator shows it.
std::string showScientific(double value, const Regional& regional) {
    const DecimalForm form = DecimalForm::of(value, 3);
    std::string digits = form.digits;
    digits.resize(3, '0');
    const int exponent = form.digits.empty() ? 0 : form.point - 1;
    std::string power = std::to_string(std::abs(exponent));
    if (power.size() < 2) power.insert(0, 1, '0');
    return (form.negative ? negativeSign(regional) : "") + digits[0] + decimalSymbol(regional) +
           digits.substr(1) + (exponent < 0 ? "E-" : "E+") + power;
}

/// The value counts days; its fraction is the time of the day.
std::string showTime(double value) {
    const double day = value - std::floor(value);
    const int minutes = static_cast<int>(std::floor(day * 24 * 60 + 0.5)) % (24 * 60);
    const int hour = minutes / 60;
    const std::string minute = std::to_string(minutes % 60);
    return std::to_string(hour % 12 == 0 ? 12 : hour % 12) + (minute.size() < 2 ? ":0" : ":") + minute +
           (hour < 12 ? " AM" : " PM");
}

} // namespace

std::string FormatNumber(double value, std::string_view picture, const Regional& regional) {
    if (!std::isfinite(value)) return {};
    if (equalCaseBlind(picture, "Scientific")) return showScientific(value, regional);
    if (equalCaseBlind(picture, "h:mm AM/PM")) return showTime(value);
    if (equalCaseBlind(picture, "Fixed")) return FormatNumber(value, "0.00", regional);
    if (equalCaseBlind(picture, "Standard")) return FormatNumber(value, "#,##0.00", regional);
    if (equalCaseBlind(picture, "Percent")) {
        const double percent = value * 100;
        return std::isfinite(percent) ? FormatNumber(percent, "0.00", regional) + "%" : std::string();
    }
    const DigitPlaces places = readPlaces(picture);
    return places.any ? showPlaces(value, places, regional) : GeneralText(value, regional);
}

std::string GeneralText(double value, const Regional& regional, int significant) {
    std::string text = shortestText(value, significant, true);
    if (const auto point = text.find('.'); point != text.npos)
        text.replace(point, 1, decimalSymbol(regional));
    if (text.starts_with('-')) text.replace(0, 1, negativeSign(regional));
    return text;
}

} // namespace metrisk
