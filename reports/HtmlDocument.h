// A report as one HTML file, its pictures inside.
#pragma once

#include "reports/PageSetup.h"
#include "reports/ReportDocument.h"
#include "reports/RichTextDocument.h"
#include "reports/TableMarkup.h"

#include <optional>

namespace metrisk {

/// Running texts stand once at the head of each section. The page numbers of paper have no place here.
class HtmlDocument final : public ReportDocument {
  public:
    HtmlDocument(const PageSetup& setup, std::string title, PngMaker png);

    void StartDoc() override;
    void EndDoc() override;
    void NewPage() override;
    void Text(std::string_view text) override;
    void Table(std::string_view markup) override;
    void BeginBlock(double height) override;
    void EndBlock() override;
    void DrawLine(double x1, double y1, double x2, double y2) override;
    void DrawPicture(const ReportPicture& picture, double x, double y, double width, double height) override;

    /// The whole file, after EndDoc.
    const std::string& bytes() const { return bytes_; }

  private:
    std::string title_;
    PngMaker png_;
    std::string bytes_;
    std::string shownHeader_;
    std::optional<TableMarkup> tableHeading_; // waits for its rows
    double placedY_ = 0;

    std::string spaceAbove();
    void beginSection();
    void closeHeading();
    void writeTable(const TableMarkup& heading, const TableMarkup& body);
};

} // namespace metrisk
