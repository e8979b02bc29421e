// The widget of each control of a worksheet, and the few ways in which screens lay them out.
#pragma once

#include <QColor>
#include <QGridLayout>
#include <QGroupBox>
#include <QPalette>
#include <QString>
#include <initializer_list>
#include <string_view>

namespace metrisk {

class Worksheet;

/// Steps of a slider from end to end.
inline constexpr int sliderSteps = 500;

/// Text of the core as Qt text.
QString qt(std::string_view text);

/// A colour of the core: red + 256 green + 65536 blue.
QColor qtColor(double color);

/// A caption as buttons and labels show it: without the blanks that once made room around it.
QString caption(std::string_view text);

/// Text as a tool tip that shows it to the letter: what looks like mark-up is not read as such, since it may
/// have come with a file and name pictures to load.
QString plainTip(const QString& text);

/// Gives the widget that tool tip, and assistive tools the text itself.
void setTip(QWidget& widget, const QString& text);

/// Makes the widget of a control; each may be asked for once. The object name is the control's.
class WidgetMaker {
  public:
    explicit WidgetMaker(const Worksheet& model) : model_(model) {}

    const Worksheet& model() const { return model_; }

    /// Ends the process with a message if the worksheet has no such control.
    QWidget* operator()(const char* control) const;
    /// A box that has room for so many characters.
    QWidget* box(const char* control, int characters) const;
    /// A label with a bold text.
    QWidget* heading(const char* control) const;

  private:
    const Worksheet& model_;
};

/// One place of a row: a widget, a plain text, or nothing. A text or label names the box that comes next.
struct Cell {
    QWidget* widget = nullptr;
    int span = 1;

    Cell() = default;
    Cell(QWidget* itsWidget, int columns = 1) : widget(itsWidget), span(columns) {}
    Cell(const char* text, int columns = 1);
};

/// A grid of rows. Room that is left over goes to the columns of boxes.
QGridLayout* rows(std::initializer_list<std::initializer_list<Cell>> rows);
QWidget* across(std::initializer_list<QWidget*> widgets);
QWidget* down(std::initializer_list<QWidget*> widgets);
QGroupBox* group(const char* title, QLayout* content);
QGroupBox* group(const char* title, std::initializer_list<QWidget*> widgets);
/// Right-aligned at a screen's foot, which stays in sight where the rest is scrolled.
inline constexpr const char* footName = "foot";
QWidget* foot(std::initializer_list<QWidget*> buttons);
/// With a line that says what the buttons do or wait for.
QWidget* foot(QWidget* line, std::initializer_list<QWidget*> buttons);

/// A label or flat button with this property is a heading: bold, and at the left.
inline constexpr const char* headingProperty = "heading";

/// A content with this property goes to the edges of its window.
inline constexpr const char* edgelessProperty = "edgeless";

/// A screen of that content opens at that size where it could do with less.
void prefer(QWidget* content, const QSize& size);
QSize preferredSize(const QWidget* content);

/// A container of that name.
QWidget* named(QWidget* widget, const char* name);

/// The widget's place stays free while it is hidden.
void keepRoom(QWidget* widget);

/// A ground and the text on it, which is dimmed where it is disabled.
void setReadable(QPalette& palette, QPalette::ColorRole groundRole, const QColor& ground,
                 QPalette::ColorRole textRole, const QColor& text);

/// The style of links in running text on the palette's ground: a blue that can be read there, else the colour
/// of the text.
QString linkStyle(const QPalette& palette);

/// Ties a label to its box: its mnemonic leads there and assistive tools name the box by it.
void nameBy(QWidget* label, QWidget* box);

} // namespace metrisk
