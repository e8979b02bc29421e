// Small makers of widgets that every screen uses: names, captions, tool tips.
#pragma once

#include <QString>
#include <QWidget>
#include <string_view>

class QDialog;
class QDialogButtonBox;
class QLineEdit;

namespace metrisk {

/// Text of the core as Qt text.
QString qt(std::string_view text);

/// A told caption: its mnemonic stays, the blanks around it that once made room do not.
QString caption(std::string_view text);

void nameWidget(QWidget* widget, const QString& name, const QString& toolTip);

/// Gives a widget its control's name as object name, a tool tip, and an accessible name if it has no
/// text of its own.
template <class Widget>
Widget* named(Widget* widget, const QString& name, const QString& toolTip = {}) {
    nameWidget(widget, name, toolTip);
    return widget;
}

/// A locked box shows its text, which can be copied, but looks and behaves like one that takes no entry.
/// Call it again when the desktop's colours have changed.
void showLocked(QLineEdit* box, bool locked);

/// "&OK" and "&Cancel", named mnu_Exit_0 and mnu_Exit_1 and bound to accept and reject.
QDialogButtonBox* okCancelButtons(QDialog* dialog);

} // namespace metrisk
