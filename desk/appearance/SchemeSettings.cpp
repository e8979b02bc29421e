#include "desk/appearance/SchemeSettings.h"

#include "base/NumberText.h"
#include "base/Settings.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace metrisk {

namespace {

constexpr const char* colorSection = "ColorScheme";
constexpr const char* boldSection = "FontBoldOptions";
constexpr int textLength = 60;
constexpr double white = 0xFFFFFF;

} // namespace

ColorScheme LoadColorScheme(const Settings& settings) {
    bool any = false;
    const auto number = [&](const char* section, const char* key) {
        const std::string text = settings.ReadSetting(section, key, "", textLength);
        any |= !text.empty();
        return std::trunc(ParseValue(text, {}));
    };
    ColorScheme scheme;
    for (const SchemeColor& color : schemeColors)
        scheme.*color.value = std::clamp(number(colorSection, color.key), 0.0, white);
    for (const SchemeBold& bold : schemeBolds) scheme.*bold.value = number(boldSection, bold.key) != 0;
    return any ? scheme : ColorScheme{};
}

void SaveColorScheme(Settings& settings, const ColorScheme& scheme) {
    std::vector<SettingValue> values;
    for (const SchemeColor& color : schemeColors)
        values.push_back({colorSection, color.key, GeneralText(scheme.*color.value, {})});
    for (const SchemeBold& bold : schemeBolds)
        values.push_back({boldSection, bold.key, scheme.*bold.value ? "1" : "0"});
    settings.write(values);
}

} // namespace metrisk
