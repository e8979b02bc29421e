// The table of test points: what is typed and pasted, taken back, computed and saved.
#include "desk/points/PointDocument.h"
#include "desk/points/TestPointsScreen.h"
#include "persistence/NewAnalysis.h"
#include "rows/RowRun.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

namespace metrisk::testing {
namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Points : TestSession {
    TemporaryFolder folder;
    ScriptedChooser files;
    PointDesk desk;
    TestPointsScreen screen{session, &files, &desk};

    Points() { screen.begin(); }
    void open(const std::string& text) {
        const auto path = folder / "points.csv";
        std::ofstream(path, std::ios::binary) << text;
        ASSERT_TRUE(screen.openTable(path.string()));
    }
    bool settled() { return changesSettled(ui, &files, desk); }
    void type(int row, int column, const std::string& text) {
        screen.leaveCell(screen.tbl_Points, row, column, text);
    }
    std::string shown(int row, const std::string& heading) const {
        const SheetContent& content = screen.tbl_Points.content;
        for (int column = 0; column < content.columnCount(); ++column)
            if (content.heading(column) == heading) return content.cell(row, column).text;
        return "no such column";
    }
    void run(const char* command) { screen.run(*findItem(screen.menus, command)); }
    void select(int top, int bottom) { screen.select(screen.tbl_Points, {top, 0, bottom, 0}); }
};

TEST(PointSheet, TakesBackWhateverWasDone) {
    std::mt19937 random(7);
    const auto below = [&](std::size_t count) { return random() % count; };
    for (int run = 0; run < 40; ++run) {
        PointSheet sheet = PointSheet::ofText(
            "id;nominal;tol [mV]\r\n1;10 V;\"0,5\"\r\n\r\n2;\"a \"\"b\"\"\";3\r\nshort\r\n");
        std::vector<std::string> texts{sheet.text()};
        const auto done = [&] {
            if (sheet.text() != texts.back()) texts.push_back(sheet.text());
        };
        for (int step = 0; step < 30; ++step) {
            const std::size_t row = below(sheet.size() + 1), column = below(sheet.columns().size());
            switch (below(8)) {
            case 0: sheet.put(row, column, {{"x"}}); break;
            case 1: sheet.put(row, column, {{"1;2", "", "\"q\""}, {"3"}}); break;
            case 2: sheet.insertRows(row, 2); break;
            case 3:
                if (row < sheet.size())
                    sheet.removeRows(row > 1 ? std::vector{row - 2, row} : std::vector{row});
                break;
            case 4:
                if (row < sheet.size()) sheet.duplicateRows({row});
                break;
            case 5: sheet.reorder(orderBy(sheet, nullptr, column, true)); break;
            case 6: sheet.insertColumn(column, "new[x]"); break;
            case 7: sheet.removeColumn(column); break;
            }
            done();
        }
        while (sheet.canUndo()) {
            sheet.undo();
            if (texts.size() > 1 && sheet.text() == texts[texts.size() - 2]) texts.pop_back();
        }
        EXPECT_EQ(sheet.text(),
                  "id;nominal;tol [mV]\r\n1;10 V;\"0,5\"\r\n\r\n2;\"a \"\"b\"\"\";3\r\nshort\r\n");
        EXPECT_EQ(texts.size(), 1u);
        EXPECT_FALSE(sheet.changed());
    }
}

TEST(TestPoints, FiguresFollowWhatIsTyped) {
    Points p;
    p.open(
        "nominal,tol,su_pct,mte_u\n10 V,0.5 mV,95,0.05 mV\n10 V,,95,0.05 mV\n10 V,0.5 parsec,95,0.05 mV\n");
    EXPECT_EQ(p.shown(0, "status"), "ok");
    EXPECT_EQ(p.shown(1, "status"), "refused");
    EXPECT_EQ(p.shown(2, "status"), "bad");
    const SheetContent& content = p.screen.tbl_Points.content;
    EXPECT_EQ(content.cell(2, 1).look, SheetCell::Look::Fault);
    EXPECT_EQ(content.cell(2, 1).tip, "column tol: parsec is no unit that V can be told in");
    p.type(2, 3, "0.05 parsec");
    EXPECT_EQ(content.cell(2, 3).look, SheetCell::Look::Entry); // it has not come to that one
    p.screen.undo(p.screen.tbl_Points);
    p.select(2, 2);
    EXPECT_NE(p.screen.Lbl_State.text.find("Row 3: "), std::string::npos);
    EXPECT_EQ(p.screen.Lbl_Totals.text.substr(0, 41), "3 rows: 1 ok, 0 note, 1 refused, 1 bad\nWo");

    const std::string before = p.shown(0, "FalseAccept");
    p.type(0, 1, "0.2 mV");
    EXPECT_NE(p.shown(0, "FalseAccept"), before);
    p.screen.undo(p.screen.tbl_Points);
    EXPECT_EQ(p.shown(0, "FalseAccept"), before);
    EXPECT_FALSE(p.desk.sheet.changed());

    p.screen.putCells(p.screen.tbl_Points, 1, 1, {{"0.3 mV"}, {"0.4 mV"}, {"0.6 mV", "90"}});
    EXPECT_EQ(content.rowCount(), 4); // the last of them has not been there
    EXPECT_EQ(p.shown(2, "status"), "ok");
    EXPECT_EQ(p.shown(3, "status"), "bad"); // mV without a unit of the nominal

    // Other figures, and a header that allows none.
    p.screen.leave(p.screen.txt_Want, "risks,worst");
    EXPECT_NE(p.shown(0, "WorstPct"), "");
    p.ui.expectBox("Figures", std::get<std::string>(wantOf("risks,wonders")));
    p.screen.leave(p.screen.txt_Want, "risks,wonders");
    p.desk.sheet.renameColumn(1, "u");
    p.run("mnu_AppendRow");
    EXPECT_NE(p.screen.Lbl_State.text.find("mte_u or mte_expanded"), std::string::npos);
    EXPECT_EQ(content.columnCount(), 4);
}

TEST(TestPoints, LoseNothingThatIsPasted) {
    Points p;
    const SheetContent& content = p.screen.tbl_Points.content;
    const auto put = [&](int row, int column, const CellBlock& cells) {
        p.screen.putCells(p.screen.tbl_Points, row, column, cells);
    };
    const auto refused = [&](const char* begins, int row, int column, const CellBlock& cells) {
        const std::string before = p.desk.sheet.text();
        p.ui.expectBox("Paste", std::string(begins) + " not fit: the last one that can be typed into is " +
                                    p.desk.sheet.columns().back() +
                                    ". Nothing was pasted.\n\nAdd columns first. An empty table takes its "
                                    "columns from a first line of names.");
        put(row, column, cells);
        EXPECT_EQ(p.desk.sheet.text(), before);
    };
    refused("2 columns do", 0, 3, {{"1"}, {"1", "2", "3", "4"}});
    refused("3 columns do", 0, 4, {{"nominal", "1", "2", "3"}}); // a number is no name
    put(0, 0,
        {{"id", "nominal", "tol [mV]", "su_pct", "mte_u", "note; mine"},
         {"a", "10 V", "0.5", "95", "0.05 mV", "two\nlines"},
         {"b", "10 V", "0.5", "95", "0.1 mV", ""}});
    EXPECT_EQ(content.rowCount(), 2);
    EXPECT_EQ(p.shown(0, "status") + p.shown(1, "status"), "okok");
    EXPECT_EQ(p.shown(0, "note; mine"), "two\nlines");

    // Copied rows bring figures that are computed again; other cells behind the columns are no figures.
    CellBlock copied(1);
    for (int column = 0; column < content.columnCount(); ++column)
        copied[0].push_back(content.cell(1, column).text);
    put(0, 0, copied);
    EXPECT_EQ(p.shown(0, "id") + p.shown(0, "FalseAccept"), "b" + p.shown(1, "FalseAccept"));
    refused("1 column does", 1, 5, {{"x", "y", " "}});
    refused("1 column does", 1, 5, {{"x", "ok"}});
    refused("1 column does", 1, 6, {{"ok"}});
    put(0, 5, {{"", "", ""}, {"", "", ""}}); // what Delete puts
    EXPECT_EQ(p.shown(0, "note; mine"), "");
    refused("1 column does", 2, 0, {{"nominal", "tol", "a", "b", "c", "d", "e"}}); // the table holds rows
    for (int step = 0; step < 3; ++step) p.screen.undo(p.screen.tbl_Points);
    EXPECT_EQ(p.desk.sheet.header(), PointSheet().header());
}

TEST(TestPoints, KeepTheByteOrderMarkOfTheirFile) {
    Points p;
    p.open("\xEF\xBB\xBFnominal;tol\r\n10;0.5\r\n");
    p.type(0, 1, "0.25");
    p.run("mnu_SaveTable");
    EXPECT_EQ(contentOf(p.desk.path), "\xEF\xBB\xBFnominal;tol\r\n10;0.25\r\n");
}

TEST(TestPoints, AreSortedFilteredAndOpened) {
    Points p;
    p.open("id,nominal,tol,su_pct,mte_u\na,10,0.5,95,0.05\nb,10,0.5,95,0.2\nc,10,0.5,95,0.1\nd,10,0.5,200,0."
           "1\n");
    p.select(0, 0);
    p.run("mnu_SortRising"); // as it is already; only a heading turns the order
    EXPECT_EQ(p.shown(0, "id"), "a");
    p.screen.pressHeading(p.screen.tbl_Points, 6); // the false accept risk
    EXPECT_EQ(p.shown(0, "id") + p.shown(1, "id") + p.shown(2, "id") + p.shown(3, "id"), "acbd");
    p.screen.pressHeading(p.screen.tbl_Points, 6);
    EXPECT_EQ(p.shown(0, "id") + p.shown(1, "id") + p.shown(2, "id") + p.shown(3, "id"), "bcad");
    p.run("mnu_Edit_Undo");
    p.screen.choose(p.screen.cbo_Filter, static_cast<int>(PointFilter::TurBelow));
    EXPECT_EQ(p.screen.tbl_Points.content.rowCount(), 2);
    p.screen.choose(p.screen.cbo_Filter, static_cast<int>(PointFilter::NotAnswered));
    EXPECT_EQ(p.shown(0, "id"), "d");
    EXPECT_EQ(p.screen.tbl_Points.content.rowName(0), "4");

    p.screen.choose(p.screen.cbo_Filter, 0);
    Analysis opened;
    p.screen.openAnalysis = [&](const Analysis& made) {
        opened = made;
        return true;
    };
    p.screen.open(p.screen.tbl_Points, 0);
    EXPECT_EQ(opened.MTE_StdUncertainty, 0.2);
    EXPECT_TRUE(p.screen.closedBy());
}

/// With what is read, and again with what was changed.
TEST(TestPoints, SaveWhatTheCommandWrites) {
    Points p;
    const std::string examples = contentOf(METRISK_SOURCE_DIR "/examples/points.csv");
    p.open(examples);
    const auto saved = p.folder / "out.csv";
    p.files.answers = {saved.string()};
    p.run("mnu_SaveResults");
    const std::string results = contentOf(saved);
    RowOptions options{.want = std::get<Want>(wantOf("risks,tur"))};
    const Analysis base = newAnalysis();
    const TestPoint point = testPointOf(base, p.session.regional);
    const UnitFactors units;
    const std::string header = examples.substr(0, examples.find('\n'));
    const RowTable table(options, point, units, header);
    std::string expected = table.outputHeader();
    RowScratch scratch;
    RowCounts counts;
    processBlock(std::string_view(examples).substr(header.size() + 1), table, scratch, expected, counts);
    EXPECT_EQ(results, expected);
    EXPECT_EQ(counts.rows(), 20u);

    // The figures are left out when the file is opened again, and are the same.
    p.open(results);
    EXPECT_EQ(p.desk.sheet.text(), examples);
    const auto again = p.folder / "again.csv";
    p.files.answers = {again.string()};
    p.run("mnu_SaveResults");
    EXPECT_EQ(contentOf(again), results);
}

TEST(TestPoints, MayBeWrittenWithADecimalComma) {
    Points p;
    p.open("nominal;tol;su_pct;mte_u\n10,0;0,5;95;0,1\n10,0;0,5;95;0,05\n");
    EXPECT_EQ(p.shown(0, "status"), "bad");
    p.run("mnu_DecimalComma");
    EXPECT_EQ(p.shown(0, "status"), "ok");
    EXPECT_EQ(p.shown(0, "FalseAccept").substr(0, 4), "0,01");
    EXPECT_EQ(p.desk.sheet[0].answer.falseAccept > 0.01, true);
    p.screen.pressHeading(p.screen.tbl_Points, 3);
    EXPECT_EQ(p.shown(0, "mte_u"), "0,05");
    // What stands above the cells is written as they are, whatever the user's own marks.
    const auto totalsHave = [&p](const char* text) {
        return p.screen.Lbl_Totals.text.find(text) != std::string::npos;
    };
    EXPECT_TRUE(totalsHave("risk 1,")) << p.screen.Lbl_Totals.text;
    p.session.regional = {.DecimalSymbol = ",", .ThousandSeparator = "."};
    p.screen.undo(p.screen.tbl_Points);
    p.open("nominal,tol,su_pct,mte_u\n10.0,0.5,95,0.1\n");
    p.run("mnu_DecimalComma");
    EXPECT_TRUE(totalsHave("risk 1.")) << p.screen.Lbl_Totals.text;
}

TEST(TestPoints, ArePrintedAsTheyAreShown) {
    Points p;
    p.open("id,nominal,tol,tol_pct,su_pct,mte_u\na,10,0.5,,95,0.05\nb,10,0.5,,200,0.1\n");
    TableReport printed;
    p.screen.papers.printTable = [&](const TableReport& table) {
        printed = table;
        return true;
    };
    p.screen.choose(p.screen.cbo_Filter, static_cast<int>(PointFilter::NotAnswered));
    p.run("mnu_PrintTable");
    ASSERT_EQ(printed.rows.size(), 1u);
    EXPECT_EQ(printed.columns.size(), printed.rows[0].size());
    EXPECT_EQ(printed.rows[0][0] + printed.rows[0][1], "2b");
    EXPECT_EQ(printed.columns[4].name, "su_pct"); // tol_pct is empty
    EXPECT_NE(printed.rows[0].back().find("%"), std::string::npos);
    EXPECT_NE(printed.head[1].find("1 refused"), std::string::npos);
}

TEST(TestPoints, PaperHoldsWhatTheyWereComputedFromAndNamesTheRest) {
    Points p;
    p.open("lab,shelf,room,owner,serial,remark,asset,id,nominal,tol [mV],su_pct,mte_u\n"
           "x,1,2,y,3,z,4,a,10 V,500,95,0.05 V\n");
    TableReport printed;
    p.screen.papers.printTable = [&](const TableReport& table) {
        printed = table;
        return true;
    };
    p.screen.leave(p.screen.txt_Want, "tur,risks,worst");
    p.run("mnu_PrintTable");
    ASSERT_EQ(printed.rows.size(), 1u);
    std::string names, left;
    for (const TableReportColumn& column : printed.columns) names += column.name + ",";
    EXPECT_EQ(names.find("Row,lab,shelf,room,id,nominal,tol [mV],su_pct,mte_u,status,"), 0u) << names;
    for (const std::string& line : printed.head)
        if (line.starts_with("Not printed: ")) left = line.substr(13) + ",";
    EXPECT_EQ(left.find("owner, serial, remark, asset,"), 0u) << left;
    // Every column is on the paper or among the names.
    const SheetContent& content = p.screen.tbl_Points.content;
    for (int column = 0; column < content.columnCount(); ++column)
        EXPECT_NE((names + " " + left).find(content.heading(column) + ","), std::string::npos)
            << content.heading(column);
}

TEST(TestPoints, ATableIsNotSavedUnderTheNameOfAPage) {
    Points p;
    p.open("nominal,tol,su_pct,mte_u\n10,0.5,95,0.05\n");
    const auto saved = p.folder / "risks.pdf.csv";
    p.files.answers = {(p.folder / "risks.pdf").string()};
    p.run("mnu_SaveResults");
    EXPECT_FALSE(std::filesystem::exists(p.folder / "risks.pdf"));
    EXPECT_NE(contentOf(saved), "");
    std::ofstream(saved) << "another's";
    p.files.answers = {(p.folder / "risks.pdf").string()};
    p.ui.expectBox("Save as CSV", saved.string() + " already exists.\nDo you want to replace it?",
                   Answer::No);
    p.run("mnu_SaveResults");
    EXPECT_EQ(contentOf(saved), "another's");
}

TEST(TestPoints, ChangesAreAskedAbout) {
    Points p;
    EXPECT_TRUE(p.settled());
    EXPECT_NE(p.screen.tbl_Points.whenEmpty, "");
    p.type(0, 0, "10 V");
    p.ui.expectBox("Save Table", "Save changes to New table?", Answer::Cancel);
    EXPECT_EQ(p.screen.tbl_Points.whenEmpty, "");
    EXPECT_FALSE(p.settled());
    p.ui.expectBox("Save Table", "Save changes to New table?", Answer::Yes, yesNoCancel);
    p.files.answers = {(p.folder / "mine.csv").string()};
    EXPECT_TRUE(p.settled());
    EXPECT_EQ(contentOf(p.folder / "mine.csv"), "nominal,tol,su_pct,mte_tol,mte_pct\n10 V,,,,\n");
    EXPECT_FALSE(p.desk.sheet.changed());
}

TEST(TestPoints, KeepTheirTemplateWhenARowTakesItsPlace) {
    Points p;
    p.record = newAnalysis();
    p.record.SU_PctInTol = 90;
    p.screen.choose(p.screen.cbo_Template, 1);
    p.open("nominal,tol,mte_u\n10,0.5,0.05\n10,0.5,0.1\n");
    ASSERT_EQ(p.shown(0, "status"), "ok");
    const std::string before = p.shown(0, "FalseAccept");
    p.screen.openAnalysis = [&](const Analysis& made) {
        p.record = made;
        p.record.SU_PctInTol = 70;
        return true;
    };
    p.screen.open(p.screen.tbl_Points, 1);
    TestPointsScreen again(p.session, &p.files, &p.desk);
    again.begin();
    EXPECT_EQ(again.tbl_Points.content.cell(0, 4).text, before);
    EXPECT_NE(again.cbo_Template.items[static_cast<std::size_t>(again.cbo_Template.index)],
              "Present analysis");
}

TEST(TestPoints, AskBeforeTheyReplaceWhatAnotherProgramWrote) {
    Points p;
    p.open("nominal,tol\n10,0.5\n");
    const std::filesystem::path path = p.desk.path;
    p.type(0, 0, "20");
    p.run("mnu_SaveTable");
    p.type(0, 0, "30");
    std::ofstream(path) << "nominal,tol\n10,0.25\n11,0.25\n";
    const std::string others = contentOf(path);
    p.ui.expectBox("Save Table", "The file was changed by another program since it was opened. Replace it?",
                   Answer::No);
    p.run("mnu_SaveTable");
    EXPECT_EQ(contentOf(path), others);
    EXPECT_TRUE(p.desk.sheet.changed());
    p.ui.expectBox("Save Table", "The file was changed by another program since it was opened. Replace it?",
                   Answer::Yes);
    p.run("mnu_SaveTable");
    EXPECT_EQ(contentOf(path), "nominal,tol\n30,0.5\n");
}

} // namespace
} // namespace metrisk::testing
