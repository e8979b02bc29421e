#include "uncertainty/BiasAnalysis.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "numerics/Distribution.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorCell.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/Samples.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

/// Normal deviate of a two-sided content; that of a rectangle when nothing lies outside.
double deviateOf(double percent) {
    return CoverageFactor(percent, 0);
}

bool hasSample(const SampleStatistics& samples, int slot) {
    return samples.Stat_Include[slot] && samples.Stat_SampleSize[slot] > 0;
}

/// The samples in nominal units about their absolute values; a parameter without any borrows spread and size
/// of the other.
SampleStatistics nominalSamples(const Analysis& r) {
    SampleStatistics samples = r;
    const double factor = measuringUnits(r).factor;
    for (int slot = 1; slot <= 2; ++slot) {
        double& deviation = samples.Stat_SampleStdDev[slot];
        deviation = checked(deviation / factor);
        if (r.Stat_Include[slot] && r.Stat_Flag2[slot])
            deviation = checked(deviation * std::sqrt(static_cast<double>(r.Stat_SampleSize[slot])));
        if (areDeviations(r, slot))
            samples.Stat_SampleMean[slot] = checked(r.SU_Mode + r.Stat_SampleMean[slot] / factor);
    }
    for (int slot = 1; slot <= 2; ++slot) {
        if (hasSample(r, slot)) continue;
        const int other = 3 - slot;
        samples.Stat_SampleSize[slot] = samples.Stat_SampleSize[other];
        samples.Stat_SampleMean[slot] = r.SU_Mode;
        samples.Stat_SampleStdDev[slot] = samples.Stat_SampleStdDev[other];
        samples.Stat_Include[slot] = 0;
    }
    return samples;
}

/// Both parameters' errors: rows 2 to 8.
double otherErrors(const Analysis& r, const Regional& regional) {
    const ErrorRows rows = readErrorRows(r, regional);
    double sum = 0;
    for (std::size_t row = 2; row < rows.size(); ++row) sum = std::hypot(sum, rows[row].counted());
    return checked(sum / measuringUnits(r).factor);
}

/// The limit that belongs to the standard deviation of the fit. A uniform or exponential distribution has its
/// own limit, and its standard deviation follows.
double subjectTolerance(const Analysis& r) {
    if (r.SU_PctInTol == 100 || r.SU_Distribution == exponentialName) return r.*presentSide(r).offset;
    return checked(r.SU_Sigma * deviateOf(r.SU_PctInTol));
}

} // namespace

BiasEstimate BiasPass(double d, double limit, double a, double b) {
    const Real ratio = Real(a) / b;
    const Real share = a > b ? 1 / (1 + 1 / (ratio * ratio)) : ratio * ratio / (1 + ratio * ratio);
    const Real shift = share * d;
    // The posterior's standard deviation is a b / sqrt(a^2 + b^2).
    const Real scale = std::hypot(1 / a, 1 / b);
    const double away = std::fabs(shift.value());
    // Of the two ends the nearer one first: a difference of two small tails, never of two numbers near 1.
    const double inside =
        Normal(((limit - away) * scale).value()) - Normal((-(Real(limit) + away) * scale).value());
    return {inside, (-shift).value(), share.value()};
}

