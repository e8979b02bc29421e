#include "record/SubjectSide.h"

namespace metrisk {

const SubjectSide upperSide{.limit = &Analysis::SU_UpperLimit,
                            .offset = &Analysis::SU_UpperOffset,
                            .offsetPicture = &Analysis::SU_UpperOffset_fmt,
                            .fixed = &Analysis::SU_UpperFixed,
                            .fixedPicture = &Analysis::SU_UpperFixed_fmt,
                            .pctReading = &Analysis::SU_UpperPctReading,
                            .multiplier = &Analysis::GB_UpperMult,
                            .multiplierPicture = &Analysis::GB_UpperMult_fmt,
                            .kFactor = &Analysis::GB_UpperK,
                            .kPicture = &Analysis::GB_UpperK_fmt,
                            .kEntered = &Analysis::GB_UpperKEntered,
                            .absent = &Analysis::OptSingleLower,
                            .sign = 1,
                            .limitBox = "UpperLimitBox",
                            .limitTitle = "Subject Parameter Upper Limit",
                            .offsetTitle = "Upper Tolerance Offset"};

const SubjectSide lowerSide{.limit = &Analysis::SU_LowerLimit,
                            .offset = &Analysis::SU_LowerOffset,
                            .offsetPicture = &Analysis::SU_LowerOffset_fmt,
                            .fixed = &Analysis::SU_LowerFixed,
                            .fixedPicture = &Analysis::SU_LowerFixed_fmt,
                            .pctReading = &Analysis::SU_LowerPctReading,
                            .multiplier = &Analysis::GB_LowerMult,
                            .multiplierPicture = &Analysis::GB_LowerMult_fmt,
                            .kFactor = &Analysis::GB_LowerK,
                            .kPicture = &Analysis::GB_LowerK_fmt,
                            .kEntered = &Analysis::GB_LowerKEntered,
                            .absent = &Analysis::OptSingleUpper,
                            .sign = -1,
                            .limitBox = "LowerLimitBox",
                            .limitTitle = "Subject Parameter Lower Limit",
                            .offsetTitle = "Lower Tolerance Offset"};

const SubjectSide& otherSide(const SubjectSide& side) {
    return &side == &upperSide ? lowerSide : upperSide;
}

const SubjectSide& presentSide(const SubjectParameter& subject) {
    return subject.OptSingleLower ? lowerSide : upperSide;
}

} // namespace metrisk
