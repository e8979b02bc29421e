// The second figures against integrations at 50 digits, with the bounds that they tell.
#include "risk/exact/ExactRisks.h"
#include "base/DisplayRule.h"
#include "base/Real.h"
#include "desk/compute/ValidateAndFit.h"
#include "record/Analysis.h"
#include "risk/FittedSubject.h"
#include "risk/SubjectFit.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/Verified.h"
#include "tests/support/Cases.h"
#include "tests/support/TestSession.h"

#include <boost/math/constants/constants.hpp>
#include <boost/math/quadrature/gauss.hpp>
#include <boost/math/special_functions/erf.hpp>
#include <boost/multiprecision/cpp_bin_float.hpp>
#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

using Precise = boost::multiprecision::cpp_bin_float_50;

Precise phi(const Precise& z) {
    static const Precise norm = 1 / sqrt(2 * boost::math::constants::pi<Precise>());
    return norm * exp(-z * z / 2);
}
Precise content(const Precise& z) {
    return boost::math::erfc(-z / sqrt(Precise(2))) / 2;
}

/// The case on the scale of its distribution, as a measurement sees it: Normal in sigmas, LogNormal in
/// distances to the physical limit, Exponential in tolerances, Uniform in nominal units.
struct Truth {
    SubjectBias su;
    Precise sm;
    Precise lowT, highT; // in tolerance
    Precise lowA, highA; // accepted
    Precise start, end;  // where there is a density worth the while

    Precise density(const Precise& x) const {
        switch (su.distribution) {
        case Distribution::Normal: return phi(x);
        case Distribution::LogNormal: {
            if (x <= 0) return 0;
            const Precise s = su.logSigma;
            return phi(log(x / Precise(su.logOmega)) / s) / (s * x);
        }
        case Distribution::Exponential: return Precise(su.expExponent) * exp(-Precise(su.expExponent) * x);
        default: return 1 / (2 * Precise(su.upperOffset));
        }
    }
    Precise accepted(const Precise& x) const { return content((highA - x) / sm) - content((lowA - x) / sm); }

    struct Regions {
        Precise acceptedBad = 0, rejectedGood = 0, accepted = 0;
    };

    /// All regions in one pass, panels breaking at their limits and on the scales of density and measurement.
    Regions regions() const {
        std::vector<Precise> breaks{start, end, lowT, highT};
        const bool logarithmic = su.distribution == Distribution::LogNormal;
        for (int k = -13; k <= 13; ++k) {
            breaks.push_back(logarithmic ? Precise(Precise(su.logOmega) * exp(Precise(su.logSigma) * k))
                                         : Precise(k));
            for (const Precise& edge : {highA, lowA}) breaks.push_back(edge + sm * k * abs(k) / 12);
        }
        std::sort(breaks.begin(), breaks.end());
        Regions sum;
        using Rule = boost::math::quadrature::gauss<Precise, 15>;
        for (std::size_t i = 1; i < breaks.size(); ++i) {
            const Precise from = std::max(breaks[i - 1], start);
            const Precise to = std::min(breaks[i], end);
            if (!(from < to)) continue;
            Precise all = 0, taken = 0;
            const Precise centre = (from + to) / 2, half = (to - from) / 2;
            for (std::size_t n = 0; n < Rule::abscissa().size(); ++n)
                for (const int side : {-1, 1}) {
                    if (side > 0 && Rule::abscissa()[n] == 0) continue;
                    const Precise x = centre + side * half * Rule::abscissa()[n];
                    const Precise g = density(x) * Rule::weights()[n] * half;
                    if (g == 0) continue;
                    all += g;
                    taken += g * accepted(x);
                }
            sum.accepted += taken;
            if (from >= lowT && to <= highT)
                sum.rejectedGood += all - taken;
            else
                sum.acceptedBad += taken;
        }
        return sum;
    }
};

const Precise far = 1e9;

