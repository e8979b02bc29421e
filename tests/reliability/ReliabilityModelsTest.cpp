// The models of reliability: against formulas and integrals of their own, and there and back.
#include "base/Real.h"
#include "desk/compute/Reliability.h"
#include "desk/kit/Message.h"
#include "reliability/ReliabilityInterval.h"
#include "reliability/TimeUnits.h"
#include "tests/support/TestSession.h"

#include <boost/math/quadrature/gauss.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace metrisk::testing {
namespace {

using namespace reliability;
using Value = long double;

/// R(t) as the equations are written.
Value exactly(int model, const Coefficients& k, Value t) {
    const Value a = k.a, b = k.b, c = k.c, bt = b * t;
    switch (model) {
    case Exponential: return a * std::exp(-bt);
    case MixedExponential: return 1 / std::pow(1 + a * t / b, b);
    case Weibull: return a * std::exp(-std::pow(bt, c));
    case Gamma: return a * std::exp(-bt) * (1 + bt + bt * bt / 2 + bt * bt * bt / 6);
    case MortalityDrift: return a * std::exp(-(bt + c * t * t));
    case Warranty: return 1 / (1 + std::exp(a * (t - b)));
    case RandomWalk: return std::erf(1 / std::sqrt(a + bt));
    default: return std::erf(1 / std::sqrt(a + b * (1 - std::exp(-c * t))));
    }
}

double asWritten(int model, const Coefficients& k, double t) {
    return static_cast<double>(exactly(model, k, t));
}

/// Its mean over the period, in short panels that grow from almost nothing.
double meanAsWritten(int model, const Coefficients& k, double T) {
    Value sum = 0, from = 0;
    for (Value whole = T * std::exp2(-50.0L); whole <= T; whole *= 2)
        for (const Value start = from, step = (whole - start) / 8; from < whole;) {
            const Value to = from + 1.5L * step < whole ? from + step : whole;
            sum += boost::math::quadrature::gauss<Value, 15>::integrate(
                [&](Value t) { return exactly(model, k, t); }, from, to);
            from = to;
        }
    return static_cast<double>(sum / T);
}

TEST(ReliabilityModels, SolvedCoefficientsSayWhatWasGiven) {
    const double inOrder[] = {0, 25, 30, 100, 25, 60, 25, 25, 90}; // solved, at least
    for (const ReliabilityModel& model : reliabilityModels) {
        int solved = 0;
        for (const double T : {12.0, 8760.0})
            for (const double bop : {1.0, 0.999, 0.98, 0.9, 0.6})
                for (const double eop : {0.97, 0.9, 0.8, 0.5, 0.1, 0.01})
                    for (const double share : {0.01, 0.1, 0.2, 0.35, 0.5, 0.6, 0.9}) {
                        if (eop >= bop || (!model.takesBOP && bop != 1)) continue;
                        if (!model.needsAOP && share != 0.5) continue;
                        PeriodReliability p{bop, eop + share * (bop - eop), eop};
                        const ReliabilitySolution found = solveReliability(model.number, p, T);
                        if (found.status != SolveStatus::Computed) continue;
                        ++solved;
                        SCOPED_TRACE(std::string(model.name) + " " + std::to_string(bop) + " " +
                                     std::to_string(p.aop) + " " + std::to_string(eop));
                        EXPECT_NEAR(asWritten(model.number, found.theta, 0), bop, 2e-12);
                        EXPECT_NEAR(asWritten(model.number, found.theta, T), eop, 1e-10);
                        EXPECT_NEAR(meanAsWritten(model.number, found.theta, T), p.aop, 1e-9);
                        const double half = (bop + eop) / 2;
                        const double rounded = model.number == Gamma ? 2e-5 : 1e-9; // a rate of four decimals
                        const double t = timeForReliability(model.number, found.theta, half);
                        EXPECT_NEAR(asWritten(model.number, found.theta, t), half, rounded);
                        EXPECT_LT(t, T);
                    }
        EXPECT_GE(solved, inOrder[model.number]) << model.name;
    }
}

TEST(ReliabilityModels, TheUnitOfTimeDoesNotMatter) {
    const PeriodReliability given{0.99, 0.935, 0.9};
    for (const ReliabilityModel& model : reliabilityModels) {
        PeriodReliability p = given;
        const Coefficients one = solveReliability(model.number, p, 1).theta;
        ASSERT_NE(one.b, 0) << model.name;
        for (const double T : {0.01, 365.0, 8760.0, 1e5}) {
            const Coefficients k = solveReliability(model.number, p, T).theta;
            for (const double share : {0.0, 0.3, 1.0, 2.0})
                EXPECT_NEAR(reliabilityAt(model.number, k, share * T),
                            reliabilityAt(model.number, one, share), 1e-13)
                    << model.name << " " << T;
        }
    }
}

TEST(ReliabilityModels, PeriodsOfCoefficientsAreThoseOfTheCurve) {
    const struct {
        int model;
        Coefficients theta;
        double T;
    } rows[] = {
        {Exponential, {0.99, 1e-9, 0}, 12},
        {Exponential, {0.99, 50, 0}, 12},
        {MixedExponential, {0.2, 1, 0}, 12},
        {MixedExponential, {3, 0.001, 0}, 12},
        {Weibull, {1, 1e-15, 0.1}, 12}, // a series stopped at a fixed size gives .9900 here
        {Weibull, {0.95, 0.5, 3}, 12},
        {Weibull, {0.95, 2, 1.2}, 12}, // beyond the series
        {Gamma, {0.98, 100, 0}, 12},
        {Gamma, {0.98, 1e-6, 0}, 12},
        {MortalityDrift, {0.98, 80, 0.01}, 12},
        {MortalityDrift, {1, 0.1, -0.003}, 12},
        {Warranty, {0.3, 0, 0}, 12}, // begins in its middle
        {Warranty, {1e-7, 12, 0}, 12},
        {Warranty, {9, 6, 0}, 12},
        {RandomWalk, {0, 40, 0}, 12},
        {RandomWalk, {0.3, 0, 0}, 12},
        {RestrictedRandomWalk, {0, 3, 100}, 12},
    };
    for (const auto& row : rows) {
        const auto p = periodReliability(row.model, row.theta, row.T);
        ASSERT_TRUE(p) << row.model;
        EXPECT_NEAR(p->aop, meanAsWritten(row.model, row.theta, row.T), 1e-9) << row.model;
        EXPECT_NEAR(p->eop, asWritten(row.model, row.theta, row.T), 1e-14) << row.model;
        EXPECT_NEAR(p->bop, asWritten(row.model, row.theta, 0), 1e-14) << row.model;
    }
    EXPECT_FALSE(periodReliability(Exponential, {1, 0.1, 0}, 0));
    EXPECT_FALSE(periodReliability(RandomWalk, {}, 12));
    EXPECT_FALSE(periodReliability(MixedExponential, {1, 0, 0}, 12));
}

TEST(ReliabilityModels, CurvesEndWhereTheirFormulasDo) {
    const struct {
        const char* what;
        int model;
        Coefficients theta;
        double t, value;
    } rows[] = {
        {"no coefficients at 0", Exponential, {}, 0, 0},
        {"no rate", Exponential, {0.9, 0, 0}, 0, 0.9},
        {"mixed: beyond its end", MixedExponential, {-1, 1, 0}, 2, 0},
        {"Weibull: never 0", Weibull, {1, 10, 2}, 100, 1e-12},
        {"mortality: would rise", MortalityDrift, {1, 0.1, -0.01}, 6, 0},
        {"warranty: far before", Warranty, {10, 1000, 0}, 1, 1},
        {"warranty: far behind", Warranty, {10, 1000, 0}, 2000, 0},
        {"walk: at its start", RandomWalk, {0, 1, 0}, 0, 1},
        {"restricted walk: at its start", RestrictedRandomWalk, {0, 1, 1}, 0, 1},
    };
    for (const auto& row : rows) EXPECT_EQ(reliabilityAt(row.model, row.theta, row.t), row.value) << row.what;
    const Coefficients noShape{1, 0, 0}, negativeRate{1, -1, 0.5};
    EXPECT_THROW(reliabilityAt(MixedExponential, noShape, 1), RuntimeFault);
    EXPECT_THROW(reliabilityAt(Weibull, negativeRate, 1), RuntimeFault);

    double b = -1;
    EXPECT_EQ(ReliabilityIntegrand(MortalityDrift, 1, b, -0.1, 2), 1) << "level before -b/c";
    EXPECT_EQ(b, 0.5);
    b = -1;
    EXPECT_NEAR(ReliabilityIntegrand(MortalityDrift, 1, b, -0.1, 6), std::exp(-6 * (0.5 - 0.6)), 1e-14);
    b = -1000;
    EXPECT_GT(ReliabilityIntegrand(MortalityDrift, 1, b, 0, 1), 0);
    EXPECT_EQ(b, 125);
    EXPECT_EQ(ReliabilityIntegrand(RestrictedRandomWalk, -1, b = 0, 1, 1), 1) << "u below 0";
}

/// Golden vectors of the spreadsheet "Unc Tool v8.00 Beta.4/Beta.7" in the public repository
/// bbaker5150/Metrology-Workbench, recomputed to 15 digits: intervals at which a curve through the
/// reliability of the present interval has fallen to the one wanted.
TEST(ReliabilityModels, PublishedIntervals) {
    const struct {
        double bop, eop, c, wanted, interval, tolerance;
    } rows[] = {
        {1, 0.9, 1, 0.85, 18.5100380517019, 1e-9},
        {1, 0.997511261440946, 2, 0.85692322906761, 94.4614334209196, 0.005},
    };
    for (const auto& row : rows) {
        const double b = std::pow(-std::log(row.eop), 1 / row.c) / 12;
        EXPECT_NEAR(timeForReliability(Weibull, {row.bop, b, row.c}, row.wanted), row.interval,
                    row.tolerance);
    }
    PeriodReliability given{1, 0, 0.9};
    EXPECT_NEAR(timeForReliability(Exponential, solveReliability(Exponential, given, 12).theta, 0.85),
                18.5100380517019, 1e-9);
}

constexpr const char* questionable = "The parameters obtained by solution are questionable.\n"
                                     "The form of the reliability model selected may not be\n"
                                     "consistent with the input probabilities.";
constexpr const char* illegal = "One or more input probabilities are not allowed.\n"
                                "Please check to see that input probabilities are\n"
                                "greater than or equal to zero, less than or equal\n"
                                "to one, and that BOP > AOP > EOP.";

TEST(ReliabilityModels, SolutionsThatAreNoneOrDoubtful) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* what;
        int model;
        PeriodReliability given;
        SolveStatus status;
        bool curve;
    } rows[] = {
        {"end above beginning", Exponential, {0.8, 0, 0.9}, SolveStatus::Refused, false},
        {"above 1", Exponential, {1.1, 0, 0.9}, SolveStatus::Refused, false},
        {"end of 0", RandomWalk, {0.9, 0, 0}, SolveStatus::Refused, false},
        {"not a number", Gamma, {nan, 0, 0.9}, SolveStatus::Refused, false},
        {"mean above beginning", Weibull, {0.9, 0.95, 0.8}, SolveStatus::Refused, false},
        {"no mean", RestrictedRandomWalk, {0.9, 0, 0.8}, SolveStatus::Refused, false},
        {"no mean needed", Warranty, {1, 0, 0.8}, SolveStatus::Computed, true},
        {"level", Exponential, {0.9, 0, 0.9}, SolveStatus::Computed, true},
        {"level at 1", RandomWalk, {1, 0, 1}, SolveStatus::Computed, false},
        {"level", Gamma, {0.9, 0, 0.9}, SolveStatus::Questionable, false},
        {"level", Weibull, {0.9, 0.9, 0.9}, SolveStatus::Questionable, false},
        {"mean at the end", RestrictedRandomWalk, {0.9, 0.8, 0.8}, SolveStatus::Questionable, false},
        {"would end", MixedExponential, {1, 0.985, 0.97}, SolveStatus::Questionable, true},
        {"mean too high", MixedExponential, {1, 0.999, 0.97}, SolveStatus::Questionable, false},
        {"mean too high", MortalityDrift, {1, 0.99, 0.9}, SolveStatus::Questionable, false},
        {"mean too low", MortalityDrift, {1, 0.92, 0.9}, SolveStatus::Questionable, true},
        {"mean too high", RestrictedRandomWalk, {0.99, 0.98, 0.9}, SolveStatus::Questionable, false},
    };
    for (const auto& row : rows) {
        TestSession test;
        test.record.AbortFlag = true;
        if (row.status == SolveStatus::Questionable)
            test.ui.expectBox("Reliability Model Glitch", questionable);
        if (row.status == SolveStatus::Refused) test.ui.expectBox("Illegal Input Probabilities", illegal);
        PeriodReliability p = row.given;
        Coefficients theta{7, 7, 7};
        SCOPED_TRACE(std::string(row.what) + ", model " + std::to_string(row.model));
        EXPECT_EQ(SolveReliabilityCoefficients(test.session, row.model, p, 12, theta), row.status);
        EXPECT_EQ(!theta.allZero(), row.curve) << theta.a << " " << theta.b << " " << theta.c;
        EXPECT_EQ(test.record.AbortFlag, row.status != SolveStatus::Computed);
        if (row.status == SolveStatus::Computed && row.given.bop == row.given.eop) {
            EXPECT_EQ(p.aop, p.bop);
        }
    }
}

