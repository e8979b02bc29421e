// Why choices of both sides rest, on every screen alike.
#pragma once

namespace metrisk {

inline constexpr const char* oneToleranceTip = "A single-sided parameter has one tolerance";
inline constexpr const char* noPhysicalLimitTip = "Only a single-sided parameter has a physical limit";

} // namespace metrisk
