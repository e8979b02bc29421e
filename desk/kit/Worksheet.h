// A screen without Qt: its controls, what they do, and how it is left.
#pragma once

#include "base/Flag.h"
#include "desk/kit/Controls.h"
#include "desk/kit/Menu.h"
#include "desk/kit/Sheet.h"

#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

/// A screen is a class of these: its controls are members, in the order of their tabs; refresh() shows
/// the record and its own state in them; their rules change both. Whoever shows the screen calls the
/// procedures below, each of which ends in a refresh. They never throw RuntimeFault.
class Worksheet {
  public:
    const char* const name;
    std::string caption;
    const char* const helpPage;
    std::vector<MenuItem> menus;
    const char* toolbarName = "toolbar";
    std::vector<ToolButton> toolbar;

    Worksheet(const char* screenName, std::string screenCaption, const char* page)
        : name(screenName), caption(std::move(screenCaption)), helpPage(page) {}
    virtual ~Worksheet() = default;
    Worksheet(const Worksheet&) = delete;
    Worksheet& operator=(const Worksheet&) = delete;

    const std::vector<Control*>& controls() const { return controls_; }
    /// The control of that name, or null.
    Control* find(std::string_view control) const;

    /// Finds what the screen needs from files, once, before it is shown; boxes may come up.
    virtual void begin() {}
    virtual void refresh() = 0;

    void enter(TextBox& box, const std::string& text);
    void key(TextBox& box);
    void edit(TextBox& box, const std::string& text);
    void edit(Memo& memo, const std::string& text);
    /// Runs the box's rule on a text that differs from the one the box was entered with. A box that is
    /// stayed in shows the result's text, any other its own. Within a rule (a message of it has taken the
    /// focus) nothing runs.
    FieldResult leave(TextBox& box, const std::string& text);
    void pressReturn(TextBox& box);
    void pressEscape(TextBox& box);
    /// A radio button that is chosen already does nothing more.
    void click(Button& button, bool on);
    void choose(Choice& choice, int index);
    void slide(Slider& slider, double value);
    void resize(PictureArea& picture, double width, double height);
    void jump(Hypertext& text, const std::string& word);
    void leaveCell(Table& table, int row, int column, const std::string& text);
    void putCells(Table& table, int row, int column, const CellBlock& cells);
    void select(Table& table, const Table::Range& range);
    void open(Table& table, int row);
    void drop(const Table& from, int fromRow, Table& to, int row);
    void leaveCell(Sheet& sheet, int row, int column, const std::string& text);
    void putCells(Sheet& sheet, int row, int column, const CellBlock& cells);
    void select(Sheet& sheet, const Table::Range& range);
    void open(Sheet& sheet, int row);
    void pressHeading(Sheet& sheet, int column);
    void undo(Sheet& sheet);
    void run(const MenuItem& item);
    /// Asks whether the screen may be left that way; true if it is.
    bool close(Way way);

    /// How it was left; none while it is open.
    std::optional<Way> closedBy() const { return closedBy_; }
    /// A rule is at work.
    bool leaving() const { return leaving_; }

  protected:
    virtual bool mayClose(Way) { return true; }
    /// Runs a box's rule. A screen whose record must survive a numeric fault puts it back here.
    virtual FieldResult runRule(TextBox& box, const std::string& text) { return box.left(text); }
    /// Before a command of a menu; false keeps it from running.
    virtual bool mayRun(const MenuItem&) { return true; }

  private:
    friend struct Control;
    void act(const std::function<void()>& rule);

    std::vector<Control*> controls_;
    std::optional<Way> closedBy_;
    Flag leaving_;
};

} // namespace metrisk
