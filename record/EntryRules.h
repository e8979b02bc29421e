// What is wrong with the entries of a parameter, in the order in which it is told.
#pragma once

#include "base/Box.h"
#include "base/Refusal.h"

#include <optional>
#include <string_view>

namespace metrisk {

struct SubjectParameter;
struct SubjectSide;

/// Titles and texts of these rules that fits and field rules use as well.
inline constexpr const char* subjectPctTitle = "Subject Parameter % In-Tolerance";
inline constexpr const char* hundredOnlySymmetricText = "Cannot be 100% unless you select Two-Sided\n"
                                                        "with equal upper and lower tolerance offsets.";
inline constexpr const char* physicalLimitTitle = "Physical Limit Violation";
inline constexpr const char* processUncertaintyTitle = "Measurement Process Uncertainty";
inline constexpr const char* zeroOrAboveText = "Must be greater than or equal to zero.";
inline constexpr const char* illegalEntryTitle = "Illegal Entry";
inline constexpr Message ppmModeMessage{
    "The mode value cannot be zero when units are expressed in ppm.\n"
    "You may need to change the units on the Metrisk screen or on the Tolerance Offset Worksheet.",
    "Illegal Mode Value"};
inline constexpr Message subjectPctMessage{
    "The Subject Parameter % In-Tolerance must be greater than 0 and less than or equal to 100.",
    illegalEntryTitle};
inline constexpr Message measuringPctMessage{
    "The Measuring Parameter % In-Tolerance must be greater than 0 and less than 100.", illegalEntryTitle};

inline constexpr Message noCountsMessage{
    "The confidence of an expanded uncertainty is a percentage; counts of passed and tested items go with a "
    "tolerance.",
    illegalEntryTitle};

/// What is asked of entries that are no reality, and goes on without a user.
inline constexpr const char* nonPhysicalTitle = "Non-Physical Situation";
inline constexpr const char* hundredPercentText = "You have indicated 100% in-tolerance.\n"
                                                  "This is a non-physical situation.\n"
                                                  "(Note that continuing will cause the computed\n"
                                                  "equivalent accuracy ratio to be based on\n"
                                                  "the false reject risk.)  Continue anyway?";
inline constexpr const char* physicalOnModeText = "You have set the Physical Limit equal to the Mode.\n"
                                                  "This is non-physical.  Continue?";

/// A rule that does not hold, and where.
struct BrokenRule {
    std::string_view title;
    std::string_view text;
    const char* box;
    const char* panel = nullptr;
    bool waits = false; // until the entry being made is committed: more may follow
};
using Broken = std::optional<BrokenRule>;

/// The subject parameter's rules in four parts, between which the user may be asked. The last two are those
/// of a single-sided tolerance.
Broken dataMissing(const SubjectParameter& subject);
Broken rulesOfLimits(const SubjectParameter& subject);
Broken rulesOfPhysicalLimit(const SubjectParameter& subject);
Broken rulesOfOneSide(const SubjectParameter& subject);

/// All of them, the questions answered by going on; none if all hold.
std::optional<Refusal> refusedSubject(const SubjectParameter& subject);
/// What is said of a measuring tolerance (any unit) or a % in-tolerance on its own; none if it is allowed.
std::optional<Message> refusedMeasuringOffset(double offset);
std::optional<Message> refusedMeasuringPct(double pct, bool enteredByUncertainty);

/// A single-sided tolerance, towards the side that it has.
struct OneSide {
    explicit OneSide(const SubjectParameter& subject);

    bool lower;
    const SubjectSide& side;
    double mode, limit, physical;
};

/// Nothing of it has been entered.
bool subjectEmpty(const SubjectParameter& subject);

inline constexpr const char* insufficientTitle = "Insufficient Data Available";
inline constexpr const char* noDataText = "No data have been entered for analysis.";
inline constexpr const char* noMeasuringDataText = "No MTE data have been entered for analysis.";
inline constexpr const char* noSubjectDataText = "No subject parameter data have been entered for analysis.";

} // namespace metrisk
