// The two-sided LogNormal fit: the physical limit at which both tolerance limits give the same shape.
#pragma once

namespace metrisk {

/// Limits and z values of a two-sided case with unequal distances from the mode.
struct LogNormalCase {
    double mode = 0;
    double near = 0; // the limit on the physical limit's side
    double far = 0;
    double pctInTol = 0;  // percent
    double zTailLow = 0;  // InvNorm((1 - p)/2)
    double zTailHigh = 0; // InvNorm(1 - (1 - p)/2)
    bool physLimitBelow = true;
};

struct LogNormalFit {
    double physicalLimit = 0;  // nominal units
    double limitRatioNear = 0; // (near - physical limit)/(mode - physical limit)
    double limitRatioFar = 0;
    double logSigma = 0;
};

/// A fixed number of steps with reversal and shrinking, in units of half the tolerance width so that
/// the fit does not depend on the unit of measurement. Raises RuntimeFault on a numeric fault.
LogNormalFit searchLogNormal(const LogNormalCase& c);

} // namespace metrisk
