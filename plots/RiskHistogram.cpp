#include "plots/RiskHistogram.h"

#include "base/NumberFormat.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace metrisk {

namespace {

constexpr std::size_t barCount = 24;
constexpr Colour within{31, 102, 184};
constexpr Colour beyond{178, 78, 0};

std::string percent(double fraction, const Regional& regional) {
    return GeneralText(100 * fraction, regional, 3) + " %";
}

} // namespace

void drawRiskHistogram(DrawingSurface& surface, const RiskHistogram& histogram, const Regional& regional) {
    surface.Cls();
    const auto& risks = histogram.risks;
    if (risks.empty()) return;
    const double greatest = *std::max_element(risks.begin(), risks.end());
    const double to = std::max(greatest, 1.25 * histogram.limit);
    if (!(to > 0) || !std::isfinite(to)) return;
    struct Bar {
        std::size_t rows = 0, above = 0;
    };
    std::array<Bar, barCount> bars{};
    for (const double risk : risks) {
        const double place = std::max(risk, 0.0) / to * barCount;
        Bar& bar = bars[std::min(static_cast<std::size_t>(place), barCount - 1)];
        ++bar.rows;
        bar.above += histogram.limit > 0 && risk > histogram.limit;
    }
    const std::size_t highest = std::ranges::max(bars, {}, &Bar::rows).rows;
    const auto height = [highest](std::size_t rows) {
        return static_cast<double>(rows) / static_cast<double>(highest);
    };

    surface.Scale(-0.03, 1.25, 1.03, -0.3);
    constexpr double step = 1.0 / barCount;
    for (std::size_t i = 0; i < barCount; ++i) {
        const double left = static_cast<double>(i) * step;
        const double right = left + 0.9 * step;
        // The limit lies within a bar as a rule: its rows tell which part of the bar is beyond.
        const auto [rows, above] = bars[i];
        if (rows > above) surface.Box(left, 0, right, height(rows - above), within);
        if (above > 0) surface.Box(left, height(rows - above), right, height(rows), beyond);
    }
    surface.ForeColor = surface.ink();
    surface.Line(0, 0, 1, 0);
    const auto below = [&](double x, const std::string& text) {
        surface.CurrentX =
            std::clamp(x - surface.TextWidth(text) / 2, 0.0, std::max(1 - surface.TextWidth(text), 0.0));
        surface.CurrentY = -0.04;
        surface.Print(text);
    };
    below(0, "0");
    below(1, percent(to, regional));
    surface.CurrentX = 0;
    surface.CurrentY = 1.23;
    surface.Print("False accept risk, greatest bar: " + std::to_string(highest) +
                  (highest == 1 ? " row" : " rows"));
    if (!(histogram.limit > 0)) return;
    const double limit = histogram.limit / to;
    surface.Line(limit, 0, limit, 1.02, beyond);
    const std::string text = percent(histogram.limit, regional);
    const double room = surface.TextWidth(text);
    if (limit - room / 2 > surface.TextWidth("0") &&
        limit + room / 2 < 1 - surface.TextWidth(percent(to, regional)))
        below(limit, text);
}

} // namespace metrisk
