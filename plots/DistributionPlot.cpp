#include "plots/DistributionPlot.h"

#include "model/NumberFormat.h"
#include "model/Picture.h"
#include "model/ToleranceUnits.h"
#include "numerics/Distribution.h"
#include "plots/PlotScale.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr Colour darkRed{128, 0, 0};
constexpr Colour grey{160, 160, 160};
constexpr double tickShare = 0.03; // length of a tick, in shares of the axis it stands on

constexpr const char* shortForm = "#,##0.0###";
constexpr const char* longForm = "#,##0.0#########";

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
          scale_(SetPlotScale(surface, PlotRole::Distribution, plot.peak)), max_(scale_.plotMax) {}

    std::optional<std::string> draw() {
        frame();
        verticalTicks();
        centre();
        if (!isError()) ends();
        const double half = std::max(surface_.TextWidth(plot_.caption), surface_.TextWidth(central_)) / 2;
        const double x3 = plot_.positions.central;
        if (plot_.lowerExists)
            limit("Lower", plot_.positions.lower, lowerText(),
                  [=](double at, double width) { return x3 - half > at + width / 2; });
        if (plot_.upperExists)
            limit("Upper", plot_.positions.upper, upperText(),
                  [=](double at, double width) { return x3 + half < at - width / 2; });
        scaleNote();
        if (!statistics()) return plot_.distribution;
        curve();
        return {};
    }

  private:
    bool isError() const { return plot_.kind == PlotKind::Error; }

    /// The texts of a total error are in tolerance units.
    double asShown(double value) const { return isError() ? value * plot_.unitsFactor : value; }

    /// A small figure is shown with more decimals than the picture has: three digits tell what it is.
    std::string number(double value, std::string picture) const {
        const double size = std::abs(value);
        if (size > 0 && size < 0.01) {
            const int decimals =
                std::min(2 - static_cast<int>(std::floor(std::log10(size))), maxPictureDecimals);
            const int had = PictureDecimals(picture);
            if (decimals > had) picture.append(static_cast<std::size_t>(decimals - had), '#');
        }
        return FormatNumber(value, picture, regional_);
    }

    void frame() {
        surface_.BackColor = white;
        surface_.Cls();
        surface_.ForeColor = black;
        surface_.DrawWidth = 1;
        surface_.Line(0, 0, 1, 0);
        surface_.Line(0, 0, 0, max_);
        surface_.Font = {.Size = 10, .Bold = false};
        // A low window keeps the title in sight.
        const double height = -surface_.TextHeight();
        const double lines = height > 0 ? std::min(4.0, 0.2 * max_ / height) : 4;
        PrintCentredAt(surface_, plot_.title, 0.5, max_, -lines);
        surface_.Font = {.Size = 8, .Bold = true};
    }

    void verticalTicks() {
        const auto [picture, divisions] = tickRule(max_);
        for (int i = 0; i <= divisions; ++i) {
            const double y = max_ * i / divisions;
            surface_.Line(0, y, -tickShare, y);
            const std::string label = " " + FormatNumber(y, picture, regional_);
            PrintAt(surface_, label, -(surface_.TextWidth(label) + tickShare), y, -0.5);
        }
    }

    void centre() {
        const double x3 = plot_.positions.central;
        const std::string c = number(asShown(plot_.centralValue), shortForm);
        left_ = number(asShown(plot_.leftValue), shortForm);
        right_ = number(asShown(plot_.rightValue), shortForm);
        const bool distinct = (left_ != c || x3 <= 0) && left_ != right_ && (c != right_ || x3 >= 1);
        if (!distinct) left_ = number(asShown(plot_.leftValue), longForm);
        centre_ = c;
        central_ = withUnits(c, isError() ? plot_.toleranceUnits : plot_.nominalUnits);
        if (!(x3 > 0 && x3 < 1)) return;
        surface_.Line(x3, 0, x3, max_, darkRed);
        PrintCentredAt(surface_, plot_.caption, x3, 0, 1.5);
        if (isError()) PrintCentredAt(surface_, plot_.secondCaption, x3, 0, 2.5);
        PrintCentredAt(surface_, central_, x3, max_, -1);
    }

    void ends() {
        const double x3 = plot_.positions.central;
        if (x3 == 0 || left_ != central_) end(0, left_);
        if (x3 == 1 || right_ != central_) end(1, right_);
    }

    void end(double x, const std::string& text) {
        const double tick = tickShare * max_;
        surface_.Line(x, 0, x, -tick);
        PrintCentredAt(surface_, text, x, -2 * tick, 0.5);
    }

    std::string limitText(double value, const char* sign) const {
        if (plot_.showOffsets)
            return sign + withUnits(number((value - plot_.centralValue) * plot_.unitsFactor, shortForm),
                                    plot_.toleranceUnits);
        const std::string text = number(asShown(value), shortForm);
        return text == centre_ ? number(asShown(value), longForm) : text;
    }
    std::string lowerText() const { return limitText(plot_.lowerValue, ""); }
    std::string upperText() const { return limitText(plot_.upperValue, "+"); }

    /// The line of a limit, with its labels where they keep clear of the central ones.
    template <class Clear>
    void limit(const char* side, double at, const std::string& value, Clear clear) {
        if (!(at >= 0 && at <= 1)) return;
        surface_.Line(at, 0, at, max_, darkRed);
        if (!clear(at, WidestLabel(surface_, side, "Limit", value))) return;
        PrintCentredAt(surface_, side, at, 0, 1.5);
        const char* word = plot_.showOffsets ? "Limit" : plot_.byUncertainty ? "Bound" : "Tolerance";
        PrintCentredAt(surface_, word, at, 0, 2.5);
        PrintCentredAt(surface_, value, at, max_, -1);
    }

    void scaleNote() {
        if (scale_.verticalScale == 1) return;
        const std::string text = "Vertical Scale X 10";
        PrintAt(surface_, text, -(surface_.TextWidth(text) + 0.06), max_, -1.9);
        if (scale_.verticalScale == 10) return;
        surface_.CurrentY -= surface_.TextHeight() / 4;
        surface_.Print(FormatNumber(std::log10(scale_.verticalScale), "##0", regional_));
    }

    /// False if the distribution is none that can be drawn.
    bool statistics() {
        const std::string& name = plot_.distribution;
        const auto line = [this](double lines, const std::string& text) {
            PrintCentredAt(surface_, text, 0.5, 0, lines);
        };
        line(4.5, "Distribution: " + (name == logNormalName ? "Lognormal" : name));
        const double sigma = plot_.showOffsets ? plot_.sigma * plot_.unitsFactor : plot_.sigma;
        const std::string& units = plot_.showOffsets ? plot_.toleranceUnits : plot_.nominalUnits;
        line(5.5, "Standard Deviation: " +
                      withUnits(FormatNumber(sigma, WidenPicture(sigma, "#,##0.000"), regional_), units));
        double next = 7.5;
        if (name == normalName)
            next = 6.5;
        else if (name == studentsTName)
            line(6.5, "Degrees of Freedom: " +
                          FormatNumber(plot_.degFreedom, isError() ? "#,##0" : "#,##0.00", regional_));
        else if (name == logNormalName || name == exponentialName)
            line(6.5, "Physical Limit: " +
                          withUnits(GeneralText(plot_.physicalLimit, regional_), plot_.nominalUnits));
        else if (name == uniformName)
            line(6.5, "Physical Limit: Unlimited");
        else
            return false;
        if (isError())
            line(next,
                 plot_.biasIncluded ? "MTE Bias Uncertainty Included" : "MTE Bias Uncertainty Excluded");
        return true;
    }

    void curve() {
        surface_.ForeColor = grey;
        surface_.DrawWidth = 2;
        const PlotPoint* last = nullptr;
        for (const PlotPoint& point : plot_.points) {
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
    std::string left_, right_, centre_, central_;
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
