#include "plots/ReadingStrip.h"

#include "numerics/SubjectDensity.h"
#include "risk/decision/ShownFigures.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr std::size_t curveParts = 400;
constexpr double shownSigmas = 5;
constexpr double margin = 0.08; // beside what is shown, as a share of it

constexpr Colour limitColour{128, 0, 0};
constexpr Colour curveColour{51, 56, 62};
constexpr Colour inColour{185, 205, 232};
constexpr Colour outColour{247, 205, 200};
constexpr Colour hatchColour{170, 30, 30};
constexpr Colour readingColour{24, 95, 170};
constexpr double hatchStep = 6; // device units

constexpr double curveTop = 0.80, limitTop = 0.88, foot = 0.22; // shares of the height, from below

/// Density of the true value at a deviation from the mode, to any scale.
double densityAt(const Judge& judge, double reading, double deviation) {
    const DecisionBasis& basis = judge.basis();
    const double t = (reading - deviation) / basis.sigma;
    const double v = basis.degFreedom;
    const double likelihood = v > 0 ? std::pow(1 + t * t / v, -(v + 1) / 2) : std::exp(-t * t / 2);
    if (!judge.population()) return likelihood;
    const SubjectBias& prior = *judge.population();
    return likelihood * SubjectDensity(prior, deviation - (prior.mode - basis.subject.mode), 0, 1);
}

class Drawer {
  public:
    Drawer(DrawingSurface& surface, const ReadingStrip& strip) : surface_(surface), strip_(strip) {
        surface_.Scale(0, 1, 1, 0);
        surface_.Font = {.Size = 8};
        surface_.DrawWidth = 1;
        pixelX_ = 1 / std::max(1.0, surface_.deviceLengthX(1));
        pixelY_ = 1 / std::max(1.0, surface_.deviceLengthY(1));
    }

    void draw() {
        fill();
        outline();
        surface_.Line(0, foot, 1, foot, surface_.ink());
        for (const auto& limit : {strip_.lower, strip_.upper})
            if (limit) surface_.Line(limit->at, foot - 0.02, limit->at, limitTop, limitOnPaper());
        const auto beside = [&](double accept, const std::optional<StripMark>& limit) {
            return !limit || std::fabs(accept - limit->at) >= pixelX_;
        };
        if (strip_.acceptLower && beside(*strip_.acceptLower, strip_.lower)) dashed(*strip_.acceptLower);
        if (strip_.acceptUpper && beside(*strip_.acceptUpper, strip_.upper)) dashed(*strip_.acceptUpper);
        dot(strip_.reading.at);
        texts();
    }

  private:
    Colour limitOnPaper() const {
        return surface_.paper().red < 128 ? between(limitColour, white, 0.6) : limitColour;
    }
    Colour filled(Colour colour) const {
        return surface_.paper().red < 128 ? between(colour, surface_.paper(), 0.55) : colour;
    }
    bool isOut(double x) const {
        return (strip_.lower && x < strip_.lower->at) || (strip_.upper && x > strip_.upper->at);
    }
    double heightAt(double x) const {
        const double place = x * static_cast<double>(strip_.curve.size() - 1);
        const auto i = std::min(static_cast<std::size_t>(place), strip_.curve.size() - 2);
        const double part = place - static_cast<double>(i);
        return foot + (curveTop - foot) * (strip_.curve[i] * (1 - part) + strip_.curve[i + 1] * part);
    }

    /// A column a device unit; the hatching of what is out is that of the whole picture.
    void fill() {
        int column = 0;
        for (double x = 0; x < 1; x += pixelX_, ++column) {
            const double top = heightAt(x + pixelX_ / 2);
            if (top - foot < pixelY_) continue;
            const bool out = isOut(x + pixelX_ / 2);
            surface_.Box(x, foot, x + pixelX_, top, filled(out ? outColour : inColour));
            if (!out) continue;
            const double first = std::fmod(static_cast<double>(column), hatchStep) * pixelY_;
            for (double y = foot + first; y + pixelY_ <= top; y += hatchStep * pixelY_)
                surface_.Box(x, y, x + pixelX_, y + pixelY_, hatchColour);
        }
    }
    void outline() {
        const Colour colour = surface_.paper().red < 128 ? surface_.ink() : curveColour;
        const auto count = static_cast<double>(strip_.curve.size() - 1);
        for (std::size_t i = 1; i < strip_.curve.size(); ++i) {
            const double from = static_cast<double>(i - 1) / count, to = static_cast<double>(i) / count;
            if (strip_.curve[i - 1] < 1e-4 && strip_.curve[i] < 1e-4) continue;
            surface_.Line(from, heightAt(from), to, heightAt(to), colour);
        }
    }
    void dashed(double x) {
        const double dash = 5 * pixelY_;
        for (double y = foot; y < 0.72; y += 2 * dash)
            surface_.Line(x, y, x, std::min(y + dash, 0.72), limitOnPaper());
    }
    void dot(double x) {
        for (int dy = -4; dy <= 4; ++dy) {
            const double half = std::sqrt(20.0 - dy * dy) * pixelX_;
            surface_.Box(x - half, foot + dy * pixelY_, x + half, foot + (dy + 1) * pixelY_, readingColour);
        }
    }

