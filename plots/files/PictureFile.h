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

inline constexpr int largestPictureSide = 10000;

/// The bytes of a picture. Raises std::runtime_error if the library cannot make it.
std::string pictureBytes(PictureFormat format, const PictureSize& size, const std::string& title,
                         const std::function<void(DrawingSurface&)>& paint);

/// The bytes of a PDF with a page for each drawing. Raises std::runtime_error if the library cannot make it.
std::string documentBytes(const PictureSize& page, const std::string& title,
                          const std::vector<std::function<void(DrawingSurface&)>>& pages);

} // namespace metrisk
