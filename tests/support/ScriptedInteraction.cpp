#include "tests/support/ScriptedInteraction.h"

#include "desk/kit/Worksheet.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace metrisk::testing {

ScriptedInteraction::~ScriptedInteraction() {
    verifyAllShown();
}

void ScriptedInteraction::expectBox(std::string title, std::string text, Answer answer,
                                    std::optional<BoxKind> kind) {
    const BoxKind usual = answer == Answer::Ok ? warning : answer == Answer::Cancel ? yesNoCancel : yesNo;
    expected_.push_back({std::move(title), std::move(text), answer, kind.value_or(usual), {}});
}

void ScriptedInteraction::expectScreen(std::string name, std::function<void(Worksheet&)> act) {
    expected_.push_back({std::move(name), "", Answer::Ok, {}, std::move(act)});
}

void ScriptedInteraction::verifyAllShown() {
    for (const Expected& box : expected_)
        ADD_FAILURE() << "box not shown: \"" << box.title << "\": " << box.text;
    expected_.clear();
}

Answer ScriptedInteraction::show(const Box& box) {
    if (expected_.empty() || expected_.front().act) {
        ADD_FAILURE() << "unexpected box \"" << box.title << "\": " << box.text;
        return box.unattended;
    }
    const Expected next = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(box.title, next.title);
    EXPECT_EQ(box.text, next.text);
    EXPECT_TRUE((BoxKind{box.icon, box.buttons} == next.kind))
        << box.title << ": icon " << static_cast<int>(box.icon) << ", buttons "
        << static_cast<int>(box.buttons);
    return next.answer;
}

void ScriptedInteraction::focus(const ControlName& control, bool select) {
    const std::string screen = control.screen == "MainScreen" ? "" : std::string(control.screen) + ".";
    focusMoves.push_back(screen + std::string(control.control) + (select ? " selected" : ""));
}

void ScriptedInteraction::yield() {
    ++yields;
    runPosted();
    if (onYield) onYield();
}

void ScriptedInteraction::post(std::function<void()> action) {
    const std::lock_guard lock(postedMutex_);
    posted_.push_back(std::move(action));
}

void ScriptedInteraction::runPosted() {
    for (;;) {
        std::function<void()> action;
        {
            const std::lock_guard lock(postedMutex_);
            if (posted_.empty()) return;
            action = std::move(posted_.front());
            posted_.pop_front();
        }
        action();
    }
}

bool ScriptedInteraction::perform(Worksheet& screen, const std::function<void()>& action) {
    if (!screensAreFree) return false;
    action();
    screen.refresh();
    return true;
}

void ScriptedInteraction::waitFor(const std::function<bool()>& done) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done() && std::chrono::steady_clock::now() < end) {
        runPosted();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    EXPECT_TRUE(done()) << "no result";
}

void ScriptedInteraction::status(std::string_view text) {
    statusTexts.emplace_back(text);
}

void ScriptedInteraction::run(Worksheet& screen, const std::function<void()>& work) {
    if (work) {
        work();
        return;
    }
    act(screen);
    if (!screen.closedBy() && !screen.close(Way::Cancel)) ADD_FAILURE() << screen.name << " stays open";
}

void ScriptedInteraction::open(Worksheet& screen) {
    act(screen);
}

void ScriptedInteraction::placeBeside(Worksheet& left, Worksheet& right) {
    placed.push_back(left.name + std::string(" ") + right.name);
}

void ScriptedInteraction::act(Worksheet& screen) {
    if (expected_.empty() || !expected_.front().act || expected_.front().title != screen.name) {
        ADD_FAILURE() << "unexpected screen " << screen.name;
    } else {
        const auto act = expected_.front().act;
        expected_.pop_front();
        act(screen);
    }
}

void ScriptedInteraction::refresh(Worksheet& screen) {
    screen.refresh();
    if (onProgress) onProgress(screen);
}

} // namespace metrisk::testing
