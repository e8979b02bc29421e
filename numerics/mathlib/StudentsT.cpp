#include "numerics/mathlib/StudentsT.h"

#include "numerics/mathlib/Gamma.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace metrisk {

namespace {

constexpr double epsilon = std::numeric_limits<double>::epsilon();

/// Above this many degrees of freedom the t and the normal distribution, with the argument changed as
/// in normalArgument, are one and the same in double precision.
constexpr double normalFrom = 1e10;
/// And above this one they are so without any change of argument.
constexpr double normalExactlyFrom = 1e20;

/// 1/B(1/2, b) = Gamma(b + 1/2)/(Gamma(b) sqrt pi), without the difference of two large logarithms.
double inverseBeta(double b) {
    if (b < 10) return std::exp(Gammln(b + 0.5) - Gammln(b)) / std::sqrt(std::numbers::pi);
    const double exponent = b * std::log1p(0.5 / b) - 0.5 + (stirlingRest(b + 0.5) - stirlingRest(b));
    return std::sqrt(b / std::numbers::pi) * std::exp(exponent);
}

/// Both sides of the two-sided interval, each with its own relative accuracy, and the density.
struct Sides {
    double content; ///< P(|T| <= t)
    double tail;    ///< P(|T| > t)
    double slope;   ///< t times the derivative of the content
};

/// The distribution of one number of degrees of freedom as a function of r = t/sqrt(nu), in which
/// content = I_x(1/2, b), tail = I_y(b, 1/2), b = nu/2, x = r^2/(1 + r^2), y = 1/(1 + r^2).
class TwoSided {
  public:
    explicit TwoSided(double nu) : nu_(nu), b_(nu / 2), inverseBeta_(inverseBeta(nu / 2)) {}

    /// For r > 0.
    Sides at(double r) const {
        const double square = r * r;
        const double logY = r > 1e8 ? -2 * std::log(r) : -std::log1p(square);
        const double y = 1 / (1 + square);
        // x^(1/2) y^b / B(1/2, b)
        const double front = std::exp(b_ * logY) * inverseBeta_ * (r > 1e8 ? 1 : r * std::sqrt(y));
        Sides sides{0, 0, 2 * front};
        if (square * nu_ <= 5 && square <= 1) {
            sides.content = 2 * front * series(0.5, b_, square * y);
            sides.tail = 1 - sides.content;
        } else {
            sides.tail = front / b_ * (square > 1 ? series(b_, 0.5, y) : fraction(square * y, y));
            sides.content = 1 - sides.tail;
        }
        return sides;
    }

    /// The r at which the tail would be `tail` if it were y^b/(b B), which it always exceeds; 0 if
    /// there is none.
    double powerLawStart(double tail) const {
        const double logY = (std::log(tail) + std::log(b_ / inverseBeta_)) / b_;
        return logY < 0 ? std::exp(-0.5 * logY) * std::sqrt(-std::expm1(logY)) : 0;
    }

    double centreStart(double content) const { return content / (2 * inverseBeta_); }

  private:
    /// 2F1(p + q, 1; p + 1; z), p and q being 1/2 and b in either order, by its series of positive terms.
    /// Called with z <= 1/2 where q <= 1/2 or (p + q) z is at most a few, so that it ends soon.
    static double series(double p, double q, double z) {
        double term = 1, sum = 1;
        for (double n = 0; term > sum * epsilon * 0.1; n += 1) sum += term *= (p + q + n) / (p + 1 + n) * z;
        return sum;
    }

    /// The continued fraction of I_y(b, 1/2), divided by front/b (DiDonato and Morris, "Algorithm 708",
    /// ACM Transactions on Mathematical Software 18, 1992, equation 9), modified form of Lentz. x is 1 - y.
    /// Called for b above 2.5 only, so that no divisor is near 0.
    double fraction(double x, double y) const {
        const auto denominator = [&](double m) {
            return m + m * (0.5 - m) * y / (b_ + 2 * m - 1) +
                   (b_ + m) * (b_ * x - 0.5 * y + 1 + m * (1 + x)) / (b_ + 2 * m + 1);
        };
        double value = denominator(0), c = value, d = 0, step = 0;
        // Some sqrt(b) passes are needed, and b is below normalFrom.
        for (double m = 1; std::fabs(step - 1) > epsilon && m < 1e7; m += 1) {
            const double root = y / (b_ + 2 * m - 1);
            const double numerator = (b_ + m - 1) * (b_ + m - 0.5) * m * (0.5 - m) * root * root;
            d = 1 / (denominator(m) + numerator * d);
            c = denominator(m) + numerator / c;
            step = c * d;
            value *= step;
        }
        return b_ / value;
    }

