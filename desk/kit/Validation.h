// Whole-parameter checks that run before every fit and compute.
#pragma once

namespace metrisk {

struct Session;

/// Each clears nothing but answers through record.AbortFlag: set on the first violated rule, whose
/// message is shown and whose box gets the focus. Inputs and results stay as they are.
///
/// While a file loads or the guardband or observed worksheet is open the checks are quiet: they show
/// nothing, ask nothing and move no focus. While a box commits its entry (EntryBoxChanged) they keep
/// silent about data that are simply not entered yet.
void CheckDataPresent(Session& session);
void ValidateSubject(Session& session);
void ValidateMeasuring(Session& session);

/// No boxes for missing data and no focus moves.
bool validationIsQuiet(const Session& session);

} // namespace metrisk
