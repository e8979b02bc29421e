// Whole-parameter checks that run before every fit and compute.
#pragma once

#include "base/Box.h"
#include "base/Refusal.h"

#include <optional>

namespace metrisk {

struct Session;
struct SubjectParameter;

/// Titles and texts of these checks that fits and field rules use as well.
inline constexpr const char* subjectPctTitle = "Subject Parameter % In-Tolerance";
inline constexpr const char* hundredOnlySymmetricText = "Cannot be 100% unless you select Two-Sided\n"
                                                        "with equal upper and lower tolerance offsets.";
inline constexpr const char* physicalLimitTitle = "Physical Limit Violation";
inline constexpr const char* processUncertaintyTitle = "Measurement Process Uncertainty";
inline constexpr const char* zeroOrAboveText = "Must be greater than or equal to zero.";

/// Each clears nothing but answers through record.AbortFlag: set on the first violated rule, whose
/// message is shown and whose box gets the focus. Inputs and results stay as they are.
///
/// While a file loads or the guardband or observed worksheet is open the checks are quiet: they show
/// nothing, ask nothing and move no focus. While a box commits its entry (EntryBoxChanged) they keep
/// silent about data that are simply not entered yet.
void CheckDataPresent(Session& session);
void ValidateSubject(Session& session);
void ValidateMeasuring(Session& session);

/// The rules of ValidateSubject without a user, who would be told this and whose questions are answered by
/// going on; none if all hold.
std::optional<Refusal> refusedSubject(const SubjectParameter& subject);
/// What ValidateMeasuring says of a tolerance (any unit) or a % in-tolerance on its own; none if it is
/// allowed.
std::optional<Message> refusedMeasuringOffset(double offset);
std::optional<Message> refusedMeasuringPct(double pct, bool enteredByUncertainty);

/// No boxes for missing data and no focus moves.
bool validationIsQuiet(const Session& session);

} // namespace metrisk
