// What a desktop offers a program beside its own screens: the choice of files, and other programs and
// colours.
#pragma once

#include "base/Launch.h"
#include "desk/kit/FileChooser.h"
#include "record/ColorScheme.h"

#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

class Launcher {
  public:
    virtual ~Launcher() = default;

    /// Has the desktop open the file with the program it knows for that kind, without waiting for it. Empty,
    /// or why that could not be.
    virtual std::string openDocument(const std::string& path) = 0;
    /// Starts the program without waiting for it; it outlives this one. Empty, or why that could not be.
    virtual std::string start(const Launch& launch) = 0;
    /// What the desktop opens that file with.
    virtual Association associationOf(const std::string& path) = 0;
};

/// The colours of the screens.
class Looks {
  public:
    virtual ~Looks() = default;

    /// Asks for a colour, starting with one (red + 256 green + 65536 blue); none if the user cancels.
    virtual std::optional<double> chooseColor(std::string_view title, double present) = 0;
    /// Shows the scheme on all screens that are open or will be.
    virtual void ApplyColorScheme(const ColorScheme& scheme) = 0;
};

class ReportPrinter;
class DDE_Form;

/// A session has one only where somebody sits before it.
struct Desktop {
    FileChooser& files;
    Launcher& programs;
    ReportPrinter* printer = nullptr; // null where nothing can be printed
    DDE_Form* errorLedger = nullptr;  // the conversation with that program
    Looks* looks = nullptr;           // what shows the colours
    std::string toolkit{};            // names and versions of what shows the program
};

} // namespace metrisk
