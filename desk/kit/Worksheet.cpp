#include "desk/kit/Worksheet.h"

#include "base/FlagGuard.h"
#include "base/Real.h"

namespace metrisk {

Control::Control(Worksheet& owner, const char* controlName, std::string shownText, std::string tip)
    : name(controlName), text(std::move(shownText)), toolTip(std::move(tip)) {
    owner.controls_.push_back(this);
}

Control* Worksheet::find(std::string_view control) const {
    for (Control* each : controls_)
        if (each->name == control) return each;
    return nullptr;
}

/// A rule of a table: a numeric fault in it changes nothing more.
void Worksheet::act(const std::function<void()>& rule) {
    try {
        rule();
    } catch (const RuntimeFault&) { // the table shows what it holds
    }
    refresh();
}

void Worksheet::enter(TextBox& box, const std::string& text) {
    if (!leaving_) box.last = text;
}

void Worksheet::key(TextBox& box) {
    if (box.keyPressed) box.keyPressed();
}

void Worksheet::edit(TextBox& box, const std::string& text) {
    if (box.edited) box.edited(text);
}

void Worksheet::edit(Memo& memo, const std::string& text) {
    if (!memo.edited || memo.text == text) return;
    act([&] { memo.edited(text); });
}

FieldResult Worksheet::leave(TextBox& box, const std::string& text) {
    if (leaving_ || !box.left || box.locked || box.last == text) return {false, text};
    const FlagGuard guard(leaving_);
    FieldResult result;
    try {
        result = runRule(box, text);
    } catch (const RuntimeFault&) {
        result = {true, box.last.value_or("")};
    }
    refresh();
    if (result.stay) return result;
    box.last = box.text;
    return {false, box.text};
}

void Worksheet::click(Button& button, bool on) {
    if (button.closes) {
        close(*button.closes);
        return;
    }
    const bool again = button.kind == Button::Kind::Radio && button.checked;
    if (button.clicked && !again) button.clicked(on);
    refresh();
}

void Worksheet::pressReturn(TextBox& box) {
    if (box.returned) box.returned();
    refresh();
}

void Worksheet::pressEscape(TextBox& box) {
    if (box.escaped) box.escaped();
    refresh();
}

void Worksheet::slide(Slider& slider, double value) {
    if (slider.moved) slider.moved(value);
    refresh();
}

void Worksheet::resize(PictureArea& picture, double width, double height) {
    if (picture.resized) picture.resized(width, height);
    refresh();
}

void Worksheet::choose(Choice& choice, int index) {
    const bool again = index == choice.index && !choice.countsAgain();
    if (choice.chosen && !again) choice.chosen(index);
    refresh();
}

void Worksheet::jump(Hypertext& text, const std::string& word) {
    if (text.jumped) text.jumped(word);
    refresh();
}

void Worksheet::leaveCell(Table& table, int row, int column, const std::string& text) {
    act([&] {
        if (table.cellLeft) table.cellLeft(row, column, text);
    });
}

void Worksheet::putCells(Table& table, int row, int column, const CellBlock& cells) {
    act([&] {
        if (table.cellsPut && !cells.empty()) table.cellsPut(row, column, cells);
    });
}

void Worksheet::select(Table& table, const Table::Range& range) {
    table.selection = range;
}

void Worksheet::open(Table& table, int row) {
    act([&] {
        if (table.opened) table.opened(row);
    });
}

void Worksheet::drop(const Table& from, int fromRow, Table& to, int row) {
    act([&] {
        if (to.dropped) to.dropped(from, fromRow, row);
    });
}

void Worksheet::leaveCell(Sheet& sheet, int row, int column, const std::string& text) {
    act([&] {
        if (sheet.cellLeft) sheet.cellLeft(row, column, text);
    });
}

void Worksheet::putCells(Sheet& sheet, int row, int column, const CellBlock& cells) {
    act([&] {
        if (sheet.cellsPut && !cells.empty()) sheet.cellsPut(row, column, cells);
    });
}

void Worksheet::select(Sheet& sheet, const Table::Range& range) {
    if (sheet.selection == range) return;
    sheet.selection = range;
    refresh();
}

void Worksheet::open(Sheet& sheet, int row) {
    act([&] {
        if (sheet.opened) sheet.opened(row);
    });
}

void Worksheet::pressHeading(Sheet& sheet, int column) {
    act([&] {
        if (sheet.headingPressed) sheet.headingPressed(column);
    });
}

void Worksheet::undo(Sheet& sheet) {
    act([&] {
        if (sheet.undone) sheet.undone();
    });
}

void Worksheet::run(const MenuItem& item) {
    if (!item.run || !mayRun(item)) return;
    item.run();
    refresh();
}

bool Worksheet::close(Way way) {
    if (closedBy_) return true;
    const bool closed = mayClose(way);
    if (closed)
        closedBy_ = way;
    else
        refresh();
    return closed;
}

} // namespace metrisk
