// What the system tells of itself, and how it is shown.
#include "desk/information/MemoryStatus.h"
#include "desk/information/SystemInfoScreen.h"
#include "tests/support/Hand.h"
#include "tests/support/TestDesktop.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace metrisk::testing {
namespace {

TEST(SystemInfo, ReadsWhatTheSystemTells) {
    const MemoryStatus status =
        MemoryStatus::read("MemTotalX:  1 kB\nMemTotal:   2048 kB\nSwapFree:\t512 kB", "VmRSS:\t  3 kB\n");
    EXPECT_EQ(status.total, 2048 * 1024);
    EXPECT_EQ(status.available, 0);
    EXPECT_EQ(status.swapFree, 512 * 1024);
    EXPECT_EQ(status.program, 3 * 1024);
    for (const auto& [text, name] : {std::pair{"NAME=x\nPRETTY_NAME=\"A B 12\"\nID=x\n", "A B 12"},
                                     {"PRETTY_NAME='A'", "A"},
                                     {"MY_PRETTY_NAME=A\nPRETTY_NAME=B", "B"},
                                     {"PRETTY_NAME=\"", "\""},
                                     {"", ""}})
        EXPECT_EQ(distributionName(text), name) << text;
}

TEST(SystemInfo, TellsThisComputer) {
    TestDesktop desk;
    desk.desktop.toolkit = "Toolkit 1.2";
    desk.session.places.SettingsPath = "/etc/x.ini";
    SystemInfoScreen screen(desk.session);
    press(screen, "cmd_Copy");
    const std::string text = desk.ui.textsCopied.at(0);
    char name[256];
    ASSERT_EQ(gethostname(name, sizeof name), 0);
    for (const std::string& line :
         {std::string("Toolkit: Toolkit 1.2\n"), std::string("Settings: /etc/x.ini\n"),
          "Computer: " + std::string(name) + "\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << text;
    const auto facts = systemFacts(desk.session, "");
    for (const SystemFact& fact : facts)
        if (fact.name == "Memory of Program") {
            EXPECT_GT(fact.number.value_or(0), 1e6);
            EXPECT_LT(fact.number.value_or(0), 1e10);
        }
}

} // namespace
} // namespace metrisk::testing