Truth truthOf(const SubjectBias& su, double mteSigma, AcceptanceRange range) {
    Truth t{.su = su,
            .sm = mteSigma,
            .lowT = -far,
            .highT = far,
            .lowA = -far,
            .highA = far,
            .start = -13,
            .end = 13};
    const bool upper = su.twoSided || su.singleUpper;
    const bool lower = su.twoSided || !su.singleUpper;
    switch (su.distribution) {
    case Distribution::Normal: {
        const Precise sigma = su.sigma;
        t.sm /= sigma;
        if (upper) t.highT = su.upperOffset / sigma, t.highA = range.upper / sigma;
        if (lower) t.lowT = -su.lowerOffset / sigma, t.lowA = range.lower / sigma;
        break;
    }
    case Distribution::LogNormal: {
        const Precise reach = Precise(su.mode) - Precise(su.physicalLimit);
        const auto ratio = [&](double deviation) { return Precise(1 + Precise(deviation) / reach); };
        t.sm /= abs(reach);
        t.start = Precise(su.logOmega) * exp(-Precise(su.logSigma) * 13);
        t.end = Precise(su.logOmega) * exp(Precise(su.logSigma) * 13);
        const bool below = su.physLimitBelow;
        if (below ? upper : lower) {
            t.highT = ratio(below ? su.upperOffset : -su.lowerOffset);
            t.highA = ratio(below ? range.upper : range.lower);
            t.lowA = 0;
        }
        if (below ? lower : upper) {
            t.lowT = ratio(below ? -su.lowerOffset : su.upperOffset);
            t.lowA = ratio(below ? range.lower : range.upper);
        }
        break;
    }
    case Distribution::Exponential: {
        const Precise offset = su.sideOffset();
        const Precise edge = abs(Precise(su.singleUpper ? range.upper : range.lower)) / offset;
        t.sm /= offset;
        t.start = 0;
        t.end = 80 / Precise(su.expExponent);
        if (su.caseCode == 8)
            t.highT = 1, t.lowA = 0, t.highA = edge;
        else
            t.lowT = 1, t.lowA = edge;
        break;
    }
    default:
        t.start = -Precise(su.upperOffset);
        t.end = su.upperOffset;
        t.lowA = range.lower;
        t.highA = range.upper;
    }
    return t;
}

struct Worst {
    double error = 0, bound = 0;
};

void check(const BoundedFigure& figure, const Precise& truth, const std::string& what, Worst& worst) {
    const double error = abs(Precise(figure.value) - truth).convert_to<double>();
    const double size = truth.convert_to<double>();
    EXPECT_LE(error, figure.bound + 1e-300) << what << " " << figure.value << " true " << size;
    if (size < 1e-15) return;
    EXPECT_LE(error / size, 1e-9) << what << " " << figure.value << " true " << size;
    EXPECT_LE(figure.bound / size, 1e-9) << what << " " << figure.value;
    worst.error = std::max(worst.error, error / size);
    worst.bound = std::max(worst.bound, figure.bound / size);
}

TEST(ExactRisks, AgreeWithFiftyDigitsOverTheGrid) {
    struct Kind {
        const char* name;
        Entry entry;
    };
    const Kind kinds[] = {{"normal two-sided", twoSided(0.5, 0.5, 95)},
                          {"normal upper", single(testing::Kind::SingleUpper, 95)},
                          {"lognormal two-sided", twoSided(1, 0.5, 95)},
                          {"lognormal far", withPhysicalLimit(testing::Kind::SingleUpper, 10, 0.5, 9.2, 95)},
                          {"lognormal near", withPhysicalLimit(testing::Kind::SingleLower, 10, 0.5, 9.2, 95)},
                          {"exponential", withPhysicalLimit(testing::Kind::SingleUpper, 10, 0.5, 10, 95)},
                          {"uniform", twoSided(0.5, 0.5, 100)}};
    struct Point {
        double pct, ratio, mult;
    };
    const Point points[] = {{0.1, 1, 1},         {16, 4, 1},       {50, 0.1, 1.1},  {70, 10, 0.7},
                            {95, 4, 1},          {99, 50, 1.02},   {99.99, 2, 0.9}, {95, 1000, 1},
                            {90, 100000, 0.999}, {99.99999, 4, 1}, {80, 1.5, 0.97}, {97, 8, 1.1}};
    for (const Kind& kind : kinds) {
        Worst worst;
        for (const Point& point : points) {
            Entry entry = kind.entry;
            if (entry.pctInTol != 100) entry.pctInTol = point.pct;
            Analysis r;
            enter(r, entry);
            SubjectBias su;
            try {
                su = subjectBiasOf(fitSubject(r, {}));
            } catch (const FitRefusal&) {
                continue; // not every percentage can be fitted to every kind
            } catch (const RuntimeFault&) {
                continue;
            }
            const double mteSigma =
                std::max(r.SU_UpperOffset, r.SU_LowerOffset) / point.ratio / 1.959963984540054;
            const AcceptanceRange range{-point.mult * su.lowerOffset, point.mult * su.upperOffset};
            const auto risks = exactRisks(su, mteSigma, range);
            const std::string what = std::string(kind.name) + " " + std::to_string(point.pct) + " % " +
                                     std::to_string(point.ratio) + ":1 x" + std::to_string(point.mult);
            ASSERT_TRUE(risks) << what;
            const Truth::Regions truth = truthOf(su, mteSigma, range).regions();
            check(risks->acceptedBad, truth.acceptedBad, what + " accepted bad", worst);
            check(risks->rejectedGood, truth.rejectedGood, what + " rejected good", worst);
            check(risks->accepted, truth.accepted, what + " accepted", worst);
        }
        std::printf("%-20s worst error %.1e, worst bound %.1e\n", kind.name, worst.error, worst.bound);
    }
}

