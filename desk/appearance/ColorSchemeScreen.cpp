#include "desk/appearance/ColorSchemeScreen.h"

#include "base/NumberFormat.h"
#include "desk/appearance/SchemeSettings.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Session.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace metrisk {

namespace {

constexpr const char* buttonNames[] = {"cmdSetColor_0", "cmdSetColor_1", "cmdSetColor_2",
                                       "cmdSetColor_3", "cmdSetColor_4", "cmdSetColor_5",
                                       "cmdSetColor_6", "cmdSetColor_7", "cmdSetColor_8"};
constexpr const char* sampleNames[] = {"pnl_Color_0", "pnl_Color_1", "pnl_Color_2",
                                       "pnl_Color_3", "pnl_Color_4", "pnl_Color_5",
                                       "pnl_Color_6", "pnl_Color_7", "pnl_Color_8"};
constexpr const char* contrastNames[] = {"Lbl_Contrast_0", "Lbl_Contrast_1", "Lbl_Contrast_2",
                                         "Lbl_Contrast_3", "Lbl_Contrast_4", "Lbl_Contrast_5",
                                         "Lbl_Contrast_6", "Lbl_Contrast_7", "Lbl_Contrast_8"};
constexpr const char* checkNames[] = {"chk_Bold_0", "chk_Bold_1", "chk_Bold_2", "chk_Bold_3",
                                      "chk_Bold_4", "chk_Bold_5", "chk_Bold_6", "chk_Bold_7"};

/// The ground of a text's colour; none for the colour of a ground.
std::optional<double> groundOf(const ColorScheme& scheme, double ColorScheme::*text) {
    for (const auto& [front, back] :
         {std::pair{&ColorScheme::ForeColor_Labels, &ColorScheme::BackColor_Labels},
          {&ColorScheme::ForeColor_InfoBox, &ColorScheme::BackColor_InfoBox},
          {&ColorScheme::ForeColor_ResultsBox, &ColorScheme::BackColor_ResultsBox},
          {&ColorScheme::ForeColor_Heading, &ColorScheme::BackColor_Metrisk},
          {&ColorScheme::ForeColor_ScreenLabels, &ColorScheme::BackColor_Metrisk}})
        if (front == text) return scheme.*back;
    return {};
}

/// By the luminances of the colours, as the guidelines for readable pages have it: (L + 0.05)/(l + 0.05).
double contrastOf(double a, double b) {
    const auto luminance = [](double colour) {
        const auto bits = static_cast<unsigned>(colour);
        const auto part = [bits](int shift) {
            const double c = (bits >> shift & 0xFF) / 255.0;
            return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(0) + 0.7152 * part(8) + 0.0722 * part(16) + 0.05;
    };
    const double one = luminance(a), other = luminance(b);
    return std::max(one, other) / std::min(one, other);
}

constexpr double readable = 4.5;

} // namespace

ColorSchemeScreen::Color::Color(ColorSchemeScreen& owner, std::size_t index)
    : cmdSetColor(owner, buttonNames[index], schemeColors[index].caption, "Choose this color"),
      pnl_Color(owner, sampleNames[index], schemeColors[index].caption),
      Lbl_Contrast(owner, contrastNames[index], "", "Contrast to its ground; texts need 4.5 to 1") {}

ColorSchemeScreen::ColorSchemeScreen(Session& session)
    : Worksheet("ColorScheme", "Screen Appearance Options", "appearance"), session_(session),
      opened_(session.colorScheme) {
    for (std::size_t i = 0; i < std::size(schemeColors); ++i) {
        colors.emplace_back(*this, i);
        colors.back().cmdSetColor.clicked = [this, i](bool) { choose(i); };
    }
    for (std::size_t i = 0; i < std::size(schemeBolds); ++i) {
        chk_Bold.emplace_back(*this, checkNames[i], schemeBolds[i].caption, "Bold text");
        chk_Bold.back().clicked = [this, i](bool on) {
            ColorScheme scheme = session_.colorScheme;
            scheme.*schemeBolds[i].value = on;
            use(scheme);
        };
    }
    menus = {
        {.control = "mnu_Done", .caption = "&Done", .run = [this] { close(Way::Ok); }},
        {.control = "mnu_SetDefault",
         .caption = "&Set as Default",
         .run = [this] { SaveColorScheme(session_.settings, session_.colorScheme); }},
        {.control = "mnu_UseDefault",
         .caption = "&Use Default",
         .run = [this] { use(LoadColorScheme(session_.settings)); }},
        {.control = "mnu_DesktopColors",
         .caption = "Desktop &Colors",
         .run =
             [this] {
                 ColorScheme scheme = session_.colorScheme;
                 for (const SchemeColor& color : schemeColors)
                     scheme.*color.value = ColorScheme{}.*color.value;
                 use(scheme);
             }},
        {.control = "mnu_Help", .caption = "&Help", .run = [this] { session_.ui.help(helpPage); }},
    };
    refresh();
}

void ColorSchemeScreen::refresh() {
    const ColorScheme& scheme = session_.colorScheme;
    const bool own = !usesDesktopColors(scheme);
    for (std::size_t i = 0; i < colors.size(); ++i) {
        const double color = scheme.*schemeColors[i].value;
        colors[i].pnl_Color.color = color;
        Label& contrast = colors[i].Lbl_Contrast;
        const auto ground = groundOf(scheme, schemeColors[i].value);
        contrast.visible = own && ground;
        if (!contrast.visible) continue;
        const double ratio = contrastOf(color, *ground);
        contrast.text = FormatNumber(ratio, "0.0", session_.regional) + " : 1";
        contrast.tone = ratio < readable ? Label::Tone::Warn : Label::Tone::Second;
        contrast.sign = ratio < readable ? Label::Sign::Up : Label::Sign::None;
    }
    for (std::size_t i = 0; i < chk_Bold.size(); ++i) chk_Bold[i].checked = scheme.*schemeBolds[i].value;
}

void ColorSchemeScreen::choose(std::size_t index) {
    if (!session_.desktop || !session_.desktop->looks) return;
    ColorScheme scheme = session_.colorScheme;
    double& value = scheme.*schemeColors[index].value;
    const std::optional<double> chosen =
        session_.desktop->looks->chooseColor(schemeColors[index].caption, value);
    if (!chosen) return;
    value = *chosen;
    use(scheme);
}

void ColorSchemeScreen::use(const ColorScheme& scheme) {
    session_.colorScheme = scheme;
    if (session_.desktop && session_.desktop->looks) session_.desktop->looks->ApplyColorScheme(scheme);
}

bool ColorSchemeScreen::mayClose(Way way) {
    use(way == Way::Ok ? session_.colorScheme : opened_);
    return true;
}

} // namespace metrisk
