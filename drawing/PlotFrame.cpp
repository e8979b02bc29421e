#include "drawing/PlotFrame.h"

#include "drawing/PlotScale.h"

#include <algorithm>
#include <sstream>

namespace metrisk {

namespace {

const TextFont titleFont{.Size = 10, .Bold = true};
constexpr double axisTitles = 1.8; // lines of the surface's font, up to the lower edge of the title

/// Both margins of one direction, in shares of the plot between them.
void widen(double size, double needBefore, double needAfter, double& before, double& after) {
    if (!(size > 0)) return;
    const double whole = 1 + before + after;
    double a = std::max(before / whole * size, needBefore);
    double b = std::max(after / whole * size, needAfter);
    const double most = size * 2 / 3;
    if (const double both = a + b; both > most) {
        a *= most / both;
        b *= most / both;
    }
    const double plot = size - a - b;
    before = a / plot;
    after = b / plot;
}

} // namespace

PlotFrame setFrame(DrawingSurface& surface, const PlotFrame& usual, const TextRoom& needed) {
    double left = -usual.left, right = usual.right - 1, top = usual.top - 1, bottom = -usual.bottom;
    widen(surface.deviceWidth(), needed.left, needed.right, left, right);
    widen(surface.deviceHeight(), needed.bottom, needed.top, bottom, top);
    const PlotFrame frame{-left, 1 + top, 1 + right, -bottom};
    surface.Scale(frame.left, frame.top, frame.right, frame.bottom);
    return frame;
}

std::vector<std::string> titleLines(DrawingSurface& surface, const std::string& title, double room) {
    const TextFont before = surface.Font;
    surface.Font = titleFont;
    std::vector<std::string> pieces;
    std::size_t from = 0;
    for (std::size_t at = title.find(' '); at != title.npos; at = title.find(' ', at + 1)) {
        const std::string rest = title.substr(at + 1);
        if (!rest.starts_with("vs.") && !rest.starts_with("(")) continue;
        pieces.push_back(title.substr(from, at - from));
        from = at + 1;
    }
    pieces.push_back(title.substr(from));
    const auto fits = [&](const std::string& text) {
        return surface.deviceLengthX(surface.TextWidth(text)) <= room;
    };
    std::vector<std::string> lines;
    const auto add = [&](const std::string& text) {
        if (!lines.empty() && fits(lines.back() + " " + text))
            lines.back() += " " + text;
        else
            lines.push_back(text);
    };
    for (const std::string& piece : pieces) {
        if (fits(piece)) {
            add(piece);
            continue;
        }
        std::istringstream words(piece);
        for (std::string word; words >> word;) add(word);
    }
    surface.Font = before;
    return lines;
}

void drawTitle(DrawingSurface& surface, const PlotFrame& frame, const std::vector<std::string>& lines) {
    const double above = 1 - axisTitles * surface.TextHeight();
    const TextFont before = surface.Font;
    surface.Font = titleFont;
    double line = -static_cast<double>(lines.size());
    for (const std::string& text : lines)
        PrintCentredAt(surface, text, (frame.left + frame.right) / 2, above, line++);
    surface.Font = before;
}

double titleRoom(DrawingSurface& surface, std::size_t lines) {
    const double axis = axisTitles * surface.deviceLengthY(surface.TextHeight());
    const TextFont before = surface.Font;
    surface.Font = titleFont;
    const double title = static_cast<double>(lines) * surface.deviceLengthY(surface.TextHeight());
    surface.Font = before;
    return axis + title + 2;
}

} // namespace metrisk