std::optional<ExactRisks> risksOfCase(const Entry& entry, double ratio, double mult = 1) {
    Analysis r;
    enter(r, entry);
    const SubjectBias su = subjectBiasOf(fitSubject(r, {}));
    return exactRisks(su, 0.5 / ratio / 1.96, {-mult * su.lowerOffset, mult * su.upperOffset});
}

TEST(ExactRisks, MirrorImagesAndLimits) {
    const auto same = [](const BoundedFigure& a, const BoundedFigure& b, const char* what) {
        EXPECT_NEAR(a.value / b.value, 1, 1e-11) << what;
    };
    // Upside down about the mode.
    for (const double pct : {60.0, 95.0, 99.99}) {
        const auto upper = risksOfCase(withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 9.2, pct), 4);
        const auto lower = risksOfCase(withPhysicalLimit(Kind::SingleLower, 10, 0.5, 10.8, pct), 4);
        same(upper->acceptedBad, lower->acceptedBad, "physical limit, accept");
        same(upper->rejectedGood, lower->rejectedGood, "physical limit, reject");
        const auto nearUpper = risksOfCase(withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, pct), 4);
        const auto nearLower = risksOfCase(withPhysicalLimit(Kind::SingleLower, 10, 0.5, 10, pct), 4);
        same(nearUpper->acceptedBad, nearLower->acceptedBad, "exponential, accept");
        same(nearUpper->rejectedGood, nearLower->rejectedGood, "exponential, reject");
        const auto plainUpper = risksOfCase(single(Kind::SingleUpper, pct), 4);
        const auto plainLower = risksOfCase(single(Kind::SingleLower, pct), 4);
        same(plainUpper->acceptedBad, plainLower->acceptedBad, "plain, accept");
    }
    double before = 1;
    for (const double ratio : {1.0, 10.0, 1e3, 1e5, 1e7}) {
        const auto risks = risksOfCase(twoSided(0.5, 0.5, 95), ratio);
        EXPECT_LT(risks->acceptedBad.value, before) << "a better measurement";
        before = risks->acceptedBad.value;
        EXPECT_NEAR(risks->accepted.value, 0.95, 0.3 / ratio);
    }
    const auto narrow = risksOfCase(twoSided(0.5, 0.5, 95), 4, 1e-6);
    EXPECT_NEAR(narrow->rejectedGood.value, 0.95, 1e-5) << "nothing is accepted";
    EXPECT_LT(narrow->acceptedBad.value, 1e-8);
    EXPECT_FALSE(exactBaseline(0, 0.9, 0.9) || exactBaseline(4, 1, 0.9) || exactBaseline(4, 0.9, 0));
    EXPECT_FALSE(exactRisks(SubjectBias{}, 1, {-1, 1}));
}

