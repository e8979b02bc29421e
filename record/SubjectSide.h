// The two sides of the subject parameter's tolerance, told apart once.
#pragma once

#include "record/Analysis.h"

namespace metrisk {

/// Fields are read as record.*side.offset. A relation on the upper side holds on the lower one with both
/// sides negated: sign * limit > sign * mode says that the limit lies outside the mode.
struct SubjectSide {
    double Analysis::*limit;  // nominal units
    double Analysis::*offset; // nominal units, never negative
    std::string Analysis::*offsetPicture;
    double Analysis::*fixed; // fixed part of the offset
    std::string Analysis::*fixedPicture;
    double Analysis::*pctReading;
    double Analysis::*multiplier; // of the guardband
    std::string Analysis::*multiplierPicture;
    double Analysis::*kFactor; // of the guardband
    std::string Analysis::*kPicture;
    Flag Analysis::*kEntered;
    Flag Analysis::*absent; // the tolerance kind has no such side
    double sign;            // of the offset in the limit
    const char* limitBox;
    const char* limitTitle; // of messages about the limit
    const char* offsetTitle;
};

extern const SubjectSide upperSide;
extern const SubjectSide lowerSide;

const SubjectSide& otherSide(const SubjectSide& side);

/// The side that a single-sided tolerance has; the upper one when two-sided.
const SubjectSide& presentSide(const SubjectParameter& subject);

} // namespace metrisk
