#include "window/shell/QtLooks.h"

#include "desk/appearance/ScreenFonts.h"
#include "window/kit/DialogOver.h"
#include "window/kit/EntryBox.h"
#include "window/kit/LookStyle.h"
#include "window/kit/Widgets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <string_view>

namespace metrisk {

namespace {

using Names = std::initializer_list<const char*>;

constexpr Names idBoxes = {"SystemIDBox",       "SUModelNumberBox",  "SUDescriptionBox", "ParameterIDBox",
                           "Qualifier1Box",     "Qualifier2Box",     "MTESystemIDBox",   "MTEModelNumberBox",
                           "MTEDescriptionBox", "MTEParameterIDBox", "MTEQualifier1Box", "MTEQualifier2Box"};
constexpr Names resultBoxes = {"AcceptRisk",           "RejectRisk",        "AccRatEquivalent1Box",
                               "AccRatEquivalent2Box", "BaseAcceptRisk",    "BaseRejectRisk",
                               "BaselineAccRat1Box",   "BaselineAccRat2Box"};
constexpr Names largeResults = {"AcceptRisk", "RejectRisk", "AccRatEquivalent1Box"};
constexpr Names headings = {"Heading_0", "Heading_1"};
constexpr Names dataHeadings = {"pnl_NominalValueLabel", "pnl_SUUpper",  "pnl_SULower",
                                "Lbl_SUPctInTol",        "pnl_MTELimit", "pnl_MTEFixed",
                                "pnl_PctReading",        "pnl_Units",    "LbL_MTEPctInTol"};
constexpr Names dataBoxes = {
    "ModeBox",           "UpperLimitBox",      "LowerLimitBox",        "PctInTolBox",   "MTEOffsetBox",
    "MTEFixedOffsetBox", "MTEPctOfReadingBox", "MTEParameterUnitsBox", "MTEPctInTolBox"};

ScreenScale desktopScale() {
    const QScreen* screen = QApplication::primaryScreen();
    return screenScale(screen->size().width(), screen->size().height(), screen->logicalDotsPerInch());
}

/// Every role of it belongs to the scheme or follows from one: nothing is left of the desktop's.
QPalette paletteOf(const ColorScheme& scheme) {
    const QColor ground = qtColor(scheme.BackColor_Metrisk);
    const QColor labels = qtColor(scheme.ForeColor_ScreenLabels);
    const QColor boxes = qtColor(scheme.BackColor_InfoBox);
    const QColor entries = qtColor(scheme.ForeColor_InfoBox);
    QPalette palette(ground, ground);
    setReadable(palette, QPalette::Window, ground, QPalette::WindowText, labels);
    setReadable(palette, QPalette::Button, ground, QPalette::ButtonText, labels);
    setReadable(palette, QPalette::Base, boxes, QPalette::Text, entries);
    palette.setColor(QPalette::AlternateBase, boxes);
    QColor hint = entries;
    hint.setAlpha(128);
    palette.setColor(QPalette::PlaceholderText, hint);
    palette.setColor(QPalette::Link, entries);
    palette.setColor(QPalette::LinkVisited, entries);
    // What is selected is the reverse of what is not.
    palette.setColor(QPalette::Highlight, entries);
    palette.setColor(QPalette::HighlightedText, boxes);
    return palette;
}

void setBold(QWidget& widget, bool bold) {
    if (qobject_cast<QLabel*>(&widget)) widget.setProperty("bold", bold);
    QFont font = widget.font();
    if (font.bold() == bold) return;
    font.setBold(bold);
    widget.setFont(font);
}

} // namespace

std::optional<double> QtLooks::chooseColor(std::string_view title, double present) {
    QColorDialog dialog(qtColor(present), screenInFront(&window_));
    dialog.setObjectName("ColorDialogue");
    dialog.setWindowTitle(qt(title));
    if (runOver(dialog) != QDialog::Accepted) return std::nullopt;
    const QColor chosen = dialog.selectedColor();
    return chosen.red() + 256 * chosen.green() + 65536 * chosen.blue();
}

void QtLooks::ApplyColorScheme(const ColorScheme& scheme) {
    const bool own = !usesDesktopColors(scheme);
    if (own || colored_) applyColors(scheme, own);
    colored_ = own;
    applyBold(scheme);
}

void QtLooks::applyColors(const ColorScheme& scheme, bool own) {
    keepPalette(own);
    QApplication::setPalette(own ? paletteOf(scheme) : QPalette());
    const auto ofWidget = [&](const char* name, QPalette::ColorRole groundRole, double ground,
                              QPalette::ColorRole textRole, double text) {
        auto* widget = window_.findChild<QWidget*>(name);
        QPalette palette;
        if (own) setReadable(palette, groundRole, qtColor(ground), textRole, qtColor(text));
        widget->setPalette(palette);
        return widget;
    };
    ofWidget("pnl_Lbl", QPalette::Window, scheme.BackColor_Labels, QPalette::WindowText,
             scheme.ForeColor_Labels)
        ->setAutoFillBackground(own);
    ofWidget("pnl_IDData", QPalette::Base, scheme.BackColor_InfoBox, QPalette::Text,
             scheme.ForeColor_InfoBox);
    for (const char* name : headings)
        ofWidget(name, QPalette::Window, scheme.BackColor_Metrisk, QPalette::WindowText,
                 scheme.ForeColor_Heading);
    const auto boxes = [&](const Names& names, double ground, double text) {
        for (const char* name : names)
            window_.findChild<EntryBox*>(name)->setColors(own ? qtColor(ground) : QColor(),
                                                          own ? qtColor(text) : QColor());
    };
    boxes(idBoxes, scheme.BackColor_InfoBox, scheme.ForeColor_InfoBox);
    boxes(resultBoxes, scheme.BackColor_ResultsBox, scheme.ForeColor_ResultsBox);
}

/// A label that stands out among its like goes on doing so.
void QtLooks::applyBold(const ColorScheme& scheme) {
    const bool allowed = desktopScale().allowsBold();
    auto* controls = window_.findChild<QWidget*>("pnl_Controls");
    for (auto* label : controls->findChildren<QLabel*>())
        if (!label->property(headingProperty).toBool())
            setBold(*label, allowed && scheme.FontBold_ScreenLabels);
    for (auto* button : controls->findChildren<QAbstractButton*>())
        if (!qobject_cast<QPushButton*>(button)) setBold(*button, allowed && scheme.FontBold_OptionLabels);
    for (auto* label : controls->findChild<QWidget*>("pnl_Lbl")->findChildren<QLabel*>())
        setBold(*label, allowed && scheme.FontBold_Labels);
    const auto named = [&](const Names& names, bool bold) {
        for (const char* name : names) setBold(*controls->findChild<QWidget*>(name), allowed && bold);
    };
    named(dataHeadings, scheme.FontBold_TextLabel);
    named(dataBoxes, scheme.FontBold_TextBox);
    named(idBoxes, scheme.FontBold_InfoBox);
    for (const char* name : resultBoxes) {
        const bool large = std::find(largeResults.begin(), largeResults.end(), std::string_view(name)) !=
                           largeResults.end(); // what the screen is for
        setBold(*controls->findChild<QWidget*>(name), allowed && (large || scheme.FontBold_ResultsBox));
    }
    named(headings, scheme.FontBold_Heading);
    for (const char* name : headings)
        controls->findChild<QWidget*>(name)->setProperty(headingProperty, false);
}

void fitFonts() {
    QFont font = QApplication::font();
    font.setFamily(qt(substituteFont(font.family().toStdString())));
    if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * desktopScale().ofFonts());
    if (font != QApplication::font()) QApplication::setFont(font);
}

} // namespace metrisk
