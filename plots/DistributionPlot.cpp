#include "plots/DistributionPlot.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "drawing/Chart.h"
#include "drawing/PaperColours.h"
#include "drawing/PlotScale.h"
#include "drawing/SubSurface.h"
#include "numerics/Distribution.h"
#include "plots/PlotLabels.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double tallest = 0.875;        // a picture that is higher has paper above and below, of its width
constexpr double fillShare = 16.0 / 255; // of the curve's colour, under it
constexpr double tintShare = 0.35;       // of a hatching's colour, between its lines
constexpr double hatchStep = 5;          // device units
constexpr double tickFont = 7;           // points, of round figures on the axis
constexpr double tickShare = 0.03;       // length of a tick, in shares of the axis it stands on

struct TickRule {
    const char* picture;
    int divisions;
};

TickRule tickRule(double plotMax) {
    if (plotMax < 1) return {".000", TickDivisions(plotMax * 100000)};
    if (plotMax < 10) return {".00", TickDivisions(plotMax * 10000)};
    return {plotMax < 1000 ? "##0.0" : "#,##0", 4};
}

/// Rectangles that hold text, in the plot's coordinates with y upward.
struct Place {
    double left, right, bottom, top;

    bool touches(const Place& other, double gapX, double gapY) const {
        return left < other.right + gapX && other.left < right + gapX && bottom < other.top + gapY &&
               other.bottom < top + gapY;
    }
};

class Drawer {
  public:
    Drawer(DrawingSurface& surface, const DistributionPlot& plot, const Regional& regional)
        : surface_(surface), plot_(plot), regional_(regional),
          scale_(SetPlotScale(surface, PlotRole::Distribution, plot.peak)), max_(scale_.plotMax),
          ticks_(tickRule(max_)) {
        surface_.Font = {.Size = 8, .Bold = true};
        fitScale();
    }

    std::optional<std::string> draw() {
        frame();
        fill();
        grid();
        verticalTicks();
        writeLabels();
        centre();
        const double half = std::max(surface_.TextWidth(plot_.caption), surface_.TextWidth(central_)) / 2;
        const double x3 = plot_.positions.central;
        if (plot_.lowerExists)
            limit("Lower", plot_.positions.lower, lowerText_,
                  [=](double at, double width) { return x3 - half > at + width / 2; });
        if (plot_.upperExists)
            limit("Upper", plot_.positions.upper, upperText_,
                  [=](double at, double width) { return x3 + half < at - width / 2; });
        if (!isError()) ends();
        scaleNote();
        if (!statistics()) return plot_.distribution;
        curve();
        roundTicks();
        key();
        return {};
    }

  private:
    bool isError() const { return plot_.kind == PlotKind::Error; }

    /// The texts of a total error are in tolerance units.
    double asShown(double value) const { return isError() ? value * plot_.unitsFactor : value; }

    /// Where there is less room, the figures under the plot give way.
    bool isSmall() const { return surface_.deviceWidth() < 400 || surface_.deviceHeight() < 300; }

    /// Room in a small picture for the widest figure at the vertical axis and for the lines below the other
    /// one.
    void fitScale() {
        const double width = surface_.deviceWidth();
        const double height = surface_.deviceHeight();
        if (!(width > 0 && height > 0)) return;
        const double line = surface_.deviceLengthY(surface_.TextHeight());
        const double below = line * (isSmall() ? 3.6 : isError() ? 8.6 : 7.6);
        const double above = line * 4.4;
        const double room = std::max(height - below - above, height / 3);
        bottom_ = std::max(bottom_, std::min(below, height / 3) / room);
        top_ = std::max(top_, 1 + std::min(above, height / 3) / room);
        double widest = 0;
        for (int i = 0; i <= ticks_.divisions; ++i)
            widest = std::max(widest, surface_.deviceLengthX(surface_.TextWidth(tickLabel(i))));
        const double share = std::min((widest + 2) / width, 0.3);
        left_ = std::max(left_, ((1 - scale_.xLeft) * share + tickShare) / (1 - share));
        surface_.Scale(-left_, top_ * max_, scale_.xRight, -bottom_ * max_);
    }

