// The risks of a test a second time, by integrating the regions that make them up.
//
// A risk is the content of a region: out of tolerance and accepted, in tolerance and rejected. Each is
// integrated as it is, outward or inward from the limit where it is largest, so that no figure is the
// difference of two near ones; a risk of 1e-15 has as many right digits as one of 10 %. The panels follow the
// spread of the subject parameter and that of the measurement, whatever their ratio.
#pragma once

#include "risk/RiskModel.h"
#include "risk/exact/BoundedFigure.h"

#include <optional>

namespace metrisk {

struct ExactRisks {
    BoundedFigure acceptedBad;  // out of tolerance and accepted: the Producer's false accept risk
    BoundedFigure rejectedGood; // in tolerance and rejected: the false reject risk
    BoundedFigure accepted;
    BoundedFigure inTolerance; // of the fit, whatever the acceptance limits

    /// By the convention: 0 Consumer (of the accepted ones), 1 Producer (of all).
    BoundedFigure falseAccept(int falseAcceptOption) const;
    const BoundedFigure& falseReject() const { return rejectedGood; }
};

/// `mteSigma` in nominal units, the range as in RiskModel. None when there is no scale to compute with. Where
/// an item can be accepted although it is measured beyond a physical limit, and where not, is as in
/// RiskModel; an exponential parameter that is in tolerance away from its limit is accepted from the test
/// limit on. Does not allocate and raises nothing.
std::optional<ExactRisks> exactRisks(const SubjectBias& subject, double mteSigma, AcceptanceRange range);

/// The reference case; both in-tolerance figures are fractions strictly between 0 and 1.
std::optional<ExactRisks> exactBaseline(double ratio, double subjectInTol, double measuringInTol);

} // namespace metrisk
