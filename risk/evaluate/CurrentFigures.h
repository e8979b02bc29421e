// Which of the figures that a record carries belong to its present entries.
#pragma once

#include "risk/RiskModel.h"

#include <optional>

namespace metrisk {

struct Analysis;
struct Regional;

/// What stands where such a figure would.
inline constexpr const char* notComputedText = "Not Computed";
/// What is told of one that a screen goes on showing, faded.
inline constexpr const char* notComputedTip = "Not computed for these entries";

/// A figure that is not current was computed from other entries, or never: it is no result to be reported.
struct CurrentFigures {
    bool risks = false;          // FalseAcceptRisk and FalseRejectRisk
    bool ratio = false;          // EqAccRat: searched for these risks and this baseline
    bool noSuchRatio = false;    // and the search found that no ratio has such a risk
    bool guardbands = false;     // GB_FARisk and GB_FRRisk, at the present multipliers
    bool guardbandRatio = false; // GB_EqAccRat
    bool baseline = false;       // Base_FalseAccept and Base_FalseReject, of its reference case
    bool observed = false;       // Obs_PctInTol beside SU_PctInTol
    bool bias = false;           // the SMPC_ results
};

/// The risks of the record's guardbands, unrounded, where GB_FARisk and GB_FRRisk are theirs. Nothing is kept
/// of what those were made from, so the risks are computed again. `ratio` says whether GB_EqAccRat is theirs.
struct StandingGuardbands {
    Risks risks;
    bool ratio;
};
std::optional<StandingGuardbands> standingGuardbands(const Analysis& record, const Regional& regional);

/// The risks are judged by the entries kept with them; guardband, observed
/// and bias figures by computing them again, since nothing is kept of what they were made from.
CurrentFigures currentFigures(const Analysis& record, const Regional& regional);

/// The first two alone, which cost next to nothing.
bool risksAreCurrent(const Analysis& record);
bool ratioIsCurrent(const Analysis& record);

/// What a file must not carry into another session, where nobody would know it for old: guardband risks that
/// are not current become 0, and risks of another convention lose the entries kept with them.
void dropStaleFigures(Analysis& record, const Regional& regional);

} // namespace metrisk
