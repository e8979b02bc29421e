#include "base/NumberEntry.h"

#include "base/NumberText.h"

namespace metrisk {

NumberEntry NumberEntry::read(std::string_view text, const Regional& regional) {
    return {ParseValue(text, regional), DigitsForEntry(text, regional),
            text.find_first_not_of(" \t\r\n") == text.npos};
}

std::string NumberEntry::picture() const {
    return PictureForDecimals(decimals);
}

} // namespace metrisk
