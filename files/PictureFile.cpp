#include "files/PictureFile.h"

#include "base/Text.h"
#include "files/CairoSurface.h"

#include <algorithm>
#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cctype>
#include <cmath>
#include <memory>
#include <stdexcept>

namespace metrisk {

namespace {

constexpr double pointsPerUnit = 72.0 / 96;

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void check(cairo_status_t status) {
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

using Sheet = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Pen = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

Sheet makeSheet(PictureFormat format, const PaperSize& size, const DocumentFacts& facts, std::string& bytes) {
    const double width = size.width * pointsPerUnit;
    const double height = size.height * pointsPerUnit;
    cairo_surface_t* made = nullptr;
    switch (format) {
    case PictureFormat::Png:
        made = cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(size.width),
                                          static_cast<int>(size.height));
        break;
    case PictureFormat::Svg: made = cairo_svg_surface_create_for_stream(append, &bytes, width, height); break;
    case PictureFormat::Pdf:
        made = cairo_pdf_surface_create_for_stream(append, &bytes, width, height);
        cairo_pdf_surface_set_metadata(made, CAIRO_PDF_METADATA_TITLE, drawableText(facts.title).c_str());
        cairo_pdf_surface_set_metadata(made, CAIRO_PDF_METADATA_CREATOR, "Metrisk");
        if (!facts.created.empty())
            cairo_pdf_surface_set_metadata(made, CAIRO_PDF_METADATA_CREATE_DATE, facts.created.c_str());
        break;
    }
    Sheet sheet(made, cairo_surface_destroy);
    check(cairo_surface_status(made));
    return sheet;
}

void addOutline(cairo_surface_t* sheet, const PaperSize& size, const std::vector<OutlineEntry>& outline) {
    std::vector<int> parents{CAIRO_PDF_OUTLINE_ROOT}; // of the levels
    for (const OutlineEntry& entry : outline) {
        const auto level = std::min(static_cast<std::size_t>(std::max(entry.level, 0)), parents.size() - 1);
        const std::string link = "page=" + std::to_string(entry.page + 1) + " pos=[0 " +
                                 std::to_string(std::lround(entry.y * size.height * pointsPerUnit)) + "]";
        const int id = cairo_pdf_surface_add_outline(sheet, parents[level], drawableText(entry.title).c_str(),
                                                     link.c_str(), CAIRO_PDF_OUTLINE_FLAG_OPEN);
        parents.resize(level + 1);
        parents.push_back(id);
    }
}

std::string sheetBytes(PictureFormat format, const PaperSize& size, const DocumentFacts& facts,
                       const std::vector<std::function<void(DrawingSurface&)>>& pages) {
    std::string bytes;
    const Sheet sheet = makeSheet(format, size, facts, bytes);
    for (const auto& paint : pages) {
        const Pen pen(cairo_create(sheet.get()), cairo_destroy);
        if (format != PictureFormat::Png) cairo_scale(pen.get(), pointsPerUnit, pointsPerUnit);
        CairoSurface surface(pen.get(), size.width, size.height);
        surface.Cls();
        paint(surface);
        check(cairo_status(pen.get()));
        if (&paint != &pages.back()) cairo_surface_show_page(sheet.get());
    }
    if (format == PictureFormat::Pdf) addOutline(sheet.get(), size, facts.outline);
    if (format == PictureFormat::Png) check(cairo_surface_write_to_png_stream(sheet.get(), append, &bytes));
    cairo_surface_finish(sheet.get());
    check(cairo_surface_status(sheet.get()));
    return bytes;
}

} // namespace

std::optional<PictureFormat> pictureFormatOf(const std::filesystem::path& path) {
    std::string extension = path.extension().string();
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (extension == ".png") return PictureFormat::Png;
    if (extension == ".svg") return PictureFormat::Svg;
    if (extension == ".pdf") return PictureFormat::Pdf;
    return {};
}

std::string pictureBytes(PictureFormat format, const PictureSize& size, const std::string& title,
                         const std::function<void(DrawingSurface&)>& paint) {
    return sheetBytes(format, {static_cast<double>(size.width), static_cast<double>(size.height)},
                      {.title = title}, {paint});
}

std::string documentBytes(const PaperSize& page, const DocumentFacts& facts,
                          const std::vector<std::function<void(DrawingSurface&)>>& pages) {
    return sheetBytes(PictureFormat::Pdf, page, facts, pages);
}

} // namespace metrisk
