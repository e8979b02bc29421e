// Reports as files: what other programs get to read.
#include "desk/files/ReportFiles.h"
#include "base/AtomicFile.h"
#include "base/Digest.h"
#include "desk/files/AnalysisFile.h"
#include "files/CairoPress.h"
#include "persistence/Fingerprint.h"
#include "reports/RichTextDocument.h"
#include "tests/reports/Reports.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <cstdio>
#include <memory>

namespace metrisk::testing {
namespace {

/// With characters that Unicode has set aside.
const std::string hostile =
    "a|b;c {d} \\e <f> & \"g\" Ωμ 日本 \xF0\x9F\x98\x80\xEF\xBF\xBE\xEF\xB7\x90\xF4\x8F\xBF\xBF";

struct Hostile : Reported {
    Hostile() {
        for (std::string* text : {&record.SU_Manufacturer, &record.SU_ParameterName, &record.MTE_Description,
                                  &record.MeasurementArea, &record.NominalUnits})
            *text = hostile;
        record.IncludeRemarks = true;
        for (int line = 0; line < 60; ++line) record.Remarks += hostile + "\n";
        record.SU_Description = std::string(500, 'n');
        compute();
    }
    std::string file(const std::string& name, const std::string& font = "Arial") {
        const ReportSelection everything{
            .Report_IncludePlots = true, .Report_IncludeUncertainty = true, .Report_FontName = font};
        const auto bytes = reportBytes(session, everything, {}, name, CairoPress());
        EXPECT_TRUE(bytes);
        return bytes.value_or("");
    }
};

/// What a command prints; none if there is no such command.
std::optional<std::string> outputOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen((command + " 2>/dev/null").c_str(), "r"), pclose);
    std::string text;
    std::array<char, 4096> buffer;
    for (std::size_t n; (n = fread(buffer.data(), 1, buffer.size(), pipe.get())) > 0;)
        text.append(buffer.data(), n);
    if (text.empty()) return {};
    return text;
}

TEST(ReportFiles, TheTextOfAPdfCanBeTakenOut) {
    Hostile report;
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "r.pdf").string();
    const std::string bytes = report.file(path);
    ASSERT_TRUE(replaceFile(path, bytes));
    const auto text = outputOf("pdftotext -layout '" + path + "' -");
    ASSERT_TRUE(text) << "pdftotext is missing";
    for (const char* part : {"Risk Analysis Report", "Measurement Area:", "Equivalent Accuracy Ratio:", "Ωμ",
                             "Keyed to False Accept Risk", "Process Uncertainties", "Analysis Baseline:"})
        EXPECT_NE(text->find(part), std::string::npos) << part << " in\n" << *text;
    EXPECT_EQ(bytes, report.file(path)) << "the same report has the same bytes";
    const auto facts = outputOf("pdfinfo '" + path + "'");
    EXPECT_NE(facts.value_or("").find("volts - Measurement Decision Risk Analysis"), std::string::npos);
    const auto onA4 = reportBytes(report.session, {}, PageSetup::a4(), path, CairoPress());
    EXPECT_NE(onA4.value_or("").find("/MediaBox [ 0 0 595.27"), std::string::npos) << "not by whole pixels";
}

/// The marks of a column stand at one place, which follows its widest figures; words stay in the middle.
TEST(ReportFiles, FiguresOfRichTextStandByTheirMarks) {
    Reported report;
    report.compute();
    const std::string bytes = reportBytes(report.session, {}, {}, "r.doc", CairoPress()).value_or("");
    std::vector<std::string> stops;
    for (std::size_t at = 0; (at = bytes.find("\\tqdec\\tx", at)) != bytes.npos; ++at)
        stops.push_back(bytes.substr(at, bytes.find(' ', at) - at));
    ASSERT_EQ(stops.size(), 6u) << "three rows of two columns";
    EXPECT_EQ(stops[0], stops[2]);
    EXPECT_EQ(stops[1], stops[5]);
    const std::string html = reportBytes(report.session, {}, {}, "r.htm", CairoPress()).value_or("");
    EXPECT_NE(html.find("<span> *</span></td>"), html.npos) << "a star hangs behind its figure";
}

