// What every plot is drawn on: a screen, a printer, a file, or a list of operations.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Colour&) const = default;
};

/// A mixture; 0 is all of the first, 1 all of the second.
Colour between(Colour a, Colour b, double shareOfB);

inline constexpr Colour black{0, 0, 0};
inline constexpr Colour white{255, 255, 255};

/// Text size in points, weight, whether all characters are as wide, and the family, if not the surface's own.
struct TextFont {
    double Size = 8;
    bool Bold = false;
    bool Fixed = false;
    bool Italic = false;
    std::string Family{};
    bool operator==(const TextFont&) const = default;
};

struct Point {
    double x = 0, y = 0;
};

/// Coordinates are the user's own, set by Scale; at first they are device units from the top left corner.
/// Only line widths and text sizes have a size of their own. A surface without width or height takes every
/// operation and measures nothing.
class DrawingSurface {
  public:
    Colour ForeColor;     // of lines and text; at first the surface's ink
    Colour BackColor;     // with which Cls fills; at first its paper
    double DrawWidth = 1; // of lines, in device units
    TextFont Font;
    double CurrentX = 0, CurrentY = 0; // the top left corner of the next text

    virtual ~DrawingSurface() = default;
    DrawingSurface(const DrawingSurface&) = delete;
    DrawingSurface& operator=(const DrawingSurface&) = delete;

    /// The colours in which the surface's surroundings write.
    Colour ink() const { return ink_; }
    Colour paper() const { return paper_; }

    void Cls() { clear(); }
    /// The coordinates of the four edges. With a top above the bottom y grows upward.
    void Scale(double left, double top, double right, double bottom);
    /// Without a colour in ForeColor. The current position moves to the end.
    void Line(double x1, double y1, double x2, double y2, std::optional<Colour> colour = {});
    /// A filled rectangle between two corners.
    void Box(double x1, double y1, double x2, double y2, Colour colour);
    /// Draws at the current position, which moves behind the text.
    void Print(std::string_view text);

    /// In units of x; never negative.
    double TextWidth(std::string_view text) const;
    /// Of one line of text in units of y, with the sign of the y scale: where y grows upward it is negative,
    /// so that y + n * TextHeight lies n lines further down.
    double TextHeight() const;

    /// Lengths in device units; never negative.
    double deviceLengthX(double users) const;
    double deviceLengthY(double users) const;

    /// In device units.
    virtual double deviceWidth() const = 0;
    virtual double deviceHeight() const = 0;

  protected:
    DrawingSurface(Colour ink, Colour paper) : ForeColor(ink), BackColor(paper), ink_(ink), paper_(paper) {}

    virtual void clear() = 0;
    virtual void drawLine(Point from, Point to, Colour colour) = 0;
    virtual void drawBox(Point corner, Point opposite, Colour colour) = 0;
    virtual void drawText(Point topLeft, std::string_view text) = 0;
    /// In device units, in the present font.
    virtual double measureText(std::string_view text) const = 0;
    virtual double measureLine() const = 0;

    Point toDevice(Point user) const;
    bool isEmpty() const { return !(deviceWidth() > 0 && deviceHeight() > 0); }

  private:
    struct Edges {
        double left, top, right, bottom;
    };
    Edges edges() const;

    const Colour ink_, paper_;
    std::optional<Edges> edges_;
};

} // namespace metrisk
