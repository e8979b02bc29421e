// The boxes that hold plain text, and their fields.
#pragma once

#include "desk/mainscreen/MainScreen.h"
#include "record/Analysis.h"

#include <array>
#include <string>

namespace metrisk {

struct TextField {
    TextBox MainScreen::*box;
    std::string Analysis::*field;
};

extern const std::array<TextField, 13> textFields;

} // namespace metrisk
