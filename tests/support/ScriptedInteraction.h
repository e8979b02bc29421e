// An Interaction whose boxes are foreseen: each one shown must match the next expectation, and an
// expectation left over fails the test.
#pragma once

#include "desk/kit/Interaction.h"

#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace metrisk::testing {

/// What a box looks like and which answers it offers.
struct BoxKind {
    BoxIcon icon;
    BoxButtons buttons = BoxButtons::Ok;

    friend bool operator==(const BoxKind&, const BoxKind&) = default;
};
inline constexpr BoxKind warning{BoxIcon::Exclamation};
inline constexpr BoxKind note{BoxIcon::Information};
inline constexpr BoxKind yesNo{BoxIcon::Question, BoxButtons::YesNo};
inline constexpr BoxKind yesNoCancel{BoxIcon::Question, BoxButtons::YesNoCancel};
inline constexpr BoxKind okCancel{BoxIcon::Question, BoxButtons::OkCancel};

class ScriptedInteraction final : public Interaction {
  public:
    ~ScriptedInteraction() override;

    /// The next box must bear exactly this title and text and be of that kind; it gets the answer. Left
    /// out, the kind is the usual one for the answer: a warning, a question of Yes and No, or, answered with
    /// Cancel, of Yes, No and Cancel.
    void expectBox(std::string title, std::string text, Answer answer = Answer::Ok,
                   std::optional<BoxKind> kind = {});
    void expectBox(std::string title, std::string text, const BoxKind& kind) {
        expectBox(std::move(title), std::move(text), Answer::Ok, kind);
    }
    /// The next screen must be that one; `act` uses it. A screen that `act` leaves open is left by Cancel. A
    /// progress screen needs no expectation.
    void expectScreen(
        std::string name, std::function<void(Worksheet&)> act = [](Worksheet&) {});
    /// Fails the test if expected boxes have not been shown.
    void verifyAllShown();

    /// Focus moves so far, as "Control", "Screen.Control" or "Control selected".
    std::vector<std::string> focusMoves;
    std::vector<std::string> statusTexts;
    std::vector<std::string> highlights;
    std::vector<std::string> helpPages;
    int yields = 0;
    int beeps = 0;
    int peeks = 0;
    int repaints = 0;
    int busyDepth = 0;
    int picturesCopied = 0;
    std::vector<std::string> textsCopied;
    std::vector<std::string> printed; // titles
    bool screensAreFree = true;       // for actions that nobody asked for
    bool printerWorks = true;
    std::vector<std::string> placed; // "Left Right"
    /// Called at each yield, for instance to press cancel.
    std::function<void()> onYield;
    /// Called at each progress report.
    std::function<void(Worksheet&)> onProgress;

    Answer show(const Box& box) override;
    void run(Worksheet& screen, const std::function<void()>& work) override;
    /// As run(), but the screen may stay open.
    void open(Worksheet& screen) override;
    void placeBeside(Worksheet& left, Worksheet& right) override;
    void refresh(Worksheet& screen) override;
    void repaintMainScreen() override { ++repaints; }
    void focus(const ControlName& control, bool select) override;
    void highlight(std::string_view panel) override { highlights.emplace_back(panel); }
    void yield() override;
    void status(std::string_view text) override;
    void help(std::string_view page) override { helpPages.emplace_back(page); }
    void setBusy(bool busy) override { busyDepth += busy ? 1 : -1; }
    void peekBehind(Worksheet&) override { ++peeks; }
    void beep() override { ++beeps; }
    void post(std::function<void()> action) override;
    bool perform(Worksheet& screen, const std::function<void()>& action) override;
    void copyText(std::string_view text) override { textsCopied.emplace_back(text); }
    bool print(const PictureArea&, std::string_view title) override {
        printed.emplace_back(title);
        return printerWorks;
    }
    void copyPicture(const PictureArea&) override { ++picturesCopied; }
    /// Runs what is posted until `done`; fails the test after ten seconds.
    void waitFor(const std::function<bool()>& done);

  private:
    void act(Worksheet& screen);
    struct Expected {
        std::string title, text;
        Answer answer;
        BoxKind kind;
        std::function<void(Worksheet&)> act; // of a screen, whose name is the title
    };
    void runPosted();

    std::deque<Expected> expected_;
    std::mutex postedMutex_;
    std::deque<std::function<void()>> posted_;
};

} // namespace metrisk::testing
