// What commands print of a file, and what they save.
#include "tests/cli/Cli.h"

#include <gtest/gtest.h>
#include <string>

namespace metrisk::testing {

TEST_F(Cli, SavesResultsOnlyWhereItMay) {
    const std::string before = fileContent(folder / good);
    fs::copy(folder / good, folder / "old.dat");
    EXPECT_EQ(run("compute --save old.dat").err, "old.dat: saved as old.mrk\n");
    ASSERT_TRUE(fs::exists(folder / "old.mrk"));
    EXPECT_EQ(fileContent(folder / "old.dat"), before) << "the .dat file itself stays";
    const Result refused = run("compute --json --save old.dat");
    EXPECT_EQ(refused.status, 1) << "old.mrk is there now";
    EXPECT_EQ(refused.lines().at(0)["messages"].at(0)["title"], "Not Saved");
    EXPECT_EQ(run("compute --save --force old.dat").status, 0);
    EXPECT_EQ(run("compute --save old.mrk").status, 0) << "the file that was read needs no --force";

    EXPECT_EQ(run("convert " + std::string(good) + " copy").status, 0);
    EXPECT_EQ(fileContent(folder / "copy.mrk"), before) << "a file of the present version is unchanged";
    EXPECT_EQ(run("convert " + std::string(good) + " copy.mrk").status, 2);
    EXPECT_EQ(run("convert --force " + std::string(good) + " copy.mrk").status, 0);
    EXPECT_EQ(run("convert absent.mrk new.mrk").status, 3);
    const Result unwritable = run("convert " + std::string(good) + " no/such/folder/new.mrk");
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_NE(unwritable.err.find("Error Writing Analysis Data"), std::string::npos) << unwritable.err;
}

TEST_F(Cli, ShowPrintsEveryField) {
    const Result text = run("show " + std::string(good));
    EXPECT_EQ(text.status, 0);
    EXPECT_NE(text.out.find("SU_Description = \"Torque wrench, click type\"\n"), std::string::npos);
    EXPECT_NE(text.out.find("Rel_Model[0] = \"\"\n"), std::string::npos);
    EXPECT_NE(text.out.find("CorrelationMatrix[10][10] = 0\n"), std::string::npos);
    const json fields = run("show --json " + std::string(good)).lines().at(0);
    EXPECT_EQ(fields["SU_Mode"], 50.0);
    EXPECT_EQ(fields["OptTwoSided"], true);
    EXPECT_EQ(fields["ErrTableText"].size(), 8u);
    EXPECT_GT(fields.size(), 200u);
    EXPECT_EQ(run("show absent.mrk").status, 3);
}

} // namespace metrisk::testing
