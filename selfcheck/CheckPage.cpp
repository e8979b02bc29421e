#include "selfcheck/CheckPage.h"

#include "base/AtomicFile.h"
#include "base/Digest.h"
#include "base/NumberFormat.h"
#include "drawing/DrawingSurface.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace metrisk {

namespace {

constexpr std::size_t largestProgram = 1u << 30;

std::string processor() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);)
        if (line.starts_with("model name")) return line.substr(line.find(':') + 2);
    return "unknown";
}

std::string cell(std::string text, std::size_t width) {
    if (text.size() >= width) text.resize(width - 1);
    text.resize(width, ' ');
    return text;
}

/// Enough digits to compare with the printed ones.
std::string figureText(const std::optional<double>& value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.12g", value.value_or(0));
    return value ? text : "-";
}

const std::string columns = cell("Case", 28) + cell("Figure", 18) + cell("Printed", 18) +
                            cell("Computed", 18) + cell("Exact", 18) + "Result";

std::string row(const CheckedFigure& each) {
    return cell(each.name, 28) + cell(each.figure, 18) + cell(each.printed, 18) +
           cell(figureText(each.computed), 18) + cell(figureText(each.exact), 18) + wordOf(each.verdict);
}

} // namespace

CheckHeading checkHeading(std::string_view data, const Moment& now, const Regional& regional) {
    const auto program = readWholeFile("/proc/self/exe", largestProgram);
    return {{"Program", "Metrisk " METRISK_VERSION},
            {"Compiler", METRISK_COMPILER},
            {"Processor", processor()},
            {"Date", longDate(now) + " " + FormatNumber(now.time, "h:mm AM/PM", regional)},
            {"Program file", program ? sha256(*program) : "cannot be read"},
            {"Data", sha256(data)}};
}

bool allPassed(const std::vector<CheckedFigure>& figures) {
    return !figures.empty() && std::ranges::none_of(figures, [](const CheckedFigure& each) {
        return each.verdict == CheckVerdict::Diff;
    });
}

std::string checkSummary(const std::vector<CheckedFigure>& figures) {
    std::string summary;
    for (const CheckVerdict verdict : {CheckVerdict::Pass, CheckVerdict::Note, CheckVerdict::Diff}) {
        const auto count = std::ranges::count(figures, verdict, &CheckedFigure::verdict);
        summary += (summary.empty() ? "" : ", ") + std::to_string(count) + " " + wordOf(verdict);
    }
    return summary;
}

std::string checkText(const CheckHeading& heading, const std::vector<CheckedFigure>& figures) {
    std::string text = "Self-check\n";
    for (const auto& [name, value] : heading) text += "  " + cell(name, 14) + value + "\n";
    text += "\n" + columns + "\n";
    std::string source;
    for (const CheckedFigure& each : figures) {
        if (each.source != source) text += "\n" + each.source + "\n";
        source = each.source;
        text += row(each) + "\n";
    }
    return text + "\n" + checkSummary(figures) + "\n";
}

std::vector<std::function<void(DrawingSurface&)>> checkPages(const CheckHeading& heading,
                                                             const std::vector<CheckedFigure>& figures) {
    constexpr std::size_t linesAPage = 88;
    std::vector<std::string> lines;
    std::string all = checkText(heading, figures);
    all += "\nPASS: rounds to the figure as printed. NOTE: within what the source itself is good to. Exact: "
           "by a second,"
           "\nindependent integration.\n";
    for (std::size_t at = 0; at < all.size();) {
        const std::size_t end = all.find('\n', at);
        lines.push_back(all.substr(at, end - at));
        at = end + 1;
    }
    std::vector<std::function<void(DrawingSurface&)>> pages;
    const std::size_t count = (lines.size() + linesAPage - 1) / linesAPage;
    for (std::size_t page = 0; page < count; ++page) {
        const auto first = lines.begin() + static_cast<std::ptrdiff_t>(page * linesAPage);
        const auto last =
            first + static_cast<std::ptrdiff_t>(std::min(linesAPage, lines.size() - page * linesAPage));
        std::vector<std::string> own(first, last);
        own.push_back("");
        own.push_back("Page " + std::to_string(page + 1) + " of " + std::to_string(count));
        pages.push_back([own = std::move(own)](DrawingSurface& surface) {
            constexpr double margin = 48;
            surface.Font = {.Size = 6.5, .Bold = false, .Fixed = true};
            double y = margin;
            for (const std::string& line : own) {
                surface.CurrentX = margin;
                surface.CurrentY = y;
                surface.Print(line);
                y += surface.TextHeight();
            }
        });
    }
    return pages;
}

} // namespace metrisk
