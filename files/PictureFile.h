// Pictures as files: PNG, SVG and PDF, drawn by Cairo with the texts of Pango.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace metrisk {

class DrawingSurface;

enum class PictureFormat { Png, Svg, Pdf };

/// By the extension of the name, in letters of any case.
std::optional<PictureFormat> pictureFormatOf(const std::filesystem::path& path);

/// In units of 1/96 inch, the pixels of a PNG.
struct PictureSize {
    int width = 800;
    int height = 600;
};

/// The same of a page, which has no pixels.
struct PaperSize {
    double width = 0, height = 0;
};

inline constexpr int largestPictureSide = 10000;

/// The bytes of a picture. Raises std::runtime_error if the library cannot make it.
std::string pictureBytes(PictureFormat format, const PictureSize& size, const std::string& title,
                         const std::function<void(DrawingSurface&)>& paint);

/// A place in a document that its outline names; page and level count from 0, y is a share of the page.
struct OutlineEntry {
    std::string title;
    int level = 0;
    std::size_t page = 0;
    double y = 0;
};

/// What a document says of itself.
struct DocumentFacts {
    std::string title{};
    std::string created{}; // ISO 8601; without it the library takes the clock's time
    std::vector<OutlineEntry> outline{};
};

/// The bytes of a PDF with a page for each drawing: the same for the same drawings and facts, if they have a
/// date. Raises std::runtime_error if the library cannot make it.
std::string documentBytes(const PaperSize& page, const DocumentFacts& facts,
                          const std::vector<std::function<void(DrawingSurface&)>>& pages);

} // namespace metrisk
