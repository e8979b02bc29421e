// The kinds of controls, once: whoever shows, binds or explains them names each, or does not compile.
#pragma once

namespace metrisk {

struct Panel;
struct Label;
struct TextBox;
struct Button;
struct Choice;
struct ListBox;
struct Meter;
struct Swatch;
struct Slider;
struct PictureArea;
struct Table;
struct Sheet;
struct Memo;
struct Hypertext;

/// Pure throughout: a new kind is a compile error in every visitor that has forgotten it.
class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;
    virtual void visit(Panel& panel) = 0;
    virtual void visit(Label& label) = 0;
    virtual void visit(TextBox& box) = 0;
    virtual void visit(Button& button) = 0; // push, check and radio
    virtual void visit(Choice& choice) = 0;
    virtual void visit(ListBox& list) = 0;
    virtual void visit(Meter& meter) = 0;
    virtual void visit(Swatch& swatch) = 0;
    virtual void visit(Slider& slider) = 0;
    virtual void visit(PictureArea& picture) = 0;
    virtual void visit(Table& table) = 0;
    virtual void visit(Sheet& sheet) = 0;
    virtual void visit(Memo& memo) = 0;
    virtual void visit(Hypertext& text) = 0;
};

} // namespace metrisk
