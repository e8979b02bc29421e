// A session that answers every question with the answer of a run that nobody watches.
#pragma once

#include "desk/kit/Session.h"
#include "desk/kit/Worksheet.h"

#include <string>

namespace metrisk::testing {

class SilentInteraction : public Interaction {
  public:
    int boxes = 0;
    int reports = 0; // of progress

    Answer show(const Box& box) override {
        ++boxes;
        return box.unattended;
    }
    void run(Worksheet& screen, const std::function<void()>& work) override {
        if (work)
            work();
        else
            screen.close(Way::Cancel);
    }
    void open(Worksheet& screen) override { screen.close(Way::Cancel); }
    void placeBeside(Worksheet&, Worksheet&) override {}
    void refresh(Worksheet&) override { ++reports; }
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

class NoSettings final : public Settings {
  public:
    std::string ReadSetting(std::string_view, std::string_view, std::string_view defaultText,
                            int) const override {
        return std::string(defaultText);
    }
    void write(std::span<const SettingValue>) override {}
};

struct SilentSession {
    NoSettings settings;
    SilentInteraction ui;
    SystemClock clock;
    Session session{settings, ui, clock};
};

} // namespace metrisk::testing
