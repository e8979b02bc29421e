// An Interaction whose boxes are foreseen: each one shown must match the next expectation, and an
// expectation left over fails the test.
#pragma once

#include "model/Interaction.h"

#include <deque>
#include <string>
#include <vector>

namespace metrisk::testing {

class ScriptedInteraction final : public Interaction {
  public:
    ~ScriptedInteraction() override;

    /// The next box must bear exactly this title and text; it gets the answer.
    void expectBox(std::string title, std::string text, Answer answer = Answer::Ok);
    /// Fails the test if expected boxes have not been shown.
    void verifyAllShown();

    /// Focus moves so far, as "Control" or "Control selected".
    std::vector<std::string> focusMoves;
    std::vector<std::string> statusTexts;
    int yields = 0;
    int beeps = 0;
    int repaints = 0;
    int busyDepth = 0;
    /// Called at each yield, for instance to press cancel.
    std::function<void()> onYield;
    /// Called at each progress report.
    std::function<void(const ComputingScreen&)> onProgress;

    Answer show(const Box& box) override;
    void focus(std::string_view control, bool select) override;
    void yield() override;
    void status(std::string_view text) override;
    void runComputing(ComputingScreen& screen, const std::function<void()>& step) override;
    void updateComputing(const ComputingScreen& screen) override;
    void repaintMainScreen() override { ++repaints; }
    void setBusy(bool busy) override { busyDepth += busy ? 1 : -1; }
    void beep() override { ++beeps; }

  private:
    struct Expected {
        std::string title, text;
        Answer answer;
    };
    std::deque<Expected> expected_;
};

} // namespace metrisk::testing
