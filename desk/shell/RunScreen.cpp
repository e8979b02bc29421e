#include "desk/kit/ScreenEntry.h"

#include "desk/kit/Session.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace metrisk {

namespace {

const ScreenEntry& screenNamed(std::string_view name) {
    const auto all = allScreens();
    const auto found = std::ranges::find(all, name, &ScreenEntry::name);
    if (found == all.end()) throw std::logic_error("no screen " + std::string(name));
    return *found;
}

} // namespace

void runScreen(std::string_view name, const DeskParts& parts,
               const std::function<void(Worksheet&)>& prepare) {
    const auto screen = screenNamed(name).make(parts);
    screen->begin();
    if (prepare) prepare(*screen);
    parts.session.ui.run(*screen);
}

MenuItem screenItem(const char* control, std::string_view name, const DeskParts& parts) {
    const ScreenEntry& entry = screenNamed(name);
    return {.control = control,
            .caption = std::string(entry.caption),
            .run = [name, parts] { runScreen(name, parts); },
            .needs = entry.needs};
}

} // namespace metrisk
