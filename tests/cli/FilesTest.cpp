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
    EXPECT_NE(unwritable.err.find("cannot be written: No such file or directory"), std::string::npos)
        << unwritable.err;
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
    EXPECT_NE(
        run("show ex/thermometer-process-uncertainty.mrk").out.find("ErrTableDisplay[1][3] = \"0.0255\"\n"),
        std::string::npos)
        << "the bias alone, not the combined uncertainty";
    EXPECT_EQ(run("show absent.mrk").status, 3);
}

TEST_F(Cli, SumsUpManyFiles) {
    fs::create_directory(folder / "out");
    const Result all = run("summary ex/*.mrk absent.mrk --out-dir out");
    EXPECT_EQ(all.status, 3);
    EXPECT_NE(all.err.find("absent.mrk: no such file"), std::string::npos) << all.err;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "out"), fs::directory_iterator()),
              std::distance(fs::directory_iterator(folder / "ex"), fs::directory_iterator()));
    const std::string text = fileContent(folder / "out/torque-wrench-50nm.sum");
    EXPECT_NE(text.find("Description\tTorque wrench, click type\r\n"), std::string::npos);
    EXPECT_EQ(text.find("Not Computed"), std::string::npos);

    std::string content = fileContent(folder / good);
    const std::string entered = "50,52,48,85,0";
    write("changed.mrk", content.replace(content.find(entered), entered.size(), "50,52,48,86,0"));
    EXPECT_EQ(run("summary changed.mrk -o refused.sum").status, 1);
    EXPECT_FALSE(fs::exists(folder / "refused.sum"));
    for (const char* wrong : {"ex/a.mrk", "ex/*.mrk -o x.sum", "ex/a.mrk a.mrk --out-dir out",
                              "ex/a.mrk -o x.sum --out-dir out", "ex/a.mrk --out-dir none"})
        EXPECT_EQ(run(std::string("summary ") + wrong).status, 2) << wrong;
}

} // namespace metrisk::testing
