// Gauss-Kronrod panels of 21 points with a bound of their error.
#pragma once

#include <array>
#include <cmath>

namespace metrisk {

/// Abscissae from the outermost inward, the centre last; every second one belongs to the 10-point Gauss rule
/// (R. Piessens et al., QUADPACK).
inline constexpr std::array<double, 11> kronrodNodes = {0.995657163025808080735527280689003,
                                                        0.973906528517171720077964012084452,
                                                        0.930157491355708226001207180059508,
                                                        0.865063366688984510732096688423493,
                                                        0.780817726586416897063717578345042,
                                                        0.679409568299024406234327365114874,
                                                        0.562757134668604683339000099272694,
                                                        0.433395394129247190799265943165784,
                                                        0.294392862701460198131126603103866,
                                                        0.148874338981631210884826001129720,
                                                        0};
inline constexpr std::array<double, 11> kronrodWeights = {
    0.011694638867371874278064396062192, 0.032558162307964727478818972459390,
    0.054755896574351996031381300244580, 0.075039674810919952767043140916190,
    0.093125454583697605535065465083366, 0.109387158802297641899210590325805,
    0.123491976262065851077958109585166, 0.134709217311473325928054001771707,
    0.142775938577060080797094273138717, 0.147739104901338491374841515972068,
    0.149445554002916905664936468389821};
inline constexpr std::array<double, 5> gaussWeights = {
    0.066671344308688137593568809893332, 0.149451349150580593145863396957658,
    0.219086362515982043995534934228163, 0.269266719309996355091226921569469,
    0.295524224714752870173815619188769};

inline constexpr std::size_t panelPoints = 21;
using PanelArray = std::array<double, panelPoints>;

struct PanelSum {
    double value = 0;
    double spread = 0; // what the rules of 21 and of 10 points differ by: more than the error of the former
};

/// `evaluate(points, values)` fills the values at all 21 points of [a, b] at once.
template <class Evaluate>
PanelSum integratePanel(double a, double b, Evaluate& evaluate) {
    const double centre = (a + b) / 2;
    const double half = (b - a) / 2;
    PanelArray points, values;
    for (std::size_t i = 0; i < 10; ++i) {
        points[i] = centre - half * kronrodNodes[i];
        points[20 - i] = centre + half * kronrodNodes[i];
    }
    points[10] = centre;
    evaluate(points, values);
    double kronrod = kronrodWeights[10] * values[10];
    double gauss = 0;
    for (std::size_t i = 0; i < 10; ++i) {
        const double pair = values[i] + values[20 - i];
        kronrod += kronrodWeights[i] * pair;
        if (i % 2 == 1) gauss += gaussWeights[i / 2] * pair;
    }
    return {kronrod * half, std::fabs(kronrod - gauss) * std::fabs(half)};
}

} // namespace metrisk
