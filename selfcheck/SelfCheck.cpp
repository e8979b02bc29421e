#include "selfcheck/SelfCheck.h"

#include "base/Real.h"
#include "numerics/CoverageFactor.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"
#include "numerics/mathlib/StudentsT.h"
#include "reliability/ReliabilityInterval.h"
#include "reliability/ReliabilityModels.h"
#include "risk/FittedSubject.h"
#include "risk/SubjectFit.h"
#include "risk/TestRisks.h"
#include "risk/exact/ExactRisks.h"
#include "selfcheck/DecisionChecks.h"
#include "uncertainty/ProcessTotals.h"
#include "uncertainty/Samples.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace metrisk {

namespace {

std::vector<std::string> split(std::string_view text, char mark) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t at = text.find(mark);
        parts.emplace_back(text.substr(0, at));
        if (at == text.npos) return parts;
        text.remove_prefix(at + 1);
    }
}

/// The subject parameter of a case about mode 0, fitted as the program fits it.
SubjectBias subjectOf(const std::string& side, double lower, double upper, double pctInTol) {
    SubjectParameter entered;
    entered.SU_LowerOffset = lower;
    entered.SU_UpperOffset = upper;
    entered.SU_LowerLimit = -lower;
    entered.SU_UpperLimit = upper;
    entered.SU_PctInTol = pctInTol;
    entered.OptTwoSided = side == "two";
    entered.OptSingleUpper = side == "upper";
    entered.OptSingleLower = side == "lower";
    return subjectBiasOf(fitSubject(entered, {}));
}

struct BothWays {
    Probabilities published;
    ExactRisks exact;
};

BothWays risksAt(const SubjectBias& su, double u, double lowerMult, double upperMult) {
    const AcceptanceRange range{-lowerMult * su.lowerOffset, upperMult * su.upperOffset};
    const auto published = metrisk::risksAt(su, u, range);
    const auto exact = exactRisks(su, u, range);
    if (!published || !exact) throw Unknown{};
    return {published->probabilities, *exact};
}

Computed riskFigure(const std::string& figure, const BothWays& risks) {
    const auto& [p, exact] = risks;
    if (figure == "FA_producer") return {falseAcceptOf(p, 1), exact.falseAccept(1).value};
    if (figure == "FA_consumer") return {falseAcceptOf(p, 0), exact.falseAccept(0).value};
    if (figure == "FR") return {falseRejectOf(p), exact.falseReject().value};
    if (figure == "observed_in_tol") return {p.accepted, exact.accepted.value};
    throw Unknown{};
}

/// Halves a range in which `excess` changes its sign.
template <class Excess>
double solve(double low, double high, Excess excess) {
    const bool rising = excess(low) < 0;
    for (int i = 0; i < 100; ++i) {
        const double middle = (low + high) / 2;
        ((excess(middle) < 0) == rising ? low : high) = middle;
    }
    return (low + high) / 2;
}

/// The symmetric guardband that gives a Producer's false accept risk, as a part of the 95 % uncertainty.
Computed guardbandFigure(const std::string& figure, const SubjectBias& su, const Fields& inputs) {
    const double u = field(inputs, "u");
    const double target = field(inputs, "target");
    const auto multiplier = [&](bool exact) {
        return solve(0.05, 1.2, [&](double mult) {
            const BothWays risks = risksAt(su, u, mult, mult);
            return (exact ? risks.exact.falseAccept(1).value : falseAcceptOf(risks.published, 1)) - target;
        });
    };
    const double tur = field(inputs, "tur");
    const auto part = [&](double mult) { return (1 - mult) * tur; };
    const double scale = figure == "M_pct_of_U95" ? 100 : figure == "k_factor" ? 2 : throw Unknown{};
    return {scale * part(multiplier(false)), scale * part(multiplier(true))};
}

