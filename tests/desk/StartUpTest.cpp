// The first start, and those after it.
#include "desk/files/StartUp.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

namespace fs = std::filesystem;

TEST(StartUp, BringsUnitsOnTheFirstStartOnly) {
    const TemporaryFolder folder;
    const std::string home = (folder / "home").string();
    fs::create_directories(home);
    fs::create_directories(folder / "bin");
    fs::create_directories(folder / "share/metrisk");
    const fs::path sample = folder / "share/metrisk/Measurement Units.mdb";
    std::ofstream(sample) << "sample";
    fs::permissions(sample, fs::perms::owner_read);
    EXPECT_EQ(sampleUnitsOf((folder / "bin").string()), sample);
    EXPECT_EQ(sampleUnitsOf(folder.path().string()), sample);
    EXPECT_EQ(sampleUnitsOf((folder / "elsewhere/bin").string()), "");

    MemorySettings settings;
    const auto start = [&] { return locatePlaces(settings, home, home, sample.string()).UnitsDatabasePath; };
    const fs::path ours = fs::path(home) / "Measurement Units.mdb";
    EXPECT_EQ(start(), ours);
    EXPECT_EQ(settings.ReadSetting("Home Location", "Units Database", "", wholeValue), ours);
    EXPECT_EQ(fileContent(ours), "sample");
    EXPECT_NE(fs::status(ours).permissions() & fs::perms::owner_write, fs::perms::none);

    std::ofstream(ours) << "changed";
    EXPECT_EQ(start(), ours);
    EXPECT_EQ(fileContent(ours), "changed");
    settings.WriteSetting("Home Location", "Units Database", "");
    EXPECT_EQ(start(), ours);
    EXPECT_EQ(fileContent(ours), "changed") << "one that is there is taken as it is";
    fs::remove(ours);
    settings.WriteSetting("Home Location", "Units Database", "/network/units.mdb");
    EXPECT_EQ(start(), ours);
    EXPECT_FALSE(fs::exists(ours)) << "no other units in place of those out of reach";
}

} // namespace
} // namespace metrisk::testing
