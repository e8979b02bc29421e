// A session before a desktop of foreseen file dialogs and programs.
#pragma once

#include "desk/kit/Desktop.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TestSession.h"

#include <deque>
#include <string>
#include <vector>

namespace metrisk::testing {

/// Takes whatever it is asked to open or start.
class ScriptedLauncher final : public Launcher {
  public:
    std::vector<std::string> opened;
    std::vector<Launch> started;
    Association association; // of every file
    std::string failure;     // of every opening and start, if there is one

    std::string openDocument(const std::string& path) override {
        opened.push_back(path);
        return failure;
    }
    std::string start(const Launch& launch) override {
        started.push_back(launch);
        return failure;
    }
    Association associationOf(const std::string&) override { return association; }
};

/// Answers each question for a colour in turn; none left cancels.
class ScriptedLooks final : public Looks {
  public:
    std::deque<double> answers;
    std::vector<std::string> titles;
    std::vector<ColorScheme> applied;

    std::optional<double> chooseColor(std::string_view title, double) override {
        titles.emplace_back(title);
        if (answers.empty()) return std::nullopt;
        const double answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void ApplyColorScheme(const ColorScheme& scheme) override { applied.push_back(scheme); }
};

struct TestDesktop : TestSession {
    ScriptedChooser chooser;
    ScriptedLauncher programs;
    ScriptedLooks looks;
    Desktop desktop{chooser, programs, nullptr, nullptr, &looks};

    TestDesktop() { session.desktop = &desktop; }
};

} // namespace metrisk::testing
