// All figures of one analysis, computed afresh: the risks and the ratio as the window shows them, the
// baseline, the second figures with their bounds, both conventions.
#pragma once

#include "unattended/BothConventions.h"
#include "unattended/FigureJson.h"

namespace metrisk {

/// What has been computed of one analysis; noFigure where something has not. Risks are fractions.
struct ComputedFigures {
    bool computed = false; // else the risks were refused
    double falseAccept = noFigure;
    double falseReject = noFigure;
    double baselineFalseAccept = noFigure;
    double baselineFalseReject = noFigure;
    Verified verified{};                // the second figures
    std::optional<double> exactRatio{}; // of the ratio searched; none if there is none
    std::string ratioRemark{};          // where the two are shown otherwise
    bool subjectFitted = false;
    bool measuringFitted = false;
    std::optional<BothConventions> both{}; // none if there are no risks
};

/// Computes risks and ratio afresh, whatever the record holds of earlier computes. False if that was refused,
/// which has been told.
bool computeAfresh(AnalysisRun& run);

/// The same with the figures beside them. The baseline and the fits are there even where the risks are
/// refused. Without `verified` there are no second figures.
ComputedFigures computeFigures(AnalysisRun& run, const CoverageChoice& coverage, bool verified = true);

/// Each figure by its name, null where it was not computed.
Json figuresJson(const Analysis& record, const ComputedFigures& figures);

} // namespace metrisk
