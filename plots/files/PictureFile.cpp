#include "plots/files/PictureFile.h"

#include "plots/files/CairoSurface.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cctype>
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

Sheet makeSheet(PictureFormat format, const PictureSize& size, const std::string& title, std::string& bytes) {
    const double width = size.width * pointsPerUnit;
    const double height = size.height * pointsPerUnit;
    cairo_surface_t* made = nullptr;
    switch (format) {
    case PictureFormat::Png:
        made = cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height);
        break;
    case PictureFormat::Svg: made = cairo_svg_surface_create_for_stream(append, &bytes, width, height); break;
    case PictureFormat::Pdf:
        made = cairo_pdf_surface_create_for_stream(append, &bytes, width, height);
        cairo_pdf_surface_set_metadata(made, CAIRO_PDF_METADATA_TITLE, title.c_str());
        cairo_pdf_surface_set_metadata(made, CAIRO_PDF_METADATA_CREATOR, "Metrisk");
        break;
    }
    Sheet sheet(made, cairo_surface_destroy);
    check(cairo_surface_status(made));
    return sheet;
}

std::string sheetBytes(PictureFormat format, const PictureSize& size, const std::string& title,
                       const std::vector<std::function<void(DrawingSurface&)>>& pages) {
    std::string bytes;
    const Sheet sheet = makeSheet(format, size, title, bytes);
    for (const auto& paint : pages) {
        const Pen pen(cairo_create(sheet.get()), cairo_destroy);
        if (format != PictureFormat::Png) cairo_scale(pen.get(), pointsPerUnit, pointsPerUnit);
        CairoSurface surface(pen.get(), size.width, size.height);
        surface.Cls();
        paint(surface);
        check(cairo_status(pen.get()));
        if (&paint != &pages.back()) cairo_surface_show_page(sheet.get());
    }
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
    return sheetBytes(format, size, title, {paint});
}

std::string documentBytes(const PictureSize& page, const std::string& title,
                          const std::vector<std::function<void(DrawingSurface&)>>& pages) {
    return sheetBytes(PictureFormat::Pdf, page, title, pages);
}

} // namespace metrisk
