// True and observed % in-tolerance of an analysis, each from the other.
#pragma once

#include "risk/observed/ObservedModel.h"
#include "unattended/AnalysisRun.h"
#include "unattended/FigureJson.h"

#include <optional>
#include <string>

namespace metrisk {

/// The share that is known: one of the two texts, in percent with or without the sign.
struct KnownShare {
    std::string truePct{};
    std::string observedPct{};
    std::optional<GuardbandUse>
        guardbands{}; // by default as the analysis says; Equalize goes with the true one

    bool isTrue() const { return !truePct.empty(); }
};

/// The unit that the figures are of, as it stands in the boxes of the worksheet.
struct ObservingUnit {
    int option;         // currentUnit or otherUnit
    double offset;      // nominal units
    double inTolerance; // a fraction

    explicit ObservingUnit(const Analysis& record);
};

/// What has been computed: SU_PctInTol and Obs_PctInTol of the record, and the second figure of the one that
/// was not known.
struct ObservedShares {
    bool computed = false; // else refused, which has been told
    bool exactIsTrue = false;
    std::optional<VerifiedFigure> exact{}; // a fraction; none if the integration finds none
};

/// Fits both parameters and converts.
ObservedShares convertShare(AnalysisRun& run, const KnownShare& known);

/// Each figure by its name, null where it was not computed.
Json sharesJson(const Analysis& record, const ObservedShares& shares);

} // namespace metrisk