    /// Within the picture; texts of one line give way to each other from left to right.
    double write(const std::string& text, double centre, double y, Colour colour, double after = 0) {
        if (text.empty()) return after;
        const double width = surface_.TextWidth(text);
        const double left = std::max(std::min(centre - width / 2, 1 - width), after);
        surface_.ForeColor = colour;
        surface_.CurrentX = std::max(0.0, left);
        surface_.CurrentY = y;
        surface_.Print(text);
        return left + width + 6 * pixelX_;
    }
    void texts() {
        const double line = -surface_.TextHeight();
        const double below = foot - 0.03;
        double end = 0;
        if (strip_.lower) end = write(strip_.lower->text, strip_.lower->at, below, limitOnPaper());
        if (strip_.upper) write(strip_.upper->text, strip_.upper->at, below, limitOnPaper(), end);
        surface_.Font.Bold = true;
        write(strip_.reading.text, strip_.reading.at, below - line, surface_.ink());
        end = write(strip_.in, 0.25, 1, surface_.ink());
        write(strip_.out, 0.75, 1, surface_.ink(), end);
    }

    DrawingSurface& surface_;
    const ReadingStrip& strip_;
    double pixelX_ = 0, pixelY_ = 0;
};

} // namespace

ReadingStrip readingStrip(const Judge& judge, double reading, const Judgement& judgement) {
    const DecisionBasis& basis = judge.basis();
    const double deviation = judgement.decision.deviation;
    const Interval tolerance = basis.tolerance();
    const double spread = shownSigmas * basis.sigma;
    double from = deviation - spread, to = deviation + spread;
    if (basis.hasLower()) from = std::min(from, tolerance.lower - basis.sigma);
    if (basis.hasUpper()) to = std::max(to, tolerance.upper + basis.sigma);
    const double beside = margin * (to - from);
    from -= beside;
    to += beside;
    const auto share = [&](double at) { return (at - from) / (to - from); };

    ReadingStrip strip;
    double peak = 0;
    for (std::size_t i = 0; i <= curveParts; ++i) {
        const double at = from + (to - from) * static_cast<double>(i) / curveParts;
        strip.curve.push_back(densityAt(judge, deviation, at));
        peak = std::max(peak, strip.curve.back());
    }
    for (double& density : strip.curve) density = peak > 0 ? density / peak : 0;
    const auto unit = [&](double at, bool upper) {
        const std::string& units = judge.texts().unit;
        return judge.texts().limit(basis.subject.mode + at, upper) + (units.empty() ? "" : " " + units);
    };
    if (basis.hasLower())
        strip.lower = {share(tolerance.lower), "lower limit " + unit(tolerance.lower, false)};
    if (basis.hasUpper())
        strip.upper = {share(tolerance.upper), "upper limit " + unit(tolerance.upper, true)};
    if (judgement.acceptance) {
        const auto inside = [&](double at) {
            return std::isfinite(at) && at > from && at < to ? std::optional(share(at)) : std::nullopt;
        };
        strip.acceptLower = inside(judgement.acceptance->lower);
        strip.acceptUpper = inside(judgement.acceptance->upper);
    }
    strip.reading = {share(deviation), "reading " + judge.texts().reading(reading)};
    const Conformance& p = judgement.decision.conformance;
    strip.in = "in " + judgement.conformance;
    strip.out = p.nonconforming > 0
                    ? "out " + shownPercent({p.nonconforming, p.conforming}, {}, judge.texts().regional)
                    : "";
    return strip;
}

void DrawReadingStrip(DrawingSurface& surface, const ReadingStrip& strip) {
    if (strip.curve.size() < 2 || !(surface.deviceWidth() > 0 && surface.deviceHeight() > 0)) return;
    Drawer(surface, strip).draw();
}

} // namespace metrisk
