#include "reports/PagedDocument.h"

#include "drawing/SubSurface.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr double twipsPerInch = 1440;
constexpr double unitsPerTwip = 96 / twipsPerInch; // of a surface in natural size
constexpr double leastBody = 2 * twipsPerInch;
constexpr double bodyGap = 120;       // between a running text and the body
constexpr double smallPrint = 500;    // three lines of seven points
constexpr double leastSmallPrint = 3; // points
constexpr Colour hairline{170, 174, 179};
constexpr double sectionHeadingSize = 14;
constexpr double headingSize = 11;
constexpr std::size_t longestPiece = 256; // bytes

/// Room left by two margins on a length, both narrowed alike where too little is left.
void narrow(double length, double& one, double& other) {
    one = std::max(0.0, one);
    other = std::max(0.0, other);
    const double most = std::max(0.0, length - leastBody);
    if (one + other > most) {
        const double share = most / (one + other);
        one *= share;
        other *= share;
    }
}

std::size_t characterEnd(std::string_view text, std::size_t at) {
    do ++at;
    while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
    return at;
}

void draw(DrawingSurface& page, const PlacedText& placed) {
    page.Font = placed.font;
    page.ForeColor = placed.colour;
    page.CurrentX = placed.x;
    page.CurrentY = placed.y;
    page.Print(placed.text);
}

void draw(DrawingSurface& page, const PlacedRule& rule) {
    page.DrawWidth = 1;
    page.Line(rule.x1, rule.y1, rule.x2, rule.y2, rule.colour);
}

void draw(DrawingSurface& page, const PlacedPicture& placed) {
    SubSurface surface(page, {placed.x, placed.y}, placed.width, placed.height);
    placed.picture.paint(surface);
}

} // namespace

PageSetup PageSetup::settled() const {
    PageSetup setup = *this;
    narrow(setup.width, setup.left, setup.right);
    narrow(setup.height, setup.top, setup.bottom);
    return setup;
}

void drawPage(DrawingSurface& surface, const PagedReport& report, std::size_t number) {
    const double zoom = surface.deviceWidth() / (report.setup.width * unitsPerTwip);
    SubSurface page(surface, {0, 0}, surface.deviceWidth(), surface.deviceHeight(), zoom);
    page.BackColor = white;
    page.Cls();
    page.Scale(0, 0, report.setup.width, report.setup.height);
    if (number >= report.pages.size()) return;
    for (const Placed& item : report.pages[number])
        std::visit([&](const auto& placed) { draw(page, placed); }, item);
}

PagedDocument::PagedDocument(DrawingSurface& metrics, const PageSetup& setup)
    : ReportDocument(setup), metrics_(metrics) {
    report_.setup = setup.settled();
    metrics_.Scale(0, 0, PageWidth, PageHeight);
}

void PagedDocument::StartDoc() {
    beginPage();
}

void PagedDocument::EndDoc() {
    placeRunningTexts();
}

void PagedDocument::NewPage() {
    placeRunningTexts();
    beginPage();
    heading_.reset();
    tableHeading_.reset();
}

double PagedDocument::measure(std::string_view text, const TextFont& font) const {
    metrics_.Font = font;
    return metrics_.TextWidth(text);
}

double PagedDocument::lineHeight() const {
    metrics_.Font = font();
    return metrics_.TextHeight();
}

TextFont PagedDocument::font() const {
    return {.Size = FontSize, .Bold = FontBold, .Fixed = false, .Italic = false, .Family = FontName};
}

/// A header in a narrow margin pushes the body down.
double PagedDocument::bodyTop() const {
    return std::max(MarginTop, headerTop() + HdrFontSize * runningLine + bodyGap);
}

/// Below it there is room for the footer, and above that for the small print.
double PagedDocument::bodyBottom() const {
    return std::min(PageHeight - MarginBottom, footerTop() - bodyGap - smallPrint);
}

