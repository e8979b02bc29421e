#include "cli/PictureOutput.h"

#include "cli/Output.h"
#include "persistence/AtomicFile.h"

#include <cstdio>
#include <stdexcept>

namespace metrisk::cli {

namespace {

constexpr int smallestSide = 100;

std::string isPicture(const std::string& path) {
    return pictureFormatOf(path) ? "" : "the name must end in .png, .svg or .pdf";
}

} // namespace

void PictureOutput::addTo(const Arguments& command, bool required, const char* sizeOption) {
    command.text("-o,--output", path, "Picture to write: .png, .svg or .pdf")
        .shownAs("PICTURE")
        .check(isPicture)
        .required(required);
    command
        .read(
            sizeOption,
            [this](const std::string& text) -> std::string {
                int used = 0;
                const bool read =
                    std::sscanf(text.c_str(), "%5dx%5d%n", &size.width, &size.height, &used) == 2;
                const auto fits = [](int side) { return side >= smallestSide && side <= largestPictureSide; };
                if (read && text[static_cast<std::size_t>(used)] == '\0' && fits(size.width) &&
                    fits(size.height))
                    return {};
                return "WIDTHxHEIGHT, 100 to 10000 each, as in 800x600";
            },
            "Size of the picture in pixels, 96 to the inch (800x600)")
        .shownAs("WIDTHxHEIGHT");
}

int PictureOutput::write(const std::string& title, std::string& diagnostics,
                         const std::function<void(DrawingSurface&)>& paint) const {
    try {
        if (replaceFile(path, pictureBytes(*pictureFormatOf(path), size, title, paint))) return allDone;
        diagnostics += diagnosticLine(path, "cannot be written");
    } catch (const std::runtime_error& fault) {
        diagnostics += diagnosticLine(path, fault.what());
    }
    return refused;
}

} // namespace metrisk::cli
