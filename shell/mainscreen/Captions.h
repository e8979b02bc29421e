// Captions of the main screen that never change, by control.
#pragma once

#include <string_view>
#include <vector>

namespace metrisk {

struct Caption {
    const char* control; // an array control has "_" and its index behind its name
    const char* text;
};

/// Identification labels, one column; both columns bear the same.
const std::vector<const char*>& identificationLabels();
const std::vector<Caption>& mainCaptions();

/// The caption of a control; empty if it has none.
const char* captionOf(std::string_view control);

} // namespace metrisk
