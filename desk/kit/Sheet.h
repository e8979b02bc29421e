// A table of any length: its cells are asked for as they are seen, never copied.
#pragma once

#include "desk/kit/Controls.h"

namespace metrisk {

struct SheetCell {
    enum class Look {
        Entry,  // typed
        Result, // computed
        Fault   // refused, or not read
    };
    std::string text{};
    std::string tip{};
    Look look = Look::Entry;
    bool locked = false;   // cannot be typed over
    bool isFigure = false; // stands at the right
};

/// Rows and columns count from 0.
class SheetContent {
  public:
    virtual ~SheetContent() = default;
    virtual int rowCount() const = 0;
    virtual int columnCount() const = 0;
    virtual std::string heading(int column) const = 0;
    virtual std::string headingTip(int column) const = 0;
    virtual std::string rowName(int row) const = 0;
    /// Why the row is no good; empty if it is.
    virtual std::string rowFault(int row) const = 0;
    virtual SheetCell cell(int row, int column) const = 0;
};

struct Sheet : Control {
    const SheetContent& content;
    unsigned shape = 0;         // another one where rows or columns have come, gone or moved
    Table::Range selection;     // as the user has left it, or where it is to be
    std::vector<MenuItem> menu; // of the right button
    std::string whenEmpty;      // what it says below its rows where none of them holds anything

    std::function<void(int row, int column, const std::string& text)> cellLeft;
    std::function<void(int row, int column, const CellBlock& cells)> cellsPut;
    std::function<void(int row)> opened; // double click on a cell that is locked
    std::function<void(int column)> headingPressed;
    std::function<void()> undone;

    Sheet(Worksheet& owner, const char* controlName, const SheetContent& shown, std::string tip)
        : Control(owner, controlName, "", std::move(tip)), content(shown) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

} // namespace metrisk
