#include "reliability/ReliabilitySolution.h"

#include "base/Box.h"
#include "base/Real.h"
#include "numerics/GaussLegendre.h"
#include "numerics/ReliabilitySolver.h"
#include "numerics/mathlib/InvNorm.h"

#include <cmath>
#include <optional>

namespace metrisk {

constexpr Message illegalProbabilities{"One or more input probabilities are not allowed.\n"
                                       "Please check to see that input probabilities are\n"
                                       "greater than or equal to zero, less than or equal\n"
                                       "to one, and that BOP > AOP > EOP.",
                                       "Illegal Input Probabilities"};
constexpr Message questionableSolution{"The parameters obtained by solution are questionable.\n"
                                       "The form of the reliability model selected may not be\n"
                                       "consistent with the input probabilities.",
                                       "Reliability Model Glitch"};

namespace {

using namespace reliability;

constexpr double nearlyOne = 0.999999999999; // stands for a BOP of 1 in a model that only comes near to it
constexpr double equalEnds = 1e-12;
constexpr double sameReliability = 1e-6;
constexpr double closeEnough = 1e-11;

/// The u at which erf(1/sqrt(u)) is r.
double walkArgument(double r) {
    if (r == 1) return 0;
    const double z = InvNorm((1 + r) / 2);
    return checked(2 / (z * z));
}

Coefficients mortalityAt(const PeriodReliability& given, double T, double x) {
    return {given.bop, std::log(given.bop / given.eop) / T - x * T, x};
}

Coefficients restrictedWalkAt(const PeriodReliability& given, double T, double x) {
    const double a = walkArgument(given.bop);
    return {a, checked((walkArgument(given.eop) - a) / -std::expm1(-x * T)), x};
}

struct Root {
    double x;
    bool failed;
};

Root searchRoot(const PeriodReliability& given, int model) {
    ReliabilitySearch search{.model = model, .x = 1};
    SolveReliabilityEquation(
        [&](double x, double& value) { return value = ReliabilityEquation(given, 1, model, x), true; },
        search);
    return {search.x, search.failed};
}

/// Between the c at which R(t) is level at the start and that at which it is level at the end it falls all
/// along; its mean grows with c.
std::optional<double> fallingMortality(const PeriodReliability& given) {
    const double reach = std::log(given.bop / given.eop);
    double low = -reach, high = reach;
    if (!(ReliabilityEquation(given, 1, MortalityDrift, low) >= 0) ||
        !(ReliabilityEquation(given, 1, MortalityDrift, high) <= 0))
        return std::nullopt;
    for (;;) {
        const double middle = (low + high) / 2;
        const double f = ReliabilityEquation(given, 1, MortalityDrift, middle);
        if (std::fabs(f) < closeEnough || middle == low || middle == high) return middle;
        (f > 0 ? low : high) = middle;
    }
}

/// The mean of what R(t) itself shows, which is not always the integral that was solved for.
double meanOfCurve(const Coefficients& theta, double T) {
    const NodeSet<40> nodes = GaussLegendreNodes<40>(0, T);
    double sum = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i)
        sum += nodes.w[i] * reliabilityAt(MortalityDrift, theta, nodes.x[i]);
    return sum / T;
}

/// The period that the curve itself shows; none where there is no curve.
std::optional<PeriodReliability> periodOfCurve(int model, const Coefficients& theta, double T) {
    std::optional<PeriodReliability> period = periodReliability(model, theta, T);
    if (period && model == MortalityDrift) period->aop = meanOfCurve(theta, T);
    return period;
}

bool same(double a, double b) {
    return std::fabs(a - b) <= sameReliability;
}

/// With an interval of 1. Without a root all coefficients are 0.
Coefficients solveUnit(int model, const PeriodReliability& given) {
    const auto [bop, aop, eop] = given;
    switch (model) {
    case Exponential: return {bop, -std::log(eop / bop), 0};
    case MixedExponential: {
        const Root root = searchRoot(given, model);
        // A root below 0 would be a curve that ends: its size is taken, to be found questionable.
        if (root.failed && !(root.x < 0)) return {};
        const double q = -std::log(eop) / std::log1p(root.x);
        return {std::fabs(root.x * q), std::fabs(q), 0};
    }
    case Weibull: {
        const Root root = searchRoot(given, model);
        if (root.failed) return {};
        const double b = std::pow(std::log(bop / eop), root.x);
        if (b == 0) return {}; // a rate below the smallest number
        return {bop, b, 1 / root.x};
    }
    case Gamma: {
        const Root root = searchRoot(given, model);
        if (root.failed) return {};
        return {bop, root.x, 0};
    }
    case MortalityDrift: {
        if (const std::optional<double> x = fallingMortality(given)) return mortalityAt(given, 1, *x);
        const Root root = searchRoot(given, model);
        return root.failed ? Coefficients{} : mortalityAt(given, 1, root.x);
    }
    case Warranty: {
        const auto odds = [](double r) { return std::log((1 - r) / r); }; // of being out of tolerance
        const double start = odds(bop == 1 ? nearlyOne : bop);
        const double a = odds(eop) - start;
        return {a, -start / a, 0};
    }
    case RandomWalk: {
        const double a = walkArgument(bop);
        return {a, walkArgument(eop) - a, 0};
    }
    case RestrictedRandomWalk: {
        const Root root = searchRoot(given, model);
        return root.failed ? Coefficients{} : restrictedWalkAt(given, 1, root.x);
    }
    default: throw RuntimeFault(FaultKind::Argument, "SolveReliabilityCoefficients", model);
    }
}

/// From an interval of 1 to T. Only here does the unit of time enter.
Coefficients perUnitOfTime(int model, const Coefficients& unit, double T) {
    const auto [a, b, c] = unit;
    switch (model) {
    case MixedExponential:
    case Warranty: return {a / T, model == Warranty ? b * T : b, 0};
    case Weibull: return {a, b / T, c};
    case MortalityDrift: return {a, b / T, c / (T * T)};
    case RestrictedRandomWalk: return {a, b, c / T};
    default: return {a, b / T, 0};
    }
}

bool allowed(const PeriodReliability& given, bool needsAOP) {
    const bool ordered = given.eop > 0 && given.eop <= given.bop && given.bop <= 1;
    return ordered && (!needsAOP || (given.eop <= given.aop && given.aop <= given.bop));
}

} // namespace

