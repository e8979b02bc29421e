// The values of a new analysis.
#pragma once

#include "base/Settings.h"
#include "record/Analysis.h"

namespace metrisk {

/// Every field gets its new-analysis value; baseline, false accept option, error source names and
/// report texts come from the settings. NominalUnits, EqRatioOnFalseAccept and what belongs to the
/// running program rather than to the analysis stay.
void clearAnalysis(Analysis& record, const Settings& settings);

/// A new one with the program's own defaults, whatever a user's settings are: the same on every machine.
Analysis newAnalysis();

/// The same for guardbands, process uncertainty and the worksheets, report fields and plot options;
/// the two parameters, their results, the baseline and the snapshot stay.
void ClearWorksheets(Analysis& record, const Settings& settings);

/// Report texts and choices by the settings; the remarks stay.
void readReportFields(const Settings& settings, ReportFields& report);

} // namespace metrisk