    std::string tickLabel(int i) const {
        return " " + FormatNumber(max_ * i / ticks_.divisions, ticks_.picture, regional_);
    }

    Place placeOf(const std::string& text, double x, double y, double lines) const {
        const double width = surface_.TextWidth(text);
        const double top = y + lines * surface_.TextHeight();
        return {x - width / 2, x + width / 2, top + surface_.TextHeight(), top};
    }

    /// Moved sideways into the picture.
    Place insideSideways(Place place) const {
        const double edge = 2 * pixelX();
        const double width = place.right - place.left;
        place.left = std::max(std::min(place.left, scale_.xRight - edge - width), -left_ + edge);
        place.right = place.left + width;
        return place;
    }
    bool isInside(const Place& place) const {
        const double slackX = pixelX() / 4, slackY = pixelY() / 4; // what touches the edge is inside
        return place.left >= -left_ - slackX && place.right <= scale_.xRight + slackX &&
               place.top <= top_ * max_ + slackY && place.bottom >= -bottom_ * max_ - slackY;
    }
    bool isFree(const Place& place) const {
        // Lines below each other do not touch.
        return std::none_of(taken_.begin(), taken_.end(), [&](const Place& other) {
            return place.touches(other, 4 * pixelX(), -pixelY());
        });
    }
    double pixelX() const { return (scale_.xRight + left_) / std::max(surface_.deviceWidth(), 1.0); }
    double pixelY() const { return (top_ + bottom_) * max_ / std::max(surface_.deviceHeight(), 1.0); }

    void print(const std::string& text, const Place& place) {
        taken_.push_back(place);
        PrintAt(surface_, text, place.left, place.top, 0);
    }

    void printCentred(const std::string& text, double x, double y, double lines) {
        if (const Place place = insideSideways(placeOf(text, x, y, lines)); !text.empty() && isInside(place))
            print(text, place);
    }

    void frame() {
        surface_.BackColor = surface_.paper();
        surface_.Cls();
        surface_.ForeColor = surface_.ink();
        surface_.DrawWidth = 1;
        surface_.Line(0, 0, 1, 0);
        surface_.Line(0, 0, 0, max_);
        surface_.Font = {.Size = 10, .Bold = false};
        title();
        surface_.Font = {.Size = 8, .Bold = true};
    }

    /// Four lines above the plot; a low window keeps it in sight, a narrow one breaks it.
    void title() {
        const double height = -surface_.TextHeight();
        const double room = (top_ - 1) * max_;
        const double lines = height > 0 ? std::min(4.0, room / height) : 4;
        const std::size_t versus = plot_.title.find(" vs. ");
        if (surface_.TextWidth(plot_.title) <= scale_.xRight + left_ || versus == plot_.title.npos) {
            printCentred(plot_.title, 0.5, max_, -lines);
        } else {
            printCentred(plot_.title.substr(0, versus), 0.5, max_, -lines);
            printCentred(plot_.title.substr(versus + 1), 0.5, max_, 1 - lines);
        }
    }

    Colour limitColour() const { return plotColours::limit.on(surface_.paper()); }
    Colour tint(PlotColour colour, double share) const {
        return between(surface_.paper(), colour.on(surface_.paper()), share);
    }

