// A report as Rich Text, for word processors.
#pragma once

#include "reports/PageSetup.h"
#include "reports/ReportDocument.h"
#include "reports/TableMarkup.h"

namespace metrisk {

/// The PNG of a picture in so many pixels.
using PngMaker = std::function<std::string(const ReportPicture& picture, int width, int height)>;

/// The running texts come by ExportRaw (see RunningText.h), at first with the prologue of the file; another
/// page is another section, with running texts of its own if they differ.
class RichTextDocument final : public ReportDocument {
  public:
    /// `title` names the document in its properties.
    RichTextDocument(const PageSetup& setup, std::string title, PngMaker png);

    void StartDoc() override;
    void EndDoc() override;
    void NewPage() override;
    void Text(std::string_view text) override;
    void Table(std::string_view markup) override;
    void BeginBlock(double) override { together_ = true; }
    void EndBlock() override { together_ = false; }
    void DrawLine(double x1, double y1, double x2, double y2) override;
    void DrawPicture(const ReportPicture& picture, double x, double y, double width, double height) override;
    void ExportRaw(std::string_view raw) override;

    /// The whole file, after EndDoc.
    const std::string& bytes() const { return bytes_; }

  private:
    std::string title_;
    PngMaker png_;
    std::string bytes_;
    double placedY_ = 0; // CurrentY as the last operation left it
    bool inBody_ = false;
    bool together_ = false; // with what follows, on one page
    bool afterHeading_ = false;

    void beginBody();
    std::string tabs() const;
    std::string alignmentOf(const TableMarkup& table, std::size_t column, const std::string& text) const;
    double widthOf(std::string_view figure) const;
    std::string fontWords() const;
    /// Begins a paragraph: its indent, and the space above it that a move of CurrentY asks for.
    void paragraph(std::string_view words);
};

/// The text with all that Rich Text would read otherwise written out: braces, backslashes, characters beyond
/// ASCII.
std::string richText(std::string_view text);

} // namespace metrisk
