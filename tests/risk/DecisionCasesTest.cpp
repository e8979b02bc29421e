// Decisions, worst cases, counts, strategies and off-centre processes against worked cases of 28 digits.
#include "risk/decision/Counts.h"
#include "risk/decision/Coverage.h"
#include "risk/decision/Decide.h"
#include "risk/decision/OffCentre.h"
#include "risk/decision/RuleText.h"
#include "risk/decision/Strategies.h"
#include "risk/decision/TestRatios.h"
#include "risk/decision/WorstCase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <variant>

namespace metrisk::testing {
namespace {

constexpr double placeTolerance = 1e-4; // of a % in-tolerance at which a risk is largest

/// "key=value" words, separated by blanks.
struct Words : std::map<std::string, std::string> {
    explicit Words(const std::string& text) {
        std::istringstream words(text);
        for (std::string word; words >> word;)
            if (const auto sign = word.find('='); sign != word.npos)
                emplace(word.substr(0, sign), word.substr(sign + 1));
    }
    std::optional<std::string> text(const std::string& key) const {
        const auto found = find(key);
        return found == end() || found->second == "none" ? std::nullopt : std::optional(found->second);
    }
    std::optional<double> number(const std::string& key) const {
        const auto found = text(key);
        return found ? numberIn(*found) : std::nullopt;
    }
    double number(const std::string& key, double otherwise) const { return number(key).value_or(otherwise); }
    Convention convention(Convention otherwise) const {
        const auto word = text("convention");
        return !word ? otherwise : *word == "Producer" ? Convention::Producer : Convention::Consumer;
    }
};

/// What a case gives: numbers and words by their names; none where there is no figure.
using Value = std::variant<std::monostate, double, std::string>;
using Figures = std::map<std::string, Value>;

Value given(const std::optional<double>& figure) {
    return figure ? Value(*figure) : Value();
}
Value limit(double mode, double deviation) {
    return std::isinf(deviation) ? Value() : Value(mode + deviation);
}

template <class T>
T orThrow(const Result<T>& result) {
    if (!result) throw result.refusal();
    return *result;
}

DecisionBasis basisOf(const Words& test, const Words& options) {
    SubjectEntry entry{.mode = test.number("mode", 0),
                       .upperOffset = test.number("upper", 1),
                       .lowerOffset = test.number("lower", 1),
                       .pctInTol = test.number("pct", 0),
                       .physicalLimit = test.number("phys")};
    const std::string side = test.text("side").value_or("two");
    entry.sides = side == "two" ? Sides::Two : side == "upper" ? Sides::Upper : Sides::Lower;
    entry.upperLimit = entry.mode + entry.upperOffset;
    entry.lowerLimit = entry.mode - entry.lowerOffset;
    entry.physicalLimitRequired = entry.physicalLimit.has_value();
    DecisionBasis basis = orThrow(decisionBasis(entry, test.number("u", 0), test.number("dof", 0)));
    basis.guardband = {test.number("upperMult", 1), test.number("lowerMult", 1)};
    basis.convention = test.number("option", 0) == 1 ? Convention::Producer : Convention::Consumer;
    if (const auto k = options.text("k"))
        basis.coverage = orThrow(coverageFactor(*coverageChoiceOf(*k), basis.degFreedom));
    return basis;
}

void put(Figures& figures, const GuardedRisks& risks) {
    figures["FalseAcceptConsumer"] = risks.consumer;
    figures["FalseAcceptProducer"] = risks.producer;
    figures["FalseReject"] = risks.falseReject;
    figures["Accepted"] = risks.accepted;
    figures["InTolerance"] = risks.inTolerance;
}

Figures ratios(const Words& test, const Words& options) {
    const DecisionBasis basis = basisOf(test, options);
    Figures figures{{"TUR", ratiosOf(basis).tur},
                    {"CoverageFactor", basis.coverage},
                    {"ExpandedUncertainty", basis.expanded()},
                    {"ToleranceToUncertainty", ratiosOf(basis).toleranceToUncertainty}};
    put(figures, orThrow(risksOf(basis)));
    return figures;
}

Figures coverage(const Words&, const Words& options) {
    return {{"CoverageFactor", orThrow(coverageFactor({}, options.number("dof", 0)))}};
}

Figures decided(const Words& test, const Words& options) {
    const DecisionBasis basis = basisOf(test, options);
    DecisionRule rule = *decisionRuleOf(*options.text("rule"));
    rule.reject = options.number("reject");
    if (const auto outcomes = options.number("outcomes")) rule.outcomes = static_cast<int>(*outcomes);
    const SubjectBias* prior = options.text("prior") ? &*basis.fit : nullptr;
    const Decision decision = orThrow(decide(basis, *options.number("reading"), rule, prior));
    Figures figures{{"ConformanceProbability", decision.conformance.conforming},
                    {"NonconformanceProbability", decision.conformance.nonconforming},
                    {"Verdict", std::string(textOf(decision.verdict))},
                    {"SpecificFalseAccept", given(decision.specificFalseAccept())},
                    {"SpecificFalseReject", given(decision.specificFalseReject())}};
    if (!decision.limits) return figures;
    figures["GuardBand"] = given(decision.limits->width);
    figures["AcceptLower"] = limit(basis.subject.mode, decision.limits->acceptance.lower);
    figures["AcceptUpper"] = limit(basis.subject.mode, decision.limits->acceptance.upper);
    if (decision.limits->rejection) {
        figures["RejectLower"] = limit(basis.subject.mode, decision.limits->rejection->lower);
        figures["RejectUpper"] = limit(basis.subject.mode, decision.limits->rejection->upper);
    }
    return figures;
}

Figures levelLimits(const Words& test, const Words& options) {
    const DecisionBasis basis = basisOf(test, options);
    const SubjectBias* prior = options.text("prior") ? &*basis.fit : nullptr;
    const Interval limits = orThrow(conformanceLimits(basis, *options.number("level"), prior));
    return {{"AcceptLower", limit(basis.subject.mode, limits.lower)},
            {"AcceptUpper", limit(basis.subject.mode, limits.upper)}};
}

PctRange rangeOf(const DecisionBasis& basis, const Words& options) {
    const auto range = options.text("range");
    if (!range) return wholeRange(basis);
    const auto colon = range->find(':');
    return {*numberIn(range->substr(0, colon)), *numberIn(range->substr(colon + 1))};
}

Figures worst(const Words& test, const Words& options) {
    const DecisionBasis basis = basisOf(test, options);
    const WorstCase found =
        orThrow(worstCase(basis, options.convention(Convention::Producer), rangeOf(basis, options)));
    return {{"WorstFalseAccept", found.falseAccept},
            {"WorstPctInTol", found.pctInTol},
            {"AtEndOfRange", found.atEndOfRange ? "yes" : "no"}};
}

Figures leastGuard(const Words& test, const Words& options) {
    const DecisionBasis basis = basisOf(test, options);
    const double width = orThrow(leastGuardband(basis, options.convention(Convention::Producer),
                                                *options.number("target"), rangeOf(basis, options)));
    return {{"GuardBand", width},
            {"UpperMult", 1 - width / basis.subject.upperOffset},
            {"LowerMult", 1 - width / basis.subject.lowerOffset}};
}

Figures counted(const Words& test, const Words& options) {
    const Counts counts{*options.number("passed"), *options.number("tested")};
    const CountedPct pct =
        orThrow(countedPct(counts, {options.number("confidence", 95), options.text("onesided").has_value()}));
    Figures figures{{"LowerPct", pct.lower},
                    {"UpperPct", pct.upper},
                    {"PctInTol", given(pct.estimate)},
                    {"MedianPct", given(pct.median)}};
    if (!test.number("u")) return figures;
    const CountedRisks risks = countedRisks(basisOf(test, options), pct);
    const auto add = [&](const std::string& where, const std::optional<GuardedRisks>& at) {
        figures["FalseAcceptConsumer" + where] = at ? Value(at->consumer) : Value();
        figures["FalseAcceptProducer" + where] = at ? Value(at->producer) : Value();
        figures["FalseReject" + where] = at ? Value(at->falseReject) : Value();
    };
    add("AtLower", risks.atLower);
    add("AtEstimate", risks.atEstimate);
    add("AtUpper", risks.atUpper);
    figures["WorstProducerWithin"] = given(risks.worstProducer);
    return figures;
}

Figures testedCounts(const Words&, const Words& options) {
    const CountsTest test = orThrow(
        testCounts({*options.number("passed"), *options.number("tested")}, *options.number("assumed")));
    return {{"TailLow", test.tailLow},
            {"TailHigh", test.tailHigh},
            {"TwoSidedP", test.twoSidedP},
            {"Rejection", test.rejection}};
}

Figures strategy(const Words& test, const Words& options) {
    DecisionBasis basis = basisOf(test, options);
    basis.convention = options.convention(basis.convention);
    StrategyTargets targets;
    const Strategy rule = *strategyNamed(*options.text("rule"));
    if (const auto target = options.number("target"))
        (rule == Strategy::WorstCaseTarget ? targets.worst : targets.falseAccept) = *target;
    targets.falseReject = options.number("target");
    const StrategyRow row = orThrow(strategyRow(basis, rule, targets));
    Figures figures{{"GuardBand", row.width},
                    {"UpperMult", given(row.upperMult)},
                    {"LowerMult", given(row.lowerMult)},
                    {"AcceptLower", limit(basis.subject.mode, row.testLimits.lower)},
                    {"AcceptUpper", limit(basis.subject.mode, row.testLimits.upper)}};
    put(figures, row.risks);
    return figures;
}

Figures offCentre(const Words& test, const Words& options) {
    const OffCentreRisks found = orThrow(offCentreRisks(
        basisOf(test, options),
        {.mean = test.number("mean", 0), .bias = test.number("bias", 0), .sigma = test.number("sigma")}));
    Figures figures{{"ProcessSigma", found.processSigma}};
    put(figures, found.risks);
    return figures;
}

const std::map<std::string, Figures (*)(const Words&, const Words&)> operations{
    {"ratios", ratios},     {"coverage", coverage},     {"decide", decided}, {"pclimits", levelLimits},
    {"worst", worst},       {"leastguard", leastGuard}, {"counts", counted}, {"counttest", testedCounts},
    {"strategy", strategy}, {"offcentre", offCentre}};

void compare(const std::string& name, const Figures& figures, const Words& expected, double relative) {
    for (const auto& [key, wanted] : expected) {
        const auto found = figures.find(key);
        ASSERT_NE(found, figures.end()) << name << " " << key;
        if (wanted == "none") {
            EXPECT_TRUE(std::holds_alternative<std::monostate>(found->second)) << name << " " << key;
        } else if (const auto number = numberIn(wanted)) {
            const double* figure = std::get_if<double>(&found->second);
            ASSERT_TRUE(figure) << name << " " << key;
            const bool place = key == "WorstPctInTol";
            EXPECT_LE(std::fabs(*figure - *number),
                      place ? placeTolerance : std::max(relative * std::fabs(*number), 1e-60))
                << name << " " << key << ": " << *figure << ", expected " << *number;
        } else {
            std::string word = std::get<std::string>(found->second);
            std::ranges::replace(word, ' ', '_');
            EXPECT_EQ(word, wanted) << name << " " << key;
        }
    }
}

TEST(Decisions, AgreeWithTheWorkedCases) {
    std::ifstream file(METRISK_SOURCE_DIR "/tests/risk/data/decisions.tsv");
    int cases = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream cells(line);
        std::string name, operation, test, options, expected, relative;
        for (std::string* cell : {&name, &operation, &test, &options, &expected, &relative})
            std::getline(cells, *cell, '\t');
        ++cases;
        SCOPED_TRACE(name);
        bool refused = false;
        Figures figures;
        try {
            figures = operations.at(operation)(Words(test), Words(options));
        } catch (const Refusal& refusal) {
            refused = true;
            EXPECT_TRUE(refusal.told()) << name;
            EXPECT_EQ(expected, "refused") << name << ": " << refusal.text;
        }
        if (expected == "refused")
            EXPECT_TRUE(refused) << name;
        else if (!refused)
            compare(name, figures, Words(expected), *numberIn(relative));
    }
    EXPECT_EQ(cases, 158);
}

} // namespace
} // namespace metrisk::testing