    /// What is drawn in columns, at one place of the axis.
    struct Column {
        double height;
        double accepted; // probability; below 0 where none is known
    };
    /// Calls draw(x, width, column, index) for a column a device unit.
    template <class Draw>
    void forColumns(Draw draw) const {
        const std::vector<PlotPoint>& line = plot_.line.empty() ? plot_.points : plot_.line;
        if (line.size() < 2) return;
        std::size_t next = 1;
        int index = 0;
        for (double x = 0; x < 1; x += pixelX(), ++index) {
            const double middle = x + pixelX() / 2;
            while (next + 1 < line.size() && static_cast<double>(line[next].x) < middle) ++next;
            const double from = static_cast<double>(line[next - 1].x), to = static_cast<double>(line[next].x);
            const double part = to > from ? std::clamp((middle - from) / (to - from), 0.0, 1.0) : 1;
            const auto mixed = [part](double a, double b) { return a + (b - a) * part; };
            const double accepted = isShaded() ? mixed(plot_.falseDecisions->accepted[next - 1],
                                                       plot_.falseDecisions->accepted[next])
                                               : -1;
            draw(middle, std::min(pixelX(), 1 - x),
                 Column{mixed(height(line[next - 1]), height(line[next])), accepted}, index);
        }
    }

    bool isShaded() const { return plot_.falseDecisions && !isSmall(); }
    bool isInTolerance(double x) const {
        return (!plot_.lowerExists || x >= static_cast<double>(plot_.positions.lower)) &&
               (!plot_.upperExists || x <= static_cast<double>(plot_.positions.upper));
    }

    /// Faint under the curve; what is falsely accepted out of tolerance, and falsely rejected in it, stands
    /// out. The hatching is one of the whole picture and made of its own lines: a clipped pattern is drawn
    /// over the whole page by some readers of files.
    void fill() {
        const Colour faint = tint(plotColours::curve, fillShare);
        const Colour accept = plotColours::falseAccept.on(surface_.paper());
        forColumns([&](double middle, double width, const Column& column, int index) {
            const double left = middle - pixelX() / 2;
            if (column.height < pixelY()) return;
            surface_.Box(left, 0, left + width, column.height, faint);
            const double accepted = column.height * column.accepted;
            if (column.accepted < 0) return;
            if (isInTolerance(middle))
                hatch(left, width, accepted, column.height, index);
            else if (accepted > pixelY() / 2)
                surface_.Box(left, 0, left + width, accepted, accept);
        });
    }

    void hatch(double left, double width, double from, double to, int index) {
        if (to - from < pixelY() / 2) return;
        surface_.Box(left, from, left + width, to, tint(plotColours::falseReject, tintShare));
        const double step = hatchStep * pixelY();
        const double phase = std::fmod(static_cast<double>(index), hatchStep) * pixelY();
        const Colour line = plotColours::falseReject.on(surface_.paper());
        for (double y = std::ceil((from - phase) / step) * step + phase; y + pixelY() <= to; y += step)
            surface_.Box(left, y, left + width, y + pixelY(), line);
    }

    void grid() {
        const Colour faint = plotColours::grid.on(surface_.paper());
        for (int i = 1; i <= ticks_.divisions; ++i) {
            const double y = max_ * i / ticks_.divisions;
            surface_.Line(0, y, 1, y, faint);
        }
    }

    /// Round figures where they touch no other text and are not near an end, which has its own.
    void roundTicks() {
        constexpr double atEnds = 0.03, length = 0.012;
        if (isSmall()) return;
        const double from = asShown(plot_.leftValue), to = asShown(plot_.rightValue);
        if (!(to > from)) return;
        const Axis axis = roundAxisOver("", from, to);
        const std::string picture = PictureForDecimals(axis.decimals);
        surface_.Font = {.Size = tickFont};
        surface_.ForeColor = plotColours::second.on(surface_.paper());
        for (int i = 0; axis.firstTick + i * axis.step < to; ++i) {
            const double value = axis.firstTick + i * axis.step;
            const double x = (value - from) / (to - from);
            if (x < atEnds || x > 1 - atEnds) continue;
            surface_.Line(x, 0, x, -length * max_);
            const std::string text = FormatNumber(value, picture, regional_);
            if (const Place place = placeOf(text, x, -length * max_, 0); isInside(place) && isFree(place))
                print(text, place);
        }
        surface_.ForeColor = surface_.ink();
        surface_.Font = {.Size = 8, .Bold = true};
    }

