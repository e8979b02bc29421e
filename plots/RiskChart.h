// The risks of a sweep as a chart, and as text for a spreadsheet.
#pragma once

#include "base/Regional.h"
#include "drawing/Chart.h"
#include "record/Analysis.h"
#include "risk/sweeps/RiskSweep.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace metrisk {

/// What the values of a sweep are called.
struct SweepWords {
    const char* mode;  // GuardPlotMode
    std::string label; // on the axis
    std::string brief; // where there is less room
};

/// With `byUncertainty` the measuring parameter is entered by its uncertainty.
SweepWords wordsOf(Swept swept, bool byUncertainty);
/// The same for the subject parameter's standard uncertainty in place of its % in-tolerance.
SweepWords sigmaWords(const Analysis& record);

/// " (Consumer Option)" or " (Producer Option)", without the blank.
const char* optionTag(int falseAcceptOption);

/// A point as it is drawn and copied: risks in percent.
struct RiskPoint {
    double x = 0, falseAccept = 0, falseReject = 0;
    bool acceptParts = false, rejectParts = false; // exact integration shows other digits
};

enum class ShownRisks { FalseAccept, FalseReject, Both };

struct RiskChartOptions {
    ShownRisks shown = ShownRisks::FalseAccept;
    bool thick = false;
    bool extremes = false; // marked and named on each curve
    int falseAcceptOption = 0;
    int xDecimals = 0;                  // at least
    std::optional<RiskPoint> present{}; // of the analysis as it is, where it stands on the axis
};

/// Empty with fewer than two points. Small risks are drawn in ppm; two of different units have an axis each.
Chart riskChart(std::span<const RiskPoint> points, const SweepWords& words, const RiskChartOptions& options,
                const Regional& regional);

/// Columns divided by tabs below a heading of what they belong to, lines ended by "\n".
struct SweepText {
    Swept swept;
    SweepWords words;
    bool processIncluded = false; // of percentages
};
std::string sweepText(const Analysis& record, const SweepText& text, std::span<const RiskPoint> points,
                      const Regional& regional);

/// "LABEL  NUMBER UNITS" lines: bias uncertainty of the measuring parameter, uncertainty of the subject
/// parameter, process uncertainty.
std::string uncertaintyLines(const Analysis& record, const Regional& regional);

} // namespace metrisk
