// The options of a command that writes a picture, and the writing.
#pragma once

#include "cli/Arguments.h"
#include "plots/files/PictureFile.h"

#include <functional>
#include <string>

namespace metrisk::cli {

struct PictureOutput {
    std::string path;
    PictureSize size;

    /// Adds -o and the option of the picture's size. The command must keep this where it is.
    void addTo(const Arguments& command, bool required, const char* sizeOption = "--size");

    /// The exit status; why it could not be written goes to `diagnostics`.
    int write(const std::string& title, std::string& diagnostics,
              const std::function<void(DrawingSurface&)>& paint) const;
};

} // namespace metrisk::cli
