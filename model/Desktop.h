// What a desktop offers a program beside its own screens: the choice of files, and other programs and
// colours.
#pragma once

#include "model/ColorScheme.h"
#include "model/FileChooser.h"

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

/// A session has one only where somebody sits before it.
struct Desktop {
    FileChooser& files;
    Launcher& programs;
    Looks& looks;
    std::string toolkit{}; // names and versions of what shows the program
};

} // namespace metrisk
