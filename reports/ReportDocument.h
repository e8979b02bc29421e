// The document that a report is composed into: a position, a font and a few operations.
#pragma once

#include "reports/PageSetup.h"

#include <functional>
#include <string>
#include <string_view>

namespace metrisk {

class DrawingSurface;

/// A picture of a report: what it shows in words, and how it is drawn on a surface of any size. It owns the
/// values that it draws.
struct ReportPicture {
    std::string description;
    std::function<void(DrawingSurface&)> paint;
};

enum class ReportFormat { None, RichText, Html, Pdf };

/// Lengths are twips (1/1440 inch) from the top left corner of the page, text sizes points. A document that
/// flows as its reader likes (Rich Text, HTML) takes a move of CurrentY for space between paragraphs.
class ReportDocument {
  public:
    // The running header and footer: three fields parted by "|", left, centre and right; "%d" is the page
    // number. A change counts from the next page on, before the first text at once.
    std::string HdrFontName = "Arial";
    double HdrFontSize = 9;
    bool HdrFontBold = false;
    bool HdrFontItalic = false;
    bool HdrFontUnderline = false;
    std::string Header;
    std::string Footer;

    std::string FontName = "Arial";
    double FontSize = 10;
    bool FontBold = false;

    /// Where the next paragraph starts. Each operation leaves CurrentX at the left end of a line; set anew,
    /// it moves the next paragraph alone.
    double CurrentX = 0, CurrentY = 0;
    double IndentLeft = 0; // of the texts and tables that follow

    double PageWidth, PageHeight;
    double MarginLeft, MarginTop, MarginRight, MarginBottom;

    std::string ExportFile; // where the document goes; empty for printer and screen
    ReportFormat ExportFormat = ReportFormat::None;

    virtual ~ReportDocument() = default;
    ReportDocument(const ReportDocument&) = delete;
    ReportDocument& operator=(const ReportDocument&) = delete;

    virtual void StartDoc() = 0;
    virtual void EndDoc() = 0;
    virtual void NewPage() = 0;
    /// A paragraph; a line feed alone makes an empty line.
    virtual void Text(std::string_view text) = 0;
    /// A table in the mark-up of TableMarkup.h. One in bold heads the next of the same columns.
    virtual void Table(std::string_view markup) = 0;
    virtual void DrawLine(double x1, double y1, double x2, double y2) = 0;
    /// The current position moves below it.
    virtual void DrawPicture(const ReportPicture& picture, double x, double y, double width,
                             double height) = 0;
    /// What follows up to EndBlock, about so high, stays on one page.
    virtual void BeginBlock(double /*height*/) {}
    virtual void EndBlock() {}
    /// A paragraph at the end of the document that makes no page of its own.
    virtual void SmallPrint(std::string_view text) { Text(text); }
    /// Puts text of the export format into the file as it is.
    virtual void ExportRaw(std::string_view) {}
    /// Brings the margins to those of the device.
    virtual void GetMargins() {}

    /// Lines of the present font lie so far apart, including what a table or text adds to the current
    /// position.
    virtual double lineHeight() const { return FontSize * 1.2 * 20; }

    /// Of a text in the present font, as far as the document knows.
    virtual double lengthOf(std::string_view text) const {
        return static_cast<double>(text.size()) * FontSize * usualCharacter * 20;
    }

    double textWidth() const { return PageWidth - MarginLeft - MarginRight; }
    /// Running texts stand half an inch from the edges of the paper, in narrower margins at the margin.
    double headerTop() const { return MarginTop < runningInset ? MarginTop : runningInset; }
    double footerBottom() const { return MarginBottom < runningInset ? MarginBottom : runningInset; }
    /// Where a text below the header may start.
    double headerBottom() const { return headerTop() + HdrFontSize * runningLine + 90; }

  protected:
    static constexpr double usualCharacter = 0.56; // of the font's size
    static constexpr double runningInset = 720;
    static constexpr double runningLine = 24; // twips of a line for each point of the font

    /// With margins that leave room for text.
    explicit ReportDocument(const PageSetup& setup) : ReportDocument(Settled{setup.settled()}) {}

  private:
    struct Settled {
        PageSetup page;
    };
    explicit ReportDocument(const Settled& settled)
        : PageWidth(settled.page.width), PageHeight(settled.page.height), MarginLeft(settled.page.left),
          MarginTop(settled.page.top), MarginRight(settled.page.right), MarginBottom(settled.page.bottom) {}
};

} // namespace metrisk
