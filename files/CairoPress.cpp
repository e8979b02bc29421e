#include "files/CairoPress.h"

#include "drawing/SubSurface.h"
#include "files/CairoSurface.h"
#include "files/PictureFile.h"

#include <cairo-pdf.h>
#include <cmath>
#include <cstdio>

namespace metrisk {

namespace {

constexpr double unitsPerTwip = 96.0 / 1440;
constexpr double pictureScale = 2; // of a PNG's texts, whose pixels are finer than the screen's

/// A PDF that nobody writes, whose texts measure as those of one that is written.
struct Measure {
    using Sheet = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
    using Pen = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

    Sheet sheet;
    Pen pen;
    CairoSurface surface;

    Measure(double width, double height)
        : sheet(cairo_pdf_surface_create_for_stream(nullptr, nullptr, width, height), cairo_surface_destroy),
          pen(cairo_create(sheet.get()), cairo_destroy), surface(pen.get(), width, height) {}
};

std::string isoTime(const Moment& moment) {
    const auto seconds = static_cast<int>(std::lround(moment.time * 86400)) % 86400;
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", moment.year, moment.month, moment.day,
                  seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text;
}

} // namespace

std::shared_ptr<DrawingSurface> CairoPress::metrics(const PageSetup& page) const {
    const auto measure = std::make_shared<Measure>(page.width * unitsPerTwip, page.height * unitsPerTwip);
    return {measure, &measure->surface};
}

std::string CairoPress::pdf(const PagedReport& report, const std::string& title,
                            const Moment& created) const {
    DocumentFacts facts{.title = title, .created = isoTime(created), .outline = {}};
    for (const Bookmark& bookmark : report.bookmarks)
        facts.outline.push_back(
            {bookmark.title, bookmark.level, bookmark.page, bookmark.y / report.setup.height});
    std::vector<std::function<void(DrawingSurface&)>> pages;
    for (std::size_t i = 0; i < report.pages.size(); ++i)
        pages.emplace_back([&report, i](DrawingSurface& surface) { drawPage(surface, report, i); });
    const PaperSize size{report.setup.width * unitsPerTwip, report.setup.height * unitsPerTwip};
    return documentBytes(size, facts, pages);
}

std::string CairoPress::png(const ReportPicture& picture, int width, int height) const {
    return pictureBytes(PictureFormat::Png, {width, height}, picture.description, [&](DrawingSurface& whole) {
        SubSurface surface(whole, {0, 0}, width, height, pictureScale);
        surface.Cls();
        picture.paint(surface);
    });
}

} // namespace metrisk