    double nu_, b_, inverseBeta_;
};

/// Newton's method for ln r on the logarithm of one side, which is a concave function of ln r: after
/// the first step it approaches the root from one side only. The steps end when they are at rounding
/// level or no longer shrink; 100 is never reached.
double solve(const TwoSided& distribution, double r, double Sides::*side, double target) {
    const double direction = side == &Sides::content ? -1 : 1;
    double last = std::numeric_limits<double>::infinity();
    for (int pass = 0; pass < 100; ++pass) {
        const Sides sides = distribution.at(r);
        const double step = direction * std::log(sides.*side / target) * (sides.*side) / sides.slope;
        const double size = std::fabs(step);
        if (!(size < last) && pass > 2) break;
        r *= std::exp(step);
        if (size < 2 * epsilon) break;
        last = size;
    }
    return r;
}

/// Wallace's normal deviate of t, and back (Annals of Mathematical Statistics 30, 1959).
double normalArgument(double t, double nu) {
    return (8 * nu + 1) / (8 * nu + 3) * std::sqrt(nu * std::log1p(t * t / nu));
}
double tArgument(double z, double nu) {
    const double wide = z * (8 * nu + 3) / (8 * nu + 1);
    return std::sqrt(nu * std::expm1(wide * wide / nu));
}

/// The t > 0 whose tail P(T > t) is `tail`, from 0 to 0.25.
double fromTail(double nu, double tail) {
    const TwoSided distribution(nu);
    double r = distribution.powerLawStart(2 * tail);
    if (r < 1.5) r = tArgument(-InvNorm(tail), nu) / std::sqrt(nu);
    return r * std::sqrt(nu) <= std::numeric_limits<double>::max()
               ? solve(distribution, r, &Sides::tail, 2 * tail) * std::sqrt(nu)
               : std::numeric_limits<double>::infinity();
}

/// The t > 0 with P(0 <= T <= t) = half, from 0 to 0.25.
double fromCentre(double nu, double half) {
    const TwoSided distribution(nu);
    return solve(distribution, distribution.centreStart(2 * half), &Sides::content, 2 * half) * std::sqrt(nu);
}

} // namespace

double tDistribution(double t, double nu) noexcept {
    if (!(nu > 0) || std::isnan(t)) return std::nan("");
    if (t <= 0) return 0;
    if (std::isinf(t)) return 1;
    if (nu >= normalFrom)
        return std::erf((nu >= normalExactlyFrom ? t : normalArgument(t, nu)) / std::numbers::sqrt2);
    return TwoSided(nu).at(t / std::sqrt(nu)).content;
}

double studentsTail(double t, double nu) noexcept {
    if (!(nu > 0) || std::isnan(t)) return std::nan("");
    if (t == 0) return 0.5;
    if (t < 0) return 0.5 + tDistribution(-t, nu) / 2;
    if (std::isinf(t)) return 0;
    if (nu >= normalFrom) return Normal(-(nu >= normalExactlyFrom ? t : normalArgument(t, nu)));
    return TwoSided(nu).at(t / std::sqrt(nu)).tail / 2;
}

double StudentsT(double nu, double p) noexcept {
    if (!(nu > 0) || !(p > 0 && p < 1) || p == 0.5) return 0;
    const double fromHalf = p - 0.5, half = std::fabs(fromHalf);
    double t = 0;
    if (nu >= normalFrom)
        t = std::fabs(nu >= normalExactlyFrom ? InvNorm(p) : tArgument(InvNorm(p), nu));
    else if (half <= 0.25)
        t = fromCentre(nu, half);
    else
        t = fromTail(nu, fromHalf < 0 ? p : 1 - p);
    return std::isfinite(t) ? std::copysign(t, fromHalf) : 0;
}

} // namespace metrisk
