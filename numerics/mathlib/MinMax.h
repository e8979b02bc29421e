// Larger and smaller of two numbers.
#pragma once

#include <cstdint>

namespace metrisk {

constexpr double dMax(double a, double b) {
    return a < b ? b : a;
}
constexpr double dMin(double a, double b) {
    return b < a ? b : a;
}
constexpr std::int32_t iMax(std::int32_t a, std::int32_t b) {
    return a < b ? b : a;
}
constexpr std::int32_t iMin(std::int32_t a, std::int32_t b) {
    return b < a ? b : a;
}

} // namespace metrisk
