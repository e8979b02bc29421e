// The controls of a screen without Qt: what each shows, and what happens when it is used.
#pragma once

#include "base/CellBlock.h"
#include "desk/kit/ControlVisitor.h"
#include "desk/kit/FieldResult.h"
#include "desk/kit/Menu.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace metrisk {

class DrawingSurface;
class Worksheet;

/// What any control shows. A control belongs to its worksheet and lives as long.
struct Control {
    const char* const name; // an array control has "_" and its index behind its name
    std::string text;       // of a box, or a caption with its mnemonic
    std::string toolTip;
    bool visible = true;
    bool enabled = true;

    Control(Worksheet& owner, const char* controlName, std::string shownText, std::string tip);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    virtual void accept(ControlVisitor& visitor) = 0;
};

/// A container that is shown or hidden as a whole. Its layout makes it.
struct Panel : Control {
    Panel(Worksheet& owner, const char* controlName) : Control(owner, controlName, "", "") {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

struct Label : Control {
    enum class Tone { Plain, Second, Accent, Good, Warn, Bad };
    enum class Sign { None, Tick, Up };

    Tone tone = Tone::Plain;
    Sign sign = Sign::None;  // before the text
    bool emphasised = false; // stands out among its like
    std::string family;      // of its font; empty: the screen's own

    Label(Worksheet& owner, const char* controlName, std::string caption = "", std::string tip = "")
        : Control(owner, controlName, std::move(caption), std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

/// Figures stand at the right of their box, words at the left.
enum class Holds { Figures, Words };

/// A box of text. One without a rule shows a result: its text can be copied, not changed.
struct TextBox : Control {
    const Holds holds;
    std::string hint;    // what an empty box asks for, or why it is empty
    bool locked = false; // takes no entry now; a result: it was entered or computed on another screen
    bool faded = false;  // what it shows belongs to other entries; it can be used all the same
    std::string mark;    // what is to know about the figure: the box bears a sign that says it; none if empty
    /// The rule that runs when a changed text is left; refused, the box is stayed in. It may raise
    /// RuntimeFault.
    std::function<FieldResult(const std::string& text)> left;
    std::function<void(const std::string& text)> edited; // at each change by typing
    std::function<void()> keyPressed;                    // at each key, also where the text is locked
    std::function<void()> opened;                        // double click or Return in a locked box
    std::function<void()> returned; // Return, once the text is committed; without it the next box is entered
    std::function<void()> escaped;  // Escape, which leaves the screen without it; the typed text is dropped

    /// The text when the box was entered; none if the next comparison counts as a change.
    std::optional<std::string> last;

    TextBox(Worksheet& owner, const char* controlName, std::string tip, Holds content = Holds::Figures)
        : Control(owner, controlName, "", std::move(tip)), holds(content) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    bool isResult() const { return !left && !edited; }
};

/// Marks the box and says why in the line below it; an empty remark takes both away.
inline void setRemark(TextBox& box, Label& line, const std::string& remark) {
    box.mark = line.text = remark;
    line.visible = !remark.empty();
}

enum class Way { Ok, Cancel };

struct Button : Control {
    enum class Kind { Push, Check, Radio };

    const Kind kind;
    const int group;        // radio buttons of one group exclude each other
    bool checked = false;   // check and radio
    bool isDefault = false; // pressed by Return
    bool isPrimary = false; // the act that its screen is for; one a screen
    std::string resting;    // why it cannot be used now: said instead of its tool tip while it is disabled
    /// What a click does; `on` is the state it gives a check or radio button.
    std::function<void(bool on)> clicked;
    std::optional<Way> closes; // the screen is left that way

    Button(Worksheet& owner, Kind buttonKind, const char* controlName, std::string caption, std::string tip,
           int radioGroup = 0)
        : Control(owner, controlName, std::move(caption), std::move(tip)), kind(buttonKind),
          group(radioGroup) {}

    /// Enables it, or has it rest and say why.
    void allow(bool usable, std::string why) {
        enabled = usable;
        resting = std::move(why);
    }

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

struct PushButton : Button {
    PushButton(Worksheet& owner, const char* controlName, std::string caption, std::string tip)
        : Button(owner, Kind::Push, controlName, std::move(caption), std::move(tip)) {}
};

struct CheckBox : Button {
    CheckBox(Worksheet& owner, const char* controlName, std::string caption, std::string tip)
        : Button(owner, Kind::Check, controlName, std::move(caption), std::move(tip)) {}
};

struct RadioButton : Button {
    RadioButton(Worksheet& owner, const char* controlName, std::string caption, std::string tip,
                int radioGroup = 0)
        : Button(owner, Kind::Radio, controlName, std::move(caption), std::move(tip), radioGroup) {}
};

/// One of several texts.
struct Choice : Control {
    std::vector<std::string> items;
    std::string whenEmpty; // what a list says while it has none
    int index = -1;
    std::function<void(int index)> chosen;

    Choice(Worksheet& owner, const char* controlName, std::string tip)
        : Control(owner, controlName, "", std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
    /// Choosing what is chosen already counts as well.
    virtual bool countsAgain() const { return false; }
};

/// The same with all texts in sight. A click on the one chosen already counts as well.
struct ListBox : Choice {
    using Choice::Choice;

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
    bool countsAgain() const override { return true; }
};

/// A bar from 0 to 100: how far a search has come, or a share. Its text stands in it, if there is one.
struct Meter : Control {
    double value = 0;

    Meter(Worksheet& owner, const char* controlName, std::string tip)
        : Control(owner, controlName, "", std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

/// A sample of a colour, whose name is its text.
struct Swatch : Control {
    double color = 0; // red + 256 green + 65536 blue

    Swatch(Worksheet& owner, const char* controlName, std::string caption)
        : Control(owner, controlName, std::move(caption), "") {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

/// A number that is chosen by dragging.
struct Slider : Control {
    double value = 0;
    double from = 0, to = 1;
    std::function<void(double value)> moved; // at each step of the way

    Slider(Worksheet& owner, const char* controlName, std::string tip)
        : Control(owner, controlName, "", std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

/// A picture. Its text says what it shows, for those who do not see it.
struct PictureArea : Control {
    /// Where it was clicked, as shares of width and height from the top left.
    std::function<void(double x, double y)> clicked;
    /// It is shown in that size now, in device units.
    std::function<void(double width, double height)> resized;
    /// It is not shown smaller than that, but scrolled; 0 leaves it to the room there is.
    int leastWidth = 0, leastHeight = 0;

    PictureArea(Worksheet& owner, const char* controlName, std::string description, std::string tip)
        : Control(owner, controlName, std::move(description), std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

    /// Takes what draws the picture; none leaves it empty. It runs whenever the picture is shown or its room
    /// changes, so it owns the values that it draws and shows no boxes.
    void draw(std::function<void(DrawingSurface&)> paint) {
        paint_ = std::move(paint);
        ++drawn_;
    }
    const std::function<void(DrawingSurface&)>& paint() const { return paint_; }
    int drawn() const { return drawn_; } // how often there was another picture

  private:
    std::function<void(DrawingSurface&)> paint_;
    int drawn_ = 0;
};

/// A grid of texts, some of which can be typed over. Rows and columns count from 0.
struct Table : Control {
    struct Cell {
        std::string text;
        bool marked = false; // stands out, as markTip says
        bool locked = false; // cannot be typed over
        bool best = false;   // of its column
    };
    /// Inclusive; empty before anything is selected.
    struct Range {
        int top = 0, left = 0, bottom = -1, right = -1;
        bool empty() const { return bottom < top || right < left; }
        friend bool operator==(const Range&, const Range&) = default;
    };

    std::vector<std::string> headings; // one a column
    std::vector<std::vector<Cell>> rows;
    std::vector<int> figureColumns; // figures stand at the right, as in boxes
    std::string whenEmpty;          // what it says while it has no rows
    std::string markTip;
    bool numbered = true;       // rows bear their numbers
    bool dragged = false;       // its rows can be dragged onto other tables
    std::vector<MenuItem> menu; // of the right button
    Range selection;            // as the user has left it

    /// A cell has been typed over and left.
    std::function<void(int row, int column, const std::string& text)> cellLeft;
    /// Texts have been pasted there, or blanks put by Cut and Delete.
    std::function<void(int row, int column, const CellBlock& cells)> cellsPut;
    std::function<void(int row)> opened; // double click on a row
    /// A row of another table, or of this one, has been dropped on a row.
    std::function<void(const Table& from, int fromRow, int row)> dropped;

    Table(Worksheet& owner, const char* controlName, std::string tip)
        : Control(owner, controlName, "", std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

/// Text of several lines. Each change counts at once.
struct Memo : Control {
    std::function<void(const std::string& text)> edited;

    Memo(Worksheet& owner, const char* controlName, std::string tip)
        : Control(owner, controlName, "", std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

/// Running text with words to click on, marked up as \H heading \h, \B bold \b, \J jump \j.
struct Hypertext : Control {
    std::function<void(const std::string& word)> jumped;

    Hypertext(Worksheet& owner, const char* controlName, std::string tip)
        : Control(owner, controlName, "", std::move(tip)) {}

    void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

} // namespace metrisk
