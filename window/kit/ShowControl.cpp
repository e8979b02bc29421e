#include "window/kit/ShowControl.h"

#include "desk/kit/Controls.h"
#include "window/kit/CellTable.h"
#include "window/kit/EntryBox.h"
#include "window/kit/HintList.h"
#include "window/kit/LookStyle.h"
#include "window/kit/PictureWidget.h"
#include "window/kit/SheetView.h"
#include "window/kit/ToneLabel.h"
#include "window/kit/Widgets.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSlider>
#include <QTextBrowser>
#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

void showBox(const TextBox& box, EntryBox& widget) {
    const QString text = qt(box.text);
    if (widget.text() != text) widget.setText(text);
    if (widget.cursorPosition() != 0 && !widget.hasFocus()) widget.setCursorPosition(0);
    if (const QString hint = qt(box.hint); widget.placeholderText() != hint) widget.setPlaceholderText(hint);
    widget.setResult(box.isResult() && !box.locked);
    widget.setLocked(box.locked || box.isResult());
    widget.setMarked(!box.mark.empty());
    widget.setFaded(box.faded);
}

void showLabel(const Label& label, ToneLabel& widget) {
    widget.setTone(label.tone, label.sign);
    const QString text = caption(label.text);
    if (widget.text() != text) widget.setText(text);
    QFont font = widget.font();
    if (const QString family = qt(label.family); !family.isEmpty() && font.family() != family) {
        font.setFamily(family);
        widget.setFont(font);
    }
    const bool bold =
        label.emphasised || widget.property(headingProperty).toBool() || widget.property("bold").toBool();
    if (widget.property("caption").toBool())
        widget.setForegroundRole(label.emphasised || widget.property(headingProperty).toBool()
                                     ? QPalette::WindowText
                                     : captionRole());
    if (font.bold() == bold) return;
    font.setBold(bold);
    widget.setFont(font);
}

void showButton(const Button& button, QAbstractButton& widget) {
    const QString text = caption(button.text);
    if (widget.text() != text) widget.setText(text);
    if (button.kind == Button::Kind::Push) return setPrimary(widget, button.isPrimary);
    widget.setCheckable(true);
    if (widget.isChecked() != button.checked) widget.setChecked(button.checked);
    // The keyboard comes to the chosen one of a group; the arrows go on from there.
    if (button.kind == Button::Kind::Radio)
        widget.setFocusPolicy(button.checked ? Qt::TabFocus : Qt::NoFocus);
}

void showList(const ListBox& list, HintList& widget) {
    widget.setWhenEmpty(qt(list.whenEmpty));
    QStringList items;
    for (const std::string& item : list.items) items += qt(item);
    QStringList present;
    for (int i = 0; i < widget.count(); ++i) present += widget.item(i)->text();
    if (items != present) {
        widget.clear();
        widget.addItems(items);
    }
    if (widget.currentRow() != list.index) widget.setCurrentRow(list.index);
}

void showChoice(const Choice& choice, QComboBox& widget) {
    QStringList items;
    for (const std::string& item : choice.items) items += qt(item);
    QStringList present;
    for (int i = 0; i < widget.count(); ++i) present += widget.itemText(i);
    if (items != present) {
        widget.clear();
        widget.addItems(items);
    }
    if (widget.currentIndex() != choice.index) widget.setCurrentIndex(choice.index);
}

/// One paragraph of the mark-up as HTML; a jump's address is its word.
QString paragraphOf(const QString& text) {
    QString html = text.toHtmlEscaped();
    for (const auto& [mark, tag] : {std::pair{"\\H", ""}, {"\\h", ""}, {"\\B", "<b>"}, {"\\b", "</b>"}})
        html.replace(mark, tag);
    for (qsizetype at; (at = html.indexOf("\\J")) >= 0;) {
        const qsizetype end = html.indexOf("\\j", at);
        if (end < 0) break;
        const QString word = html.mid(at + 2, end - at - 2);
        html.replace(at, end + 2 - at, QString("<a href=\"%1\">%1</a>").arg(word));
    }
    const char* margins = text.startsWith("\\H") ? "8px 0 4px 0" : "0 0 6px 0";
    return QString("<p style='margin:%1'>%2</p>").arg(margins, html.trimmed().replace("\r\n", "<br>"));
}

QString htmlOf(const std::string& text) {
    QString html;
    for (const QString& paragraph : qt(text).split("\r\n\r\n", Qt::SkipEmptyParts))
        html += paragraphOf(paragraph);
    return html;
}

