// A hand on a screen without Qt: presses its buttons and types into its boxes, by name.
#pragma once

#include "desk/kit/Worksheet.h"

#include <gtest/gtest.h>

namespace metrisk::testing {

template <class Kind>
Kind& control(Worksheet& screen, std::string_view name) {
    auto* found = dynamic_cast<Kind*>(screen.find(name));
    if (!found)
        throw std::logic_error(std::string(screen.name) + " has no such control " + std::string(name));
    return *found;
}

/// As a click: a check box changes its state. A button that cannot be pressed fails the test.
inline void press(Worksheet& screen, std::string_view name) {
    auto& button = control<Button>(screen, name);
    EXPECT_TRUE(button.enabled && button.visible) << name << " cannot be pressed";
    screen.click(button, button.kind == Button::Kind::Radio || !button.checked);
}

/// Enters the box, types and leaves it.
inline FieldResult type(Worksheet& screen, std::string_view name, const std::string& text) {
    auto& box = control<TextBox>(screen, name);
    EXPECT_FALSE(box.locked) << name << " takes no entry";
    screen.enter(box, box.text);
    screen.key(box);
    screen.edit(box, text);
    return screen.leave(box, text);
}

/// Types over a cell of a table; pastes there; selects a range.
inline void typeCell(Worksheet& screen, std::string_view name, int row, int column, const std::string& text) {
    auto& table = control<Table>(screen, name);
    EXPECT_FALSE(table.rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column)).locked);
    screen.leaveCell(table, row, column, text);
}
inline void paste(Worksheet& screen, std::string_view name, int row, int column, std::string_view text) {
    screen.putCells(control<Table>(screen, name), row, column, readCells(text));
}
inline void selectCells(Worksheet& screen, std::string_view name, const Table::Range& range) {
    screen.select(control<Table>(screen, name), range);
}
inline const Table::Cell& cellOf(Worksheet& screen, std::string_view name, int row, int column) {
    return control<Table>(screen, name)
        .rows.at(static_cast<std::size_t>(row))
        .at(static_cast<std::size_t>(column));
}

/// Runs a menu item, which must have something to run.
inline void choose(Worksheet& screen, const char* name) {
    const MenuItem* item = findItem(screen.menus, name);
    ASSERT_TRUE(item && item->run) << name;
    screen.run(*item);
}

inline const std::string& textOf(Worksheet& screen, std::string_view name) {
    return control<Control>(screen, name).text;
}

} // namespace metrisk::testing