    double highest(double from, double to) const {
        double greatest = 0;
        for (const PlotPoint& point : plot_.line)
            if (static_cast<double>(point.x) >= from && static_cast<double>(point.x) <= to)
                greatest = std::max(greatest, height(point));
        return greatest;
    }

    /// What the shading means, in the first corner that is free.
    void key() {
        if (!isShaded()) return;
        const FalseDecisions& f = *plot_.falseDecisions;
        const auto share = [](double fraction) { return shownPercent({fraction, 1 - fraction}); };
        const std::string texts[] = {"falsely accepted " + share(f.falselyAccepted),
                                     "falsely rejected " + share(f.falselyRejected), "of all units tested"};
        surface_.Font = {.Size = 8};
        const double line = -1.3 * surface_.TextHeight();
        const double sample = 14 * pixelX(), gap = 6 * pixelX();
        double width = 0;
        for (const std::string& text : texts) width = std::max(width, surface_.TextWidth(text));
        width += sample + gap;
        const double below = 4.5 * surface_.TextHeight();
        for (const auto& [left, top] : {std::pair{1 - width - gap, max_ - 0.2 * line},
                                        {gap, max_ - 0.2 * line},
                                        {-left_ + gap, below},
                                        {scale_.xRight - gap - width, below}}) {
            const Place room{left, left + width, top - 3.2 * line, top};
            const bool onCurve =
                top > 0 && (highest(room.left, room.right) > room.bottom || crossesLimit(room));
            if (onCurve || !isInside(room) || !isFree(room)) continue;
            for (int i = 0; i < 3; ++i) {
                const double row = room.top - i * line;
                if (i == 0)
                    surface_.Box(left, row - 0.7 * line, left + sample, row - 0.1 * line,
                                 plotColours::falseAccept.on(surface_.paper()));
                if (i == 1)
                    for (int column = 0; column < 14; ++column)
                        hatch(left + column * pixelX(), pixelX(), row - 0.7 * line, row - 0.1 * line, column);
                if (i == 2) surface_.ForeColor = plotColours::second.on(surface_.paper());
                PrintAt(surface_, texts[i], left + sample + gap, row, 0);
            }
            taken_.push_back(room);
            break;
        }
        surface_.ForeColor = surface_.ink();
        surface_.Font = {.Size = 8, .Bold = true};
    }
    bool crossesLimit(const Place& room) const {
        for (const auto& [there, at] : {std::pair{plot_.lowerExists, plot_.positions.lower},
                                        {plot_.upperExists, plot_.positions.upper},
                                        {true, plot_.positions.central}})
            if (there && static_cast<double>(at) > room.left && static_cast<double>(at) < room.right)
                return true;
        return false;
    }

    void verticalTicks() {
        for (int i = 0; i <= ticks_.divisions; ++i) {
            const double y = max_ * i / ticks_.divisions;
            surface_.Line(0, y, -tickShare, y);
            const std::string label = tickLabel(i);
            print(label, placeOf(label, -surface_.TextWidth(label) / 2 - tickShare, y, -0.5));
        }
    }

    bool isDrawn(bool exists, double at) const { return exists && at >= 0 && at <= 1; }

