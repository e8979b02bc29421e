// Folders of analyses held against what their files store.
#include "base/Digest.h"
#include "tests/cli/Cli.h"

#include <map>

namespace metrisk::testing {

namespace {

class Audit : public Cli {
  protected:
    Audit() {
        for (const char* name : {"a", "b", "c", "d", "e"})
            fs::copy_file(folder / good, folder / "ex" / (std::string(name) + ".mrk"));
        fs::create_directories(folder / "f/sub");
        for (const char* name : {"a", "b", "c"}) fs::rename(at("ex", name), at("f", name));
        fs::rename(at("ex", "d"), at("f/sub", "d"));
        run("compute --save f/a.mrk f/b.mrk f/c.mrk f/sub/d.mrk");
    }
    fs::path at(const char* where, const char* name) { return folder / where / (std::string(name) + ".mrk"); }
    std::map<std::string, json> audited(const std::string& arguments) {
        std::map<std::string, json> rows;
        const Result done = run("audit --json -q " + arguments);
        status = done.status;
        for (const json& row : done.lines()) rows[row["file"]] = row;
        return rows;
    }
    /// The stored false accept risk, that many times as large.
    void scaleStored(const char* file, double factor) {
        const double risk = run(std::string("show --json ") + file).lines().at(0)["FalseAcceptRisk"];
        std::string content = fileContent(folder / file);
        char before[40], after[40];
        std::snprintf(before, sizeof before, "%.15g", risk);
        std::snprintf(after, sizeof after, "%.15g", risk * factor);
        content.replace(content.find(before), std::string(before).size(), after);
        write(file, content);
    }
    int status = -1;
};

} // namespace

TEST_F(Audit, TellsWhatStoredFiguresAreToTheEntries) {
    EXPECT_EQ(audited("f")["f/a.mrk"]["Agreement"], "same");
    EXPECT_EQ(status, 0);
    scaleStored("f/a.mrk", 1 + 1e-11);
    EXPECT_EQ(audited("f")["f/a.mrk"]["Agreement"], "rounding");
    EXPECT_EQ(status, 0);
    scaleStored("f/a.mrk", 1 + 1e-8);
    run("set f/b.mrk --su-pct 80");
    run("new f/new.mrk --nominal 1 --tol 1 --su-pct 95 --tur 4");
    const auto rows = audited("f");
    EXPECT_EQ(rows.at("f/a.mrk")["Agreement"], "differs");
    EXPECT_EQ(rows.at("f/b.mrk")["Agreement"], "stale");
    EXPECT_EQ(rows.at("f/c.mrk")["Agreement"], "same");
    EXPECT_EQ(rows.at("f/new.mrk")["Agreement"], "never computed");
    EXPECT_EQ(status, 1);
    const json computed = run("compute --json f/b.mrk").lines().at(0);
    EXPECT_EQ(rows.at("f/b.mrk")["FalseAcceptConsumer"], computed["FalseAcceptConsumer"]);
    EXPECT_EQ(rows.at("f/b.mrk")["AgreeingDigits"].get<int>(), computed["AgreeingDigits"].get<int>());
    EXPECT_EQ(rows.at("f/c.mrk")["sha256"].get<std::string>().size(), 64U);
}

TEST_F(Audit, WatchesLimitsInTheConventionOfEachAnalysis) {
    const double own = audited("f/a.mrk")["f/a.mrk"]["FalseAcceptProducer"];
    ASSERT_LT(own, audited("f/a.mrk")["f/a.mrk"]["FalseAcceptConsumer"].get<double>());
    const struct {
        const char *limits, *passed;
        int status;
    } cases[] = {{"--limit fa=1.9%", "", 0},
                 {"--limit fa=1.7%", "fa", 1},
                 {"--limit fa=17000ppm --limit tur=4.1 --limit fr=1%", "fa fr tur", 1},
                 {"--limit tur=3.9:1", "", 0}};
    for (const auto& one : cases) {
        EXPECT_EQ(audited(std::string("f/a.mrk ") + one.limits)["f/a.mrk"]["limits"], one.passed)
            << one.limits;
        EXPECT_EQ(status, one.status) << one.limits;
    }
    for (const char* wrong : {"fa", "fa=x", "tur=0", "fx=1%", "tur=2ppm", "fa=200%", "fr=1000001ppm"})
        EXPECT_EQ(run(std::string("audit f --limit ") + wrong).status, 2) << wrong;
}

TEST_F(Audit, FindsAnalysesByContentAndStaysInTheFolder) {
    write("f/notes.mrk", "no analysis");
    write("f/z.txt", fileContent(folder / good));
    write("f/cut.mrk", fileContent(folder / good).substr(0, 500));
    fs::create_symlink("../ex/e.mrk", folder / "f/out.mrk");
    fs::create_symlink("a.mrk", folder / "f/in.mrk");
    fs::create_directory_symlink("..", folder / "f/loop");
    const Result flat = run("audit f --csv");
    EXPECT_EQ(flat.status, 3);
    EXPECT_NE(flat.err.find("; 2 other files passed over"), std::string::npos) << flat.err;
    std::vector<std::string> names;
    std::istringstream table(flat.out);
    for (std::string line; std::getline(table, line);) names.push_back(line.substr(0, line.find(',')));
    EXPECT_EQ(names, (std::vector<std::string>{"file", "f/a.mrk", "f/b.mrk", "f/c.mrk", "f/cut.mrk",
                                               "f/in.mrk", "f/z.txt"}));
    const std::string before = fileContent(folder / "f/sub/d.mrk");
    EXPECT_TRUE(audited("f --recursive").contains("f/sub/d.mrk"));
    EXPECT_EQ(fileContent(folder / "f/sub/d.mrk"), before);
    EXPECT_EQ(run("audit missing.mrk").status, 3);
    EXPECT_EQ(run("audit f/notes.mrk").status, 3);
}

TEST_F(Audit, WritesTablesAndPages) {
    run("set f/a.mrk 'SU_Description==1+2'");
    ASSERT_EQ(run("audit f -o t.csv --safe-cells").status, 0);
    EXPECT_NE(fileContent(folder / "t.csv").find(",'=1+2,"), std::string::npos);
    ASSERT_EQ(run("audit f -o t.pdf").status, 0);
    const std::string text = "cd '" + folder.string() + "' && pdftotext -layout t.pdf t.txt";
    ASSERT_EQ(std::system(text.c_str()), 0);
    const std::string page = fileContent(folder / "t.txt");
    for (const std::string& wanted :
         {std::string("Metrisk "), std::string("of them analyses 0 of the consumer's, 3 of the producer's"),
          "table: " + sha256(run("audit f --csv -q").out)})
        EXPECT_NE(page.find(wanted), std::string::npos) << wanted << page;
    EXPECT_EQ(run("audit f -o t.pdf").status, 2);
    EXPECT_EQ(run("audit f/a.mrk -o f/a.mrk --force").status, 2);
    const std::string one = run("audit f --csv --jobs 1").out;
    EXPECT_EQ(run("audit f --csv --jobs 4").out, one);
    write("list.txt", "f\n");
    EXPECT_EQ(run("audit --files-from list.txt --csv").out, one);
}

} // namespace metrisk::testing
