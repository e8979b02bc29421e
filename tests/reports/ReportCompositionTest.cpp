// What a report says, operation by operation, against recordings that were read before they were kept.
#include "desk/files/AnalysisFile.h"
#include "desk/files/ComposeReport.h"
#include "desk/files/ReportFiles.h"
#include "drawing/Drawing.h"
#include "reports/PagedDocument.h"
#include "tests/reports/Reports.h"
#include "tests/support/RecordedReport.h"
#include "tests/support/Recording.h"

#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"

#include <algorithm>
#include <filesystem>

namespace metrisk::testing {
namespace {

std::string operationsOf(const Reported& analysis, const ReportSelection& selection = {}, bool table = true) {
    RecordedReport document;
    EXPECT_TRUE(ComposeReport(analysis.session, selection, document, table));
    // The fingerprint has a test of its own.
    const std::size_t hash = document.operations.find("\nSHA-256");
    if (hash != std::string::npos) document.operations.erase(hash, 24 + 64);
    return document.operations;
}

void expectReport(const std::string& name, const Reported& analysis, const ReportSelection& selection = {},
                  bool table = true) {
    compareWithRecording("reports/data/" + name + ".txt", operationsOf(analysis, selection, table));
}

void signedByTwo(Analysis& r) {
    r.IncludeOrganization = r.IncludeFileName = r.IncludeSubmitter = r.IncludeApprover = true;
    r.IncludeDepartment = r.IncludeRemarks = true;
    r.Organization = "Calibration Laboratory";
    r.Department = "Electrical";
    r.Submitter = "A new user";
    r.Approver = "Head";
    r.ApprovingDepartment = "not included";
    r.Remarks = "First line\nsecond | line; with marks";
}

void enterBudget(Session& session) {
    Analysis& r = session.record;
    EnterError(r, 2, ErrorEntry::Limit, "0.05", {});
    EnterError(r, 2, ErrorEntry::Confidence, "95", {});
    EnterError(r, 4, ErrorEntry::Uncertainty, "0.02", {});
    EnterError(r, 4, ErrorEntry::DegFreedom, "9", {});
    EnterError(r, 5, ErrorEntry::Uncertainty, "0.01", {});
    r.ErrTableText[5][4] = "False";
    r.CorrelationMatrix[4][6] = 0.25;
    SumProcessUncertainty(session.record, session.regional);
}

TEST(RiskReport, AConfidenceHasFourDecimalsUnlessItWouldReadAsAll) {
    for (const auto& [confidence, told] : {std::pair{83.2163755356769, "Confidence Level:|83.2164 %;"},
                                           {95, "Confidence Level:|95.0000 %;"},
                                           {99.99999, "Confidence Level:|99.99999 %;"}}) {
        Reported analysis;
        analysis.record.MTE_EntryByUncertainty = true;
        analysis.record.MTE_StdUncertainty = 0.05;
        analysis.record.MTE_PctInTol = confidence;
        const std::string report = operationsOf(analysis.compute());
        EXPECT_NE(report.find(told), std::string::npos) << report;
    }
}

TEST(RiskReport, SaysWhatTheScreenShows) {
    expectReport("two-sided", Reported().compute());

    Reported upper(withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 8, 90));
    upper.record.MTE_EntryByUncertainty = true;
    upper.record.MTE_StdUncertainty = 0.05;
    upper.record.MTE_DegFreedom = 12;
    upper.record.MTE_TolUnitsFactor = 1000;
    upper.record.MTE_ToleranceUnits = "mV";
    upper.record.ShowLimits = true;
    expectReport("single-upper-by-uncertainty", upper.compute());