TEST(Verified, TellsWhereTheFiguresPart) {
    // A subject of 16 % within a single limit: one panel of 100 points misses the risk.
    TestSession test;
    enter(test.record, withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 9.2, 16));
    test.record.MTE_Offset = 0.125;
    ValidateAndFit(test.session);
    Verified verified = verifyRisks(test.record, {1e-9, 0.05}, {-0.5, 0.5});
    ASSERT_TRUE(verified.falseAccept);
    EXPECT_EQ(agreeingDigits(*verified.falseAccept), 0);
    EXPECT_TRUE(exactRemark(verified.falseAccept, riskPicture, {}).starts_with("Exact integration gives "));

    verified.falseAccept = {0.0124, {0.0124 * (1 + 3e-7), 0}};
    EXPECT_EQ(agreeingDigits(*verified.falseAccept), 6);
    EXPECT_EQ(exactRemark(verified.falseAccept, riskPicture, {}), "") << "shown alike";
    verified.falseAccept = {0, {0.0124, 0}};
    EXPECT_EQ(exactRemark(verified.falseAccept, riskPicture, {}), "Exact integration gives 1.2400 %.");
    verified.falseAccept = {0.0124, {3.2e-7, 0}};
    EXPECT_EQ(exactRemark(verified.falseAccept, riskPicture, {}), "Exact integration gives 0.32 ppm.");
    EXPECT_EQ(agreeingDigits({0, {0, 0}}), 15);
}

/// Against a dense scan of the reference case, which knows nothing of falling and peaked curves.
TEST(ExactRatio, IsFoundWhereThereIsOneAndOnlyThere) {
    constexpr int steps = 1200;
    const auto ratioAt = [](int i) { return 0.01 * std::pow(1e6, double(i) / steps); };
    int found = 0, none = 0, two = 0;
    for (const double subject : {0.05, 0.4, 0.72, 0.95, 0.9999})
        for (const double measuring : {0.1, 0.5, 0.85, 0.99})
            for (const auto& [onAccept, option] : {std::pair{true, 0}, {true, 1}, {false, 0}}) {
                const ExactRatioQuestion question{subject, measuring, onAccept, option};
                const auto riskAt = [&](double ratio) {
                    const auto risks = exactBaseline(ratio, subject, measuring);
                    return onAccept ? risks->falseAccept(option).value : risks->falseReject().value;
                };
                std::vector<double> scan;
                for (int i = 0; i <= steps; ++i) scan.push_back(riskAt(ratioAt(i)));
                for (const double risk : {0.6, 0.1, 0.02, 1e-3, 1e-6, 1e-12}) {
                    std::vector<double> roots;
                    for (int i = 0; i < steps; ++i)
                        if ((scan[std::size_t(i)] < risk) != (scan[std::size_t(i) + 1] < risk))
                            roots.push_back(ratioAt(i));
                    const auto ratio = exactRatio(question, risk);
                    const std::string what = std::to_string(subject) + " " + std::to_string(measuring) + " " +
                                             std::to_string(onAccept) + std::to_string(option) + " " +
                                             std::to_string(risk);
                    ASSERT_EQ(ratio.has_value(), !roots.empty()) << what;
                    roots.empty() ? ++none : ++found;
                    if (!ratio) continue;
                    EXPECT_NEAR(riskAt(*ratio) / risk, 1, 1e-10) << what;
                    EXPECT_NEAR(*ratio / roots.back(), 1, 0.02) << what << ": of two the greater";
                    for (const double nearby : {0.9998, 1.00001})
                        EXPECT_NEAR(*exactRatio(question, risk, *ratio * nearby) / *ratio, 1, 1e-11) << what;
                    if (roots.size() < 2) continue;
                    ++two;
                    EXPECT_NEAR(*exactRatio(question, risk, roots.front()) / roots.front(), 1, 0.02) << what;
                }
            }
    EXPECT_TRUE(found > 100 && none > 50 && two > 20) << found << " " << none << " " << two;
    EXPECT_EQ(exactRatioRemark(0, "0.00", 4.0, {}), "Exact integration gives 4.00 : 1.");
    EXPECT_EQ(exactRatioRemark(2.5, "2.50", std::nullopt, {}), "Exact integration gives no such ratio.");
    EXPECT_EQ(exactRatioRemark(2.5, "2.50", 2.501, {}), "");
    EXPECT_EQ(exactRatioRemark(0, "0.00", std::nullopt, {}), "");
}

} // namespace
} // namespace metrisk::testing
