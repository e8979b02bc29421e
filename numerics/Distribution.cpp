#include "numerics/Distribution.h"

#include "model/ParameterGroups.h"
#include "numerics/Real.h"

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

SubjectBias subjectBiasOf(const SubjectParameter& subject) {
    SubjectBias bias;
    bias.distribution = distributionNamed(subject.SU_Distribution);
    bias.caseCode = subject.SU_CaseCode;
    bias.twoSided = subject.OptTwoSided;
    bias.singleUpper = subject.OptSingleUpper;
    bias.physLimitBelow = subject.PhysLimitBelow;
    bias.mode = subject.SU_Mode;
    bias.upperLimit = subject.SU_UpperLimit;
    bias.lowerLimit = subject.SU_LowerLimit;
    bias.upperOffset = subject.SU_UpperOffset;
    bias.lowerOffset = subject.SU_LowerOffset;
    bias.physicalLimit = subject.PhysicalLimit;
    bias.sigma = subject.SU_Sigma;
    bias.logSigma = subject.SU_LogSigma;
    bias.logOmega = subject.SU_LogOmega;
    bias.expExponent = subject.SU_ExpExponent;
    bias.expRate = subject.SU_ExpRate;
    return bias;
}

} // namespace metrisk
