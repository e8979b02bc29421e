#include "numerics/IntegrationLimits.h"

#include "base/Real.h"
#include "base/RelativeUnits.h"

#include <array>
#include <cmath>
#include <string_view>

namespace metrisk {

namespace {

constexpr std::size_t maxWalkSteps = 1000000;
constexpr double smallestStart = 0.001;

/// A walk's step is a tenth of its start, so a start at 0 would never leave it.
double startAbove(double v) {
    return std::fmax(std::fabs(v), smallestStart);
}
double startBelow(double v) {
    return -startAbove(v);
}

/// Goes on from `start` while the integrand is above eps times its value at `start`. Steps are looked at
/// in blocks, since the integrand is cheaper for many points than for one. Ends by the count if not by
/// the integrand.
double walk(const AcceptanceIntegrand& f, double start, double step, double eps) {
    constexpr std::size_t block = 32;
    std::array<double, block> points;
    std::array<double, block> values;
    double floor = 0;
    double next = checked(start);
    for (std::size_t steps = 0; steps <= maxWalkSteps; steps += block) {
        for (double& point : points) {
            point = next;
            next += step;
        }
        f.evaluate(points.data(), values.data(), block);
        if (steps == 0) floor = values[0] * eps;
        for (std::size_t i = 0; i < block; ++i)
            if (!(floor < values[i])) return checked(points[i]);
    }
    throw RuntimeFault(FaultKind::Endless, "IntegrateAcceptance", start);
}

double walk(const AcceptanceIntegrand& f, double start, double eps) {
    return walk(f, start, start / 10, eps);
}

void jointNormal(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    const SubjectBias& su = f.subject();
    const double low = su.lowerOffset / su.sigma;
    const double high = su.upperOffset / su.sigma;
    if (su.twoSided) {
        x1 = -low;
        x2 = high;
    } else if (su.singleUpper) {
        x1 = -std::fabs(walk(f, startBelow(high), eps));
        x2 = high;
    } else {
        x2 = std::fabs(walk(f, startAbove(low), eps));
        x1 = -low;
    }
}

void jointLogNormal(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    const SubjectBias& su = f.subject();
    const auto limit = [&su](double x) { return su.logVariable(su.limitRatio(x)); };
    if (su.twoSided) {
        const double low = limit(su.lowerLimit);
        const double high = limit(su.upperLimit);
        x1 = su.physLimitBelow ? low : high;
        x2 = su.physLimitBelow ? high : low;
        return;
    }
    const double v = limit(su.singleUpper ? su.upperLimit : su.lowerLimit);
    if (su.singleUpper && !su.physLimitBelow) {
        x1 = walk(f, 0, startAbove(v) / 10, eps);
        x2 = v;
    } else if (!su.singleUpper && su.physLimitBelow) {
        x1 = v;
        x2 = std::fabs(walk(f, startAbove(v), eps));
    } else {
        x1 = -std::fabs(walk(f, startBelow(v), eps));
        x2 = v;
    }
}

void jointExponential(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    const SubjectBias& su = f.subject();
    if (su.singleUpper == su.physLimitBelow) {
        x1 = 0;
        x2 = 1;
    } else {
        x2 = walk(f, 1, eps);
        x1 = 1;
    }
}

void marginalNormal(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    const SubjectBias& su = f.subject();
    const double start = su.twoSided || su.singleUpper ? startAbove(su.upperOffset / su.sigma)
                                                       : startBelow(su.lowerOffset / su.sigma);
    const double end = std::fabs(walk(f, start, eps));
    x1 = -end;
    x2 = end;
}

void marginalLogNormal(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    const SubjectBias& su = f.subject();
    const auto start = [&su](double x) { return su.logVariable(std::fabs(su.limitRatio(x))); };
    const double above = start(su.twoSided || su.singleUpper ? su.upperLimit : su.lowerLimit);
    const double below = su.twoSided ? start(su.lowerLimit) : above;
    const double high = walk(f, startAbove(above), eps);
    const double low = walk(f, startBelow(below), eps);
    x1 = -std::fabs(low);
    x2 = std::fabs(high);
}

} // namespace

bool JointIntegrationLimits(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    if (!f.hasScale()) return false;
    switch (f.subject().distribution) {
    case Distribution::Normal: jointNormal(f, eps, x1, x2); break;
    case Distribution::LogNormal: jointLogNormal(f, eps, x1, x2); break;
    case Distribution::Exponential: jointExponential(f, eps, x1, x2); break;
    case Distribution::Uniform:
        x1 = -f.subject().upperOffset;
        x2 = f.subject().upperOffset;
        break;
    case Distribution::None: break;
    }
    return true;
}

bool MarginalIntegrationLimits(const AcceptanceIntegrand& f, double eps, double& x1, double& x2) {
    if (!f.hasScale()) return false;
    switch (f.subject().distribution) {
    case Distribution::Normal: marginalNormal(f, eps, x1, x2); break;
    case Distribution::LogNormal: marginalLogNormal(f, eps, x1, x2); break;
    case Distribution::Exponential:
        x2 = walk(f, 1, eps);
        x1 = 0;
        break;
    case Distribution::Uniform: // accepted by its joint integral alone
    case Distribution::None: break;
    }
    return true;
}

void IntegrationSpanFromRisk(float& zone, double risk, const char* units) {
    struct Row {
        double atMost;
        float zone;
    };
    // Tested in this order: the second row covers the third, which is never reached.
    static constexpr Row rows[] = {{0.00001, 4.5f}, {0.0005, 4.48f}, {0.0001, 4.38f}, {0.001, 3.9f},
                                   {0.005, 3.5f},   {0.01, 3.0f},    {0.05, 2.4f},    {0.1, 1.7f},
                                   {0.5, 1.2f},     {1, 1.0f}};
    if (std::string_view(units) == ppmUnits) risk /= 10000;
    for (const Row& row : rows) {
        if (risk <= row.atMost) {
            zone = row.zone;
            return;
        }
    }
}

} // namespace metrisk
