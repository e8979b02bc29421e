// Search of the accuracy ratio that would give the same risk in the reference case.
#pragma once

#include "base/FunctionRef.h"
#include "risk/BaselineModel.h"

namespace metrisk {

struct Analysis;

/// A search whose target no ratio reaches ends at a figure without a meaning. True for one from 0.01 to
/// 10,000 : 1.
bool ratioAttained(double ratio);
/// What stands for a ratio of such a search.
inline constexpr const char* noSuchRatioText = "no such ratio";

/// The subject tolerance that accuracy ratios are made of: the mean offset when two-sided, else the
/// offset of the existing side. Nominal units.
double ratioTolerance(const Analysis& record);

/// Where a search stands after a pass. Passes that would only repeat others are left out.
struct SearchPass {
    int iteration;
    double ratio;
    double error;     // to a few units of 1e-13, of a share of all that are accepted
    double tolerance; // of the error, at which the search ends
};

struct RatioQuestion {
    BaselineModel baseline;
    double start;          // the first ratio tried
    double target;         // the risk, a fraction
    bool onFalseAccept;    // what the target is; else the false reject risk
    int falseAcceptOption; // 0 Consumer, 1 Producer
};

enum class RatioEnd { Found, StepTooSmall, Stopped };

/// The ratio is to the bit what a search by BaselineModel alone finds: a table answers where its doubt
/// decides nothing. `ratio` receives each ratio tried. `goOn` is asked at the start and after each pass; it
/// stops the search by false. Raises RuntimeFault.
RatioEnd searchRatio(const RatioQuestion& question, double& ratio, FunctionRef<bool(const SearchPass&)> goOn);

} // namespace metrisk
