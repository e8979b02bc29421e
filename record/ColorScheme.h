// The user's colours and bold texts of the main screen.
#pragma once

namespace metrisk {

/// Colours are red + 256 green + 65536 blue, each part from 0 to 255. The values of a new scheme are readable
/// together; as long as they are those, the screens have the colours of the desktop instead.
struct ColorScheme {
    double BackColor_Metrisk = 0xF0F0F0;
    double BackColor_Labels = 0xF0F0F0;
    double ForeColor_Labels = 0x202020;
    double BackColor_InfoBox = 0xFFFFFF;
    double ForeColor_InfoBox = 0;
    double ForeColor_Heading = 0x663300;
    double BackColor_ResultsBox = 0xE1FFFF;
    double ForeColor_ResultsBox = 0x800000;
    double ForeColor_ScreenLabels = 0x202020;

    bool FontBold_TextLabel = false;
    bool FontBold_TextBox = false;
    bool FontBold_ScreenLabels = false;
    bool FontBold_OptionLabels = false;
    bool FontBold_Labels = false;
    bool FontBold_InfoBox = false;
    bool FontBold_Heading = true;
    bool FontBold_ResultsBox = true;

    friend bool operator==(const ColorScheme&, const ColorScheme&) = default;
};

/// A colour and a bold text as the screen and the settings name them.
struct SchemeColor {
    const char* key;
    const char* caption;
    double ColorScheme::*value;
};
struct SchemeBold {
    const char* key;
    const char* caption;
    bool ColorScheme::*value;
};

/// In the order of the screen.
inline constexpr SchemeColor schemeColors[] = {
    {"BackColor_Metrisk", "Form Background", &ColorScheme::BackColor_Metrisk},
    {"BackColor_Labels", "ID Labels", &ColorScheme::BackColor_Labels},
    {"ForeColor_Labels", "ID Label Text", &ColorScheme::ForeColor_Labels},
    {"BackColor_InfoBox", "Information Boxes", &ColorScheme::BackColor_InfoBox},
    {"ForeColor_InfoBox", "Information Box Text", &ColorScheme::ForeColor_InfoBox},
    {"ForeColor_Heading", "Results Headings", &ColorScheme::ForeColor_Heading},
    {"BackColor_ResultsBox", "Results Boxes", &ColorScheme::BackColor_ResultsBox},
    {"ForeColor_ResultsBox", "Results Box Text", &ColorScheme::ForeColor_ResultsBox},
    {"ForeColor_ScreenLabels", "Screen Labels", &ColorScheme::ForeColor_ScreenLabels},
};
inline constexpr SchemeBold schemeBolds[] = {
    {"FontBold_TextLabel", "Data Headings", &ColorScheme::FontBold_TextLabel},
    {"FontBold_TextBox", "Data Text", &ColorScheme::FontBold_TextBox},
    {"FontBold_ScreenLabels", "Screen Labels", &ColorScheme::FontBold_ScreenLabels},
    {"FontBold_OptionLabels", "Option Labels", &ColorScheme::FontBold_OptionLabels},
    {"FontBold_Labels", "ID Labels", &ColorScheme::FontBold_Labels},
    {"FontBold_InfoBox", "Information Boxes", &ColorScheme::FontBold_InfoBox},
    {"FontBold_Heading", "Results Headings", &ColorScheme::FontBold_Heading},
    {"FontBold_ResultsBox", "Results Boxes", &ColorScheme::FontBold_ResultsBox},
};

/// The user has chosen no colours. One of them is enough for all to come from the scheme: single ones among
/// those of a dark desktop could not be read.
inline bool usesDesktopColors(const ColorScheme& scheme) {
    for (const SchemeColor& color : schemeColors)
        if (scheme.*color.value != ColorScheme{}.*color.value) return false;
    return true;
}

} // namespace metrisk
