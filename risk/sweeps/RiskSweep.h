// Risks of an analysis over a range of one of its quantities.
#pragma once

#include "risk/BaselineModel.h"
#include "risk/sweeps/RiskParts.h"

#include <cstddef>
#include <optional>
#include <stop_token>
#include <vector>

namespace metrisk {

/// The quantity that is varied, and what its values are.
enum class Swept {
    Multiplier,   // of both guardbands
    KFactor,      // of both guardbands, in measuring sigmas
    SubjectPct,   // % in-tolerance of the subject parameter, percent
    MeasuringPct, // % in-tolerance or confidence level of the measuring parameter, percent
    BaselineRatio // accuracy ratio of the reference case
};

/// Only what means something for the quantity is read.
struct SweepOptions {
    bool includeGuardbands = false; // of both percentages: the record's multipliers, otherwise none
    bool includeProcess = false;    // of the measuring percentage: the process errors as well
    double baselineSubjectPct = 0;  // of the reference case, percent
    double baselineMeasuringPct = 0;
};

/// The published figure of a risk, or the second one, by exact integration.
enum class SweepFigure { Published, Exact };

struct SweepPoint {
    double x;
    Risks risks;         // fractions, not negative
    double subjectSigma; // nominal units; of the reference case 0
};

/// Equal steps; the first value is `from`, the last one `to` to the last bit. At least two points.
struct SweepRange {
    double from;
    double to;
    std::size_t points;

    double at(std::size_t i) const;
};

/// The risk at any value, from several threads and without allocation.
class RiskSweep {
  public:
    /// Both parameters have been fitted, except for the reference case. The record is not kept.
    RiskSweep(const Analysis& record, const Regional& regional, Swept swept, const SweepOptions& options);

    /// The point at that value; none if there are no risks. The published figure is to the bit what a single
    /// compute with the value gives.
    std::optional<SweepPoint> at(double x, SweepFigure figure = SweepFigure::Published) const;
    /// There is no such test: the subject parameter has no distribution with that % in-tolerance.
    bool lacksTest(double x) const { return swept_ == Swept::SubjectPct && !parts_.subjectAt(x); }

    /// All points of the range on all cores; empty after a stop.
    std::vector<std::optional<SweepPoint>> over(const SweepRange& range,
                                                SweepFigure figure = SweepFigure::Published,
                                                const std::stop_token& stop = {}) const;

  private:
    std::optional<SweepPoint> test(double x, SweepFigure figure) const;
    std::optional<SweepPoint> reference(double ratio, SweepFigure figure) const;

    Swept swept_;
    RiskParts parts_;
    std::optional<BaselineModel> baseline_;
    SweepOptions options_;
    double lowerMult_, upperMult_;
    double lowerOffset_, upperOffset_; // infinite for a side that does not exist: no k-factor moves it
    double mteOffset_;
    int falseAcceptOption_;
};

/// What of a sweep can be drawn: from the first point that has risks to the last before one that has none.
/// Points that lack a test are left out at the low end; otherwise the first point must have risks.
class SweepCourse {
  public:
    explicit SweepCourse(const RiskSweep& sweep) : sweep_(sweep) {}

    /// The next point of the range. False when the sweep has ended there.
    bool add(double x, const std::optional<SweepPoint>& point);

    const std::vector<SweepPoint>& points() const { return points_; }
    std::size_t skipped() const { return skipped_; }

  private:
    const RiskSweep& sweep_;
    std::vector<SweepPoint> points_;
    std::size_t skipped_ = 0;
};

} // namespace metrisk
