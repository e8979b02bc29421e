#include "plots/DistributionPlot.h"

#include "base/NumberFormat.h"
#include "drawing/PlotScale.h"
#include "numerics/Distribution.h"
#include "plots/PlotLabels.h"
#include "record/ToleranceUnits.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr Colour darkRed{128, 0, 0};
constexpr Colour curveColour{51, 56, 62};
constexpr double tickShare = 0.03; // length of a tick, in shares of the axis it stands on

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
        surface_.BackColor = white;
        surface_.Cls();
        surface_.ForeColor = black;
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
            surface_.Line(x3, y, x3, std::min(y + dash, max_), darkRed);
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
        surface_.Line(at, 0, at, max_, darkRed);
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
        surface_.ForeColor = curveColour;
        surface_.DrawWidth = 2;
        const std::vector<PlotPoint>& line = plot_.line.empty() ? plot_.points : plot_.line;
        const PlotPoint* last = nullptr;
        for (const PlotPoint& point : line) {
            if (last) surface_.Line(last->x, height(*last), point.x, height(point));
            last = &point;
        }
        surface_.DrawWidth = 1;
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
    if (plot.holdsData()) return Drawer(surface, plot, regional).draw();
    surface.BackColor = white;
    surface.Cls();
    return {};
}

} // namespace metrisk
