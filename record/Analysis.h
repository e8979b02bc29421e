// The one in-memory model of the analysis that is open.
#pragma once

#include "record/ParameterGroups.h"
#include "record/ResultGroups.h"
#include "record/RiskPlotState.h"
#include "record/SessionState.h"
#include "record/WorksheetGroups.h"

namespace metrisk {

/// A plain value: a copy is the saved copy, assignment of a fresh value is clearing. Its members stand out of
/// line: they touch every field of every group, and each unit that handles a record would compile them again.
struct Analysis : Identification,
                  SubjectParameter,
                  MeasuringParameter,
                  RiskResults,
                  Baseline,
                  Guardbands,
                  ProcessErrors,
                  SampleStatistics,
                  ObservedPct,
                  BiasAnalysis,
                  Reliability,
                  ReportFields,
                  PlotOptions,
                  Snapshot,
                  SessionState,
                  RiskPlotState {
    Analysis();
    Analysis(const Analysis& other);
    Analysis(Analysis&& other) noexcept;
    Analysis& operator=(const Analysis& other);
    Analysis& operator=(Analysis&& other) noexcept;
    ~Analysis();
};

} // namespace metrisk
