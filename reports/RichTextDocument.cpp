#include "reports/RichTextDocument.h"

#include "base/Text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace metrisk {

namespace {

constexpr double pixelsPerTwip = 96.0 / 1440;
constexpr double rowPitch = 26.2; // twips of a row for each point of its font
constexpr double printScale = 2;  // pictures have room for a printer's resolution

std::string number(double value) {
    return std::to_string(static_cast<long>(std::lround(value)));
}

/// The next character of valid UTF-8, which the text loses.
std::uint32_t takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) -> std::uint32_t { return static_cast<unsigned char>(text[i]); };
    const std::uint32_t first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    std::uint32_t value = length == 1 ? first : first & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) value = value << 6 | (byte(i) & 0x3F);
    text.remove_prefix(length);
    return value;
}

std::string unicodeWord(std::uint32_t unit) {
    const int value = unit > 0x7FFF ? static_cast<int>(unit) - 0x10000 : static_cast<int>(unit);
    return "\\u" + std::to_string(value) + "?";
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    constexpr std::size_t bytesPerLine = 64;
    std::string text;
    text.reserve(bytes.size() * 2 + bytes.size() / bytesPerLine);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i % bytesPerLine == 0) text += '\n';
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

} // namespace

std::string richText(std::string_view given) {
    const std::string valid = toUtf8(std::string(given));
    std::string_view text = valid;
    std::string rich;
    while (!text.empty()) {
        const std::uint32_t c = takeCharacter(text);
        if (c == '\\' || c == '{' || c == '}') {
            rich += '\\';
            rich += static_cast<char>(c);
        } else if (c == '\n') {
            rich += "\\line ";
        } else if (c == '\t') {
            rich += "\\tab ";
        } else if (c >= 0x10000) {
            rich +=
                unicodeWord(0xD800 + ((c - 0x10000) >> 10)) + unicodeWord(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else if (c >= 0x80) {
            rich += unicodeWord(c);
        } else if (c >= 0x20) {
            rich += static_cast<char>(c);
        }
    }
    return rich;
}

RichTextDocument::RichTextDocument(const PageSetup& setup, std::string title, PngMaker png)
    : ReportDocument(setup), title_(std::move(title)), png_(std::move(png)) {
    ExportFormat = ReportFormat::RichText;
}

void RichTextDocument::StartDoc() {
    bytes_ = "{";
}

void RichTextDocument::EndDoc() {
    beginBody();
    bytes_ += "}\n";
}

void RichTextDocument::ExportRaw(std::string_view raw) {
    bytes_ += raw;
    bytes_ += '\n';
}

/// What the file says of itself comes behind the first running texts.
void RichTextDocument::beginBody() {
    if (inBody_) return;
    inBody_ = true;
    // Some word processors forget the prologue's tabs within the running texts; those of the style they keep.
    bytes_ += "{\\colortbl;\\red90\\green96\\blue104;}\n{\\stylesheet{\\s0\\b0" + tabs() +
              " Normal;}}\n{\\info{\\title " + richText(title_) + "}}\n\\paperw" + number(PageWidth) +
              "\\paperh" + number(PageHeight) + "\\margl" + number(MarginLeft) + "\\margr" +
              number(MarginRight) + "\\margt" + number(MarginTop) + "\\margb" + number(MarginBottom) + "\n";
    placedY_ = CurrentY;
}

void RichTextDocument::NewPage() {
    beginBody();
    bytes_ += "\\sect\\sectd\n\\pard\\plain" + tabs() + (HdrFontBold ? "\\b" : "") + "\n";
    placedY_ = CurrentY;
}

/// Stops and font of the running texts.
std::string RichTextDocument::tabs() const {
    return "\\tqc\\tx" + number(textWidth() / 2) + "\\tqr\\tx" + number(textWidth()) + "\\f999\\fs" +
           number(2 * HdrFontSize);
}

std::string RichTextDocument::fontWords() const {
    return "\\f999\\fs" + number(2 * FontSize) + (FontBold ? "\\b" : "\\b0");
}

void RichTextDocument::paragraph(std::string_view words) {
    beginBody();
    bytes_ += "\\pard\\plain" + fontWords() + "\\li" + number(IndentLeft);
    if (CurrentY > placedY_) bytes_ += "\\sb" + number(CurrentY - placedY_);
    placedY_ = CurrentY;
    bytes_ += words;
    bytes_ += ' ';
}

void RichTextDocument::Text(std::string_view text) {
    // A heading stays with its first lines, an empty one between them as well.
    const bool empty = text == "\n";
    const bool heads = FontBold || (empty && afterHeading_);
    paragraph(heads || together_ ? "\\keepn" : "");
    bytes_ += (empty ? "" : richText(text)) + "\\par\n";
    afterHeading_ = heads;
}

/// Centred columns of figures stand by their decimal marks. A word processor takes the comma for one only
/// where its language does.
std::string RichTextDocument::alignmentOf(const TableMarkup& table, std::size_t column,
                                          const std::string& text) const {
    if (!table.columns[column].centred) return "\\ql";
    const auto parts = figureParts(text);
    if (FontBold || !table.standsByMarks(column) || !parts || parts->after.starts_with(',')) return "\\qc";
    double before = 0, after = 0;
    for (const auto& row : table.rows)
        if (const auto each = figureParts(row[column])) {
            before = std::max(before, widthOf(each->before));
            after = std::max(after, widthOf(each->after));
        }
    return "\\ql\\tqdec\\tx" + number((table.columns[column].width + before - after) / 2);
}

/// Of the letters of figures, in shares that most fonts have.
double RichTextDocument::widthOf(std::string_view figure) const {
    constexpr double digit = 0.556, mark = 0.278;
    double width = 0;
    for (const char c : figure) width += c == '.' || c == ',' || c == ':' ? mark : digit;
    return width * FontSize * 20;
}

void RichTextDocument::Table(std::string_view markup) {
    beginBody();
    TableMarkup table = readTable(markup);
    if (const double room = textWidth() - IndentLeft; table.width() > room)
        for (const double share = room / table.width(); TableColumn & column : table.columns)
            column.width *= share;
    if (CurrentY > placedY_ && afterHeading_) // of an empty line as high as that
        bytes_ += "\\pard\\plain\\keepn\\fs2\\sl-" + number(CurrentY - placedY_) + "\\slmult0 \\par\n";
    afterHeading_ = false;
    for (const auto& row : table.rows) {
        bytes_ += "\\trowd\\trgaph0\\trkeep" + std::string(FontBold ? "\\trhdr" : "") + "\\trrh" +
                  number(FontSize * rowPitch) + "\\trleft" + number(IndentLeft);
        double edge = IndentLeft;
        const bool underlined = FontBold && table.columns.size() > 1 && &row == &table.rows.back();
        for (const TableColumn& column : table.columns)
            bytes_ += (underlined ? "\\clbrdrb\\brdrs\\brdrw10" : "") + std::string("\\clvertalc\\cellx") +
                      number(edge += column.width);
        bytes_ += '\n';
        for (std::size_t i = 0; i < row.size(); ++i)
            bytes_ += "\\pard\\plain\\intbl" + std::string(FontBold || together_ ? "\\keepn" : "") +
                      fontWords() + alignmentOf(table, i, row[i]) +
                      (i == 0 && !FontBold && table.namesValues() ? "\\cf1 " : " ") + richText(row[i]) +
                      "\\cell\n";
        bytes_ += "\\row\n";
    }
    placedY_ = CurrentY;
}

void RichTextDocument::DrawLine(double, double, double, double) {
    beginBody();
    bytes_ += "\\pard\\plain" + std::string(together_ ? "\\keepn" : "") +
              "\\fs4\\brdrb\\brdrs\\brdrw10\\brsp20 \\par\n";
    placedY_ = CurrentY;
}

void RichTextDocument::DrawPicture(const ReportPicture& picture, double, double, double width,
                                   double height) {
    const int across = static_cast<int>(std::lround(width * pixelsPerTwip * printScale));
    const int down = static_cast<int>(std::lround(height * pixelsPerTwip * printScale));
    paragraph("\\qc");
    bytes_ += "{\\pict\\pngblip\\picw" + std::to_string(across) + "\\pich" + std::to_string(down) +
              "\\picwgoal" + number(width) + "\\pichgoal" + number(height) +
              hexadecimal(png_(picture, across, down)) + "}\\par\n";
}

} // namespace metrisk
