// A tolerance composed of a fixed part and a part in percent of the reading.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

struct Regional;

struct OffsetParts {
    double fixed = 0;      // nominal units
    double pctReading = 0; // percent of the reading's size
    std::string fixedPicture{};
    std::string pctPicture{};
};

struct ComposedOffset {
    double value; // nominal units
    std::string picture;
};

/// fixed + |mode| pctReading / 100, with the decimals of both parts and those that the
/// reading adds to them, up to six significant digits. Raises RuntimeFault.
ComposedOffset composeOffset(const OffsetParts& parts, double mode);

/// What was entered stays when the reading changes: a fixed part in ppm is one of the new reading, and so is
/// a part in percent of it. Raises RuntimeFault.
void followReading(double& offset, double& fixed, double pctReading, bool ppm, double before, double mode);

/// A picture with at least the decimals that six significant digits of the value need.
std::string fullPicture(double value, std::string_view picture);

} // namespace metrisk
