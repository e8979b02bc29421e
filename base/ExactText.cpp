#include "base/ExactText.h"

#include <charconv>

namespace metrisk {

std::string exactText(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

} // namespace metrisk