Computed riskCase(std::string figure, const Fields& inputs) {
    const SubjectBias su = subjectOf(inputs.find("side")->second, field(inputs, "lower"),
                                     field(inputs, "upper"), field(inputs, "pct"));
    if (inputs.contains("target")) return guardbandFigure(figure, su, inputs);
    const bool percent = figure.ends_with("_pct");
    if (percent) figure.resize(figure.size() - 4);
    Computed computed = riskFigure(
        figure, risksAt(su, field(inputs, "u"), field(inputs, "lowerMult"), field(inputs, "upperMult")));
    if (percent) computed = {100 * computed.figure, 100 * *computed.exact};
    return computed;
}

/// The true % in-tolerance at which that share is accepted.
Computed trueShare(const Fields& inputs) {
    const double offset = field(inputs, "offset");
    const double u = inputs.contains("u")
                         ? field(inputs, "u")
                         : field(inputs, "mteOffset") / CoverageFactor(field(inputs, "mtePct"), 0);
    const double observed = field(inputs, "observed") / 100;
    const auto share = [&](bool exact) {
        return solve(51, 99.9999999, [&](double pct) {
            const BothWays risks =
                risksAt(subjectOf(inputs.find("side")->second, offset, offset, pct), u, 1, 1);
            return (exact ? risks.exact.accepted.value : risks.published.accepted) - observed;
        });
    };
    return {share(false), share(true)};
}

Computed uncertaintyCase(const std::string& figure, const Fields& inputs) {
    ErrorRows rows{};
    Correlations correlations{};
    std::size_t row = 0;
    for (const std::string& text : split(inputs.find("rows")->second, '|')) {
        const auto parts = split(text, ':');
        ErrorRow& r = rows.at(++row);
        r.degFreedom = parts[3].empty() ? 0 : number(parts[3]);
        r.uncertainty = parts[0].empty() ? number(parts[1]) / CoverageFactor(number(parts[2]), r.degFreedom)
                                         : number(parts[0]);
        r.included = true;
    }
    if (const auto pairs = inputs.find("correlations"); pairs != inputs.end())
        for (const std::string& text : split(pairs->second, '|'))
            correlations[correlationIndex(text.at(0) - '0')][correlationIndex(text.at(1) - '0')] =
                number(std::string_view(text).substr(3));
    const Totals totals = ComputeTotals(rows, correlations);
    if (figure == "combined") return {totals.process};
    if (figure == "eff_dof") return {totals.processFreedom};
    if (figure == "k_95") return {CoverageFactor(95, std::trunc(totals.processFreedom + 0.5))};
    if (figure == "U_k2") return {2 * totals.process};
    throw Unknown{};
}

Computed sampleCase(const std::string& figure, const Fields& inputs) {
    std::vector<double> values;
    if (const auto found = inputs.find("values"); found != inputs.end()) {
        for (const std::string& text : split(found->second, '|')) values.push_back(number(text));
    } else { // the series of NIST's tests of numerical accuracy
        const double base = field(inputs, "base");
        values.push_back(base + 0.2);
        for (int i = 0; i < 500; ++i) values.insert(values.end(), {base + 0.1, base + 0.3});
    }
    const SampleFigures figures = sampleFigures(values);
    if (figure == "mean") return {figures.mean};
    if (figure == "std_dev") return {figures.stdDeviation};
    if (figure == "std_dev_of_mean") return {figures.inTheMean};
    throw Unknown{};
}

Computed reliabilityCase(const Fields& inputs) {
    const ReliabilityModel* model = reliabilityModel(inputs.find("model")->second);
    if (!model) throw Unknown{};
    return {timeForReliability(model->number, {field(inputs, "a"), field(inputs, "b"), field(inputs, "c")},
                               field(inputs, "wanted_eop"))};
}