    void writeLabels() {
        const PlotPositions& at = plot_.positions;
        const double lower = asShown(plot_.lowerValue);
        const double upper = asShown(plot_.upperValue);
        const double middle = asShown(plot_.centralValue);
        const bool hasLower = isDrawn(plot_.lowerExists, at.lower);
        const bool hasUpper = isDrawn(plot_.upperExists, at.upper);
        double least = 0;
        for (const auto& [drawn, distance] :
             {std::pair{hasLower, std::abs(lower - middle)}, {hasUpper, std::abs(upper - middle)}})
            if (drawn && distance > 0 && (least == 0 || distance < least)) least = distance;
        if (least == 0) least = asShown(plot_.rightValue - plot_.leftValue);
        const double tolerance = least / 100;

        std::vector<double> values{middle};
        const auto add = [&values](bool shown, double value) {
            if (shown) values.push_back(value);
        };
        const bool limitsAsValues = !plot_.showOffsets;
        add(!isError(), plot_.leftValue);
        add(!isError(), plot_.rightValue);
        add(limitsAsValues && hasLower, lower);
        add(limitsAsValues && hasUpper, upper);
        const std::vector<std::string> texts = labelTexts(values, tolerance, regional_);
        auto next = texts.begin();
        const auto take = [&](bool shown) { return shown ? *next++ : std::string(); };
        central_ = withUnits(take(true), isError() ? plot_.toleranceUnits : plot_.nominalUnits);
        leftText_ = take(!isError());
        rightText_ = take(!isError());
        lowerText_ = take(limitsAsValues && hasLower);
        upperText_ = take(limitsAsValues && hasUpper);
        if (limitsAsValues) return;
        const double factor = plot_.unitsFactor;
        const double offsets[] = {(plot_.lowerValue - plot_.centralValue) * factor,
                                  (plot_.upperValue - plot_.centralValue) * factor};
        const auto signedTexts = labelTexts(offsets, isError() ? tolerance : tolerance * factor, regional_);
        lowerText_ = withUnits(signedTexts[0], plot_.toleranceUnits);
        upperText_ = "+" + withUnits(signedTexts[1], plot_.toleranceUnits);
    }

    /// Dashed, which tells it from a limit without colour.
    void centre() {
        const double x3 = plot_.positions.central;
        if (!(x3 > 0 && x3 < 1)) return;
        const double dash = 8 * pixelY();
        for (double y = 0; y < max_; y += 2 * dash)
            surface_.Line(x3, y, x3, std::min(y + dash, max_), limitColour());
        printCentred(plot_.caption, x3, 0, 1.5);
        if (isError()) printCentred(plot_.secondCaption, x3, 0, 2.5);
        printCentred(central_, x3, max_, -1);
    }

    void ends() {
        const double x3 = plot_.positions.central;
        if (x3 == 0 || leftText_ != central_) end(0, leftText_);
        if (x3 == 1 || rightText_ != central_) end(1, rightText_);
    }

    /// A figure that would touch another text goes a line lower, else away.
    void end(double x, const std::string& text) {
        const double tick = tickShare * max_;
        surface_.Line(x, 0, x, -tick);
        for (const double lines : {0.5, 1.5}) {
            const Place place = insideSideways(placeOf(text, x, -2 * tick, lines));
            if (!isInside(place) || !isFree(place)) continue;
            print(text, place);
            return;
        }
    }

    /// The line of a limit, with its labels where they keep clear of the central ones.
    template <class Clear>
    void limit(const char* side, double at, const std::string& value, Clear clear) {
        if (!(at >= 0 && at <= 1)) return;
        surface_.Line(at, 0, at, max_, limitColour());
        if (!clear(at, WidestLabel(surface_, side, "Limit", value))) return;
        const char* word = plot_.showOffsets ? "Limit" : plot_.byUncertainty ? "Bound" : "Tolerance";
        const auto place = [&](const std::string& text, double y, double lines) {
            return insideSideways(placeOf(text, at, y, lines));
        };
        const auto fits = [this](const Place& where) { return isInside(where) && isFree(where); };
        if (const Place above = place(value, max_, -1); fits(above)) print(value, above);
        for (const double lines : {1.5, 2.5}) {
            const Place first = place(side, 0, lines);
            const Place second = place(word, 0, lines + 1);
            if (!fits(first) || !fits(second)) continue;
            print(side, first);
            print(word, second);
            return;
        }
    }

