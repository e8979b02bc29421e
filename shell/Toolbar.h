// The main screen's toolbar as data.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

struct ToolButton {
    const char* key;
    const char* toolTip;
    const char* command; // the menu item it stands for
    bool separatorAfter = false;

    /// Name of its image: its key, but "link" for ID_LINK and "screen" for ID_SCREEN.
    std::string image() const;
};

const std::vector<ToolButton>& mainToolbar();

/// Every image of the toolbars, in the order of the image list.
const std::vector<const char*>& toolbarImages();

} // namespace metrisk