    Reported z540;
    z540.record.UserOption = "Z540";
    z540.record.IncludeGuardbands = true;
    z540.record.GB_LowerMult = 0.95;
    z540.record.GB_UpperMult = 0.9;
    signedByTwo(z540.record);
    expectReport("z540-signed", z540.compute());
    expectReport("z540-signed-on-paper", z540, {}, false);
}

/// A signature keeps its rule and its line, a heading what it heads, and the small print makes no page.
void expectUnparted(const PagedReport& paged, const std::string& where) {
    struct Line {
        double y;
        std::string text;
        bool bold;
    };
    for (const auto& page : paged.pages) {
        std::vector<Line> lines;
        double lastRule = 0;
        for (const Placed& item : page) {
            if (const auto* text = std::get_if<PlacedText>(&item))
                lines.push_back({text->y, text->text, text->font.Bold});
            if (const auto* rule = std::get_if<PlacedRule>(&item)) lastRule = rule->y1;
        }
        const auto named = [&](const std::string& word) {
            return std::ranges::find_if(lines, [&](const Line& line) { return line.text.find(word) == 0; });
        };
        const auto submitted = named("Submitted By:");
        const auto small = named("SHA-256");
        EXPECT_EQ(submitted == lines.end(), named("Approved By:") == lines.end()) << where;
        if (submitted != lines.end()) {
            EXPECT_GT(lastRule, 0) << where;
            EXPECT_TRUE(std::ranges::any_of(page, [&](const Placed& item) {
                const auto* rule = std::get_if<PlacedRule>(&item);
                return rule && rule->y1 < submitted->y && submitted->y - rule->y1 < 900;
            })) << where;
        }
        EXPECT_EQ(named("False Accept Risk:") == lines.end(),
                  named("Equivalent Accuracy Ratio:") == lines.end())
            << where;
        EXPECT_TRUE(small == lines.end() || lines.size() > 6) << where << ": alone";
        // The lowest text but header, footer and small print.
        std::erase_if(lines, [](const Line& line) {
            return line.y < 1000 || line.text.find("- ") == 0 || line.text.find("SHA-256") == 0 ||
                   line.text.find("Metrisk 1") == 0;
        });
        ASSERT_FALSE(lines.empty()) << where;
        EXPECT_FALSE(std::ranges::max(lines, {}, &Line::y).bold) << where;
    }
}

/// Their ends come to stand anywhere on a page.
TEST(Report, PagesBreakWhereNothingIsParted) {
    for (const bool onPaper : {false, true})
        for (int remarks = 0; remarks < 40; ++remarks) {
            Reported report;
            signedByTwo(report.record);
            report.record.IncludeRemarks = remarks > 0;
            for (int i = 0; i < remarks; ++i) report.record.Remarks += "a line of remarks\n";
            report.compute();
            Drawing metrics(794, 1123);
            const auto paged = reportPages(report.session, {}, PageSetup::a4(), metrics, onPaper);
            ASSERT_TRUE(paged);
            expectUnparted(*paged, std::to_string(remarks) + (onPaper ? " on paper" : ""));
        }
}

/// On both papers and in both forms, with all that is said of their errors.
TEST(Report, SignedExamplesAreNotParted) {
    int reports = 0;
    for (const auto& file : std::filesystem::directory_iterator(METRISK_SOURCE_DIR "/examples"))
        for (const bool onPaper : {false, true})
            for (const PageSetup& paper : {PageSetup::a4(), PageSetup{}}) {
                if (file.path().extension() != ".mrk") continue;
                Reported report;
                ASSERT_EQ(ReadAnalysis(report.session, file.path().string()).fault, ReadFault::None);
                signedByTwo(report.record);
                const ReportSelection everything{.Report_IncludeUncertainty = true};
                Drawing metrics(794, 1123);
                const auto paged = reportPages(report.session, everything, paper, metrics, onPaper);
                ASSERT_TRUE(paged);
                expectUnparted(*paged, file.path().filename().string() + (onPaper ? " on paper" : ""));
                ++reports;
            }
    EXPECT_GE(reports, 28);
}

TEST(RiskReport, FiguresOfOtherEntriesAreNotComputed) {
    expectReport("never-computed", Reported());
    Reported changed;
    changed.compute();
    changed.record.SU_PctInTol = 91;
    const std::string report = operationsOf(changed);
    EXPECT_NE(report.find("|Not Computed;False Reject Risk:"), std::string::npos) << report;
    EXPECT_EQ(report.find("Keyed to"), std::string::npos) << report;

    Reported otherBaseline;
    otherBaseline.compute();
    otherBaseline.record.Base_AccRatNum = 10;
    const std::string ratio = operationsOf(otherBaseline);
    EXPECT_NE(ratio.find("10.00:1|Not Computed;"), std::string::npos) << ratio;
    EXPECT_NE(ratio.find("% *;"), std::string::npos) << "the risks are still those of the entries: " << ratio;
}

TEST(RiskReport, SmallRisksAreToldApartFromNone) {
    Reported small;
    small.compute();
    small.record.FalseAcceptRisk = 0.4;
    small.record.FalseAcceptUnits = "ppm";
    small.record.FalseAccept_fmt = "##0";
    EXPECT_NE(operationsOf(small).find("|< 1 ppm *;"), std::string::npos);
    small.record.FalseAcceptRisk = 0;
    const std::string none = operationsOf(small);
    EXPECT_NE(none.find("|0 ppm *;"), std::string::npos) << none;
    EXPECT_EQ(none.find("Based on"), std::string::npos);
}

TEST(UncertaintyReport, ATotalWithoutATableIsThatOfTheFit) {
    Reported stored;
    stored.record.ProcessUncertainty = 0.05;
    stored.record.IncludeUncertainty = true;
    stored.compute();
    const std::string text =
        operationsOf(stored, {.Report_IncludeRisk = false, .Report_IncludeUncertainty = true});
    EXPECT_NE(text.find("Total Process Uncertainty:|0.0810 V;"), std::string::npos) << text;
    EXPECT_NE(text.find("95.0000|0.0810|V;"), std::string::npos) << "the measuring parameter's own row";
}

TEST(RiskReport, ABaselineBelowAPpmIsInItsPicture) {
    Reported small;
    small.compute();
    Baseline& b = small.record;
    b.Base_FalseAccept = b.Base_FalseReject = 0.25;
    b.Base_AcceptUnits = b.Base_RejectUnits = "ppm";
    b.Base_Accept_fmt = b.Base_Reject_fmt = "##0.0";
    EXPECT_NE(operationsOf(small).find("False Accept Risk:|Not Computed|"), std::string::npos)
        << "not of this reference case";
    b.Base_AccRatNum = 1000;
    b.Base_SUPctInTol = b.Base_MTEPctInTol = 99.99;
    EXPECT_NE(operationsOf(small).find("False Accept Risk:|0.3 ppm|"), std::string::npos);
}

TEST(Report, EverySectionInItsOrder) {
    Reported all;
    enterBudget(all.session);
    all.record.IncludeUncertainty = true;
    all.compute();
    const ReportSelection selection{.Report_IncludePlots = true,
                                    .Report_IncludeUncertainty = true,
                                    .Report_IncludeErrorPlot = true,
                                    .Report_SUZoom = 50};
    expectReport("everything", all, selection);

    const auto firstHeader = [&](ReportSelection asked) {
        const std::string text = operationsOf(all, asked);
        return text.substr(0, text.find(" / "));
    };
    const std::string head = "running Measurement Decision Risk Analysis||";
    const struct {
        bool risk, plots, uncertainty;
        const char* origin;
        const char* header;
    } cases[] = {
        {true, true, false, "PrintDialog", "Analysis Results"},
        {true, false, true, "PrintDialog", "Summary Report"},
        {false, true, false, "PrintDialog", "Parameter Bias Distributions"},
        {false, true, true, "PrintDialog", "Parameter Distributions and Uncertainty Analysis Results"},
        {false, false, true, "Metrisk", "Summary Report"},
        {true, true, false, "MTEError", "Uncertainty Analysis Results"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(firstHeader({.Report_IncludeRisk = c.risk,
                               .Report_IncludePlots = c.plots,
                               .Report_IncludeUncertainty = c.uncertainty,
                               .Report_Origin = c.origin}),
                  head + c.header);
}

TEST(DecisionReport, JudgesTheReadingByThePresentEntries) {
    Reported volts;
    ReportSelection selection{.Report_IncludeRisk = false, .Report_IncludeDecision = true};
    selection.Report_Decision = DecisionRequest{10.45, *decisionRuleOf("w=U"), false, {}};
    std::string text = operationsOf(volts, selection);
    // u = 0.125/1.959964, U = 2 u = 0.12755.
    for (const char* part : {
             "Reading:|10.45 V;",
             "Tolerance Limits:|9.5000 V to 10.5000 V;",
             "Acceptance Limits:|9.6276 V to 10.3724 V;",
             "Verdict:|Fail;",
             "Probability of Conformance:|78.35 %;",
             "Of Nonconformance:|21.65 %;",
             "Decision rule: guard band w = U = 0.13 V",
         })
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;

    volts.record.SU_UpperOffset = 0.75;
    volts.record.SU_UpperLimit = 10.75;
    text = operationsOf(volts, selection);
    EXPECT_NE(text.find("Verdict:|Pass;"), std::string::npos) << text;
}

TEST(DecisionReport, IsRefusedWithoutAReading) {
    Reported volts;
    volts.ui.expectBox("Decision", "There is no reading to decide on.");
    RecordedReport document;
    EXPECT_FALSE(ComposeReport(volts.session, {.Report_IncludeDecision = true}, document, true));
}

TEST(Report, PlotsWithoutDataAreLeftOutAndTold) {
    Reported empty(
        Entry{.upperOffset = 0, .lowerOffset = 0, .pctInTol = 0, .mteOffset = 0, .mtePctInTol = 0});
    for (int plot = 0; plot < 2; ++plot) empty.ui.expectBox("No Data", "No Data to Plot.", note);
    const std::string text = operationsOf(empty, {.Report_IncludeRisk = false, .Report_IncludePlots = true});
    EXPECT_EQ(text.find("picture"), std::string::npos);
    EXPECT_NE(text.find("end\n"), std::string::npos);
}

} // namespace
} // namespace metrisk::testing