/// Its links are buttons of the screen, and look lighter than those that lead away.
void showHypertext(const Hypertext& text, QTextBrowser& widget) {
    const QString style = linkStyle(widget.palette()) + "a { text-decoration: none; font-weight: 600; }";
    const QByteArray shown = QByteArray::fromStdString(text.text) + style.toUtf8();
    if (widget.property("shown").toByteArray() == shown) return;
    widget.setProperty("shown", shown);
    widget.document()->setDefaultStyleSheet(style);
    widget.setHtml(htmlOf(text.text));
}

/// A meter with a text of its own bears that instead of its percentage.
void showMeter(const Meter& meter, QProgressBar& widget) {
    widget.setValue(static_cast<int>(std::lround(meter.value)));
    const QString text = qt(meter.text);
    if (text.isEmpty() || (widget.format() == text && widget.accessibleDescription() == qt(meter.toolTip)))
        return;
    widget.setFormat(text);
    widget.setAccessibleName(qt(meter.toolTip) + ": " + text);
}

void showSwatch(const Swatch& swatch, QWidget& widget) {
    const QColor color = qtColor(swatch.color);
    if (widget.palette().color(QPalette::Window) == color && !widget.accessibleName().isEmpty()) return;
    QPalette own;
    own.setColor(QPalette::Window, color);
    widget.setPalette(own);
    widget.setAccessibleName(qt(swatch.text) + ": " + color.name());
}

void showSlider(const Slider& slider, QSlider& widget) {
    const double share = (slider.value - slider.from) / (slider.to - slider.from);
    const int step = static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * sliderSteps));
    if (widget.value() != step) widget.setValue(step);
    if (const QString name = qt(slider.text); widget.accessibleName() != name) widget.setAccessibleName(name);
}

void showMemo(const Memo& memo, QPlainTextEdit& widget) {
    if (const QString text = qt(memo.text); widget.toPlainText() != text) widget.setPlainText(text);
}

void showPicture(const PictureArea& picture, PictureWidget& widget) {
    if (const QString text = qt(picture.text); widget.accessibleName() != text)
        widget.setAccessibleName(text);
    if (picture.leastWidth > 0 || widget.property("sized").toBool()) {
        widget.setMinimumSize(picture.leastWidth, picture.leastHeight);
        widget.setProperty("sized", true);
    }
    if (widget.property("drawn").toInt() == picture.drawn()) return;
    widget.setProperty("drawn", picture.drawn());
    widget.setPaint(picture.paint());
}

class Shower final : public ControlVisitor {
  public:
    explicit Shower(QWidget& widget) : widget_(widget) {}

    void visit(Panel&) override {}
    void visit(Label& label) override { showLabel(label, as<ToneLabel>()); }
    void visit(TextBox& box) override {
        showBox(box, as<EntryBox>());
        mark = box.mark;
    }
    void visit(Button& button) override {
        showButton(button, as<QAbstractButton>());
        if (!button.enabled) mark = button.resting;
    }
    void visit(Choice& choice) override { showChoice(choice, as<QComboBox>()); }
    void visit(ListBox& list) override { showList(list, as<HintList>()); }
    void visit(Meter& meter) override { showMeter(meter, as<QProgressBar>()); }
    void visit(Swatch& swatch) override { showSwatch(swatch, widget_); }
    void visit(Slider& slider) override { showSlider(slider, as<QSlider>()); }
    void visit(PictureArea& picture) override { showPicture(picture, as<PictureWidget>()); }
    void visit(Table& table) override { as<CellTable>().show(table); }
    void visit(Sheet& sheet) override { as<SheetView>().show(sheet); }
    void visit(Memo& memo) override { showMemo(memo, as<QPlainTextEdit>()); }
    void visit(Hypertext& text) override { showHypertext(text, as<QTextBrowser>()); }

    std::string_view mark{}; // what a marked box or a resting button says instead of its tool tip

  private:
    template <class Widget>
    Widget& as() {
        return static_cast<Widget&>(widget_);
    }
    QWidget& widget_;
};

} // namespace

void showControl(Control& control, QWidget& widget) {
    Shower shower(widget);
    control.accept(shower);
    const std::string_view said = shower.mark.empty() ? control.toolTip : shower.mark;
    if (const QString tip = qt(said); widget.accessibleDescription() != tip) setTip(widget, tip);
    if (widget.isHidden() == control.visible) widget.setVisible(control.visible);
    if (widget.testAttribute(Qt::WA_ForceDisabled) == control.enabled) widget.setEnabled(control.enabled);
}

} // namespace metrisk
