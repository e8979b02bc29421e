// The two units that are parts of something: percent and parts per million.
#pragma once

namespace metrisk {

inline constexpr const char* percentUnits = "%";
inline constexpr const char* ppmUnits = "ppm";
inline constexpr double perHundred = 100;
inline constexpr double perMillion = 1000000;

} // namespace metrisk
