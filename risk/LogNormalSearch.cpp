#include "risk/LogNormalSearch.h"

#include "base/Real.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr int passes = 1001;

int signOf(Real x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}

/// A distance kept at least `eps` away from 0, with its own sign or, at 0, that of `fallback`.
Real guarded(Real distance, Real eps, Real fallback) {
    if (abs(distance) >= eps) return distance;
    const int sign = distance == 0 ? signOf(fallback) : signOf(distance);
    return sign < 0 ? -eps : eps;
}

/// The case in units of half the tolerance width about the mode: the mode is at 0.
struct Scaled {
    Real near;
    Real far;
    Real d; // guard distance
    Real zTailLow;
    Real zSpan;

    /// Shape from the ratio of both limits' distances to a physical limit at q.
    Real shape(Real q) const {
        const Real s = log((far - q) / guarded(near - q, d, far - q)) / zSpan;
        return s < d ? d : s;
    }

    /// How far the near limit misses its own tail probability with that shape.
    Real error(Real q) const {
        const Real s = shape(q);
        Real r = (near - q) / guarded(-q, d, 1);
        if (r < d) r = d / 100;
        return log(r) / s - s - zTailLow;
    }
};

/// What a pass hands on to the next; the error follows from q.
struct Steps {
    Real q;
    Real step;
    int direction;

    friend bool operator==(const Steps&, const Steps&) = default;
};

} // namespace

LogNormalFit searchLogNormal(const LogNormalCase& c) {
    const Real mode = c.mode;
    const Real nearWidth = abs(Real(c.near) - mode);
    const Real farWidth = abs(Real(c.far) - mode);
    const Real unit = (nearWidth + farWidth) / 2;
    const Scaled s{(c.near - mode) / unit, (c.far - mode) / unit, exp(-Real(c.pctInTol) / 3), c.zTailLow,
                   Real(c.zTailHigh) - c.zTailLow};

    const int outward = c.physLimitBelow ? -1 : 1;
    const Real edge = s.near + s.d * outward;
    Steps steps{
        .q = edge, .step = abs(Real(c.far) - c.near) / abs(farWidth - nearWidth), .direction = outward};
    steps.q += steps.step * outward;
    Real error = s.error(steps.q);

    // The number of passes is the only end: a step that has shrunk to nothing just repeats its error. Where
    // the steps repeat earlier ones, whole rounds of the repetition are left out.
    Steps kept = steps;
    int keptPass = 0;
    for (int pass = 1; pass <= passes; ++pass) {
        const Real oldSize = abs(error);
        const int oldSign = signOf(error);
        steps.q += steps.step * steps.direction;
        if (c.physLimitBelow ? steps.q > edge : steps.q < edge) steps.q = edge;
        error = s.error(steps.q);
        const int sign = signOf(error);
        if (sign == oldSign && abs(error) > oldSize) {
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
