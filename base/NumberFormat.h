// Numbers to text: by a picture, or as a general number, in the user's regional form.
#pragma once

#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// Shows the value with a picture: "#" an optional digit, "0" a forced one, "," anywhere before the
/// point turns on grouping, "." is the decimal point; other characters carry no meaning. Named
/// pictures: "General Number", "Fixed", "Standard", "Percent", "Scientific", "h:mm AM/PM".
///
/// Rounds half away from zero on the 15-digit decimal form. A rounded negative value keeps its sign,
/// "#" shows nothing for 0. The text always reads back (ParseValue) as the rounded number: where a
/// grouping mark could be taken for something else (in forced zeros, too), none is shown. A picture without
/// any digit stands for "General Number". A value that is not finite shows as an empty text.
std::string FormatNumber(double value, std::string_view picture, const Regional& regional);

/// The shortest form of at most so many significant digits, 15 or fewer ("0.5", "-12", "1E+15").
std::string GeneralText(double value, const Regional& regional, int significant = 15);

} // namespace metrisk