Computed compute(const std::string& group, const std::string& figure, const Fields& inputs) {
    if (group == "risk" || group == "guardband") return riskCase(figure, inputs);
    if (group == "true_observed") return trueShare(inputs);
    if (group == "in_tolerance") return {200 * Normal(-field(inputs, "offset") / field(inputs, "sigma"))};
    if (group == "uncertainty") return uncertaintyCase(figure, inputs);
    if (group == "sample") return sampleCase(figure, inputs);
    if (group == "reliability") return reliabilityCase(inputs);
    if (group == "student_two_sided") return {CoverageFactor(number(figure), field(inputs, "dof"))};
    if (group == "student_one_sided") return {StudentsT(field(inputs, "dof"), number(figure))};
    if (group == "normal")
        return {inputs.contains("low") ? Normal(field(inputs, "high")) - Normal(field(inputs, "low"))
                                       : Normal(number(figure))};
    if (const auto computed = decisionCase(group, figure, inputs)) return *computed;
    throw Unknown{};
}

/// Half a unit of the last printed digit.
double printedTo(const std::string& printed) {
    const std::size_t point = printed.find('.');
    return 0.5 * std::pow(10, point == printed.npos ? 0 : -static_cast<double>(printed.size() - point - 1));
}

/// What is printed as "< 2.5" must be below it, and not so far that another bound would have been printed.
CheckVerdict judgeBound(const CheckedFigure& checked, double bound) {
    const auto meets = [&](const std::optional<double>& value) {
        return !value || (*value<bound&& * value> bound * checked.tolerance);
    };
    return meets(checked.computed) && meets(checked.exact) ? CheckVerdict::Pass : CheckVerdict::Diff;
}

CheckVerdict judge(const CheckedFigure& checked) {
    if (checked.printed.starts_with("< ")) return judgeBound(checked, number(checked.printed.substr(2)));
    const double printed = number(checked.printed);
    constexpr double roundingSlack = 1 + 1e-9;
    const auto within = [&](double width) {
        const auto near = [&](const std::optional<double>& value) {
            return !value || std::fabs(*value - printed) <= width * roundingSlack;
        };
        return near(checked.computed) && near(checked.exact);
    };
    // Figures printed with all digits of a double are good to their last place or so.
    const double rounding = std::max(printedTo(checked.printed), 1e-15 * std::fabs(printed));
    if (within(rounding)) return CheckVerdict::Pass;
    return within(checked.tolerance) ? CheckVerdict::Note : CheckVerdict::Diff;
}

CheckedFigure checkLine(std::string_view line) {
    CheckedFigure checked;
    const auto cells = split(line, '\t');
    if (cells.size() != 8) return checked;
    checked.name = cells[1];
    checked.figure = cells[2];
    checked.printed = cells[3];
    checked.source = cells[6];
    checked.title = cells[7];
    try {
        checked.tolerance = number(cells[4]);
        Fields inputs;
        for (const std::string& input : split(cells[5], ' '))
            if (const std::size_t at = input.find('='); at != input.npos)
                inputs[input.substr(0, at)] = input.substr(at + 1);
        const Computed computed = compute(cells[0], checked.figure, inputs);
        checked.computed = computed.figure;
        checked.exact = computed.exact;
        checked.verdict = judge(checked);
    } catch (const Unknown&) {
    } catch (const RuntimeFault&) {
    } catch (const FitRefusal&) {
    } catch (const IntervalRefusal&) {
    } catch (const std::out_of_range&) {
    }
    return checked;
}

} // namespace

const char* wordOf(CheckVerdict verdict) {
    switch (verdict) {
    case CheckVerdict::Pass: return "PASS";
    case CheckVerdict::Note: return "NOTE";
    case CheckVerdict::Diff: break;
    }
    return "DIFF";
}

std::vector<CheckedFigure> selfCheck(std::string_view data) {
    std::vector<CheckedFigure> all;
    for (const std::string& line : split(data, '\n'))
        if (!line.empty() && line.front() != '#') all.push_back(checkLine(line));
    return all;
}

} // namespace metrisk
