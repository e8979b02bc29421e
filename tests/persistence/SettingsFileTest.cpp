#include "persistence/SettingsFile.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace metrisk;
using metrisk::testing::fileContent;
using metrisk::testing::TemporaryFolder;

namespace {

const std::string foreign = "\xEF\xBB\xBF; kept comment\r\n"
                            "stray line\r\n"
                            "[Other Program]\r\n"
                            "key = 1 ; not a comment\r\n"
                            "\r\n"
                            "[reportformat]\n"
                            "  DELIMITER \t=  Comma  \r\n"
                            "Delimiter=Tab\r\n"
                            "=empty\r\n"
                            "[broken\r\n"
                            "\r\n"
                            "[Last]\r\n"
                            "name=\xE9t\xE9";

} // namespace

TEST(ProfileText, ChangesOneValueAndNoOtherByte) {
    struct Row {
        const char *section, *key, *value;
        std::string before, after; // the piece of `foreign` that changes
    };
    const Row rows[] = {
        {"ReportFormat", "delimiter", "Tab", "DELIMITER \t=  Comma  ", "DELIMITER \t=Tab"},
        {"ReportFormat", "New", "a=b", "[broken\r\n", "[broken\r\nNew=a=b\r\n"},
        {"other program", "KEY", "", "key = 1 ; not a comment", "key ="},
        {"Last", "more", "1", "name=\xE9t\xE9", "name=\xE9t\xE9\r\nmore=1\r\n"},
        {"Fresh", "a", "1\r\n[x]", "name=\xE9t\xE9", "name=\xE9t\xE9\r\n[Fresh]\r\na=1  [x]\r\n"},
    };
    for (const Row& row : rows) {
        std::string expected = foreign;
        expected.replace(expected.find(row.before), row.before.size(), row.after);
        EXPECT_EQ(withProfileValue(foreign, row.section, row.key, row.value), expected)
            << row.section << row.key;
    }
    EXPECT_EQ(withProfileValue("", "A", "b", "c"), "[A]\r\nb=c\r\n");
    EXPECT_EQ(withProfileValue("[A]\n\n", "A", "b", "c"), "[A]\nb=c\n\n");
    EXPECT_EQ(withProfileValue("[A]", "A", "b", "c"), "[A]\r\nb=c\r\n");
    EXPECT_EQ(withProfileValue("b=1\n[A]\nx=1\n[B]\n[A]\nb=2\n", "A", "b", "3"),
              "b=1\n[A]\nx=1\n[B]\n[A]\nb=3\n");
}

TEST(SettingsFile, ReadsWhatIsThereAndDefaultsWhatIsNot) {
    const TemporaryFolder folder;
    const SettingsFile settings(folder.write("a.ini", foreign));
    EXPECT_EQ(settings.ReadSetting("REPORTFORMAT", "Delimiter", "x", 60), "Comma");
    EXPECT_EQ(settings.ReadSetting("Other Program", "Key", "x", 60), "1 ; not a comment");
    EXPECT_EQ(settings.ReadSetting("Other Program", "Delimiter", "x", 60), "x");
    EXPECT_EQ(settings.ReadSetting("Last", "name", "", 60), "été");
    EXPECT_EQ(settings.ReadSetting("Last", "name", "", 1), "é");
    EXPECT_EQ(settings.ReadSetting("", "key", "long default", 4), "long");

    // Quotes around a value go; a text that has its own keeps them.
    SettingsFile quoted(folder.write("q.ini", "[A]\nratio= \"10:1\" \nname=\"x\" y\none=\"\n"));
    EXPECT_EQ(quoted.ReadSetting("A", "ratio", "", 60), "10:1");
    EXPECT_EQ(quoted.ReadSetting("A", "name", "", 60), "\"x\" y");
    EXPECT_EQ(quoted.ReadSetting("A", "one", "", 60), "\"");
    quoted.WriteSetting("A", "name", "\"The\" Lab \"of Labs\"");
    EXPECT_EQ(quoted.ReadSetting("A", "name", "", 60), "\"The\" Lab \"of Labs\"");

    for (const char* unreadable : {"", "missing/folder/a.ini"}) {
        const SettingsFile none(folder / unreadable);
        EXPECT_EQ(none.ReadSetting("Last", "name", "d", 60), "d") << unreadable;
    }
}

TEST(SettingsFile, WritesAtOnceAndSeesWhatOthersWrite) {
    const TemporaryFolder folder;
    SettingsFile one(folder / "new/deeper/a.ini"), two(one.path());
    one.WriteSetting("A", "key", "1");
    EXPECT_EQ(fileContent(one.path()), "[A]\r\nkey=1\r\n");
    EXPECT_EQ(two.ReadSetting("A", "key", "", 60), "1");
    two.WriteSetting("a", "KEY", "22");
    EXPECT_EQ(one.ReadSetting("A", "key", "", 60), "22");
    std::filesystem::remove(one.path());
    EXPECT_EQ(one.ReadSetting("A", "key", "gone", 60), "gone");
}

TEST(SettingsFile, AValueThatCannotBeWrittenStaysInForce) {
    const TemporaryFolder folder;
    const std::string before = "[A]\r\nkey=old\r\n";
    for (int failing = 1; failing <= 5; ++failing) {
        int operation = 0;
        SettingsFile settings(folder.write("a.ini", before), [&] { return ++operation != failing; });
        settings.write(std::vector<SettingValue>{{"A", "Key", "new"}, {"B", "Key", "new"}});
        EXPECT_EQ(operation, failing);
        EXPECT_EQ(settings.ReadSetting("B", "key", "", 60), "new") << failing;
        EXPECT_EQ(settings.ReadSetting("a", "key", "", 60), "new") << failing;
        EXPECT_EQ(fileContent(settings.path()), before) << failing;
        EXPECT_EQ(folder.count(), 1) << failing;
        EXPECT_EQ(SettingsFile(settings.path()).ReadSetting("a", "key", "", 60), "old");
    }

    SettingsFile inTheWay(folder.path());
    inTheWay.WriteSetting("A", "key", "new");
    EXPECT_EQ(inTheWay.ReadSetting("A", "key", "", 60), "new");
}

TEST(ProfileText, GarbageIsKeptAndHarmless) {
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        std::string garbage(random() % 300, '\0');
        for (char& c : garbage) c = i % 2 ? static_cast<char>(random()) : "[]=;\r\n ab\0"[random() % 11];
        const std::string after = withProfileValue(garbage, "Metrisk", "key", "value");
        EXPECT_EQ(readProfile(after)[profileKey("metrisk", "KEY")], "value") << i;
        EXPECT_EQ(after.substr(0, garbage.size()), garbage) << i;
    }
}

TEST(SettingsFile, FirstStartBringsAReadableScheme) {
    const TemporaryFolder folder;
    const auto path = folder / "metrisk/Metrisk16.ini";
    ASSERT_TRUE(installStartingSettings(path));
    EXPECT_EQ(SettingsFile(path).ReadSetting("ColorScheme", "BackColor_InfoBox", "", 60), "16777215");
    EXPECT_EQ(SettingsFile(path).ReadSetting("FontBoldOptions", "FontBold_Heading", "", 60), "1");

    SettingsFile(path).WriteSetting("ColorScheme", "BackColor_InfoBox", "1");
    ASSERT_TRUE(installStartingSettings(path));
    EXPECT_EQ(SettingsFile(path).ReadSetting("ColorScheme", "BackColor_InfoBox", "", 60), "1");
}