TEST(ReportFiles, RichTextIsBoldWhereItIsBold) {
    Reported report;
    report.compute();
    const std::string bytes = reportBytes(report.session, {}, {}, "r.doc", CairoPress()).value_or("");
    for (const char* part :
         {"\\keepn\\f999\\fs20\\b\\qc Acceptable", "\\intbl\\keepn\\f999\\fs20\\b0\\ql False Accept Risk:",
          "\\intbl\\f999\\fs20\\b0\\ql\\cf1 Measurement Area:", "{\\header{\\plain\\f999\\fs18\\b\\brdrb",
          "{\\footer{\\plain\\f999\\fs18\\b ", "{\\s0\\b0"})
        EXPECT_NE(bytes.find(part), std::string::npos) << part << bytes.substr(0, 6000);
}

TEST(ReportFiles, RichTextIsWellFormed) {
    Hostile report;
    for (const std::string font : {"Arial", "Font {with} \\braces"}) {
        const std::string text = report.file("r.DOC", font);
        ASSERT_TRUE(text.starts_with("{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033 {\\fonttbl{\\f999 "));
        int depth = 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
            ASSERT_LT(static_cast<unsigned char>(text[i]), 0x80u) << "at " << i;
            if (text[i] == '\\') {
                ++i;
            } else if (text[i] == '{') {
                ++depth;
            } else if (text[i] == '}') {
                ASSERT_TRUE(--depth > 0 || i + 2 >= text.size()) << "closed at " << i;
            }
        }
        EXPECT_EQ(depth, 0);
        EXPECT_NE(text.find("\\u937?\\u956? \\u26085?\\u26412? \\u-10179?\\u-8704?"), std::string::npos);
    }
    EXPECT_EQ(richText("a{b}\\c\nd\te\x01"), "a\\{b\\}\\\\c\\line d\\tab e");
}

TEST(ReportFiles, AWordProcessorReadsTheRichText) {
    if (!outputOf("command -v soffice")) GTEST_SKIP() << "soffice is not here";
    Hostile report;
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "r.doc").string();
    ASSERT_TRUE(replaceFile(path, report.file(path)));
    outputOf("soffice -env:UserInstallation=file://" + folder.path().string() +
             "/profile --headless --convert-to txt:Text --outdir '" + folder.path().string() + "' '" + path +
             "'");
    const auto text = readWholeFile(folder.path() / "r.txt", 1 << 20);
    ASSERT_TRUE(text);
    for (const char* part : {"Risk Analysis Report", "{d} \\e <f>", "日本", "Analysis Baseline:"})
        EXPECT_NE(text->find(part), std::string::npos) << part;
}

TEST(ReportFiles, HtmlIsWellFormed) {
    Hostile report;
    const std::string html = report.file("r.htm", "'Quoted</style>'");
    std::vector<std::string> open;
    for (std::size_t at = html.find('<'); at != html.npos; at = html.find('<', at + 1)) {
        const std::size_t end = html.find('>', at);
        ASSERT_NE(end, html.npos);
        std::string tag = html.substr(at + 1, html.find_first_of(" >", at) - at - 1);
        if (tag[0] == '!') continue;
        if (tag[0] == '/') {
            ASSERT_FALSE(open.empty());
            ASSERT_EQ(open.back(), tag.substr(1)) << "at " << at;
            open.pop_back();
        } else if (tag != "meta" && tag != "hr" && tag != "br" && tag != "col" && tag != "img") {
            open.push_back(tag);
        }
    }
    EXPECT_TRUE(open.empty());
    EXPECT_NE(html.find("c {d} \\e &lt;f&gt; &amp; "), std::string::npos);
    EXPECT_NE(html.find("src=\"data:image/png;base64,iVBOR"), std::string::npos);
    EXPECT_EQ(html.find("http"), std::string::npos) << "one file, nothing fetched";
}

TEST(ReportFiles, FormatsAreKnownByTheirExtension) {
    EXPECT_EQ(reportFormatOf("a.Doc"), ReportFormat::RichText);
    EXPECT_EQ(reportFormatOf("a.HTM"), ReportFormat::Html);
    EXPECT_EQ(reportFormatOf("a.pdf"), ReportFormat::Pdf);
    for (const char* other : {"a.html", "a", ".doc", "a.docx"})
        EXPECT_EQ(reportFormatOf(other), ReportFormat::None) << other;
}

TEST(Fingerprint, IsThatOfTheInputsAlone) {
    Reported analysis;
    const std::string before = inputsFingerprint(analysis.record);
    EXPECT_EQ(before.size(), 64u);
    analysis.compute();
    EXPECT_GT(analysis.record.FalseAcceptRisk, 0);
    EXPECT_EQ(inputsFingerprint(analysis.record), before);
    analysis.record.MTE_PctInTol = 94;
    EXPECT_NE(inputsFingerprint(analysis.record), before);
    EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

} // namespace
} // namespace metrisk::testing
