// The options of a command that writes a picture, and the writing.
#pragma once

#include "cli/Arguments.h"
#include "cli/Output.h"
#include "files/PictureFile.h"

#include <functional>
#include <string>

namespace metrisk::cli {

struct PictureOutput {
    std::string path; // "-" is the standard output
    PictureSize size{};
    std::string format = "png"; // where no name tells
    bool force = false;

    /// Adds -o, --force, --format and the option of the picture's size. The command must keep this where it
    /// is.
    void addTo(const Arguments& command, bool required, const char* sizeOption = "--size");

    /// What forbids to write it, before any work is done for it; empty if nothing does.
    std::string fault(const std::string& input) const;
    /// Raises WrongUsage where the standard output is to take a picture and a text.
    void refuseBesideText(bool text) const;

    /// False if it could not be written; why is among the messages.
    bool write(const std::string& title, UnattendedInteraction& ui, Output& output,
               const std::function<void(DrawingSurface&)>& paint) const;
};

} // namespace metrisk::cli
