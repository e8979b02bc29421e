#include "reports/HtmlDocument.h"

#include "base/Digest.h"
#include "base/Text.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double pixelsPerTwip = 96.0 / 1440;
constexpr double printScale = 2;
constexpr double firstHeading = 14; // points
constexpr double secondHeading = 11;

std::string escaped(std::string_view given) {
    std::string html;
    for (const char c : toUtf8(std::string(given))) {
        switch (c) {
        case '&': html += "&amp;"; break;
        case '<': html += "&lt;"; break;
        case '>': html += "&gt;"; break;
        case '"': html += "&quot;"; break;
        case '\n': html += "<br>"; break;
        default:
            if (static_cast<unsigned char>(c) >= 0x20 || c == '\t') html += c;
        }
    }
    return html;
}

std::string pixels(double twips) {
    return std::to_string(std::lround(twips * pixelsPerTwip)) + "px";
}

/// A font family as CSS has it, in single quotes.
std::string familyOf(const std::string& name) {
    std::string family;
    for (const char c : name)
        if (c != '\'' && c != '\\' && c != '<' && c != '"' && c != '&') family += c;
    return "'" + family + "', sans-serif";
}

/// The rest of a cell's opening and what it holds. Figures stand right, the stars of a remark behind them.
std::string cellContent(const TableMarkup& table, std::size_t column, const std::string& text) {
    const auto parts = figureParts(text);
    if (!parts || !table.standsByMarks(column))
        return (table.columns[column].centred ? " class=\"c\">" : ">") + escaped(text);
    const std::string stars = parts->stars.empty() ? "" : "<span>" + parts->stars + "</span>";
    return " class=\"f\">" + escaped(parts->before + parts->after) + stars;
}

/// Points, with a half where it has one.
std::string points(double size) {
    const long halves = std::lround(2 * size);
    return std::to_string(halves / 2) + (halves % 2 ? ".5pt" : "pt");
}

} // namespace

HtmlDocument::HtmlDocument(const PageSetup& setup, std::string title, PngMaker png)
    : ReportDocument(setup), title_(std::move(title)), png_(std::move(png)) {
    ExportFormat = ReportFormat::Html;
}

void HtmlDocument::StartDoc() {
    bytes_ = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
             escaped(title_) +
             "</title>\n<style>\n"
             "body { max-width: " +
             pixels(textWidth()) + "; margin: 2em auto; padding: 0 1em; font: 10pt " + familyOf(FontName) +
             "; color: #000; background: #fff; }\n"
             "p, h1, h2 { margin: 0; font-weight: normal; white-space: pre-wrap; overflow-wrap: anywhere; }\n"
             "h1, h2, .b { font-weight: bold; break-after: avoid; }\n"
             ".k, tr { break-inside: avoid; }\n"
             "hr { border: 0; border-top: 1px solid #000; }\n"
             "header { display: flex; justify-content: space-between; font-weight: bold; margin-bottom: 1em; "
             "border-bottom: 1px solid #aaaeb3; }\n"
             "section + section { margin-top: 4em; break-before: page; }\n"
             "table { border-collapse: collapse; table-layout: fixed; margin: 0; }\n"
             "td, th { text-align: left; vertical-align: top; padding: 1px 4px 1px 0; font-weight: normal; "
             "overflow-wrap: anywhere; }\n"
             "th { font-weight: bold; }\n"
             "thead tr:last-child th { border-bottom: 1px solid #000; }\n"
             ".c { text-align: center; }\n"
             ".f { text-align: right; padding-right: 30%; font-variant-numeric: tabular-nums; }\n"
             ".f span { position: absolute; white-space: pre; }\n"
             "@media print { body { max-width: none; margin: 0; padding: 0; } }\n"
             "img { max-width: 100%; height: auto; }\n"
             "</style>\n</head>\n<body>\n<section>\n";
    placedY_ = CurrentY;
}

void HtmlDocument::EndDoc() {
    closeHeading();
    bytes_ += "</section>\n</body>\n</html>\n";
}

void HtmlDocument::NewPage() {
    closeHeading();
    bytes_ += "</section>\n<section>\n";
    shownHeader_.clear();
    placedY_ = CurrentY;
}

