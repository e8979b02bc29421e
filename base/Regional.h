// The user's regional number settings.
#pragma once

#include <string>

namespace metrisk {

/// Each is one character, in UTF-8. The defaults are those of the command line.
struct Regional {
    std::string ListSeparator = ",";
    std::string DecimalSymbol = ".";
    std::string ThousandSeparator = ",";
    std::string NegativeSign = "-";
};

} // namespace metrisk