    void scaleNote() {
        if (scale_.verticalScale == 1) return;
        const std::string text = "Vertical Scale X 10";
        const std::string power = scale_.verticalScale == 10
                                      ? ""
                                      : FormatNumber(std::log10(scale_.verticalScale), "##0", regional_);
        const double width = surface_.TextWidth(text);
        const double right = -0.06 + surface_.TextWidth(power);
        for (const double lines : {-1.9, -2.2}) {
            Place place = placeOf(text, -0.06 - width / 2, max_, lines);
            place.right = std::max(place.right, right);
            place = insideSideways(place);
            if (!isInside(place) || !isFree(place)) continue;
            print(text, place);
            printPower(power);
            return;
        }
    }

    /// Raised, behind what was printed last.
    void printPower(const std::string& power) {
        if (power.empty()) return;
        surface_.CurrentY -= surface_.TextHeight() / 4;
        surface_.Print(power);
    }

    /// False if the distribution is none that can be drawn.
    bool statistics() {
        const std::string& name = plot_.distribution;
        const auto line = [this](double lines, const std::string& text) {
            if (!isSmall()) printCentred(text, 0.5, 0, lines);
        };
        line(4.5, "Distribution: " + (name == logNormalName ? "Lognormal" : name));
        const bool inToleranceUnits = plot_.showOffsets || isError();
        const double sigma = inToleranceUnits ? plot_.sigma * plot_.unitsFactor : plot_.sigma;
        line(5.5, "Standard Deviation: " + withUnits(sigmaText(sigma, regional_), inToleranceUnits
                                                                                      ? plot_.toleranceUnits
                                                                                      : plot_.nominalUnits));
        double next = 7.5;
        if (name == normalName)
            next = 6.5;
        else if (name == studentsTName)
            line(6.5, "Degrees of Freedom: " + freedomText());
        else if (name == logNormalName || name == exponentialName)
            line(6.5, "Physical Limit: " +
                          withUnits(FormatNumber(plot_.physicalLimit, plot_.physicalPicture, regional_),
                                    plot_.nominalUnits));
        else if (name == uniformName)
            line(6.5, "Physical Limit: Unlimited");
        else
            return false;
        if (isError())
            line(next,
                 plot_.biasIncluded ? "MTE Bias Uncertainty Included" : "MTE Bias Uncertainty Excluded");
        return true;
    }

    std::string freedomText() const {
        if (plot_.kind == PlotKind::SU) return "0"; // never drawn: a subject has none
        return FormatNumber(plot_.degFreedom, isError() ? "#,##0" : "#,##0.00", regional_);
    }

    void curve() {
        surface_.ForeColor = plotColours::curve.on(surface_.paper());
        surface_.DrawWidth = 2;
        const std::vector<PlotPoint>& line = plot_.line.empty() ? plot_.points : plot_.line;
        const PlotPoint* last = nullptr;
        for (const PlotPoint& point : line) {
            if (last) surface_.Line(last->x, height(*last), point.x, height(point));
            last = &point;
        }
        surface_.DrawWidth = 1;
        surface_.ForeColor = surface_.ink();
    }
    double height(const PlotPoint& point) const { return point.density / scale_.verticalScale; }

    DrawingSurface& surface_;
    const DistributionPlot& plot_;
    const Regional& regional_;
    const PlotScale scale_;
    const double max_;
    const TickRule ticks_;
    double left_ = 0.2, top_ = 1.2, bottom_ = 0.35; // the edges, in shares of the axes
    std::string central_, leftText_, rightText_, lowerText_, upperText_;
    std::vector<Place> taken_;
};

} // namespace

std::optional<std::string> DrawDistributionPlot(DrawingSurface& surface, const DistributionPlot& plot,
                                                const Regional& regional) {
    const double width = surface.deviceWidth(), height = surface.deviceHeight();
    const double most = tallest * width;
    const bool tall = height > most && width > 0;
    if (plot.holdsData() && !tall) return Drawer(surface, plot, regional).draw();
    surface.BackColor = surface.paper();
    surface.Cls();
    if (!plot.holdsData()) return {};
    surface.Scale(0, 0, width, height);
    SubSurface middle(surface, {0, (height - most) / 2}, width, most);
    return Drawer(middle, plot, regional).draw();
}

} // namespace metrisk
