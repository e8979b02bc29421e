// The colours and bold texts of the main screen, screen ColorScheme.
#pragma once

#include "desk/kit/Worksheet.h"
#include "record/ColorScheme.h"

#include <deque>

namespace metrisk {

struct Session;

/// What is chosen is seen at once. Done keeps it while the program runs; left otherwise, the screen puts back
/// what was there before.
class ColorSchemeScreen final : public Worksheet {
  public:
    struct Color {
        PushButton cmdSetColor;
        Swatch pnl_Color;
        Label Lbl_Contrast; // of a text to its ground
        Color(ColorSchemeScreen& owner, std::size_t index);
    };
    std::deque<Color> colors;
    std::deque<CheckBox> chk_Bold;

    Label Lbl_Foot{*this, "Lbl_Foot", "Colors act at once. Done keeps them while the program runs."};

    explicit ColorSchemeScreen(Session& session);

    void refresh() override;

  protected:
    bool mayClose(Way way) override;

  private:
    Session& session_;
    const ColorScheme opened_;

    void choose(std::size_t index);
    void use(const ColorScheme& scheme);
};

} // namespace metrisk
