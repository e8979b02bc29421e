// The colours of the screens by what they say, for light and dark desktops.
#pragma once

#include <QColor>
#include <QPalette>

namespace metrisk {

/// Texts have a contrast of 4.5 to 1 to their ground, large figures, frames and disabled texts 3 to 1.
struct ColourRoles {
    QColor window, base, text;
    QColor second;   // captions and notes
    QColor disabled; // disabled texts, and hints in empty boxes
    QColor line;     // frames of panels
    QColor field;    // frames of entry boxes and indicators
    QColor readOnly; // ground of locked boxes
    QColor result, resultText;
    QColor accent, onAccent; // the one act of a screen, and the focus
    QColor good, warn, bad;
    QColor link;
};

const ColourRoles& lightRoles();
const ColourRoles& darkRoles();
/// By the ground of the windows.
const ColourRoles& rolesFor(const QPalette& palette);

/// Palettes have no roles for them by name: the one of captions, and the one of lines between parts.
inline constexpr QPalette::ColorRole secondRole = QPalette::Shadow;
inline constexpr QPalette::ColorRole lineRole = QPalette::Mid;

/// The palette made of them.
QPalette paletteOf(const ColourRoles& roles);

} // namespace metrisk
