// The four bias distributions a subject parameter can have, and the figures that describe one.
#pragma once

#include <string_view>

namespace metrisk {

enum class Distribution { None, Normal, LogNormal, Exponential, Uniform };

/// "Normal", "LogNormal", "Exponential", "Uniform"; any other name is None.
Distribution distributionNamed(std::string_view name);

inline constexpr const char* normalName = "Normal";
inline constexpr const char* logNormalName = "LogNormal";
inline constexpr const char* exponentialName = "Exponential";
inline constexpr const char* uniformName = "Uniform";
inline constexpr const char* studentsTName = "Student's t"; // plotted curves only

/// A fitted subject parameter, in nominal units. Its standard variable u is
///   Normal       (x - mode)/sigma
///   LogNormal    ln(t/logOmega)/logSigma with t = (x - physicalLimit)/(mode - physicalLimit); the
///                mode is at t = 1, hence the median at t = logOmega = exp(logSigma^2)
///   Exponential  |x - mode|/offset, offset being that of the existing side
///   Uniform      x - mode
struct SubjectBias {
    Distribution distribution = Distribution::None;
    int caseCode = 0;
    bool twoSided = true;
    bool singleUpper = false;
    bool physLimitBelow = false;
    double mode = 0;
    double upperLimit = 0;
    double lowerLimit = 0;
    double upperOffset = 0;
    double lowerOffset = 0;
    double physicalLimit = 0;
    double sigma = 0;
    double logSigma = 0;
    double logOmega = 0;
    double expExponent = 0;
    double expRate = 0;

    /// (x - physicalLimit)/(mode - physicalLimit). Raises RuntimeFault when the two are equal.
    double limitRatio(double x) const;
    /// Standard LogNormal variable of a limit ratio. Raises RuntimeFault for a ratio not above 0.
    double logVariable(double ratio) const;
    /// The offset of the existing side, the unit of the exponential's variable.
    double sideOffset() const { return singleUpper ? upperOffset : lowerOffset; }
};

} // namespace metrisk
