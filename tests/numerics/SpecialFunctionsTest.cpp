#include "numerics/SpecialFunctions.h"
#include "desk/kit/FaultMessages.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/DriftIntegral.h"
#include "tests/support/ScriptedInteraction.h"

#include <boost/math/distributions/students_t.hpp>
#include <boost/math/special_functions/beta.hpp>
#include <boost/math/special_functions/gamma.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace metrisk::testing {
namespace {

TEST(SpecialFunctions, BetaIAgreesWithBoost) {
    for (double a : {0.05, 0.5, 1.0, 3.7, 50.0, 2500.0})
        for (double b : {0.05, 0.5, 1.0, 8.2, 400.0})
            for (double x : {1e-9, 0.01, 0.3, 0.5, 0.77, 0.99, 1 - 1e-9})
                EXPECT_NEAR(BetaI(a, b, x), boost::math::ibeta(a, b, x), 2e-10)
                    << "a " << a << " b " << b << " x " << x;
}

TEST(SpecialFunctions, BetaIAtTheEndsAndOutside) {
    EXPECT_EQ(BetaI(2, 3, 0), 0);
    EXPECT_EQ(BetaI(2, 3, 1), 1);
    for (double x : {1.0000001, -1e-300}) EXPECT_THROW(BetaI(2, 3, x), RuntimeFault) << x;
    EXPECT_THROW(BetaI(2, 3, std::nan("")), RuntimeFault);
    EXPECT_THROW(BetaI(-1, 3, 0.5), RuntimeFault); // logarithm of a bad argument
}

TEST(SpecialFunctions, LowerGammaSeriesAgreesWithBoost) {
    for (double a : {0.2, 0.5, 1.0, 2.5, 7.0})
        for (double x : {1e-6, 0.1, 1.0, 4.0, 9.0}) {
            // The series alternates: rounding is that of its largest term, which grows like x^a e^x.
            const double tolerance = 1e-11 + 2e-17 * std::pow(x, a) * std::exp(x);
            EXPECT_NEAR(LowerGammaSeries(a, x), boost::math::tgamma_lower(a, x), tolerance)
                << "a " << a << " x " << x;
        }
}

TEST(SpecialFunctions, LowerGammaSeriesAtBadArguments) {
    EXPECT_EQ(LowerGammaSeries(2, 0), 0);
    EXPECT_THROW(LowerGammaSeries(2, 1e4), RuntimeFault);  // overflow
    EXPECT_THROW(LowerGammaSeries(0.5, -1), RuntimeFault); // root of a negative number
    EXPECT_THROW(LowerGammaSeries(-2, 1.5), RuntimeFault); // division by zero at n = 2
    EXPECT_THROW(LowerGammaSeries(0, 3), RuntimeFault);
}

TEST(SpecialFunctions, InverseStudentTHoldsTheContent) {
    const struct {
        double nu, p, expected, tolerance;
    } known[] = {{1, 0.95, 12.7062, 5e-5}, {10, 0.6827, 1.0526, 5e-5}, {60, 0.95, 2.0003, 5e-5}};
    for (const auto& row : known)
        EXPECT_NEAR(InverseStudentT(row.nu, row.p), row.expected, row.tolerance) << row.nu << ' ' << row.p;

    for (double nu : {0.5, 1.0, 2.0, 3.3, 10.0, 29.0, 250.0, 4999.0})
        for (double p : {0.001, 0.05, 0.5, 0.6827, 0.95, 0.9545, 0.9973}) {
            const double k = InverseStudentT(nu, p);
            const boost::math::students_t_distribution<long double> t(nu);
            const auto content =
                static_cast<double>(1 - 2 * boost::math::cdf(t, -static_cast<long double>(k)));
            EXPECT_NEAR(content, p, 1e-10) << "nu " << nu << " p " << p << " k " << k;
        }
}

TEST(SpecialFunctions, InverseStudentTWithoutAnAnswer) {
    EXPECT_EQ(InverseStudentT(0, 0.95), 0);
    EXPECT_EQ(InverseStudentT(5, 1), 0);
    EXPECT_EQ(InverseStudentT(5, 0), 0);
    EXPECT_EQ(InverseStudentT(5, -2), 0);
    EXPECT_THROW(InverseStudentT(0.05, 1 - 1e-12), RuntimeFault); // its square overflows
}

TEST(FaultMessages, NameTheRoutineThatFailed) {
    struct Row {
        void (*work)();
        const char* title;
        const char* text;
    };
    static const auto integrate = [](DriftIntegrand f) {
        DriftNodes nodes;
        double result = 0;
        IntegrateDriftFunction(0, 3, f, result, nodes);
    };
    for (const Row& row : {
             Row{[] { BetaI(2, 3, 1.1); }, "Bad Ju-Ju",
                 "Bad argument in the incomplete beta function (BetaI)."},
             Row{[] { LowerGammaSeries(0, 3); }, "Illegal Math Operation",
                 "Error in Incomplete Gamma Function Argument"},
             Row{[] { integrate([](double, double&) -> bool { throw RuntimeFault{}; }); },
                 "Function Integration Error",
                 "A fatal math error occurred during function integration.  Please try a different set of "
                 "inputs."},
             Row{[] { BaselineJointProbability(1e308, 1, 10); }, "Function Integration Error",
                 "A fatal math error occurred during integration.  Please try a different set of inputs."},
             Row{[] { LowerGammaSeries(2, 1e4); }, nullptr, nullptr},
         }) {
        ScriptedInteraction ui;
        if (row.title) ui.expectBox(row.title, row.text);
        try {
            row.work();
            ADD_FAILURE() << "no fault: " << row.title;
        } catch (const RuntimeFault& fault) {
            tellFault(ui, fault);
        }
    }
}

TEST(DensityAt, Curves) {
    const double pi = std::numbers::pi;
    EXPECT_NEAR(DensityAt(3, "Normal", 2, 3, 0), 1 / (2 * std::sqrt(2 * pi)), 1e-16);
    EXPECT_NEAR(DensityAt(5, "Normal", 2, 3, 0), std::exp(-0.5) / (2 * std::sqrt(2 * pi)), 1e-16);
    EXPECT_EQ(DensityAt(1e6, "Normal", 1, 0, 0), 0); // underflow is no fault
    for (const char* name : {"t", "Student's t"}) {
        // One degree of freedom: Gamma(1)/Gamma(1/2)/sqrt(2 pi), whatever sigma is.
        EXPECT_NEAR(DensityAt(3, name, 2, 3, 1), 1 / (pi * std::sqrt(2)), 1e-16) << name;
        EXPECT_NEAR(DensityAt(5, name, 2, 3, 1), 0.5 / (pi * std::sqrt(2)), 1e-16) << name;
        EXPECT_NEAR(DensityAt(7, name, 2, 3, 3),
                    1 / (std::sqrt(pi) / 2) / std::sqrt(4 * pi) * std::pow(1 + 4.0 / 3, -2), 1e-16)
            << name;
    }
}

TEST(DensityAt, OutOfRangeIsZero) {
    EXPECT_EQ(DensityAt(0, "Normal", 0, 0, 5), 0);
    EXPECT_EQ(DensityAt(0, "Normal", -1, 0, 5), 0);
    EXPECT_EQ(DensityAt(0, "t", 1, 0, 0.99), 0);
    EXPECT_EQ(DensityAt(0, "t", 0, 0, 5), 0);
    EXPECT_EQ(DensityAt(0, "normal", 1, 0, 5), 0);
    EXPECT_EQ(DensityAt(0, "Uniform", 1, 0, 5), 0);
    EXPECT_THROW(DensityAt(1e200, "Normal", 1, 0, 5), RuntimeFault);
}

} // namespace
} // namespace metrisk::testing
