#include "window/kit/ColourRoles.h"

namespace metrisk {

const ColourRoles& lightRoles() {
    static const ColourRoles roles{.window = 0xF1F2F4,
                                   .base = 0xFFFFFF,
                                   .text = 0x1B1E22,
                                   .second = 0x4F565E,
                                   .disabled = 0x777E86,
                                   .line = 0xC3C8CE,
                                   .field = 0x838A92,
                                   .readOnly = 0xE6E9EC,
                                   .result = 0xE3EDF8,
                                   .resultText = 0x0B335C,
                                   .accent = 0x1A62A8,
                                   .onAccent = 0xFFFFFF,
                                   .good = 0x1A6E38,
                                   .warn = 0x7D5200,
                                   .bad = 0xAE231B,
                                   .link = 0x14589C};
    return roles;
}

const ColourRoles& darkRoles() {
    static const ColourRoles roles{.window = 0x25282C,
                                   .base = 0x191B1E,
                                   .text = 0xE6E8EB,
                                   .second = 0xAEB4BB,
                                   .disabled = 0x80868E,
                                   .line = 0x43484E,
                                   .field = 0x6B727A,
                                   .readOnly = 0x2C3035,
                                   .result = 0x1D2C3C,
                                   .resultText = 0xCFE4FA,
                                   .accent = 0x5AA2E6,
                                   .onAccent = 0x0A1420,
                                   .good = 0x6CC68A,
                                   .warn = 0xE9B44C,
                                   .bad = 0xFF8A80,
                                   .link = 0x7DB8F0};
    return roles;
}

const ColourRoles& rolesFor(const QPalette& palette) {
    constexpr int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle ? darkRoles() : lightRoles();
}

QPalette paletteOf(const ColourRoles& r) {
    QPalette palette(r.window, r.window);
    for (const auto& [role, color] : {std::pair{QPalette::WindowText, r.text},
                                      {secondRole, r.second},
                                      {lineRole, r.line},
                                      {QPalette::Base, r.base},
                                      {QPalette::AlternateBase, r.readOnly},
                                      {QPalette::Text, r.text},
                                      {QPalette::ButtonText, r.text},
                                      {QPalette::BrightText, r.bad},
                                      {QPalette::Highlight, r.accent},
                                      {QPalette::HighlightedText, r.onAccent},
                                      {QPalette::Link, r.link},
                                      {QPalette::LinkVisited, r.link},
                                      {QPalette::PlaceholderText, r.disabled},
                                      {QPalette::ToolTipBase, r.base},
                                      {QPalette::ToolTipText, r.text}})
        palette.setColor(role, color);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, secondRole})
        palette.setColor(QPalette::Disabled, role, r.disabled);
    palette.setColor(QPalette::Disabled, QPalette::Base, r.readOnly);
    return palette;
}

} // namespace metrisk