TEST(ReliabilityModels, IntervalsAndTheirRefusals) {
    const char* const illDefined = "Reliability function parameters are absent or ill-defined.";
    const char* const none = "An interval cannot be found for the value entered.";
    const struct {
        int model;
        Coefficients theta;
        double eop, interval;
        const char* text;
        const char* title = "Ill-Conditioned Reliability Function";
    } rows[] = {
        {Exponential, {0.9, 0.1, 0}, 0.9, 0, nullptr},
        {Weibull, {0.9, 0.1, 2}, 0.9, 0, nullptr},
        {MortalityDrift, {1, 0.1, 0}, std::exp(-1.0), 10, nullptr},
        {MortalityDrift, {1, 0.1, -0.001}, std::exp(-1.6), 20, nullptr}, // the earlier of two
        {MortalityDrift, {1, -0.1, 0.01}, std::exp(-2.0), 20, nullptr},  // rises first
        {RandomWalk, {0, 1, 0}, 1, 0, nullptr},
        {Exponential, {}, 0.9, 0, illDefined},
        {Exponential, {0.9, 0, 0}, 0.8, 0, illDefined},
        {MixedExponential, {0, 1, 0}, 0.8, 0, illDefined},
        {Gamma, {1, 0, 0}, 0.8, 0, illDefined},
        {Warranty, {0, 1, 0}, 0.8, 0, illDefined},
        {RandomWalk, {0.2, 1, 0}, 1, 0, illDefined},
        {RestrictedRandomWalk, {0.2, 1, 1}, 1, 0, illDefined},
        {Exponential, {0.9, 0.1, 0}, 0, 0, "EOP Reliability must be greater than zero.", "Illegal EOP"},
        {Exponential, {0.9, 0.1, 0}, 0.95, 0, none},
        {Exponential, {0.9, -0.1, 0}, 0.5, 0, none},
        {MortalityDrift, {1, 0.1, -0.001}, 0.05, 0, none}, // never so low
        {Warranty, {1, 2, 0}, 0.99, 0, none},
        {RestrictedRandomWalk, {0.2, 1, 1}, 0.1, 0, none},
        {Gamma,
         {0.9, 0.1, 0},
         0.95,
         0,
         "Cal /Test interval solution is suspect.",
         "Dubious Cal /Test Interval"},
    };
    for (const auto& row : rows) {
        TestSession test;
        if (row.text) test.ui.expectBox(row.title, row.text);
        const auto found = IntervalForReliability(test.session, row.model, row.theta, row.eop);
        EXPECT_EQ(found.has_value(), !row.text) << row.model << " " << row.eop;
        EXPECT_EQ(test.record.AbortFlag, row.text != nullptr);
        EXPECT_NEAR(found.value_or(0), row.interval, 1e-9) << row.model << " " << row.eop;
    }
}

