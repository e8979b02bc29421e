// metrisk-cli report.
#include "tests/cli/Cli.h"

namespace metrisk::testing {
namespace {

TEST_F(Cli, ReportsGoToOneFileOrToAFolder) {
    ASSERT_EQ(run("compute --save ex/*.mrk").status, 0);
    EXPECT_EQ(run("report ex/gauge-block-25mm.mrk -o g.DOC --organization 'Lab {1}'").err, "");
    const std::string text = fileContent(folder / "g.DOC");
    EXPECT_TRUE(text.starts_with("{\\rtf1")) << text.substr(0, 80);
    EXPECT_NE(text.find("Lab \\{1\\}\\par"), std::string::npos);
    EXPECT_EQ(text.find("Not Computed"), std::string::npos) << "what was saved is current";

    fs::create_directory(folder / "out");
    const Result all = run("report ex/*.mrk --out-dir out --format htm --paper a4 --sections risk,plots");
    EXPECT_EQ(all.status, 0) << all.err;
    const auto files = std::distance(fs::directory_iterator(folder / "ex"), fs::directory_iterator());
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "out"), fs::directory_iterator()), files);
    run("report --sections risk --out-dir out --threads 1 --paper A4 --format pdf ex/*.mrk");
    const std::string one = fileContent(folder / "out/ph-buffer-deviation.pdf");
    EXPECT_TRUE(one.starts_with("%PDF"));
}

TEST_F(Cli, ReportsTheDecisionOnAReading) {
    const Result result =
        run("report ex/multimeter-dc-volts.mrk -o d.htm --sections risk,decision --reading 10.00035 "
            "--rule guard=0.5 --outcomes 4 --k 95%");
    EXPECT_EQ(result.status, 0) << result.err;
    const std::string page = fileContent(folder / "d.htm");
    for (const char* part : {"Risk Analysis Report", "10.00035", "four outcomes", "k = 1.96", "SHA-256"})
        EXPECT_NE(page.find(part), std::string::npos) << part;
    EXPECT_EQ(
        run("report ex/multimeter-dc-volts.mrk -o e.htm --sections decision --reading 1 --rule guard=-1 "
            "--outcomes 3")
            .status,
        1);
    EXPECT_FALSE(fs::exists(folder / "e.htm"));
}

TEST_F(Cli, ReportRefusesWhatItCannotWrite) {
    write("bad.mrk", "no analysis");
    write("empty.mrk", fileContent(folder / "ex/gauge-block-25mm.mrk").substr(0, 200));
    const struct {
        const char* arguments;
        int status;
        const char* says;
    } cases[] = {
        {"report ex/gauge-block-25mm.mrk -o g.txt", 2, "The Report Type is not registered."},
        {"report ex/gauge-block-25mm.mrk", 2, "-o or --out-dir is required"},
        {"report ex/gauge-block-25mm.mrk ex/ph-buffer-deviation.mrk -o g.pdf", 2, "-o takes one file"},
        {"report ex/gauge-block-25mm.mrk ./ex/gauge-block-25mm.mrk --out-dir .", 2, "would be written twice"},
        {"report ex/gauge-block-25mm.mrk -o g.pdf --sections risk,none", 2, "none"},
        {"report ex/gauge-block-25mm.mrk -o missing/g.pdf", 1, "cannot be written"},
        {"report ex/gauge-block-25mm.mrk -o g.pdf --sections decision", 2, "needs a --reading"},
        {"report ex/gauge-block-25mm.mrk -o g.pdf --reading 25", 2, "goes with the section"},
        {"report bad.mrk -o g.pdf", 3, "bad.mrk"},
        {"report empty.mrk -o g.pdf", 3, "empty.mrk"},
    };
    for (const auto& c : cases) {
        const Result result = run(c.arguments);
        EXPECT_EQ(result.status, c.status) << c.arguments;
        EXPECT_NE(result.err.find(c.says), std::string::npos) << c.arguments << ": " << result.err;
    }
    EXPECT_FALSE(fs::exists(folder / "g.pdf"));
}

} // namespace
} // namespace metrisk::testing
