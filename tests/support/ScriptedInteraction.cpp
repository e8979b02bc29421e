#include "tests/support/ScriptedInteraction.h"

#include <gtest/gtest.h>

namespace metrisk::testing {

ScriptedInteraction::~ScriptedInteraction() {
    verifyAllShown();
}

void ScriptedInteraction::expectBox(std::string title, std::string text, Answer answer) {
    expected_.push_back({std::move(title), std::move(text), answer});
}

void ScriptedInteraction::verifyAllShown() {
    for (const Expected& box : expected_)
        ADD_FAILURE() << "box not shown: \"" << box.title << "\": " << box.text;
    expected_.clear();
}

Answer ScriptedInteraction::show(const Box& box) {
    if (expected_.empty()) {
        ADD_FAILURE() << "unexpected box \"" << box.title << "\": " << box.text;
        return box.unattended;
    }
    const Expected next = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(box.title, next.title);
    EXPECT_EQ(box.text, next.text);
    return next.answer;
}

void ScriptedInteraction::focus(std::string_view control, bool select) {
    focusMoves.push_back(std::string(control) + (select ? " selected" : ""));
}

void ScriptedInteraction::yield() {
    ++yields;
    if (onYield) onYield();
}

void ScriptedInteraction::status(std::string_view text) {
    statusTexts.emplace_back(text);
}

void ScriptedInteraction::runComputing(ComputingScreen&, const std::function<void()>& step) {
    step();
}

void ScriptedInteraction::updateComputing(const ComputingScreen& screen) {
    if (onProgress) onProgress(screen);
}

} // namespace metrisk::testing
