#include "numerics/ReliabilitySolver.h"

#include "base/Real.h"

namespace metrisk {

namespace {

/// F reported a failure of its own: the search ends without a result.
struct Stopped {};

class Search {
  public:
    explicit Search(ReliabilityResidual F) : F_(F) {}

    Real residual(Real x) const {
        double value = 0;
        if (!F_(x.value(), value)) throw Stopped{};
        return value;
    }

    /// The Gamma model: ends down to a negative and up to a positive residual. The ends kept are one
    /// step beyond the points of the residuals. Halving a to 0 ends the first loop, overflow of b the
    /// second.
    void spreadGamma() {
        do {
            if (a == 0) throw RuntimeFault{};
            fa = residual(a);
            a /= 2;
        } while (!(fa < 0));
        do {
            fb = residual(b);
            b *= 2;
        } while (!(fb > 0));
    }

    /// Moves the end with the smaller residual outwards until the signs differ. The bracket grows by a
    /// constant factor above 1 each time, so that a search without a change of sign ends in overflow.
    void widen(Real spread) {
        while (!((fa < 0 && fb > 0) || (fa > 0 && fb < 0))) {
            if (abs(fb) == abs(fa)) {
                if (fa == 0) throw RuntimeFault{}; // flat at 0: there is no sign to be found
                fb = -fa;
            } else if (abs(fb) < abs(fa)) {
                b += (b - a) * spread;
                fb = residual(b);
            } else {
                a += (a - b) * spread;
                fa = residual(a);
            }
        }
    }

    Real a, b, fa, fb;

  private:
    ReliabilityResidual F_;
};

void solve(ReliabilityResidual F, ReliabilitySearch& search) {
    const Real spread = abs(Real(search.x) / 5.1);
    Search bracket(F);
    bracket.a = Real(search.x) / 2;
    bracket.b = Real(search.x) * 2;
    if (search.model == gammaReliabilityModel) {
        bracket.spreadGamma();
    } else {
        bracket.fa = bracket.residual(bracket.a);
        bracket.fb = bracket.residual(bracket.b);
    }
    const Real dir = bracket.fb <= bracket.fa ? -1 : 1;
    bracket.widen(spread);

    Real a = bracket.a, width = abs(bracket.b - bracket.a);
    if (a > bracket.b) a = bracket.b;
    Real fm = bracket.residual(a); // the plain value, without the direction
    if (abs(fm) < search.eps) search.x = a.value();
    // A search that cannot reach eps ends when the halved width no longer moves the point, or, about 0,
    // when it is exactly 0.
    while (abs(fm) >= search.eps) {
        width /= 2;
        if (width == 0) {
            search.failed = true;
            break;
        }
        const Real xm = a + width;
        search.x = xm.value();
        fm = dir * bracket.residual(xm);
        if (xm == a && abs(fm) >= search.eps) {
            search.failed = true;
            break;
        }
        if (fm < 0) a = xm;
    }
    if (search.x < 0) search.failed = true;
}

} // namespace

void SolveReliabilityEquation(ReliabilityResidual F, ReliabilitySearch& search) noexcept {
    search.eps = 1e-11;
    search.failed = false;
    if (search.x < 1 || search.x > 100000) search.x = 1;
    try {
        solve(F, search);
    } catch (const RuntimeFault&) {
        search.failed = true;
    } catch (const Stopped&) {
    }
}

} // namespace metrisk
