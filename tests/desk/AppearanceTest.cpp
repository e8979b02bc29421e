// Colours and bold texts: in the settings, on their screen, and fonts by the size of the desktop.
#include "desk/appearance/ColorSchemeScreen.h"
#include "desk/appearance/SchemeSettings.h"
#include "desk/appearance/ScreenFonts.h"
#include "persistence/SettingsFile.h"
#include "tests/support/Hand.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

TEST(Appearance, SettingsHoldAScheme) {
    const TemporaryFolder folder;
    installStartingSettings(folder / "first.ini");
    SettingsFile first(folder / "first.ini"), none(folder / "none.ini");
    EXPECT_EQ(LoadColorScheme(first), ColorScheme{}) << "a first start has the colors of the desktop";
    EXPECT_EQ(LoadColorScheme(none), ColorScheme{});

    ColorScheme scheme;
    scheme.BackColor_Labels = 0xABCDEF;
    scheme.FontBold_TextBox = true;
    SaveColorScheme(first, scheme);
    EXPECT_EQ(LoadColorScheme(first), scheme);
    EXPECT_FALSE(usesDesktopColors(scheme));
    scheme.BackColor_Labels = ColorScheme{}.BackColor_Labels;
    EXPECT_TRUE(usesDesktopColors(scheme)) << "bold texts are no color";

    MemorySettings odd;
    for (const auto& [key, text] : {std::pair{"BackColor_Metrisk", "16777216"},
                                    {"ForeColor_Heading", "-1"},
                                    {"ForeColor_Labels", "255.9 red"},
                                    {"BackColor_InfoBox", "x"}})
        odd.WriteSetting("ColorScheme", key, text);
    const ColorScheme read = LoadColorScheme(odd);
    EXPECT_EQ(read.BackColor_Metrisk, 0xFFFFFF);
    EXPECT_EQ(read.ForeColor_Heading, 0);
    EXPECT_EQ(read.ForeColor_Labels, 255);
    EXPECT_EQ(read.BackColor_InfoBox, 0);
    EXPECT_EQ(read.ForeColor_ResultsBox, 0) << "missing among others: black";
    EXPECT_FALSE(read.FontBold_Heading);
}

TEST(Appearance, AChoiceIsSeenAtOnce) {
    TestDesktop desk;
    {
        ColorSchemeScreen screen(desk.session);
        EXPECT_EQ(textOf(screen, "cmdSetColor_8"), "Screen Labels");
        EXPECT_EQ(textOf(screen, "chk_Bold_3"), "Option Labels");
        press(screen, "cmdSetColor_3");
        EXPECT_TRUE(desk.looks.applied.empty()) << "cancelled";
        desk.looks.answers = {0x123456};
        press(screen, "cmdSetColor_3");
        EXPECT_EQ(desk.looks.titles.back(), "Information Boxes");
        EXPECT_EQ(desk.looks.applied.back().BackColor_InfoBox, 0x123456);
        EXPECT_EQ(control<Swatch>(screen, "pnl_Color_3").color, 0x123456);
        press(screen, "chk_Bold_0");
        EXPECT_TRUE(desk.looks.applied.back().FontBold_TextLabel);
        choose(screen, "mnu_SetDefault");
        choose(screen, "mnu_DesktopColors");
        EXPECT_TRUE(usesDesktopColors(desk.session.colorScheme));
        choose(screen, "mnu_UseDefault");
        EXPECT_EQ(control<Swatch>(screen, "pnl_Color_3").color, 0x123456);
        EXPECT_TRUE(screen.close(Way::Cancel));
        EXPECT_EQ(desk.session.colorScheme, ColorScheme{});
        EXPECT_EQ(desk.looks.applied.back(), ColorScheme{});
    }
    ColorSchemeScreen again(desk.session);
    choose(again, "mnu_UseDefault");
    choose(again, "mnu_Done");
    EXPECT_EQ(again.closedBy(), Way::Ok);
    EXPECT_EQ(desk.session.colorScheme.BackColor_InfoBox, 0x123456);
}

TEST(Appearance, FontsFollowTheDesktop) {
    EXPECT_TRUE(screenScale(1024, 768, 120).allowsBold());
    EXPECT_FALSE(screenScale(800, 600, 96).allowsBold());
    EXPECT_DOUBLE_EQ(screenScale(640, 480, 120).ofFonts(), 0.625);
    EXPECT_EQ(screenScale(3840, 2160, 96).ofFonts(), 1);
    for (const auto& [points, steps, size] : {std::tuple{8.25, 1, 8.25 * 9.6 / 7.8},
                                              {9.0, 1, 9.0 * 12 / 9.75},
                                              {12.0, -1, 9.75},
                                              {12.0, 0, 12.0},
                                              {36.0, 2, 36.0},
                                              {5.0, -3, 5.0}})
        EXPECT_DOUBLE_EQ(steppedFontSize(points, steps), size) << points;
    EXPECT_EQ(substituteFont("MS Sans Serif"), "Arial");
    EXPECT_EQ(substituteFont("Courier"), "Courier");
}

} // namespace
} // namespace metrisk::testing
