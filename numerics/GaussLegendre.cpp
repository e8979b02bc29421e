#include "numerics/GaussLegendre.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace metrisk {

void unitGaussLegendreNodes(std::span<double> x, std::span<double> w) noexcept {
    const std::size_t n = x.size();
    const auto order = static_cast<double>(n);
    for (std::size_t i = 1; i <= (n + 1) / 2; ++i) {
        double z = std::cos(std::numbers::pi * (static_cast<double>(i) - 0.25) / (order + 0.5));
        double pp = 0;
        double last = std::numeric_limits<double>::infinity();
        // Near a root Newton's steps shrink quadratically. One that shrinks no more is rounding, which
        // for orders of many thousands may exceed 1e-14; it ends the iteration as well.
        for (;;) {
            double p1 = 1, p2 = 0;
            for (std::size_t k = 1; k <= n; ++k) {
                const auto j = static_cast<double>(k);
                const double p3 = p2;
                p2 = p1;
                p1 = ((2 * j - 1) * z * p2 - (j - 1) * p3) / j;
            }
            pp = order * (z * p1 - p2) / (z * z - 1);
            const double step = p1 / pp;
            z -= step;
            if (!(std::fabs(step) >= 1e-14 && std::fabs(step) < last)) break;
            last = std::fabs(step);
        }
        x[i - 1] = -z;
        x[n - i] = z;
        w[i - 1] = w[n - i] = 2 / ((1 - z * z) * pp * pp);
    }
}

Nodes GaussLegendreNodes(double x1, double x2, std::size_t n) {
    Nodes nodes{std::vector<double>(n), std::vector<double>(n)};
    unitGaussLegendreNodes(nodes.x, nodes.w);
    const double xm = (x2 + x1) / 2, xl = (x2 - x1) / 2;
    for (double& x : nodes.x) x = xm + xl * x;
    for (double& w : nodes.w) w *= xl;
    return nodes;
}

} // namespace metrisk
