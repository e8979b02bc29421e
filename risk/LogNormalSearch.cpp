#include "risk/LogNormalSearch.h"

#include "base/Real.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr int passes = 1001;

int signOf(double x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}

/// A distance kept at least `eps` away from 0, with its own sign or, at 0, that of `fallback`.
double guarded(double distance, double eps, double fallback) {
    if (std::fabs(distance) >= eps) return distance;
    const double sign = distance == 0 ? fallback : distance;
    return sign < 0 ? -eps : eps;
}

/// The case in units of half the tolerance width about the mode: the mode is at 0.
struct Scaled {
    double near;
    double far;
    double d; // guard distance
    double zTailLow;
    double zSpan;

    /// How far the near limit misses its own tail probability with the shape that the ratio of both limits'
    /// distances to a physical limit at q gives. Checked once: no divisor is below d, and far - q is above 0,
    /// so that nothing which leaves the finite numbers on the way comes back to them.
    double error(double q) const {
        const double fit = std::log((far - q) / guarded(near - q, d, far - q)) / zSpan;
        const double s = fit < d ? d : fit;
        const double ratio = (near - q) / guarded(-q, d, 1);
        const double r = ratio < d ? d / 100 : ratio;
        return checked(std::log(r) / s - s - zTailLow);
    }
};

/// What a pass hands on to the next; the error follows from q.
struct Steps {
    double q;
    double step;
    int direction;

    friend bool operator==(const Steps&, const Steps&) = default;
};

} // namespace

LogNormalFit searchLogNormal(const LogNormalCase& c) {
    const Real mode = c.mode;
    const Real nearWidth = abs(Real(c.near) - mode);
    const Real farWidth = abs(Real(c.far) - mode);
    const Real unit = (nearWidth + farWidth) / 2;
    const Scaled s{((c.near - mode) / unit).value(), ((c.far - mode) / unit).value(),
                   std::exp(-c.pctInTol / 3), c.zTailLow, c.zTailHigh - c.zTailLow};

    const int outward = c.physLimitBelow ? -1 : 1;
    const double edge = s.near + s.d * outward;
    Steps steps{.q = edge,
                .step = (abs(Real(c.far) - c.near) / abs(farWidth - nearWidth)).value(),
                .direction = outward};
    steps.q += steps.step * outward;
    double error = s.error(steps.q);

    // The number of passes is the only end: a step that has shrunk to nothing just repeats its error. Where
    // the steps repeat earlier ones, whole rounds of the repetition are left out.
    Steps kept = steps;
    int keptPass = 0;
    for (int pass = 1; pass <= passes; ++pass) {
        const double oldSize = std::fabs(error);
        const int oldSign = signOf(error);
        steps.q += steps.step * steps.direction;
        if (c.physLimitBelow ? steps.q > edge : steps.q < edge) steps.q = edge;
        error = s.error(steps.q);
        const int sign = signOf(error);
        if (sign == oldSign && std::fabs(error) > oldSize) {
            steps.direction = -steps.direction;
        } else if (sign != 0 && sign == -oldSign) {
            steps.direction = -steps.direction;
            steps.step /= std::sqrt(std::numbers::pi);
        }
        if (steps == kept) {
            const int round = pass - keptPass;
            pass += (passes - pass) / round * round;
        } else if (pass >= keptPass + keptPass / 4 + 4) {
            kept = steps;
            keptPass = pass;
        }
    }

    const Real q = steps.q;
    const Real near = (s.near - q) / -q;
    const Real far = (s.far - q) / -q;
    return {(mode + unit * q).value(), near.value(), far.value(), (log(far / near) / s.zSpan).value()};
}

} // namespace metrisk
