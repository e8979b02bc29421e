// The inputs of a published figure: named texts and numbers.
#pragma once

#include <charconv>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace metrisk {

using Fields = std::map<std::string, std::string, std::less<>>;

struct Computed {
    double figure;
    std::optional<double> exact{};
};

/// A line says something that this program does not know.
struct Unknown {};

inline double number(std::string_view text) {
    double value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (fault != std::errc() || end != text.data() + text.size()) throw Unknown{};
    return value;
}

inline const std::string& textField(const Fields& inputs, std::string_view name) {
    const auto found = inputs.find(name);
    if (found == inputs.end()) throw Unknown{};
    return found->second;
}

inline double field(const Fields& inputs, std::string_view name) {
    return number(textField(inputs, name));
}

inline double fieldOr(const Fields& inputs, std::string_view name, double otherwise) {
    return inputs.contains(name) ? field(inputs, name) : otherwise;
}

} // namespace metrisk
