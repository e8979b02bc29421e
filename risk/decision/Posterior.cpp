#include "risk/decision/Posterior.h"

#include "risk/exact/Panels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <vector>

namespace metrisk {

namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double wantedSpread = 1e-12; // of a region's content
constexpr std::size_t mostPanels = 600;
constexpr double farTail = 40; // standard variable: beyond it a prior has nothing, unless a limit lies there
constexpr double pastTheLimit = 12; // so far beyond a limit in a tail nothing is left
constexpr double negligible = 60;   // in logarithms

/// Prior times likelihood in the prior's standard variable, in which a region is what lies between two of its
/// values.
class Product {
  public:
    Product(double deviation, const SubjectBias& prior, double sigma, double degFreedom)
        : prior_(prior), deviation_(deviation), sigma_(sigma), degFreedom_(degFreedom) {
        switch (prior.distribution) {
        case Distribution::Normal: scale_ = prior.sigma; break;
        case Distribution::Exponential:
            scale_ = prior.singleUpper ? prior.sideOffset() : -prior.sideOffset();
            break;
        default: scale_ = prior.mode - prior.physicalLimit; break;
        }
    }

    bool exponential() const { return prior_.distribution == Distribution::Exponential; }

    /// Whether the variable grows with the deviation.
    bool increasing() const { return scale_ > 0; }

    /// Of a deviation from the mode; infinite beyond the end of a LogNormal.
    double variable(double deviation) const {
        const double x = deviation / scale_;
        if (prior_.distribution != Distribution::LogNormal) return x;
        return x > -1 ? std::log1p(x) / prior_.logSigma - prior_.logSigma : -infinite;
    }

    double logarithm(double u) const {
        const double t = (deviation_ - deviationAt(u)) / sigma_;
        const double likelihood =
            degFreedom_ > 0 ? (degFreedom_ + 1) * std::log1p(t * t / degFreedom_) : t * t;
        return -(exponential() ? prior_.expExponent * u : u * u / 2) - likelihood / 2;
    }

    /// Ends of panels: where the prior and the likelihood change.
    std::vector<double> breaks(std::span<const double> limits) const {
        std::vector<double> all;
        all.reserve(96);
        for (const double step : {0.0, 2.0, 4.0, 8.0, 16.0, farTail}) {
            all.push_back(exponential() ? step / prior_.expExponent : step);
            all.push_back(exponential() ? 20 * step / prior_.expExponent : -step);
        }
        const auto around = [&](double deviation, std::initializer_list<double> steps) {
            for (const double step : steps)
                for (const double side : {-step, step}) {
                    const double u = variable(deviation + side * sigma_);
                    if (std::isfinite(u)) all.push_back(u);
                }
        };
        around(deviation_, {0, 2, 4, 8, 16, 32});
        for (const double limit : limits) around(limit, {0.5, 1, 2, 4});
        return all;
    }

  private:
    double deviationAt(double u) const {
        if (prior_.distribution != Distribution::LogNormal) return scale_ * u;
        return scale_ * std::expm1(prior_.logSigma * (prior_.logSigma + u));
    }

    const SubjectBias& prior_;
    double deviation_, sigma_, degFreedom_;
    double scale_ = 1;
};

/// content = value exp(logScale).
struct Content {
    double value = 0;
    double logScale = -infinite;
};

struct Panel {
    double from, to;
    PanelSum sum;
};

/// The content between two values of the variable; `breaks` are sorted.
Content contentOf(const Product& product, double from, double to, const std::vector<double>& breaks) {
    if (!(from < to)) return {};
    std::vector<double> ends{from};
    for (const double at : breaks)
        if (at > ends.back() && at < to) ends.push_back(at);
    ends.push_back(to);

    std::vector<double> heights;
    double highest = -infinite;
    const auto keep = [&](double u) {
        heights.push_back(product.logarithm(u));
        highest = std::max(highest, heights.back());
    };
    keep(from);
    for (std::size_t i = 1; i < ends.size(); ++i) {
        keep((ends[i - 1] + ends[i]) / 2);
        keep(ends[i]);
    }
    if (!std::isfinite(highest)) return {};
    const auto integrand = [&](const PanelArray& at, PanelArray& values) {
        for (std::size_t i = 0; i < panelPoints; ++i)
            values[i] = std::exp(product.logarithm(at[i]) - highest);
    };
    std::vector<Panel> panels;
    double total = 0;
    const auto add = [&](double a, double b) {
        panels.push_back({a, b, integratePanel(a, b, integrand)});
        total += panels.back().sum.value;
    };
    for (std::size_t i = 1; i < ends.size(); ++i) {
        const std::size_t at = 2 * i;
        if (std::max({heights[at - 2], heights[at - 1], heights[at]}) > highest - negligible)
            add(ends[i - 1], ends[i]);
    }
    // What is appended is looked at in its turn.
    for (std::size_t i = 0; i < panels.size(); ++i) {
        const Panel panel = panels[i];
        if (panel.sum.spread <= wantedSpread * total || panels.size() > mostPanels) continue;
        const double middle = (panel.from + panel.to) / 2;
        if (!(middle > panel.from && middle < panel.to)) continue;
        total -= panel.sum.value;
        panels[i].sum = {};
        add(panel.from, middle);
        add(middle, panel.to);
    }
    double sum = 0;
    for (const Panel& panel : panels) sum += panel.sum.value;
    return {sum, highest};
}

Content operator+(const Content& a, const Content& b) {
    if (a.value == 0) return b;
    if (b.value == 0) return a;
    const double scale = std::max(a.logScale, b.logScale);
    return {a.value * std::exp(a.logScale - scale) + b.value * std::exp(b.logScale - scale), scale};
}

} // namespace

Conformance integratedConformance(double deviation, const SubjectBias& prior, double sigma,
                                  double degFreedom) {
    const Product product(deviation, prior, sigma, degFreedom);
    std::array<double, 2> limits{};
    std::size_t count = 0;
    if (prior.twoSided || !prior.singleUpper) limits[count++] = -prior.lowerOffset;
    if (prior.twoSided || prior.singleUpper) limits[count++] = prior.upperOffset;
    const std::span present(limits.data(), count);

    std::vector<double> breaks = product.breaks(present);
    std::ranges::sort(breaks);
    const double start = product.exponential() ? 0 : std::min(-farTail, breaks.front()) - pastTheLimit;
    const double end = std::max(farTail, breaks.back()) + pastTheLimit;

    // A parameter whose physical limit lies above runs the other way.
    double low = start, high = end;
    for (const double limit : present) {
        const bool isHigh = (limit > 0) == product.increasing();
        (isHigh ? high : low) = std::clamp(product.variable(limit), start, end);
    }
    const Content inside = contentOf(product, low, high, breaks);
    const Content outside = contentOf(product, start, low, breaks) + contentOf(product, high, end, breaks);
    const Content all = inside + outside;
    const auto share = [&](const Content& part) {
        return part.value == 0 ? 0 : part.value / all.value * std::exp(part.logScale - all.logScale);
    };
    return {share(inside), share(outside)};
}

} // namespace metrisk