double PagedDocument::footerTop() const {
    return PageHeight - footerBottom() - HdrFontSize * runningLine;
}

void PagedDocument::beginPage() {
    report_.pages.emplace_back();
    CurrentY = bodyTop();
    CurrentX = lineStart_ = MarginLeft + IndentLeft;
}

/// At a page's end, when its texts are known.
void PagedDocument::placeRunningTexts() {
    placeRunning(Header, headerTop());
    if (!Header.empty()) {
        const double below = headerTop() + HdrFontSize * runningLine + bodyGap / 3;
        report_.pages.back().push_back(
            PlacedRule{MarginLeft, below, MarginLeft + textWidth(), below, hairline});
    }
    placeRunning(Footer, footerTop());
}

void PagedDocument::placeRunning(std::string_view text, double y) {
    if (text.empty()) return;
    const TextFont running{.Size = HdrFontSize,
                           .Bold = HdrFontBold,
                           .Fixed = false,
                           .Italic = HdrFontItalic,
                           .Family = HdrFontName};
    const RunningFields fields = runningFields(text, std::to_string(report_.pages.size()));
    const auto put = [&](const std::string& field, double share) {
        if (field.empty()) return;
        const double width = measure(field, running);
        const double x = MarginLeft + (textWidth() - width) * share;
        place(x, y, field, running);
        if (HdrFontUnderline) {
            const double below = y + HdrFontSize * 22;
            report_.pages.back().push_back(PlacedRule{x, below, x + width, below});
        }
    };
    put(fields.left, 0);
    put(fields.centre, 0.5);
    put(fields.right, 1);
}

void PagedDocument::place(double x, double y, const std::string& text, const TextFont& itsFont,
                          Colour colour) {
    if (!text.empty()) report_.pages.back().push_back(PlacedText{x, y, text, itsFont, colour});
}

void PagedDocument::bookmark(const std::string& title, int level) {
    report_.bookmarks.push_back({title, level, report_.pages.size() - 1, CurrentY});
}

void PagedDocument::need(double height) {
    if (CurrentY + height <= bodyBottom() || CurrentY <= bodyTop()) return;
    std::vector<Placed>& full = report_.pages.back();
    std::vector<Placed> moved;
    double shift = 0;
    const double after = CurrentY;
    const bool comesAlong = heading_ && heading_->y > bodyTop();
    if (comesAlong) {
        const auto first = full.begin() + static_cast<std::ptrdiff_t>(heading_->firstItem);
        moved.assign(first, full.end());
        full.erase(first, full.end());
        shift = heading_->y - bodyTop();
    }
    placeRunningTexts();
    beginPage();
    if (!comesAlong) return;
    for (Placed& item : moved) {
        if (auto* text = std::get_if<PlacedText>(&item)) text->y -= shift;
        if (auto* rule = std::get_if<PlacedRule>(&item)) {
            rule->y1 -= shift;
            rule->y2 -= shift;
        }
    }
    report_.pages.back() = std::move(moved);
    for (std::size_t i = heading_->firstBookmark; i < report_.bookmarks.size(); ++i) {
        ++report_.bookmarks[i].page;
        report_.bookmarks[i].y -= shift;
    }
    CurrentY = after - shift;
    heading_->firstItem = 0;
    heading_->y = bodyTop();
    if (tableHeading_) tableHeading_->below = CurrentY;
}

void PagedDocument::keepWithNext() {
    if (!heading_) heading_ = Heading{report_.pages.back().size(), report_.bookmarks.size(), CurrentY};
}

