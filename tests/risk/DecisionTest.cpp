// Rules and verdicts of readings: their texts, their refusals, and that no unit or place changes a verdict.
#include "base/NumberFormat.h"
#include "base/Picture.h"
#include "risk/decision/Counts.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/Decide.h"
#include "risk/decision/DecisionSentence.h"
#include "risk/decision/OffCentre.h"
#include "risk/decision/ShownFigures.h"
#include "risk/decision/Strategies.h"
#include "risk/decision/WorstCase.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk::testing {
namespace {

/// 1 V within 0.41 mV and 0.3 mV, measured to 0.05 mV: in a unit, moved, mirrored.
struct Seen {
    double unit = 1;
    double moved = 0;
    bool mirrored = false;

    double at(double deviation) const { return moved + unit * (mirrored ? -deviation : deviation); }
    DecisionBasis basis(Sides sides, double degFreedom) const {
        SubjectEntry entry{.mode = moved,
                           .upperOffset = unit * (mirrored ? 0.3 : 0.41),
                           .lowerOffset = unit * (mirrored ? 0.41 : 0.3),
                           .pctInTol = 90};
        entry.upperLimit = entry.mode + entry.upperOffset;
        entry.lowerLimit = entry.mode - entry.lowerOffset;
        const Sides opposite = sides == Sides::Upper ? Sides::Lower : Sides::Upper;
        entry.sides = sides == Sides::Two || !mirrored ? sides : opposite;
        DecisionBasis basis = *decisionBasis(entry, 0.05 * unit, degFreedom);
        basis.guardband = mirrored ? Guardband{0.9, 0.8} : Guardband{0.8, 0.9};
        return basis;
    }
};

TEST(Decisions, AreTheSameInAnyUnitAndPlaceAndMirrored) {
    const Seen views[] = {{1e-3},           {1e3}, {1e6}, {.moved = 1e4}, {1e-3, 1e4}, {.mirrored = true},
                          {1e3, -7e5, true}};
    const char* rules[] = {"simple", "ratio=4", "guard=1",  "guard=0.83", "guard=-0.4", "iso14253",
                           "rss",    "m6",      "analysis", "pc=0.95",    "pc=50%"};
    int passed = 0, failed = 0;
    for (const Sides sides : {Sides::Two, Sides::Upper, Sides::Lower})
        for (const double degFreedom : {0.0, 6.0})
            for (const char* text : rules)
                for (const int outcomes : {2, 3, 4}) {
                    DecisionRule rule = *decisionRuleOf(text);
                    rule.outcomes = outcomes;
                    if (!limitsOf(rule, Seen{}.basis(sides, degFreedom)) &&
                        rule.kind != RuleKind::Conformance)
                        continue;
                    if (rule.kind == RuleKind::Conformance && refusedRule(rule)) continue;
                    const DecisionBasis plain = Seen{}.basis(sides, degFreedom);
                    std::vector<double> readings = {-0.5, -0.31, -0.3, -0.26, -0.2, 0,
                                                    0.31, 0.36,  0.41, 0.43,  0.6};
                    if (const auto limits = limitsOf(rule, plain); limits)
                        for (const double end : {limits->acceptance.lower, limits->acceptance.upper})
                            if (std::isfinite(end)) readings.push_back(end); // on the limit is inside
                    for (const double y : readings) {
                        const Verdict verdict = decide(plain, y, rule)->verdict;
                        ++(passes(verdict) ? passed : failed);
                        for (const Seen& seen : views)
                            EXPECT_EQ(decide(seen.basis(sides, degFreedom), seen.at(y), rule)->verdict,
                                      verdict)
                                << text << " " << outcomes << " " << y << " unit " << seen.unit << " moved "
                                << seen.moved;
                    }
                }
    EXPECT_GT(std::min(passed, failed), 100);
}

TEST(Decisions, ReadTheTextsOfRules) {
    struct {
        const char* text;
        RuleKind kind;
        double value;
    } const rows[] = {{"simple", RuleKind::Simple, 0},         {"umax=0.1", RuleKind::LargestU, 0.1},
                      {"ratio=4", RuleKind::LeastRatio, 4},    {"ratio=10:1", RuleKind::LeastRatio, 10},
                      {"guard=-0.4", RuleKind::Guard, -0.4},   {"w=U", RuleKind::Guard, 1},
                      {"w=0.83U", RuleKind::Guard, 0.83},      {"pc=0.95", RuleKind::Conformance, 0.95},
                      {"pc=95%", RuleKind::Conformance, 0.95}, {"pc=95", RuleKind::Conformance, 95},
                      {"iso14253", RuleKind::Iso14253, 0},     {"analysis", RuleKind::Analysis, 0}};
    for (const auto& row : rows) {
        const auto rule = decisionRuleOf(row.text);
        ASSERT_TRUE(rule) << row.text;
        EXPECT_EQ(rule->kind, row.kind) << row.text;
        EXPECT_DOUBLE_EQ(rule->value, row.value) << row.text;
        const auto again = decisionRuleOf(textOf(*rule));
        ASSERT_TRUE(again) << row.text;
        EXPECT_EQ(again->value, rule->value) << row.text;
    }
    for (const char* wrong : {"", "Simple", "simple=1", "umax", "guard=", "guard=1x", "w=", "w=1", "w=xU",
                              "rss=1", "pc", "pc=%", "pc=0,95", "ratio=4:", "ratio=4:0", "m6 "})
        EXPECT_FALSE(decisionRuleOf(wrong)) << wrong;
}

DecisionBasis plainBasis(double pct, double sigma, Sides sides = Sides::Two) {
    return *decisionBasis({.upperOffset = 1,
                           .lowerOffset = 1,
                           .upperLimit = 1,
                           .lowerLimit = -1,
                           .pctInTol = pct,
                           .sides = sides},
                          sigma, 0);
}

TEST(Decisions, RefuseRulesThatAreNone) {
    struct {
        const char* text;
        int outcomes;
        std::optional<double> reject{};
        double sigma = 0.125;
    } const rows[] = {{"simple", 3},   {"guard=1", 5},  {"guard=-0.1", 3},   {"guard=0.5", 4, -0.6},
                      {"iso14253", 2}, {"pc=0.5", 3},   {"pc=1", 2},         {"pc=0", 2},
                      {"umax=0", 2},   {"ratio=-1", 2}, {"rss", 2, {}, 0.5}, {"rss", 2, {}, 0.7}};
    for (const auto& row : rows) {
        DecisionRule rule = *decisionRuleOf(row.text);
        rule.outcomes = row.outcomes;
        rule.reject = row.reject;
        const auto decision = decide(plainBasis(90, row.sigma), 0.5, rule);
        ASSERT_FALSE(decision) << row.text;
        EXPECT_TRUE(decision.refusal().told()) << row.text;
    }
    EXPECT_FALSE(decide(plainBasis(90, 0.1), std::nan(""), {}));
    EXPECT_TRUE(decide(plainBasis(90, 0.1), 0.5,
                       {.kind = RuleKind::Guard, .value = 0.5, .reject = -0.5, .outcomes = 4}));
}

TEST(Decisions, PassNothingWhereTheGuardbandsMeet) {
    const DecisionBasis basis = plainBasis(90, 0.7);
    for (const auto& [outcomes, reading, verdict] : {std::tuple{2, 0.0, Verdict::Fail},
                                                     {3, 0.0, Verdict::Undecided},
                                                     {4, 0.0, Verdict::ConditionalPass},
                                                     {4, 1.5, Verdict::ConditionalFail},
                                                     {4, 3.0, Verdict::Fail}})
        EXPECT_EQ(
            decide(basis, reading, {.kind = RuleKind::Guard, .value = 1, .outcomes = outcomes})->verdict,
            verdict)
            << outcomes << " " << reading;
}

TEST(Decisions, KeepTheDigitsOfSmallProbabilities) {
    // Far outside on both sides, with every kind of prior: a probability and its complement are each there.
    SubjectEntry entry{.mode = 1,
                       .upperOffset = 1,
                       .lowerOffset = 1,
                       .upperLimit = 2,
                       .pctInTol = 90,
                       .sides = Sides::Upper,
                       .physicalLimitRequired = true};
    for (const double physical : {0.2, 1.0})
        for (const double degFreedom : {0.0, 5.0})
            for (const double reading : {-1.0, 1.5, 5.0}) {
                entry.physicalLimit = physical;
                const DecisionBasis basis = *decisionBasis(entry, 0.1, degFreedom);
                const Decision d = *decide(basis, reading, {}, &*basis.fit);
                EXPECT_GT(d.conformance.conforming, 0) << physical << " " << degFreedom << " " << reading;
                EXPECT_GT(d.conformance.nonconforming, 0) << physical << " " << degFreedom << " " << reading;
                EXPECT_NEAR(d.conformance.conforming + d.conformance.nonconforming, 1, 1e-13);
            }
    EXPECT_EQ(shownPercent({1, 2.6e-20}), "> 99.99999999 %");
    EXPECT_EQ(shownPercent({0.999999, 1e-6}), "99.9999 %");
    EXPECT_EQ(shownPercent({0.949999, 0.050001}, 0.95), "94.9999 %");
    EXPECT_EQ(shownPercent({3e-8, 1}), "0.000003 %");
    EXPECT_EQ(shownPercent({1e-31, 1}), "< 1e-30");
    EXPECT_EQ(shownPercent({0, 1}), "< 1e-30"); // no digits are left of it
    EXPECT_EQ(shownPercent({0.8849, 0.1151}), "88.49 %");
    EXPECT_EQ(shownPercent({0.8849, 0.1151}, {}, {.DecimalSymbol = ","}), "88,49 %");
}

TEST(Decisions, AreWrittenForACertificate) {
    SubjectEntry entry{.mode = 10, .upperOffset = 0.00041, .lowerOffset = 0.00041, .pctInTol = 95};
    entry.upperLimit = 10.00041;
    entry.lowerLimit = 9.99959;
    DecisionBasis basis = *decisionBasis(entry, 5e-5, 0);
    const int decimals = decimalsOfLimits(4, basis.expanded());
    const DecisionTexts texts{
        .reading = [](double y) { return GeneralText(y, {}) + " V"; },
        .width =
            [](double w) {
                return FormatNumber(1e3 * w, PictureForDecimals(decimalsOfWidth(1e3 * w)), {}) + " mV";
            },
        .limit =
            [=](double x, bool upper) {
                return FormatNumber(inwards(x, decimals, upper), PictureForDecimals(decimals), {});
            },
        .unit = "V"};
    const auto sentence = [&](const char* text, const DecisionPrior* prior) {
        const DecisionRule rule = *decisionRuleOf(text);
        const Decision decision = *decide(basis, 10.00035, rule, prior ? &prior->subject : nullptr);
        return decisionSentence(basis, 10.00035, rule, decision, decision.limits->acceptance, prior, texts);
    };
    EXPECT_EQ(
        sentence("guard=1", nullptr),
        "Reading 10.00035 V; limits 9.99959 V to 10.00041 V; U = 0.10 mV (k = 2, 95.45 %). Decision rule: "
        "guard band "
        "w = U = 0.10 mV (ILAC-G8, two outcomes); acceptance limits 9.99969 V to 10.00031 V. Verdict: Fail. "
        "Probability of conformance 88.49 %; risk that a conforming item is failed 88.49 %.");
    basis.subject.sides = Sides::Upper;
    const DecisionPrior all{{.distribution = Distribution::Uniform}, "population of 100 % in tolerance"};
    EXPECT_EQ(sentence("iso14253", &all),
              "Reading 10.00035 V; limit at most 10.00041 V; U = 0.10 mV (k = 2, 95.45 %). Decision rule: "
              "guard band "
              "w = 1.645 u = 0.082 mV (ISO 14253-1:2017, three outcomes); acceptance limit at most 10.00032 "
              "V. Verdict: "
              "Undecided. Probability of conformance 100 % with prior: population of 100 % in tolerance.");
    EXPECT_EQ(inwards(-1.05, 2, false), -1.05);
    EXPECT_EQ(inwards(-1.051, 2, false), -1.05);
    EXPECT_EQ(inwards(1.059, 2, true), 1.05);
}

TEST(Decisions, AreOfStrategiesOnlyWhatLeavesAnythingAccepted) {
    struct {
        Strategy strategy;
        double sigma;
        Sides sides;
        std::optional<double> width;
    } const rows[] = {{Strategy::InverseRatio, 0.125, Sides::Two, 0},
                      {Strategy::InverseRatio, 0.125 * (1 + 4e-16), Sides::Two, 0}, // 4:1 through rounding
                      {Strategy::InverseRatio, 0.13, Sides::Two, 0.26},
                      {Strategy::ManagedRisk, 0.1, Sides::Two, 0},
                      {Strategy::ManagedRisk, 0.9, Sides::Two, {}},
                      {Strategy::ExpandedUncertainty, 0.5, Sides::Two, {}},
                      {Strategy::ExpandedUncertainty, 0.6, Sides::Upper, 1.2},
                      {Strategy::FourLessInverse, 0.13, Sides::Two, 0.01},
                      {Strategy::Rss, 0.5, Sides::Lower, {}},
                      {Strategy::FalseRejectTarget, 0.1, Sides::Two, {}}};
    for (const auto& row : rows) {
        const auto found = strategyRow(plainBasis(90, row.sigma, row.sides), row.strategy, {});
        ASSERT_EQ(static_cast<bool>(found), row.width.has_value())
            << nameOf(row.strategy) << " " << row.sigma;
        if (found) {
            EXPECT_NEAR(found->width, *row.width, 1e-15) << nameOf(row.strategy) << " " << row.sigma;
        }
    }
    const StrategyRow equal = *strategyRow(plainBasis(95, 0.1), Strategy::Equalised, {});
    EXPECT_LT(equal.width, 0);
    EXPECT_NEAR(equal.risks.consumer, equal.risks.falseReject, 1e-12);
    EXPECT_EQ(equal.notes.front(), StrategyNote::Wider);
    // Neither the conditional risk of a population that is mostly bad, nor any of 100 %, has such a
    // guardband.
    EXPECT_FALSE(leastGuardband(plainBasis(90, 0.9), Convention::Consumer, 1e-4, {1, 99.9}));
    EXPECT_FALSE(strategyRow(plainBasis(100, 0.1), Strategy::Equalised, {}));
}

TEST(Decisions, HaveNoLimitWhereTheQuantityIsNotMet) {
    // An acceptance zone that ends at a physical limit vanishes before so small a risk is reached.
    const DecisionBasis physical = *decisionBasis({.upperOffset = 1,
                                                   .upperLimit = 1,
                                                   .pctInTol = 90,
                                                   .sides = Sides::Upper,
                                                   .physicalLimitRequired = true,
                                                   .physicalLimit = -0.3},
                                                  0.9, 0);
    EXPECT_FALSE(strategyRow(physical, Strategy::FalseAcceptTarget, {.falseAccept = 0.001}));
    EXPECT_FALSE(leastGuardband(physical, Convention::Consumer, 0.001, {1, 99.9}));
    // The joint risk is met however small: with next to nothing accepted.
    DecisionBasis joint = physical;
    joint.convention = Convention::Producer;
    const double width = strategyRow(joint, Strategy::FalseAcceptTarget, {.falseAccept = 1e-9})->width;
    EXPECT_NEAR(width, 1.3, 1e-6);
    EXPECT_LT(width, 1.3);
    // A far reading of few degrees of freedom tells nothing: the population alone is in tolerance then.
    DecisionBasis few = plainBasis(98, 0.644);
    few.degFreedom = 5;
    const Interval limits = *conformanceLimits(few, 0.99, &*few.fit);
    for (const double limit : {limits.lower, limits.upper})
        EXPECT_NEAR(conformanceAt(few, limit, &*few.fit)->conforming, 0.99, 1e-10) << limit;
}

TEST(Decisions, JudgeCountsByTheirSizes) {
    EXPECT_EQ(countsOf(" 19 / 20 ")->tested, 20);
    for (const char* none : {"19", "19.0/20", "1e3/2000", "19/20/21", "/20", "19/", "0x1/2", "95 %/1"})
        EXPECT_FALSE(countsOf(none)) << none;
    for (const Counts wrong : {Counts{21, 20}, {-1, 20}, {0, 0}, {1, 2e9}})
        EXPECT_FALSE(countedPct(wrong)) << wrong.passed << "/" << wrong.tested;
    EXPECT_TRUE(countedPct({1e9, 1e9}));
    EXPECT_EQ(*countsEntry({19, 20}), 95);
    EXPECT_FALSE(countsEntry({0, 20}));
    EXPECT_NE(countsEntry({20, 20}).refusal().text.find("86.09 %"), std::string::npos);
    EXPECT_TRUE(testCounts({15, 20}, 95)->rejected());
    EXPECT_FALSE(testCounts({19, 20}, 95)->rejected());
    // The worst population lies between the limits, not at one of them.
    const DecisionBasis basis = plainBasis(90, 0.125);
    const CountedRisks risks = countedRisks(basis, *countedPct({15, 20}));
    EXPECT_GT(*risks.worstProducer, 1.001 * std::max(risks.atLower->producer, risks.atUpper->producer));
    // All passed: at 100 % nothing is out of tolerance, and the measurement alone rejects.
    const CountedRisks all = countedRisks(basis, *countedPct({20, 20}));
    EXPECT_EQ(all.atUpper->producer, 0);
    EXPECT_NEAR(all.atUpper->falseReject, 2 * upperTail(8, 0), 1e-25);
}

TEST(Decisions, TakeACentredProcessForWhatItIs) {
    for (const Sides sides : {Sides::Two, Sides::Lower}) {
        const DecisionBasis basis = plainBasis(90, 0.125, sides);
        const OffCentreRisks centred = *offCentreRisks(basis, {});
        const GuardedRisks plain = *guardedRisks(*basis.fit, basis.sigma, basis.testLimits());
        EXPECT_NEAR(centred.processSigma / basis.fit->sigma, 1, 1e-14);
        EXPECT_NEAR(centred.risks.producer / plain.producer, 1, 1e-13);
        EXPECT_NEAR(centred.risks.falseReject / plain.falseReject, 1, 1e-13);
    }
    for (const double mean : {1.0, -1.0, 1.5, -1e3})
        EXPECT_FALSE(offCentreRisks(plainBasis(90, 0.1), {.mean = mean}));
    EXPECT_FALSE(offCentreRisks(plainBasis(50, 0.1, Sides::Upper), {}));
    EXPECT_TRUE(offCentreRisks(plainBasis(50, 0.1, Sides::Upper), {.mean = -3, .sigma = 0.5}));
}

} // namespace
} // namespace metrisk::testing
