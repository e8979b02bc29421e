#include "numerics/Distribution.h"

#include "model/Analysis.h"
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

SubjectBias subjectBiasOf(const Analysis& record) {
    SubjectBias bias;
    bias.distribution = distributionNamed(record.SU_Distribution);
    bias.caseCode = record.SU_CaseCode;
    bias.twoSided = record.OptTwoSided;
    bias.singleUpper = record.OptSingleUpper;
    bias.physLimitBelow = record.PhysLimitBelow;
    bias.mode = record.SU_Mode;
    bias.upperLimit = record.SU_UpperLimit;
    bias.lowerLimit = record.SU_LowerLimit;
    bias.upperOffset = record.SU_UpperOffset;
    bias.lowerOffset = record.SU_LowerOffset;
    bias.physicalLimit = record.PhysicalLimit;
    bias.sigma = record.SU_Sigma;
    bias.logSigma = record.SU_LogSigma;
    bias.logOmega = record.SU_LogOmega;
    bias.expExponent = record.SU_ExpExponent;
    bias.expRate = record.SU_ExpRate;
    return bias;
}

} // namespace metrisk
