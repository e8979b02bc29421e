// From the record of an analysis to what its readings are judged from, and how their figures are written.
#pragma once

#include "risk/decision/Coverage.h"
#include "risk/decision/DecisionSentence.h"

namespace metrisk {

struct Analysis;
struct Regional;

/// Of the entries of the record, never of its fitted figures. Refused by their rules, and for a coverage
/// factor that is none.
Result<DecisionBasis> decisionBasis(const Analysis& record, const Regional& regional,
                                    const CoverageChoice& coverage = {});

/// Readings and limits in nominal units; widths in those of the measuring parameter's tolerance, but nominal
/// ones for a relative unit. U is `expanded`, nominal units: limits have enough decimals for two digits of
/// it.
DecisionTexts decisionTexts(const Analysis& record, const Regional& regional, double expanded);

/// The fitted subject parameter as prior; refused where it has no fit.
Result<DecisionPrior> populationPrior(const DecisionBasis& basis);

} // namespace metrisk
