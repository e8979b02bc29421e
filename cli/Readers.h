// How the commands read numbers: as the cells of a table are read, with a period as decimal mark.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace metrisk::cli {

/// A finite number.
std::optional<double> numberOf(std::string_view text);

/// The number of "95" and of "95%", in percent.
std::optional<double> percentOf(std::string_view text);

/// 4 of "4:1" and of "4"; above 0.
std::optional<double> ratioOf(std::string_view text);
/// A whole number of 0 or more, digits alone.
std::optional<unsigned> countOf(std::string_view text);

/// The fraction of a risk: of a percentage, or of "500ppm".
std::optional<double> riskOf(std::string_view text);

/// What is wrong with a text that is none of these; empty if nothing is.
std::string isNumber(const std::string& text);
std::string isPercent(const std::string& text);
std::string isRatio(const std::string& text);
std::string isCount(const std::string& text);
std::string isRisk(const std::string& text);

/// A percentage without its sign.
std::string withoutPercentSign(std::string_view text);

/// The sides of "800x600", each from `least` to `most`.
struct Sides {
    std::size_t across, up;
};
std::optional<Sides> sidesOf(std::string_view text, std::size_t least, std::size_t most);

} // namespace metrisk::cli
