#include "model/Menu.h"

#include <string_view>

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

MenuItem worksheetRunMenu() {
    return {.control = "mnu_Run",
            .caption = "Ru&n",
            .items = {{.control = "mnu_Run_Options", .caption = "&External Application"},
                      {.control = "mnu_RunSetups", .caption = "Se&lect"}}};
}

} // namespace metrisk