TEST(ReliabilityModels, FaultsAreTold) {
    TestSession test;
    const char* const again = "A fatal error has occurred in computing the selected reliability function.  "
                              "Please try again with different input parameters.";
    test.ui.expectBox("Reliability Function Error", again);
    EXPECT_FALSE(ReliabilityAt(test.session, Weibull, {1, -1, 0.5}, 3));
    EXPECT_TRUE(test.record.AbortFlag);
    test.ui.expectBox("Reliability Function Error", again);
    EXPECT_FALSE(ReliabilityOverPeriod(test.session, Weibull, {1, -1, 0.5}, 3));
    test.ui.expectBox("Reliability Function Error",
                      "A fatal math error ocurred while solving for reliability model coefficients.  "
                      "Please try another combination of inputs.");
    PeriodReliability p{1, 0, 0.9};
    Coefficients theta;
    EXPECT_EQ(SolveReliabilityCoefficients(test.session, Exponential, p, 1e-320, theta),
              SolveStatus::Refused);
    for (const Coefficients& rising :
         {Coefficients{1.2, 0.1, 0}, Coefficients{0.9, -0.001, 0}, Coefficients{}}) {
        test.ui.expectBox("Ill-Conditioned Reliability Function",
                          "Reliability function parameters are absent or ill-defined.");
        EXPECT_FALSE(ReliabilityOverPeriod(test.session, Exponential, rising, 12));
    }
}

TEST(TimeUnits, Convert) {
    EXPECT_EQ(convertedTime(1, "Years", "Months"), 12);
    EXPECT_EQ(convertedTime(48, "Hours", "Days"), 2);
    EXPECT_EQ(convertedTime(2, "Weeks", "Days"), 14);
    EXPECT_EQ(convertedTime(1, "Years", "Days"), 365.25);
    EXPECT_EQ(convertedTime(5, "", "Days"), 5);
}

} // namespace
} // namespace metrisk::testing
