// Whoever sits before the program is nobody: screens are left at once, boxes get the answer they name for
// that.
#pragma once

#include "desk/kit/Interaction.h"
#include "desk/kit/Worksheet.h"

namespace metrisk {

class UnwatchedInteraction : public Interaction {
  public:
    Answer show(const Box& box) override { return box.unattended; }
    /// Does the screen's work; a screen without work is left by Cancel at once.
    void run(Worksheet& screen, const std::function<void()>& work) override {
        if (work)
            work();
        else
            screen.close(Way::Cancel);
    }
    void open(Worksheet& screen) override { run(screen, {}); }
    void placeBeside(Worksheet&, Worksheet&) override {}
    void refresh(Worksheet&) override {}
    void repaintMainScreen() override {}
    void focus(const ControlName&, bool) override {}
    void highlight(std::string_view) override {}
    void yield() override {}
    void status(std::string_view) override {}
    void help(std::string_view) override {}
    void setBusy(bool) override {}
    void peekBehind(Worksheet&) override {}
    void beep() override {}
    void post(std::function<void()>) override {}
    bool perform(Worksheet&, const std::function<void()>&) override { return false; }
    void copyText(std::string_view) override {}
    bool print(const PictureArea&, std::string_view) override { return false; }
    void copyPicture(const PictureArea&) override {}
};

} // namespace metrisk
