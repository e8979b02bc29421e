#include "desk/kit/Menu.h"

#include <string_view>
#include <utility>

namespace metrisk {

std::string ToolButton::image() const {
    const std::string_view name = key;
    if (name == "ID_LINK") return "link";
    if (name == "ID_SCREEN") return "screen";
    return key;
}

const MenuItem* findItem(const std::vector<MenuItem>& menu, const char* control) {
    for (const MenuItem& item : menu) {
        if (std::string_view(item.control) == control) return &item;
        if (const MenuItem* below = findItem(item.items, control)) return below;
    }
    return nullptr;
}

MenuItem* findItem(std::vector<MenuItem>& menu, const char* control) {
    return const_cast<MenuItem*>(findItem(std::as_const(menu), control));
}

MenuItem editMenu() {
    return {
        .control = "mnu_Edit",
        .caption = "&Edit",
        .items = {
            {.control = "mnu_Edit_Undo",
             .caption = "&Undo",
             .shortcut = "Ctrl+Z",
             .editing = Editing::Undo,
             .separatorAfter = true},
            {.control = "mnu_Edit_Cut", .caption = "Cu&t", .shortcut = "Ctrl+X", .editing = Editing::Cut},
            {.control = "mnu_Edit_Copy", .caption = "&Copy", .shortcut = "Ctrl+C", .editing = Editing::Copy},
            {.control = "mnu_Edit_Paste",
             .caption = "&Paste",
             .shortcut = "Ctrl+V",
             .editing = Editing::Paste},
            {.control = "mnu_Edit_Delete", .caption = "&Delete", .editing = Editing::Delete}}};
}

} // namespace metrisk
