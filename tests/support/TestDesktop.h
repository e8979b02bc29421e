// A session before a desktop of foreseen file dialogs and programs.
#pragma once

#include "model/Desktop.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TestSession.h"

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

struct TestDesktop : TestSession {
    ScriptedChooser chooser;
    ScriptedLauncher programs;
    Desktop desktop{chooser, programs};

    TestDesktop() { session.desktop = &desktop; }
};

} // namespace metrisk::testing
