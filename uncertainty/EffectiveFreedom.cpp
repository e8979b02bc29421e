#include "uncertainty/EffectiveFreedom.h"

#include "base/Real.h"

namespace metrisk {

void EffectiveFreedom::add(double uncertainty, double degFreedom) {
    const Real square = Real(uncertainty) * uncertainty;
    squares = (squares + square).value();
    if (degFreedom > 0) quarticsPerFreedom = (quarticsPerFreedom + square * square / degFreedom).value();
}

double EffectiveFreedom::value() const {
    if (!(quarticsPerFreedom > 0)) return 0;
    return (Real(squares) * squares / quarticsPerFreedom).value();
}

} // namespace metrisk
