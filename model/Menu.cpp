#include "model/Menu.h"

#include <string_view>

namespace metrisk {

const MenuItem* findItem(const std::vector<MenuItem>& menu, const char* control) {
    for (const MenuItem& item : menu) {
        if (std::string_view(item.control) == control) return &item;
        if (const MenuItem* below = findItem(item.items, control)) return below;
    }
    return nullptr;
}

} // namespace metrisk