std::vector<std::string> PagedDocument::wrapped(std::string_view text, double width) const {
    std::vector<std::string> lines;
    const TextFont itsFont = font();
    const double blank = measure(" ", itsFont);
    while (true) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view rest = text.substr(0, end);
        std::string line;
        double used = 0;
        while (!rest.empty()) {
            const std::size_t blanks = std::min(rest.find_first_not_of(' '), rest.size());
            std::size_t wordEnd = std::min(rest.find(' ', blanks), rest.size());
            // What no line has room for comes by pieces: a page of text without a blank is no reason to wait.
            if (wordEnd > blanks + longestPiece) wordEnd = characterEnd(rest, blanks + longestPiece - 1);
            const std::string_view word = rest.substr(blanks, wordEnd - blanks);
            const double wordWidth = measure(word, itsFont);
            const double gap = static_cast<double>(blanks) * blank;
            if (used + gap + wordWidth <= width) {
                line.append(blanks, ' ').append(word);
                used += gap + wordWidth;
                rest.remove_prefix(wordEnd);
                continue;
            }
            if (used > 0) { // the word goes to the next line, the blanks before it stay behind
                lines.push_back(std::move(line));
                line.clear();
                used = 0;
                rest.remove_prefix(blanks);
                continue;
            }
            // A word wider than the line: as many characters as it takes, found by halving.
            std::vector<std::size_t> ends;
            for (std::size_t at = 0; at < word.size();) ends.push_back(at = characterEnd(word, at));
            const auto tooWide = std::partition_point(ends.begin() + 1, ends.end(), [&](std::size_t length) {
                return measure(word.substr(0, length), itsFont) <= width;
            });
            const std::size_t taken = *(tooWide - 1);
            lines.emplace_back(word.substr(0, taken));
            rest.remove_prefix(blanks + taken);
        }
        lines.push_back(std::move(line));
        if (end == text.size()) return lines;
        text.remove_prefix(end + 1);
    }
}

void PagedDocument::Text(std::string_view text) {
    const double height = lineHeight();
    tableHeading_.reset();
    if (text == "\n") {
        CurrentY += height;
        return;
    }
    const bool moved = CurrentX != lineStart_;
    const double x = moved ? CurrentX : MarginLeft + IndentLeft;
    const std::vector<std::string> lines =
        wrapped(text, std::max(PageWidth - MarginRight - x, twipsPerInch / 2));
    if (FontBold) {
        need(height);
        keepWithNext();
        if (FontSize >= headingSize) bookmark(std::string(text), FontSize < sectionHeadingSize);
    }
    // A paragraph begins with two lines on a page.
    need(height * static_cast<double>(std::min<std::size_t>(lines.size(), 2)));
    for (const std::string& line : lines) {
        need(height);
        place(x, CurrentY, line, font());
        CurrentY += height;
        if (!FontBold) contentPlaced();
    }
    CurrentX = lineStart_ = MarginLeft + IndentLeft;
}

void PagedDocument::SmallPrint(std::string_view text) {
    std::vector<std::string> lines = wrapped(text, textWidth());
    while (static_cast<double>(lines.size()) * lineHeight() > smallPrint && FontSize > leastSmallPrint) {
        FontSize -= 0.5;
        lines = wrapped(text, textWidth());
    }
    double y = footerTop() - bodyGap / 2 - static_cast<double>(lines.size()) * lineHeight();
    for (const std::string& line : lines) {
        place(MarginLeft, y, line, font());
        y += lineHeight();
    }
}

void PagedDocument::DrawLine(double x1, double y1, double x2, double y2) {
    if (std::max(y1, y2) > bodyBottom()) {
        need(PageHeight);
        y1 = y2 = CurrentY;
    }
    report_.pages.back().push_back(PlacedRule{x1, y1, x2, y2});
}

void PagedDocument::DrawPicture(const ReportPicture& picture, double x, double y, double width,
                                double height) {
    const double gap = std::max(0.0, y - CurrentY);
    need(gap + height);
    y = CurrentY + gap;
    const double room = bodyBottom() - y;
    if (height > room && room > 0) { // smaller, in its proportions
        x += width * (1 - room / height) / 2;
        width *= room / height;
        height = room;
    }
    report_.pages.back().push_back(PlacedPicture{picture, x, y, width, height});
    CurrentY = y + height;
    contentPlaced();
}

} // namespace metrisk
