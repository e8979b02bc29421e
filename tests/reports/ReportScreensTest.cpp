// The way to a report: dialog, options, preview, export.
#include "base/AtomicFile.h"
#include "desk/reports/PreviewScreen.h"
#include "desk/reports/ReportDesk.h"
#include "tests/reports/Reports.h"
#include "tests/support/Hand.h"
#include "tests/support/TemporaryFolder.h"

#include <filesystem>

namespace metrisk::testing {
namespace {

struct AtDesk : Reported {
    ReportDesk desk{session};
    AtDesk() { compute(); }

    void inDialog(const std::function<void(Worksheet&)>& act) {
        ui.expectScreen("PrintDialog", act);
        desk.openPrintDialog();
        ui.verifyAllShown();
    }
};

TEST(PrintDialog, PrintsAndPreviewsWhatIsChosen) {
    AtDesk at;
    at.inDialog([&](Worksheet& dialog) {
        press(dialog, "Chk_IncludeRiskAnalysis");
        at.ui.expectBox("Nothing Selected", "Please include one or more reports.");
        choose(dialog, "mnu_Print");
        press(dialog, "Chk_IncludePlots");
        press(dialog, "cmd_Print");
        EXPECT_EQ(at.printer.printedPages, std::vector<std::size_t>{1});
        EXPECT_EQ(textOf(dialog, "cmd_Print"), "Print");
        EXPECT_FALSE(control<Control>(dialog, "Chk_IncludeErrPlot").enabled)
            << "there is no process uncertainty";
        at.ui.expectScreen(
            "Print_SS", [](Worksheet& preview) { EXPECT_EQ(textOf(preview, "pnl_Status"), "Page 1 of 1"); });
        choose(dialog, "mnu_Preview");
        choose(dialog, "mnu_Setup");
        EXPECT_EQ(at.printer.setUps, 1);
        at.printer.works = false;
        at.ui.expectBox("Printer Error", "The report could not be printed.");
        choose(dialog, "mnu_Print");
    });
    EXPECT_TRUE(at.desk.selection.Report_IncludePlots);
    EXPECT_FALSE(at.desk.selection.Report_Preview);
    EXPECT_EQ(at.desk.selection.Report_Origin, "PrintDialog");
}

TEST(PrintDialog, WithoutAPrinterIsTold) {
    AtDesk at;
    at.printer.there = false;
    at.ui.expectBox("Printer Error",
                    "Metrisk cannot access your printer.\nThis usually means that you haven't selected\n"
                    "a printer from the Windows Control Panel.");
    at.desk.openPrintDialog();
    EXPECT_TRUE(at.record.AbortFlag);
}

TEST(PrintDialog, MarginsZoomsAndFontsAreKept) {
    AtDesk at;
    at.record.SUPlot_Zoom = 0.25;
    at.inDialog([&](Worksheet& dialog) {
        EXPECT_EQ(control<Choice>(dialog, "cbo_SUZoom").index, 0);
        EXPECT_EQ(textOf(dialog, "Lbl_LUnits"), "inch");
        type(dialog, "Txt_LMargin", "1.5");
        EXPECT_EQ(textOf(dialog, "Lbl_LUnits"), "inches");
        for (const char* refused : {"x", "-1", "1000", ""}) {
            at.ui.expectBox("Print Analysis", "Please enter a margin of 0 to 20 inches.");
            type(dialog, "Txt_TMargin", refused);
        }
        EXPECT_EQ(textOf(dialog, "Txt_TMargin"), "1");
        dialog.choose(control<Choice>(dialog, "Combo1"), 1);
        press(dialog, "Chk_FontDefault");
    });
    EXPECT_EQ(at.settings.ReadSetting("ReportFormat", "DefCurrentFont", "", 60), "Courier");
    EXPECT_EQ(at.desk.selection.Report_LeftMargin, 1.5);
}

TEST(ReportOptions, StayWithTheAnalysisUntilTheyBecomeDefaults) {
    AtDesk at;
    at.record.FileChanged = false;
    at.ui.expectScreen("PrintOpt", [&](Worksheet& options) {
        type(options, "txt_Organization", std::string(70, 'o') + "\"");
        press(options, "chk_Organization");
        press(options, "opt_Defaults_1");
        type(options, "txt_Organization", "Other");
        press(options, "opt_Defaults_0");
        EXPECT_EQ(textOf(options, "txt_Organization"), std::string(60, 'o'));
        press(options, "Opt_CommaDelimited");
        auto& remarks = control<Memo>(options, "txt_Remarks");
        options.edit(remarks, "two\nlines");
        at.ui.expectScreen("PrintDialog");
        choose(options, "mnu_Print");
    });
    at.desk.openOptions();
    EXPECT_EQ(at.settings.ReadSetting("ReportFormat", "IncludeOrganization", "", 5), "Yes");
    EXPECT_EQ(at.settings.ReadSetting("ReportFormat", "Delimiter", "", 5), "Tab");
    EXPECT_EQ(at.record.Delimiter, "Comma");
    EXPECT_EQ(at.record.Remarks, "two\nlines");
    EXPECT_TRUE(at.record.FileChanged);

    at.ui.expectScreen("PrintOpt", [&](Worksheet& options) {
        press(options, "chk_FileName");
        at.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::No, yesNoCancel);
        options.close(Way::Cancel);
    });
    at.desk.openOptions();
    EXPECT_FALSE(at.record.IncludeFileName);
}

struct AtPreview : AtDesk {
    const TemporaryFolder folder;
    std::string path(const char* name) const { return (folder.path() / name).string(); }
    void inPreview(const std::function<void(Worksheet&)>& act) {
        ui.expectScreen("Print_SS", act);
        desk.preview(session, reportOrigin::mainScreen);
        ui.verifyAllShown();
    }
};

TEST(Preview, ExportsByTheExtension) {
    AtPreview at;
    at.record.AnalysisFileName = at.path("volts.mrk");
    at.chooser.answers = {at.path("a.doc"), at.path("b"),     at.path("c.HTM"),
                          at.path("d.pdf"), at.path("e.txt"), ""};
    at.inPreview([&](Worksheet& preview) {
        for (int i = 0; i < 4; ++i) choose(preview, "mnu_Export");
        at.ui.expectBox("No Report Available", "The Report Type is not registered.");
        choose(preview, "mnu_Export");
        choose(preview, "mnu_Export");
        EXPECT_FALSE(control<Control>(preview, "pnl_Message").visible);
        choose(preview, "mnu_Copy");
    });
    EXPECT_EQ(at.chooser.requests[0].initialName, "volts.doc");
    EXPECT_EQ(at.chooser.requests[0].title, "Save File");
    EXPECT_EQ(at.chooser.requests[0].filter,
              "Rich Text Files (*.doc)|*.doc|HTML Files (*.htm)|*.htm|PDF Files (*.pdf)|*.pdf");
    EXPECT_EQ(at.programs.opened,
              (std::vector{at.path("a.doc"), at.path("b.doc"), at.path("c.HTM"), at.path("d.pdf")}));
    EXPECT_EQ(readWholeFile(at.path("d.pdf"), 1000), "volts - Measurement Decision Risk Analysis, pages 1");
    EXPECT_FALSE(std::filesystem::exists(at.path("e.txt")));
    EXPECT_EQ(at.ui.picturesCopied, 1);
}

TEST(Preview, FailuresAreToldAndLeaveNoFile) {
    AtPreview at;
    const std::string target = at.path("missing/x.doc");
    at.chooser.answers = {target, at.path("y.doc")};
    at.inPreview([&](Worksheet& preview) {
        at.ui.expectBox("Save File", "The file " + target + " cannot be written.");
        choose(preview, "mnu_Export");
        at.programs.failure = "No program is known";
        at.ui.expectBox("Save File", "The file " + at.path("y.doc") + " was written.\nNo program is known");
        choose(preview, "mnu_Export");
    });
    EXPECT_FALSE(std::filesystem::exists(at.path("missing")));
    EXPECT_TRUE(std::filesystem::exists(at.path("y.doc")));
    EXPECT_FALSE(at.record.AbortFlag);
}

TEST(Preview, TurnsAndEnlargesPages) {
    AtPreview at;
    at.desk.selection.Report_IncludePlots = true;
    at.inPreview([](Worksheet& preview) {
        EXPECT_EQ(textOf(preview, "pnl_Status"), "Page 1 of 2");
        EXPECT_FALSE(control<Control>(preview, "cmd_Previous").enabled);
        press(preview, "cmd_Next");
        EXPECT_EQ(textOf(preview, "pnl_Status"), "Page 2 of 2");
        EXPECT_FALSE(control<Control>(preview, "cmd_Next").enabled);
        auto& page = control<PictureArea>(preview, "vs_Print");
        EXPECT_EQ(page.leastWidth, 816) << "as it is on paper";
        choose(preview, "mnu_Page_Larger");
        EXPECT_EQ(page.leastWidth, 1224);
    });
}

} // namespace
} // namespace metrisk::testing
