// Answers for a run that nobody watches: every box gets the answer it names for that case.
#pragma once

#include "desk/kit/Interaction.h"

#include <string>
#include <vector>

namespace metrisk {

/// What was said or asked, and the answer given ("OK", "Cancel", "Yes" or "No"). A note, which no box tells,
/// has neither title nor answer.
struct Told {
    std::string title;
    std::string text;
    std::string answer;
    bool asked; // there was a choice of answers
};

class UnattendedInteraction final : public Interaction {
  public:
    /// Everything shown so far, in order.
    const std::vector<Told>& messages() const { return messages_; }

    void forget() { messages_.clear(); }

    void note(const std::string& text) { messages_.push_back({"", text, "", false}); }

    Answer show(const Box& box) override;
    /// Does the screen's work; a screen without work is left by Cancel at once.
    void run(Worksheet& screen, const std::function<void()>& work) override;

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

  private:
    std::vector<Told> messages_;
};

} // namespace metrisk
