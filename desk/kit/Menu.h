// The menus of a screen as data.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace metrisk {

/// What the active text box does for a menu.
enum class Editing { None, Undo, Cut, Copy, Paste, Delete };

/// Data that a command shows; it is checked and fitted before the command runs.
enum class Needs { Nothing, Subject, Both, BothForPlot };

/// A menu, if it has items; otherwise a command. One that has nothing to run stays disabled.
struct MenuItem {
    const char* control; // an array control has "_" and its index behind its name
    std::string caption;
    std::function<void()> run{};
    const char* shortcut = ""; // key sequences in portable text, parted by "; "
    std::vector<MenuItem> items{};
    std::function<std::vector<MenuItem>()> fill{}; // items made anew each time the menu opens
    Editing editing = Editing::None;
    Needs needs = Needs::Nothing;
    bool separatorAfter = false;
    std::string toolTip{};
    std::optional<bool> checked{}; // has a check mark, set or not
    bool off = false;              // has nothing to do at present

    bool isMenu() const { return !items.empty() || fill; }
    bool enabled() const { return !off && (run || isMenu() || editing != Editing::None); }
};

/// A button of a toolbar.
struct ToolButton {
    const char* key;
    const char* toolTip;
    const char* command; // the menu item or button it stands for
    bool separatorAfter = false;

    /// Name of its image: its key, but "link" for ID_LINK and "screen" for ID_SCREEN.
    std::string image() const;
};

/// The item of that control name anywhere below, or null.
MenuItem* findItem(std::vector<MenuItem>& menu, const char* control);
const MenuItem* findItem(const std::vector<MenuItem>& menu, const char* control);

/// The menu that works on the active text box.
MenuItem editMenu();

} // namespace metrisk
