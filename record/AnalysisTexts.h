// The entries of an analysis as texts: what main screen and reports show of them alike.
#pragma once

#include "base/Regional.h"

#include <string>

namespace metrisk {

struct Analysis;
struct SubjectSide;

/// Picture of a percentage.
inline constexpr const char* pctEntryPicture = "#0.0000";

/// A percentage in tolerance in that picture, with more decimals where it would read 0, or 100 for less.
std::string pctEntryText(double pct, const Regional& regional);

/// Empty where nothing has been entered. Identification needs no text: its fields are texts.
struct AnalysisTexts {
    std::string mode;            // with nominal units
    std::string subjectPct;      // % in-tolerance
    std::string upperLimit;      // limit or offset, as ShowLimits says, with units; a physical limit on an
    std::string lowerLimit;      // absent side, if one has been entered
    std::string upperMultiplier; // of the guardbands, in all digits that it needs
    std::string lowerMultiplier;
    std::string measuringOffset; // tolerance limit or expanded uncertainty, in tolerance units, without them
    std::string measuringFixed;  // fixed limit or standard uncertainty
    std::string measuringLast;   // % of reading or degrees of freedom
    std::string measuringPct;    // % in-tolerance or confidence level
};

AnalysisTexts textsOf(const Analysis& record, const Regional& regional);

/// The test limit of a side, with nominal units.
std::string testLimitText(const Analysis& record, const SubjectSide& side, const Regional& regional);

} // namespace metrisk
