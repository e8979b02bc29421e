// A report cut into pages, by the text metrics of whatever will show it.
#pragma once

#include "drawing/DrawingSurface.h"
#include "reports/PageSetup.h"
#include "reports/ReportDocument.h"
#include "reports/TableMarkup.h"

#include <optional>
#include <variant>
#include <vector>

namespace metrisk {

/// Positions in twips on the page.
struct PlacedText {
    double x, y;
    std::string text;
    TextFont font;
    Colour colour = black;
};
struct PlacedRule {
    double x1, y1, x2, y2;
    Colour colour = black;
};
struct PlacedPicture {
    ReportPicture picture;
    double x, y, width, height;
};
using Placed = std::variant<PlacedText, PlacedRule, PlacedPicture>;

struct Bookmark {
    std::string title;
    int level; // 0 a section, 1 a part of it
    std::size_t page;
    double y;
};

struct PagedReport {
    PageSetup setup;
    std::vector<std::vector<Placed>> pages;
    std::vector<Bookmark> bookmarks;
};

/// Draws the page over the whole surface, of any size, whose coordinates must be its device units.
void drawPage(DrawingSurface& surface, const PagedReport& report, std::size_t page);

/// Lines are broken between words, pages between rows and lines: no row is cut unless it is taller than a
/// page, a heading (a paragraph or table in bold, a table of one cell) goes to the page of what follows it,
/// and the heading of a table is repeated. Margins that leave no room are narrowed, tables that are wider
/// than the text as well.
class PagedDocument final : public ReportDocument {
  public:
    /// `metrics` measures texts; its coordinates become those of the page.
    PagedDocument(DrawingSurface& metrics, const PageSetup& setup);

    void StartDoc() override;
    void EndDoc() override;
    void NewPage() override;
    void Text(std::string_view text) override;
    void Table(std::string_view markup) override;
    void DrawLine(double x1, double y1, double x2, double y2) override;
    void DrawPicture(const ReportPicture& picture, double x, double y, double width, double height) override;
    void BeginBlock(double height) override { need(height); }
    /// In the bottom margin of the last page.
    void SmallPrint(std::string_view text) override;
    double lineHeight() const override;
    double lengthOf(std::string_view text) const override { return measure(text, font()); }

    /// What EndDoc has finished.
    const PagedReport& report() const { return report_; }

  private:
    struct Row {
        std::vector<std::vector<std::string>> cells; // lines of each
        std::size_t lines = 1;
    };
    struct Heading { // what must not stand alone at a page's foot
        std::size_t firstItem, firstBookmark;
        double y;
    };

    double bodyTop() const;
    double bodyBottom() const;
    double footerTop() const;
    void beginPage();
    void placeRunningTexts();
    void placeRunning(std::string_view text, double y);
    /// Begins another page if there is no room for so much; headings before it come along.
    void need(double height);
    void keepWithNext();
    void contentPlaced() { heading_.reset(); }
    TextFont font() const;
    double measure(std::string_view text, const TextFont& font) const;
    std::vector<std::string> wrapped(std::string_view text, double width) const;
    void place(double x, double y, const std::string& text, const TextFont& font, Colour colour = black);
    /// Where the decimal marks of the figures of a centred column stand, from its left edge; none where it
    /// has fewer than two.
    std::optional<double> markOf(const TableMarkup& table, const std::vector<Row>& rows,
                                 std::size_t column) const;
    std::vector<Row> laidOut(const TableMarkup& table) const;
    double cellPadding() const;
    double heightOf(const Row& row) const;
    void placeRow(const TableMarkup& table, const Row& row, double x,
                  const std::vector<std::optional<double>>& marks = {});
    void placeTallRow(const TableMarkup& table, Row& row, double x);
    void placeHeading(const TableMarkup& table, double x);
    void bookmark(const std::string& title, int level);

    DrawingSurface& metrics_;
    PagedReport report_;
    std::optional<Heading> heading_;
    double lineStart_ = 0; // CurrentX as the last operation left it

    struct TableHeading {
        TableMarkup table;
        double below; // CurrentY behind it
    };
    std::optional<TableHeading> tableHeading_;
};

} // namespace metrisk
