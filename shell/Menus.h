// The main menu and the toolbar as data.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

struct MenuItem {
    const char* control; // an array control has "_" and its index behind its name
    const char* caption;
    const char* shortcut = ""; // a key sequence in portable text
    bool hasScreen = true; // false: what it opens is not part of the program, it stays disabled
    std::vector<MenuItem> items{};
    bool separatorAfter = false;
};

const std::vector<MenuItem>& mainMenu();

/// The item of that control name, or null.
const MenuItem* menuItem(std::string_view control);

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
