#include "numerics/Distribution.h"

#include "base/Real.h"

#include <cmath>

namespace metrisk {

Distribution distributionNamed(std::string_view name) {
    if (name == normalName) return Distribution::Normal;
    if (name == logNormalName) return Distribution::LogNormal;
    if (name == exponentialName) return Distribution::Exponential;
    if (name == uniformName) return Distribution::Uniform;
    return Distribution::None;
}

double SubjectBias::limitRatio(double x) const {
    return ((Real(x) - physicalLimit) / (Real(mode) - physicalLimit)).value();
}

double SubjectBias::logVariable(double ratio) const {
    return (log(Real(ratio) / logOmega) / logSigma).value();
}

} // namespace metrisk
