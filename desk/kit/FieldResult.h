// What a field rule says when its box loses focus.
#pragma once

#include "desk/kit/Message.h"

#include <string>
#include <utility>

namespace metrisk {

struct FieldResult {
    bool stay = false; // the entry is refused: focus returns to the box, its whole text selected
    std::string text;  // what the box shows from now on
};

/// Tells why the entry is refused; the box shows the text until it is left again.
inline FieldResult refuseEntry(Talk& ui, const Message& message, std::string shown) {
    tell(ui, message);
    return {true, std::move(shown)};
}

} // namespace metrisk
