#include "risk/FittedSubject.h"

#include "record/ParameterGroups.h"

namespace metrisk {

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