double ReliabilityEquation(const PeriodReliability& given, double interval, int model, double x) {
    const auto [bop, aop, eop] = given;
    switch (model) {
    case MixedExponential: {
        if (x == 0) x = 1.000000000001;
        return checked(aop - mixedExponentialMean(x, -std::log(eop) / std::log1p(x)));
    }
    case Weibull: return aop - bop * weibullMean(x, std::log(bop / eop));
    case Gamma: return checked(eop - reliabilityAt(Gamma, {bop, x, 0}, 1));
    case MortalityDrift: return aop - bop * meanOfIntegrand(model, mortalityAt(given, interval, x), interval);
    case RestrictedRandomWalk:
        return aop - 2 * meanOfIntegrand(model, restrictedWalkAt(given, interval, x), interval) + 1;
    default: throw RuntimeFault(FaultKind::Argument, "ReliabilityEquation", model);
    }
}

bool solutionAgrees(int model, const Coefficients& theta, double interval, const PeriodReliability& given) {
    const ReliabilityModel* form = reliabilityModel(model);
    try {
        const std::optional<PeriodReliability> solved = periodOfCurve(model, theta, interval);
        return form && solved && same(solved->eop, given.eop) &&
               (!form->needsAOP || same(solved->aop, given.aop));
    } catch (const RuntimeFault&) {
        return false;
    }
}

ReliabilitySolution solveReliability(int model, PeriodReliability& period, double interval) {
    const ReliabilityModel* form = reliabilityModel(model);
    if (form && !form->takesBOP) period.bop = 1;
    if (!form || !(interval > 0) || !allowed(period, form->needsAOP))
        return {{}, SolveStatus::Refused, &illegalProbabilities};
    const PeriodReliability given = period;
    return faultsNamed("SolveReliabilityCoefficients", [&]() -> ReliabilitySolution {
        const auto [bop, aop, eop] = given;
        const bool constant = bop - eop <= equalEnds;
        if (constant && !form->needsAOP) period.aop = bop;
        if (constant && model == Exponential) return {{bop, 0, 0}, SolveStatus::Computed};
        if (constant && model == RandomWalk) return {{walkArgument(bop), 0, 0}, SolveStatus::Computed};
        // A mean that is one of the ends belongs to a curve that falls all at once.
        const bool step = form->needsAOP && (bop - aop <= equalEnds || aop - eop <= equalEnds);
        Coefficients theta;
        if (!constant && !step) theta = perUnitOfTime(model, solveUnit(model, given), interval);
        for (const double each : {theta.a, theta.b, theta.c}) (void)checked(each);
        const std::optional<PeriodReliability> solved = periodOfCurve(model, theta, interval);
        if (solved && !form->needsAOP) period.aop = solved->aop;
        if (solved && same(solved->eop, eop) && same(solved->aop, period.aop))
            return {theta, SolveStatus::Computed};
        return {theta, SolveStatus::Questionable, &questionableSolution};
    });
}

} // namespace metrisk
