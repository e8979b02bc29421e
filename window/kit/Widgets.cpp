#include "window/kit/Widgets.h"

#include "desk/kit/Worksheet.h"
#include "window/kit/CellTable.h"
#include "window/kit/ColourRoles.h"
#include "window/kit/EntryBox.h"
#include "window/kit/HintList.h"
#include "window/kit/LookStyle.h"
#include "window/kit/PictureWidget.h"
#include "window/kit/SheetView.h"
#include "window/kit/ToneLabel.h"
#include "window/kit/WhatsThis.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOption>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

QWidget* makeButton(const Button& button) {
    const QString text = caption(button.text);
    if (button.kind == Button::Kind::Check) return new QCheckBox(text);
    if (button.kind == Button::Kind::Radio) return new QRadioButton(text);
    auto* made = new QPushButton(text);
    made->setAutoDefault(false);
    made->setDefault(button.isDefault);
    return made;
}

QWidget* makeMeter() {
    auto* bar = new QProgressBar;
    bar->setRange(0, 100);
    return bar;
}

QWidget* makeSwatch() {
    auto* swatch = new QFrame;
    swatch->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    swatch->setAutoFillBackground(true);
    swatch->setMinimumWidth(swatch->fontMetrics().averageCharWidth() * 8);
    return swatch;
}

QWidget* makeSlider() {
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, sliderSteps);
    slider->setPageStep(sliderSteps / 10);
    return slider;
}

QWidget* makeMemo() {
    auto* memo = new QPlainTextEdit;
    memo->setTabChangesFocus(true);
    return memo;
}

QWidget* makeHypertext() {
    auto* browser = new QTextBrowser;
    browser->setOpenLinks(false);
    return browser;
}

class Maker final : public ControlVisitor {
  public:
    QWidget* made = nullptr;

    void visit(Panel&) override { made = new QWidget; } // layouts make theirs themselves
    void visit(Label& label) override { made = new ToneLabel(caption(label.text), label.sign); }
    void visit(TextBox&) override { made = new EntryBox; }
    void visit(Button& button) override { made = makeButton(button); }
    void visit(Choice&) override { made = new QComboBox; }
    void visit(ListBox&) override { made = new HintList; }
    void visit(Meter&) override { made = makeMeter(); }
    void visit(Swatch&) override { made = makeSwatch(); }
    void visit(Slider&) override { made = makeSlider(); }
    void visit(PictureArea&) override { made = new PictureWidget; }
    void visit(Table& table) override { made = new CellTable(table); }
    void visit(Sheet& sheet) override { made = new SheetView(sheet); }
    void visit(Memo&) override { made = makeMemo(); }
    void visit(Hypertext&) override { made = makeHypertext(); }
};

QWidget* make(Control& control) {
    Maker maker;
    control.accept(maker);
    return maker.made;
}

void widen(QWidget* widget, int characters) {
    if (auto* box = qobject_cast<EntryBox*>(widget)) return box->setRoom(characters);
    QStyleOptionComboBox option; // the text of a list has what its frame and arrow leave
    option.initFrom(widget);
    const QSize text(widget->fontMetrics().horizontalAdvance(QString(characters, '0')), 0);
    const QSize box = widget->style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, widget);
    widget->setMinimumWidth(box.width());
}

} // namespace

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QColor qtColor(double color) {
    const auto bits = static_cast<unsigned>(color);
    const auto part = [bits](int shift) { return static_cast<int>(bits >> shift & 0xFF); };
    return {part(0), part(8), part(16)};
}

QString caption(std::string_view text) {
    return qt(text).trimmed();
}

QString plainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

void setTip(QWidget& widget, const QString& text) {
    widget.setToolTip(plainTip(text));
    widget.setAccessibleDescription(text);
}

QWidget* WidgetMaker::operator()(const char* control) const {
    Control* found = model_.find(control);
    if (!found) {
        QStringList known;
        for (const Control* each : model_.controls()) known += each->name;
        qFatal("%s has no control %s, but %s", model_.name, control, qPrintable(known.join(", ")));
    }
    QWidget* made = make(*found);
    made->setObjectName(found->name);
    setTip(*made, qt(found->toolTip));
    made->setWhatsThis(whatsThis(model_, *found)); // Shift+F1
    return made;
}

QWidget* WidgetMaker::box(const char* control, int characters) const {
    QWidget* made = (*this)(control);
    widen(made, characters);
    return made;
}

QWidget* WidgetMaker::heading(const char* control) const {
    QWidget* made = (*this)(control);
    QFont bold = made->font();
    bold.setBold(true);
    made->setFont(bold);
    made->setProperty(headingProperty, true);
    return made;
}

Cell::Cell(const char* text, int columns) : widget(new QLabel(text)), span(columns) {}

