#include "tests/mathlib/Oracle.h"

#include <boost/math/special_functions.hpp>
#include <boost/multiprecision/cpp_bin_float.hpp>

namespace metrisk::testing::oracle {

namespace {

using Fifty = boost::multiprecision::cpp_bin_float_50;
using Quad = boost::multiprecision::cpp_bin_float_quad;

Value rounded(const Quad& x) {
    return x.convert_to<Value>();
}

} // namespace

Value phi(double x) {
    return (boost::math::erfc(-Fifty(x) / sqrt(Fifty(2))) / 2).convert_to<Value>();
}

Value density(double x) {
    return (exp(-Fifty(x) * x / 2) / sqrt(2 * boost::math::constants::pi<Fifty>())).convert_to<Value>();
}

Value phiInverse(double p) {
    return rounded(-sqrt(Quad(2)) * boost::math::erfc_inv(2 * Quad(p)));
}

Value logGamma(double x) {
    return rounded(boost::math::lgamma(Quad(x)));
}

Value gammaP(double a, double x) {
    return rounded(boost::math::gamma_p(Quad(a), Quad(x)));
}

Value tContent(double t, double nu) {
    const Quad square = Quad(t) * t, n = nu;
    return rounded(boost::math::ibeta(Quad(0.5), n / 2, square / (n + square)));
}

Value tTail(double t, double nu) {
    const Quad n = nu;
    return rounded(boost::math::ibeta(n / 2, Quad(0.5), n / (n + Quad(t) * t)) / 2);
}

Value betaI(double a, double b, double x) {
    return rounded(boost::math::ibeta(Quad(a), Quad(b), Quad(x)));
}

Value tQuantileError(double t, double nu, double p) {
    const Quad n = nu, square = Quad(t) * t;
    const Quad x = square / (n + square), y = n / (n + square);
    const Quad slope = 2 * sqrt(x) * pow(y, n / 2) / boost::math::beta(Quad(0.5), n / 2);
    if ((t < 0) != (p < 0.5)) return 1;
    const Quad fromHalf = abs(Quad(p) - 0.5);
    if (fromHalf < 0.25) return rounded((2 * fromHalf - boost::math::ibeta(Quad(0.5), n / 2, x)) / slope);
    const Quad tail = p < 0.5 ? Quad(p) : 1 - Quad(p);
    return rounded((boost::math::ibeta(n / 2, Quad(0.5), y) - 2 * tail) / slope);
}

} // namespace metrisk::testing::oracle
