// A session that answers every question with the answer of a run that nobody watches.
#pragma once

#include "desk/kit/Session.h"
#include "desk/kit/UnwatchedInteraction.h"

#include <string>

namespace metrisk::testing {

class SilentInteraction : public UnwatchedInteraction {
  public:
    int boxes = 0;
    int reports = 0; // of progress

    Answer show(const Box& box) override {
        ++boxes;
        return UnwatchedInteraction::show(box);
    }
    void refresh(Worksheet&) override { ++reports; }
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
