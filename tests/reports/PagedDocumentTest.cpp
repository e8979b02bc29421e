// Pages: where they break, what comes along, and that no text gets lost.
#include "reports/PagedDocument.h"
#include "drawing/Drawing.h"

#include <cctype>
#include <gtest/gtest.h>
#include <sstream>

namespace metrisk::testing {
namespace {

constexpr double lineTwips = 240; // of a text of 10 points, as Drawing measures

struct Paged {
    Drawing metrics{816, 1056};
    PagedDocument document;

    explicit Paged(const PageSetup& setup = {}) : document(metrics, setup) { document.StartDoc(); }

    const PagedReport& end() {
        document.EndDoc();
        return document.report();
    }
    /// The texts of a page, each on a line, from the top.
    std::string page(std::size_t number) const {
        std::string texts;
        for (const Placed& item : document.report().pages.at(number))
            if (const auto* text = std::get_if<PlacedText>(&item)) texts += text->text + "\n";
        return texts;
    }
    std::string all() const {
        std::string texts;
        for (std::size_t i = 0; i < document.report().pages.size(); ++i) texts += page(i);
        return texts;
    }
    void fillUpTo(double fromBottom) {
        document.CurrentY = document.PageHeight - document.MarginBottom - fromBottom;
    }
    void bold(bool on) { document.FontBold = on; }
};

TEST(PagedDocument, HeadingsGoToThePageOfWhatFollows) {
    const auto heads = [](const std::function<void(PagedDocument&)>& heading,
                          const std::function<void(PagedDocument&)>& body) {
        Paged p;
        p.document.Text("before");
        p.fillUpTo(3 * lineTwips);
        heading(p.document);
        body(p.document);
        p.end();
        return p.page(0) + "--\n" + (p.document.report().pages.size() > 1 ? p.page(1) : "");
    };
    const auto boldText = [](PagedDocument& d) {
        d.FontBold = true;
        d.Text("Heading");
        d.FontBold = false;
        d.Text("\n");
    };
    const auto tall = [](PagedDocument& d) { d.Table("<5000|<3000;label|a\nb\nc;"); };
    const ReportPicture picture{"curve", [](DrawingSurface&) {}};
    EXPECT_EQ(heads(boldText, tall), "before\n--\nHeading\nlabel\na\nb\nc\n");
    EXPECT_EQ(heads([](PagedDocument& d) { d.Table("^9360;Caption;"); },
                    [&](PagedDocument& d) { d.DrawPicture(picture, 0, d.CurrentY, 6000, 4000); }),
              "before\n--\nCaption\n");
    EXPECT_EQ(heads(
                  [](PagedDocument& d) {
                      d.FontBold = true;
                      d.Table("<5000|<3000;A|B;");
                      d.FontBold = false;
                  },
                  tall),
              "before\n--\nA\nB\nlabel\na\nb\nc\n");
    EXPECT_EQ(heads([](PagedDocument&) {}, [](PagedDocument& d) { d.Text("fits"); }), "before\nfits\n--\n");
}

TEST(PagedDocument, TableHeadingsAreRepeatedAndRowsStayWhole) {
    Paged p;
    p.bold(true);
    p.document.Table("<5000|<3000;Name|Value;");
    p.bold(false);
    std::string rows = "<5000|<3000;";
    for (int i = 1; i <= 100; ++i)
        rows += "row" + std::to_string(i) + "|first\nsecond" + std::to_string(i) + ";";
    p.document.Table(rows);
    ASSERT_GT(p.end().pages.size(), 2u);
    for (std::size_t i = 0; i < p.document.report().pages.size(); ++i) {
        std::istringstream page(p.page(i));
        std::string line, last;
        std::getline(page, line);
        EXPECT_EQ(line, "Name") << "page " << i + 1;
        for (std::getline(page, line); std::getline(page, line);) last = line;
        EXPECT_EQ(last.substr(0, 6), "second") << "page " << i + 1;
    }
}

TEST(PagedDocument, NothingIsLost) {
    const std::string name(500, 'W');
    const auto count = [](const std::string& text, char c) {
        return std::count(text.begin(), text.end(), c);
    };
    for (const PageSetup& setup :
         {PageSetup{}, PageSetup{.left = 0, .top = 0}, PageSetup{.left = 90000, .top = 90000},
          PageSetup{.left = -5, .right = 20000}}) {
        Paged p(setup);
        p.document.Header = "left|centre|right %d";
        p.document.Text(name);
        p.document.Table("<5200|<3600;" + name + "|" + name + "|shifted|" + "ö;");
        p.document.Table("<90000|<90000;wide|table;");
        std::string tallCell;
        for (int i = 0; i < 300; ++i) tallCell += "x\n";
        p.document.Table("<5200|<3600;tall|" + tallCell + ";");
        const PagedReport& report = p.end();
        const std::string all = p.all();
        EXPECT_EQ(count(all, 'W'), 1500);
        EXPECT_EQ(count(all, 'x'), 300);
        EXPECT_NE(all.find("shifted"), std::string::npos);
        EXPECT_NE(all.find("ö"), std::string::npos);
        EXPECT_NE(all.find("right " + std::to_string(report.pages.size())), std::string::npos);
        for (const auto& page : report.pages)
            for (const Placed& item : page)
                if (const auto* text = std::get_if<PlacedText>(&item)) {
                    EXPECT_GE(text->x, 0) << text->text;
                    EXPECT_LE(text->x, report.setup.width) << text->text;
                    EXPECT_LE(text->y, report.setup.height) << text->text;
                }
    }
}

/// A title in a narrow margin stands below the running header; a word of any length is soon broken.
TEST(PagedDocument, HeadersAndTitlesDoNotMeet) {
    for (const double inches : {0.0, 0.25, 0.5, 0.75, 1.0, 2.0}) {
        Paged p(PageSetup{.top = inches * 1440});
        p.document.Header = "||right";
        EXPECT_GE(p.document.headerBottom(), p.document.headerTop() + 9 * 20) << inches;
        p.document.CurrentY = p.document.headerBottom();
        p.document.Text(std::string(200000, 'W'));
        const PagedReport& report = p.end();
        double header = 1e9, body = 1e9;
        for (const Placed& item : report.pages[0])
            if (const auto* text = std::get_if<PlacedText>(&item))
                (text->text == "right" ? header : body) =
                    std::min(text->text == "right" ? header : body, text->y);
        EXPECT_GT(body, header + 9 * 20) << inches;
    }
}

TEST(PagedDocument, APageOfAnySizeHasTheSameProportions) {
    Paged p;
    p.document.Text("text");
    p.document.DrawLine(1440, 5000, 10800, 5000);
    const PagedReport& report = p.end();
    const auto textAt = [&](double scale) {
        Drawing surface(816 * scale, 1056 * scale);
        drawPage(surface, report, 0);
        for (const DrawingOp& op : surface.operations())
            if (const auto* text = std::get_if<TextOp>(&op))
                return std::pair{text->topLeft.x / scale, text->font.Size / scale};
        return std::pair{0.0, 0.0};
    };
    EXPECT_EQ(textAt(1), std::pair(96.0, 10.0));
    EXPECT_EQ(textAt(2), textAt(1));
}

/// Decimal marks stand below each other, stars hang beside, and other texts stay in the middle.
TEST(PagedDocument, FiguresOfAColumnStandByTheirMarks) {
    Paged p;
    p.document.Table("<4000|^3600;a|4.1048%;b|13.32:1 **;c|7 ppm;d|Not Computed;");
    std::vector<double> marks;
    double middle = 0;
    for (const Placed& item : p.end().pages.front()) {
        const auto* text = std::get_if<PlacedText>(&item);
        if (!text) continue;
        const auto width = [&](std::size_t bytes) {
            p.metrics.Font = text->font;
            return p.metrics.TextWidth(text->text.substr(0, bytes));
        };
        if (const std::size_t at = text->text.find_first_of(". "); std::isdigit(text->text[0]))
            marks.push_back(text->x + width(at));
        if (text->text == "Not Computed") middle = text->x + width(text->text.size()) / 2;
    }
    ASSERT_EQ(marks.size(), 3u);
    for (const double mark : marks) EXPECT_NEAR(mark, marks.front(), 0.5);
    EXPECT_NEAR(middle, p.document.MarginLeft + 4000 + 1760, 0.5);
}

TEST(PagedDocument, ATableIsNoWiderThanTheText) {
    Paged p;
    p.document.Table("<6000|<6000;left|right;");
    const PagedReport& report = p.end();
    const auto* right = std::get_if<PlacedText>(&report.pages[0].back());
    ASSERT_TRUE(right && right->text == "right");
    EXPECT_DOUBLE_EQ(right->x, 1440 + 9360 / 2);
}

} // namespace
} // namespace metrisk::testing
