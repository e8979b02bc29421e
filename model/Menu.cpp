#include "model/Menu.h"

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

MenuItem worksheetRunMenu() {
    return {.control = "mnu_Run",
            .caption = "Ru&n",
            .items = {{.control = "mnu_Run_Options", .caption = "&External Application"},
                      {.control = "mnu_RunSetups", .caption = "Se&lect"}}};
}

} // namespace metrisk