bool ComputeBias(SampleStatistics& samples, BiasAnalysis& bias, const BiasGround& ground) {
    OneBased<double, 2> sigma;
    for (int slot = 1; slot <= 2; ++slot) {
        if (!(bias.SMPC_PctInTol[slot] > 0)) return false;
        sigma[slot] = checked(bias.SMPC_Tolerance[slot] / deviateOf(bias.SMPC_PctInTol[slot]));
        if (slot == 1 && ground.measuringSigma > 0) sigma[slot] = ground.measuringSigma;
        int& size = samples.Stat_SampleSize[slot];
        if (size == 0) size = 1;
        const double ofMean = samples.Stat_SampleStdDev[slot] / std::sqrt(static_cast<double>(size));
        bias.SMPC_Sigma[slot] = checked(std::hypot(ofMean, sigma[slot], ground.otherErrors));
    }
    if (bias.SMPC_Sigma[1] == 0) return false;
    const double combined = checked(std::hypot(bias.SMPC_Sigma[1], bias.SMPC_Sigma[2]));
    const double factor = bias.SMPC_UseCoverageFactor ? bias.SMPC_CoverageFactor
                                                      : checked(InvNorm((bias.SMPC_Confidence + 1) / 2));
    const auto pass = [&](int slot, double& uncertainty) {
        const int other = 3 - slot;
        const Real d = Real(samples.Stat_SampleMean[slot]) - samples.Stat_SampleMean[other];
        const BiasEstimate estimate =
            BiasPass(d.value(), bias.SMPC_Tolerance[slot], sigma[slot], bias.SMPC_Sigma[other]);
        bias.SMPC_InTolProb[slot] = estimate.inTolerance;
        bias.SMPC_Bias[slot] = estimate.bias;
        uncertainty = checked(estimate.share * combined);
        bias.SMPC_Limits[slot] = checked(uncertainty * factor);
    };
    pass(1, bias.SMPC_MTEUncertainty);
    pass(2, bias.SMPC_SUUncertainty);
    bias.SMPC_TrueOffset = (Real(samples.Stat_SampleMean[1]) - ground.mode + bias.SMPC_Bias[1]).value();
    return true;
}

std::optional<BiasAnalysis> analysedBias(const Analysis& r, const Regional& regional) {
    BiasAnalysis bias = r;
    bias.SMPC_PctInTol[1] = r.MTE_PctInTol;
    bias.SMPC_PctInTol[2] = r.SU_PctInTol;
    bias.SMPC_Tolerance[1] = r.MTE_Offset;
    bias.SMPC_Tolerance[2] = subjectTolerance(r);
    SampleStatistics samples = nominalSamples(r);
    const BiasGround ground{
        .mode = r.SU_Mode, .otherErrors = otherErrors(r, regional), .measuringSigma = r.MTE_StdUncertainty};
    if (!ComputeBias(samples, bias, ground)) return {};
    bias.SMPC_Computed = true;
    return bias;
}

bool anySample(const SampleStatistics& samples) {
    return hasSample(samples, 1) || hasSample(samples, 2);
}

bool BiasResultsStand(const Analysis& r, const Regional& regional) {
    if (!r.SMPC_Computed || !anySample(r)) return false;
    try {
        const auto now = analysedBias(r, regional);
        if (!now) return false;
        // A file keeps 15 digits, and the means may have most of them in common.
        const double size = r.SMPC_MTEUncertainty + r.SMPC_SUUncertainty;
        const double near = 1e-9 * size + 1e-14 * (std::fabs(r.SU_Mode) + std::fabs(r.Stat_SampleMean[1]) +
                                                   std::fabs(r.Stat_SampleMean[2]));
        const auto same = [near](double a, double b) { return std::fabs(a - b) <= near; };
        bool all = same(now->SMPC_TrueOffset, r.SMPC_TrueOffset) &&
                   same(now->SMPC_MTEUncertainty, r.SMPC_MTEUncertainty) &&
                   same(now->SMPC_SUUncertainty, r.SMPC_SUUncertainty);
        for (int slot = 1; slot <= 2; ++slot) {
            constexpr double nearProbability = 1e-6;
            all = all && same(now->SMPC_Bias[slot], r.SMPC_Bias[slot]) &&
                  same(now->SMPC_Limits[slot], r.SMPC_Limits[slot]) &&
                  std::fabs(now->SMPC_InTolProb[slot] - r.SMPC_InTolProb[slot]) <= nearProbability;
        }
        return all;
    } catch (const RuntimeFault&) {
        return false;
    }
}

std::string estimatedTrueValue(const Analysis& r, const Regional& regional) {
    constexpr int offsetDecimals = 4;
    const ToleranceUnits units = measuringUnits(r);
    const std::string offset = ErrorCell::readable(units.shown(r.SMPC_TrueOffset), offsetDecimals, regional);
    const int decimals = CountDecimals(offset, regional) + units.shift;
    return withUnits(FormatNumber(r.SU_Mode + r.SMPC_TrueOffset, PictureForDecimals(decimals), regional),
                     r.NominalUnits);
}

} // namespace metrisk
