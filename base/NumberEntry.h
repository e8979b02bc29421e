// A number as the user has typed it.
#pragma once

#include "base/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

struct NumberEntry {
    double value; // 0 if the text holds no number
    int decimals; // typed, exponents written out
    bool blank;   // nothing but white space

    static NumberEntry read(std::string_view text, const Regional& regional);

    /// The picture that shows the decimals typed.
    std::string picture() const;
};

} // namespace metrisk
