// How the pictures of offsets follow what is entered.
#pragma once

#include "base/Regional.h"

#include <string>

namespace metrisk {

struct Analysis;

/// Picture of a percent box after a commit.
inline constexpr const char* pctEntryPicture = "#0.0000";

/// A percentage in tolerance in that picture, with more decimals where it would read 0, or 100 for less.
std::string pctEntryText(double pct, const Regional& regional);

/// Each offset picture changes by so many decimals, but none below what its value needs.
void moveOffsetPictures(Analysis& record, int decimals);

} // namespace metrisk
