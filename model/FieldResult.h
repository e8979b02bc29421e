// What a field rule says when its box loses focus.
#pragma once

#include <string>

namespace metrisk {

struct FieldResult {
    bool stay = false; // the entry is refused: focus returns to the box, its whole text selected
    std::string text;  // what the box shows from now on
};

} // namespace metrisk
