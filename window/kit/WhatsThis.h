// What is told of a box at Shift+F1: its meaning, its units and its limits, from help/boxes.tsv.
#pragma once

#include <QString>

namespace metrisk {

struct Control;
class Worksheet;

/// The user enters or chooses something there.
bool takesEntry(Control& control);

/// The text for a control that takes an entry: its own, that of its array, or that of its screen's others;
/// empty for any other control.
QString whatsThis(const Worksheet& screen, Control& control);

} // namespace metrisk
