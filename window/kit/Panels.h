// How panels of a screen stand to each other.
#pragma once

#include <QGroupBox>
#include <initializer_list>

class QLabel;

namespace metrisk {

/// The columns of these panels begin at the same places, and go on doing so when their texts change. Each
/// has a grid; what spans columns does not count.
void lineUp(std::initializer_list<QGroupBox*> panels);
/// Their first columns alone, which hold the captions.
void lineUpCaptions(std::initializer_list<QGroupBox*> panels);

/// A line between parts of a panel or a screen.
QWidget* rule();

inline constexpr int figureMargin = 6; // of figures in their boxes, and of the headings over them

/// The heading of a column of figures, over their right edge.
QLabel* overFigures(const char* title);

/// The heading of a panel without a title, with these at the right end of its row.
QWidget* headingRow(const char* title, std::initializer_list<QWidget*> beside);
/// A panel whose heading shares its row with these widgets, which stand at its right.
QGroupBox* headedPanel(const char* title, std::initializer_list<QWidget*> beside);

/// A text that is read, not typed into: without a frame on the ground of the form.
QWidget* onForm(QWidget* text);
/// The label takes a second line where its column is narrow. Returns it.
QWidget* wrapped(QWidget* label);

/// Smaller than what it is a remark on.
QWidget* asMark(QWidget* label);

} // namespace metrisk
