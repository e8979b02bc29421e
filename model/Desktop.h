// What a desktop offers a program beside its own screens: the choice of files, and other programs.
#pragma once

#include "model/FileChooser.h"

#include <string>

namespace metrisk {

class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Has the desktop open the file with the program it knows for that kind, without waiting for it. Empty,
    /// or why that could not be.
    virtual std::string openDocument(const std::string& path) = 0;
};

class ReportPrinter;

/// A session has one only where somebody sits before it.
struct Desktop {
    FileChooser& files;
    Launcher& programs;
    ReportPrinter* printer = nullptr; // null where nothing can be printed
};

} // namespace metrisk
