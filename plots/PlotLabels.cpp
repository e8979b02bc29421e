#include "plots/PlotLabels.h"

#include "base/NumberFormat.h"
#include "base/NumberText.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr int usualDecimals = 4;
constexpr int digits = 15; // that a value has
constexpr int sigmaDigits = 3;

int powerOf(double value) {
    return value == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::abs(value))));
}

int mostDecimals(double value) {
    return std::max(usualDecimals, digits - 1 - powerOf(value));
}

struct Label {
    double value;
    int decimals = usualDecimals;
    std::string text{};

    void write(const Regional& regional) {
        text = FormatNumber(value, "#,##0.0" + std::string(static_cast<std::size_t>(decimals - 1), '#'),
                            regional);
    }
    double error(const Regional& regional) const { return std::abs(ParseValue(text, regional) - value); }
};

bool sameValue(double a, double b) {
    return GeneralText(a, {}, digits) == GeneralText(b, {}, digits);
}

/// Gives a decimal more to those that read as another does though its value differs; false if there is none.
bool partAlike(std::vector<Label>& labels, const Regional& regional) {
    std::vector<Label*> found;
    for (Label& a : labels)
        if (a.decimals < mostDecimals(a.value) && std::ranges::any_of(labels, [&](const Label& b) {
                return a.text == b.text && !sameValue(a.value, b.value);
            }))
            found.push_back(&a);
    for (Label* label : found) {
        ++label->decimals;
        label->write(regional);
    }
    return !found.empty();
}

} // namespace

std::vector<std::string> labelTexts(std::span<const double> values, double tolerance,
                                    const Regional& regional) {
    std::vector<Label> labels;
    for (const double value : values) {
        Label label{value};
        label.write(regional);
        while (label.error(regional) > tolerance && label.decimals < mostDecimals(value)) {
            ++label.decimals;
            label.write(regional);
        }
        labels.push_back(std::move(label));
    }
    while (partAlike(labels, regional)) {
    }
    std::vector<std::string> texts;
    texts.reserve(labels.size());
    for (Label& label : labels) texts.push_back(std::move(label.text));
    return texts;
}

std::string sigmaText(double sigma, const Regional& regional) {
    const int decimals = sigma == 0 ? 3 : std::max(3, sigmaDigits - 1 - powerOf(sigma));
    return FormatNumber(sigma, "#,##0." + std::string(static_cast<std::size_t>(decimals), '0'), regional);
}

} // namespace metrisk