void HtmlDocument::beginSection() {
    closeHeading();
    if (Header == shownHeader_) return;
    shownHeader_ = Header;
    placedY_ = CurrentY;
    const RunningFields fields = runningFields(Header, "");
    bytes_ += "<header style=\"font-size: " + std::to_string(std::lround(HdrFontSize)) + "pt\"><span>" +
              escaped(fields.left) + "</span><span>" + escaped(fields.centre) + "</span><span>" +
              escaped(fields.right) + "</span></header>\n";
}

std::string HtmlDocument::spaceAbove() {
    const double moved = std::max(0.0, CurrentY - placedY_);
    placedY_ = CurrentY;
    std::string style = "font-size: " + points(FontSize);
    if (IndentLeft > 0) style += "; margin-left: " + pixels(IndentLeft);
    if (moved > 0) style += "; margin-top: " + pixels(moved);
    return " style=\"" + style + "\"";
}

void HtmlDocument::Text(std::string_view text) {
    beginSection();
    const std::string style = spaceAbove();
    if (text == "\n") {
        bytes_ += "<p" + style + ">&nbsp;</p>\n";
        return;
    }
    const std::string tag = !FontBold                   ? "p"
                            : FontSize >= firstHeading  ? "h1"
                            : FontSize >= secondHeading ? "h2"
                                                        : "p";
    const std::string marks = FontBold && tag == "p" ? " class=\"b\"" : "";
    bytes_ += "<" + tag + marks + style + ">" + escaped(text) + "</" + tag + ">\n";
}

void HtmlDocument::writeTable(const TableMarkup& heading, const TableMarkup& body) {
    bytes_ += "<table" + spaceAbove() + ">\n<colgroup>";
    for (const TableColumn& column : body.columns)
        bytes_ += "<col style=\"width: " + pixels(column.width) + "\">";
    bytes_ += "</colgroup>\n";
    const auto rows = [&](const TableMarkup& table, const std::string& cell) {
        for (const auto& row : table.rows) {
            bytes_ += "<tr>";
            for (std::size_t i = 0; i < row.size(); ++i)
                bytes_ += "<" + cell + cellContent(table, i, row[i]) + "</" + cell + ">";
            bytes_ += "</tr>\n";
        }
    };
    if (!heading.rows.empty()) {
        bytes_ += "<thead>\n";
        rows(heading, "th");
        bytes_ += "</thead>\n";
    }
    bytes_ += "<tbody>\n";
    rows(body, "td");
    bytes_ += "</tbody>\n</table>\n";
}

/// A heading that no rows have followed is a table by itself.
void HtmlDocument::closeHeading() {
    if (!tableHeading_) return;
    TableMarkup none;
    none.columns = tableHeading_->columns;
    const TableMarkup heading = std::move(*tableHeading_);
    tableHeading_.reset();
    writeTable(heading, none);
}

void HtmlDocument::Table(std::string_view markup) {
    TableMarkup table = readTable(markup);
    TableMarkup heading;
    if (tableHeading_ && !FontBold && tableHeading_->columns == table.columns) {
        heading = std::move(*tableHeading_);
        tableHeading_.reset();
    }
    beginSection();
    if (FontBold)
        tableHeading_ = std::move(table);
    else
        writeTable(heading, table);
}

void HtmlDocument::BeginBlock(double) {
    beginSection();
    bytes_ += "<div class=\"k\">\n";
}

void HtmlDocument::EndBlock() {
    closeHeading();
    bytes_ += "</div>\n";
}

void HtmlDocument::DrawLine(double, double, double, double) {
    beginSection();
    bytes_ += "<hr>\n";
    placedY_ = CurrentY;
}

void HtmlDocument::DrawPicture(const ReportPicture& picture, double, double, double width, double height) {
    beginSection();
    const auto side = [](double twips) {
        return static_cast<int>(std::lround(twips * pixelsPerTwip * printScale));
    };
    bytes_ += "<p class=\"c\"><img alt=\"" + escaped(picture.description) + "\" width=\"" +
              std::to_string(std::lround(width * pixelsPerTwip)) + "\" height=\"" +
              std::to_string(std::lround(height * pixelsPerTwip)) + "\" src=\"data:image/png;base64," +
              base64(png_(picture, side(width), side(height))) + "\"></p>\n";
    placedY_ = CurrentY;
}

} // namespace metrisk