void setReadable(QPalette& palette, QPalette::ColorRole groundRole, const QColor& ground,
                 QPalette::ColorRole textRole, const QColor& text) {
    const auto mean = [](int a, int b) { return (a + b) / 2; };
    const QColor dimmed(mean(ground.red(), text.red()), mean(ground.green(), text.green()),
                        mean(ground.blue(), text.blue()));
    palette.setColor(groundRole, ground);
    const auto write = [&](QPalette::ColorRole role) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, dimmed);
    };
    write(textRole);
    if (textRole == QPalette::WindowText) write(secondRole); // captions keep to the user's colour
}

namespace {

double luminance(const QColor& color) {
    const auto part = [](double c) { return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double contrast(const QColor& a, const QColor& b) {
    const double one = luminance(a) + 0.05, other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

} // namespace

QString linkStyle(const QPalette& palette) {
    constexpr double readable = 4.5;
    QColor color = palette.color(QPalette::Text);
    if (!paletteIsKept()) return QString("a { color: %1; }").arg(rolesFor(palette).link.name());
    for (const QColor& blue : {QColor(0x0b, 0x57, 0xd0), QColor(0x8a, 0xb4, 0xf8)})
        if (contrast(blue, palette.color(QPalette::Base)) >= readable) color = blue;
    return QString("a { color: %1; }").arg(color.name());
}

void nameBy(QWidget* label, QWidget* box) {
    auto* text = qobject_cast<QLabel*>(label);
    if (!text || !box) return;
    text->setBuddy(box);
    text->setProperty("caption", true);
    text->setForegroundRole(captionRole());
}

namespace {

bool isSign(const QLabel& label) {
    return label.text() == ":" || label.objectName().contains("Colon");
}

} // namespace

QGridLayout* rows(std::initializer_list<std::initializer_list<Cell>> lines) {
    auto* grid = new QGridLayout;
    int row = 0;
    for (const auto& line : lines) {
        int column = 0;
        QLabel* naming = nullptr;
        for (const Cell& cell : line) {
            if (cell.widget) {
                grid->addWidget(cell.widget, row, column, 1, cell.span);
                const bool box =
                    qobject_cast<QLineEdit*>(cell.widget) || qobject_cast<QComboBox*>(cell.widget);
                if (box) {
                    nameBy(naming, cell.widget);
                    if (!naming) cell.widget->setAccessibleName(cell.widget->accessibleDescription());
                    naming = nullptr;
                    if (cell.span == 1) grid->setColumnStretch(column, 1);
                } else if (auto* label = qobject_cast<QLabel*>(cell.widget)) {
                    // A sign between two figures names neither.
                    naming = isSign(*label) ? nullptr : label;
                }
            }
            column += cell.span;
        }
        ++row;
    }
    return grid;
}

namespace {

bool hasPanel(const QWidget* widget) {
    return qobject_cast<const QGroupBox*>(widget) || widget->findChild<QGroupBox*>();
}

/// Panels stand further apart than rows.
QWidget* inBox(QBoxLayout* layout, std::initializer_list<QWidget*> widgets) {
    auto* made = new QWidget;
    layout->setContentsMargins(0, 0, 0, 0);
    if (std::any_of(widgets.begin(), widgets.end(), hasPanel)) layout->setSpacing(panelGap);
    for (QWidget* widget : widgets) layout->addWidget(widget);
    made->setLayout(layout);
    return made;
}

} // namespace

QWidget* across(std::initializer_list<QWidget*> widgets) {
    return inBox(new QHBoxLayout, widgets);
}

QWidget* down(std::initializer_list<QWidget*> widgets) {
    return inBox(new QVBoxLayout, widgets);
}

QGroupBox* group(const char* title, QLayout* content) {
    auto* made = new QGroupBox(title);
    content->setContentsMargins(8, *title ? 0 : 2, 8, 4);
    made->setLayout(content);
    return made;
}

QGroupBox* group(const char* title, std::initializer_list<QWidget*> widgets) {
    auto* column = new QVBoxLayout;
    for (QWidget* widget : widgets) column->addWidget(widget);
    return group(title, column);
}

namespace {

constexpr int footButtonWidth = 84;

} // namespace

QWidget* foot(std::initializer_list<QWidget*> buttons) {
    return foot(new QWidget, buttons);
}

QWidget* foot(QWidget* line, std::initializer_list<QWidget*> buttons) {
    auto* layout = new QHBoxLayout;
    if (auto* text = qobject_cast<QLabel*>(line)) {
        text->setWordWrap(true);
        text->setForegroundRole(captionRole());
    }
    layout->addWidget(line, 1);
    QWidget* made = named(inBox(layout, buttons), footName);
    for (QWidget* button : buttons) button->setMinimumWidth(footButtonWidth);
    return made;
}

void keepRoom(QWidget* widget) {
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

void prefer(QWidget* content, const QSize& size) {
    content->setProperty("preferredSize", size);
}

QSize preferredSize(const QWidget* content) {
    return content->property("preferredSize").toSize();
}

QWidget* named(QWidget* widget, const char* name) {
    widget->setObjectName(name);
    return widget;
}

} // namespace metrisk
