// The eight models of in-tolerance reliability over time: their names, what each takes, and R(t).
#pragma once

#include <array>
#include <string_view>

namespace metrisk {

/// a, b and c of a model. Rates are per unit of the time in hand.
struct Coefficients {
    double a = 0, b = 0, c = 0;

    bool allZero() const { return a == 0 && b == 0 && c == 0; }
    friend bool operator==(const Coefficients&, const Coefficients&) = default;
};

/// Numbers of the models, as analysis files hold them.
namespace reliability {
enum Number {
    None,
    Exponential,
    MixedExponential,
    Weibull,
    Gamma,
    MortalityDrift,
    Warranty,
    RandomWalk,
    RestrictedRandomWalk
};
}

struct ReliabilityModel {
    int number;
    std::string_view name;
    std::string_view equation;
    bool hasC;
    bool takesBOP; ///< false: R(0) is 1 by the form of the model
    bool needsAOP; ///< to be solved for
};

inline constexpr std::array<ReliabilityModel, 8> reliabilityModels{{
    {1, "Exponential", "R( t ) = a exp( - bt )", false, true, false},
    {2, "Mixed Exponential", "R( t ) = 1 / (1 + at / b )^b", false, false, true},
    {3, "Weibull", "R( t ) = a exp[ -( bt )^c ]", true, true, true},
    {4, "Gamma", "R( t ) = a exp( - bt ) { 1 + bt + [ ( bt )^2 ] / 2 + [ ( bt )^3 ] / 6 }", false, true,
     false},
    {5, "Mortality Drift", "R( t ) = a exp{ - [ bt + ct^2 ] }", true, true, true},
    {6, "Warranty", "R( t ) = 1 / { 1 + exp[ a( t - b ) ] }", false, true, false},
    {7, "Random Walk", "R( t ) = erf[ 1 / sqrt( a + bt ) ]", false, true, false},
    {8, "Restricted Random Walk", "R( t ) = erf(1 / sqrt{ a + b [ 1 - exp( -ct ) ] } )", true, true, true},
}};

/// The model of that name or number; null if there is none.
const ReliabilityModel* reliabilityModel(std::string_view name);
const ReliabilityModel* reliabilityModel(int number);

/// R(t), a fraction; t in the unit of the coefficients. 0 at t = 0 without any coefficient. Raises
/// RuntimeFault where the formula has no finite value.
double reliabilityAt(int model, const Coefficients& theta, double t);

/// R(t) without its factor a (models 1, 3, 4, 5); for models 7 and 8 Phi(sqrt(|2/u|)), from which R is
/// 2 Phi - 1. A negative b of model 5 becomes -b/2 for the caller too: the integral is then one of a curve
/// that falls all along, not of R(t). Raises RuntimeFault.
double ReliabilityIntegrand(int model, double a, double& b, double c, double t);

} // namespace metrisk
