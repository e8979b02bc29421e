#include "cli/PictureOutput.h"

#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "cli/Readers.h"
#include "unattended/Input.h"

#include <stdexcept>

namespace metrisk::cli {

namespace {

constexpr std::size_t smallestSide = 100;

std::string isPicture(const std::string& path) {
    return path == standardStream || pictureFormatOf(path) ? "" : "the name must end in .png, .svg or .pdf";
}

} // namespace

void PictureOutput::addTo(const Arguments& command, bool required, const char* sizeOption) {
    command.text("-o,--output", path, "Picture to write: .png, .svg or .pdf")
        .shownAs("PICTURE")
        .isPath()
        .check(isPicture)
        .required(required);
    addForceOption(command, force);
    command.text("--format", format, "With -o -: png (the default), svg or pdf")
        .shownAs("FORMAT")
        .oneOf({"png", "svg", "pdf"});
    command
        .read(
            sizeOption,
            [this](const std::string& text) -> std::string {
                const auto sides = sidesOf(text, smallestSide, largestPictureSide);
                if (!sides) return "WIDTHxHEIGHT, 100 to 10000 each, as in 800x600";
                size = {static_cast<int>(sides->across), static_cast<int>(sides->up)};
                return {};
            },
            "Size of the picture in pixels, 96 to the inch (800x600)")
        .shownAs("WIDTHxHEIGHT");
}

std::string PictureOutput::fault(const std::string& input) const {
    return path.empty() ? "" : targetFault(path, force, {input});
}

void PictureOutput::refuseBesideText(bool text) const {
    if (text && path == standardStream)
        throw WrongUsage("-o -, --json and --csv each take the standard output");
}

bool PictureOutput::write(const std::string& title, UnattendedInteraction& ui, Output& output,
                          const std::function<void(DrawingSurface&)>& paint) const {
    const std::string name = path == standardStream ? "picture." + format : path;
    try {
        return writeTarget(path, force, pictureBytes(*pictureFormatOf(name), size, title, paint), ui, output);
    } catch (const std::runtime_error& fault) {
        ui.note(path + " cannot be drawn: " + fault.what());
        return false;
    }
}

} // namespace metrisk::cli
