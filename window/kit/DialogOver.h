// Where a dialog stands: over the screen that has the input, which gets it back afterwards.
#pragma once

class QDialog;
class QWidget;

namespace metrisk {

/// The modal screen on top, or the one beside it that is in use; `mainWindow` where none is open.
QWidget* screenInFront(QWidget* mainWindow);

/// Shows the dialog until it is left and returns what it was left with. It blocks the screens that it stands
/// over alone, so that help can be read beside it.
int runOver(QDialog& dialog);

} // namespace metrisk
