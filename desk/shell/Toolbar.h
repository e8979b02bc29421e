// The main screen's toolbar as data.
#pragma once

#include "desk/kit/Menu.h"

#include <vector>

namespace metrisk {

const std::vector<ToolButton>& mainToolbar();

/// Every image of the toolbars, in the order of the image list.
const std::vector<const char*>& toolbarImages();

} // namespace metrisk
