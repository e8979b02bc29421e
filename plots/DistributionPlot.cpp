#include "plots/DistributionPlot.h"

#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "drawing/Chart.h"
#include "drawing/PaperColours.h"
#include "drawing/PlotScale.h"
#include "drawing/SubSurface.h"
#include "numerics/Distribution.h"
#include "plots/DecisionShading.h"
#include "plots/DistributionTexts.h"
#include "plots/PlotLabels.h"
#include "plots/TextPlaces.h"
#include "record/ToleranceUnits.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr double tallest = 0.875;  // a picture that is higher has paper above and below, of its width
constexpr double tickFont = 7;     // points, of round figures on the axis
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

class Drawer {
  public:
    Drawer(DrawingSurface& surface, const DistributionPlot& plot, const Regional& regional)
        : surface_(surface), plot_(plot), regional_(regional),
          scale_(SetPlotScale(surface, PlotRole::Distribution, plot.peak)), max_(scale_.plotMax),
          ticks_(tickRule(max_)), texts_(textsOf(plot, regional)), places_(surface, fittedEdges()),
          shading_(surface, plot, shown(plot), places_, scale_.verticalScale) {}

    std::optional<std::string> draw() {
        frame();
        shading_.fill();
        grid();
        verticalTicks();
        centre();
        const double half =
            std::max(surface_.TextWidth(plot_.caption), surface_.TextWidth(texts_.central)) / 2;
        const double x3 = plot_.positions.central;
        if (plot_.lowerExists)
            limit("Lower", plot_.positions.lower, texts_.lower,
                  [=](double at, double width) { return x3 - half > at + width / 2; });
        if (plot_.upperExists)
            limit("Upper", plot_.positions.upper, texts_.upper,
                  [=](double at, double width) { return x3 + half < at - width / 2; });
        if (!isError()) ends();
        scaleNote();
        if (!statistics()) return plot_.distribution;
        curve();
        roundTicks();
        shading_.drawKey(regional_);
        return {};
    }

  private:
    bool isError() const { return plot_.kind == PlotKind::Error; }

    /// Where there is less room, the figures under the plot give way.
    bool isSmall() const { return surface_.deviceWidth() < 400 || surface_.deviceHeight() < 300; }
    const FalseDecisions* shown(const DistributionPlot& plot) const {
        return plot.falseDecisions && !isSmall() ? &*plot.falseDecisions : nullptr;
    }

    /// Room in a small picture for the widest figure at the vertical axis and for the lines below the other
    /// one.
    PlotEdges fittedEdges() {
        surface_.Font = {.Size = 8, .Bold = true};
        PlotEdges edges{.left = 0.2, .right = scale_.xRight, .top = 1.2, .bottom = 0.35, .height = max_};
        const double width = surface_.deviceWidth();
        const double height = surface_.deviceHeight();
        if (!(width > 0 && height > 0)) return edges;
        const double line = surface_.deviceLengthY(surface_.TextHeight());
        const double below = line * (isSmall() ? 3.6 : isError() ? 8.6 : 7.6);
        const double above = line * 4.4;
        const double room = std::max(height - below - above, height / 3);
        edges.bottom = std::max(edges.bottom, std::min(below, height / 3) / room);
        edges.top = std::max(edges.top, 1 + std::min(above, height / 3) / room);
        double widest = 0;
        for (int i = 0; i <= ticks_.divisions; ++i)
            widest = std::max(widest, surface_.deviceLengthX(surface_.TextWidth(tickLabel(i))));
        const double share = std::min((widest + 2) / width, 0.3);
        edges.left = std::max(edges.left, ((1 - scale_.xLeft) * share + tickShare) / (1 - share));
        surface_.Scale(-edges.left, edges.top * max_, scale_.xRight, -edges.bottom * max_);
        return edges;
    }

    std::string tickLabel(int i) const {
        return " " + FormatNumber(max_ * i / ticks_.divisions, ticks_.picture, regional_);
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
        const double room = (places_.edges().top - 1) * max_;
        const double lines = height > 0 ? std::min(4.0, room / height) : 4;
        const std::size_t versus = plot_.title.find(" vs. ");
        if (surface_.TextWidth(plot_.title) <= scale_.xRight + places_.edges().left ||
            versus == plot_.title.npos) {
            places_.printCentred(plot_.title, 0.5, max_, -lines);
        } else {
            places_.printCentred(plot_.title.substr(0, versus), 0.5, max_, -lines);
            places_.printCentred(plot_.title.substr(versus + 1), 0.5, max_, 1 - lines);
        }
    }

    Colour limitColour() const { return plotColours::limit.on(surface_.paper()); }
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
        const double from = shownIn(plot_, plot_.leftValue), to = shownIn(plot_, plot_.rightValue);
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
            if (const Place place = places_.placeOf(text, x, -length * max_, 0); places_.fits(place))
                places_.print(text, place);
        }
        surface_.ForeColor = surface_.ink();
        surface_.Font = {.Size = 8, .Bold = true};
    }

    void verticalTicks() {
        for (int i = 0; i <= ticks_.divisions; ++i) {
            const double y = max_ * i / ticks_.divisions;
            surface_.Line(0, y, -tickShare, y);
            const std::string label = tickLabel(i);
            places_.print(label, places_.placeOf(label, -surface_.TextWidth(label) / 2 - tickShare, y, -0.5));
        }
    }

    /// Dashed, which tells it from a limit without colour.
    void centre() {
        const double x3 = plot_.positions.central;
        if (!(x3 > 0 && x3 < 1)) return;
        const double dash = 8 * places_.pixelY();
        for (double y = 0; y < max_; y += 2 * dash)
            surface_.Line(x3, y, x3, std::min(y + dash, max_), limitColour());
        places_.printCentred(plot_.caption, x3, 0, 1.5);
        if (isError()) places_.printCentred(plot_.secondCaption, x3, 0, 2.5);
        places_.printCentred(texts_.central, x3, max_, -1);
    }

    void ends() {
        const double x3 = plot_.positions.central;
        if (x3 == 0 || texts_.left != texts_.central) end(0, texts_.left);
        if (x3 == 1 || texts_.right != texts_.central) end(1, texts_.right);
    }

    /// A figure that would touch another text goes a line lower, else away.
    void end(double x, const std::string& text) {
        const double tick = tickShare * max_;
        surface_.Line(x, 0, x, -tick);
        for (const double lines : {0.5, 1.5}) {
            const Place place = places_.insideSideways(places_.placeOf(text, x, -2 * tick, lines));
            if (!places_.fits(place)) continue;
            places_.print(text, place);
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
            return places_.insideSideways(places_.placeOf(text, at, y, lines));
        };
        if (const Place above = place(value, max_, -1); places_.fits(above)) places_.print(value, above);
        for (const double lines : {1.5, 2.5}) {
            const Place first = place(side, 0, lines);
            const Place second = place(word, 0, lines + 1);
            if (!places_.fits(first) || !places_.fits(second)) continue;
            places_.print(side, first);
            places_.print(word, second);
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
            Place place = places_.placeOf(text, -0.06 - width / 2, max_, lines);
            place.right = std::max(place.right, right);
            place = places_.insideSideways(place);
            if (!places_.fits(place)) continue;
            places_.print(text, place);
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
            if (!isSmall()) places_.printCentred(text, 0.5, 0, lines);
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
    const DistributionTexts texts_;
    TextPlaces places_;
    const DecisionShading shading_;
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
