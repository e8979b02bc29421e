#include "rows/Want.h"

#include "rows/Cell.h"

#include <array>

namespace metrisk {

namespace {

using enum FigureKind;

constexpr FigureColumn risks[] = {
    {"FalseAccept", Number, "false accept risk by the row's convention, a fraction"},
    {"FalseAcceptConsumer", Number, "false accept risk of the accepted items"},
    {"FalseAcceptProducer", Number, "false accept risk of all items"},
    {"FalseReject", Number, "false reject risk"}};
constexpr FigureColumn tur[] = {{"TUR", Number, "d/(1.959964 MTE_Sigma)"},
                                {"AccuracyRatio", Number, "d/MTE_Offset"},
                                {"SigmaRatio", Number, "SU_Sigma/MTE_Sigma"}};
constexpr FigureColumn ratio[] = {{"EqAccRat", Number, "accuracy ratio with the same risk in the baseline"},
                                  {"EqAccRatAttained", Flag, "whether any ratio has that risk"}};
constexpr FigureColumn exact[] = {
    {"ExactFalseAccept", Number, "false accept risk by a second integration"},
    {"ExactFalseAcceptBound", Number, "how far it can be from the truth"},
    {"ExactFalseReject", Number, "false reject risk by a second integration"},
    {"ExactFalseRejectBound", Number, "how far it can be from the truth"},
    {"AgreeingDigits", Number, "significant digits in which both ways agree, of risks and baseline"}};
constexpr FigureColumn baseline[] = {{"BaselineFalseAccept", Number, "false accept risk of the baseline"},
                                     {"BaselineFalseReject", Number, "false reject risk of the baseline"}};
constexpr FigureColumn fit[] = {{"SU_Distribution", Text, "Normal, LogNormal, Exponential or Uniform"},
                                {"SU_CaseCode", Number, "1 to 9"},
                                {"SU_Sigma", Length, "standard deviation of the subject parameter"},
                                {"FitPhysicalLimit", Place, "physical limit of the fit"},
                                {"MTE_Sigma", Length, "standard uncertainty of the measurement"},
                                {"MTE_kFactor", Number, "coverage factor of the measuring parameter"}};
constexpr FigureColumn entries[] = {{"SU_Mode", Place, "nominal"},
                                    {"OptTwoSided", Flag, "both limits"},
                                    {"OptSingleUpper", Flag, "an upper limit alone"},
                                    {"OptSingleLower", Flag, "a lower limit alone"},
                                    {"SU_UpperOffset", Length, "upper tolerance offset"},
                                    {"SU_LowerOffset", Length, "lower tolerance offset"},
                                    {"SU_PctInTol", Number, "% in-tolerance of the subject parameter"},
                                    {"PhysLimitRequired", Flag, "whether there is a physical limit"},
                                    {"PhysicalLimit", Place, "physical limit"},
                                    {"MTE_Offset", Length, "tolerance or expanded uncertainty"},
                                    {"MTE_PctInTol", Number, "% in-tolerance or confidence"},
                                    {"MTE_DegFreedom", Number, "degrees of freedom, 0 for infinite"},
                                    {"ProcessUncertainty", Length, "standard uncertainty of the process"},
                                    {"IncludeUncertainty", Flag, "whether that counts"},
                                    {"IncludeGuardbands", Flag, "whether guardbands count"},
                                    {"GB_UpperMult", Number, "upper guardband multiplier"},
                                    {"GB_LowerMult", Number, "lower guardband multiplier"},
                                    {"FalseAcceptOption", Number, "0 consumer, 1 producer"}};
constexpr FigureColumn guardband[] = {{"GB_Status", Text, "solved or failed"},
                                      {"GB_Upper", Number, "upper multiplier"},
                                      {"GB_Lower", Number, "lower multiplier"},
                                      {"GB_K_Upper", Number, "upper k-factor"},
                                      {"GB_K_Lower", Number, "lower k-factor"},
                                      {"AcceptUpper", Place, "upper acceptance limit"},
                                      {"AcceptLower", Place, "lower acceptance limit"},
                                      {"GB_FalseAccept", Number, "false accept risk with them"},
                                      {"GB_FalseReject", Number, "false reject risk with them"}};
constexpr FigureColumn worst[] = {
    {"WorstFalseAccept", Number, "largest false accept risk of all items over an unknown % in-tolerance"},
    {"WorstPct", Number, "the % in-tolerance that has it"}};
constexpr FigureColumn uncertainty[] = {{"CoverageFactor", Number, "k of U = k u, 95.45 %"},
                                        {"ExpandedUncertainty", Length, "U = k MTE_Sigma"},
                                        {"ToleranceToUncertainty", Number, "d/U"},
                                        {"Accepted", Number, "share of items that are accepted"},
                                        {"InTolerance", Number, "share of items in tolerance"}};
constexpr FigureColumn counts[] = {{"PctLow", Number, "lower limit of the % in-tolerance, 95 %, two-sided"},
                                   {"PctHigh", Number, "upper limit of it"},
                                   {"FalseAcceptLow", Number, "false accept risk at PctLow"},
                                   {"FalseAcceptHigh", Number, "false accept risk at PctHigh"},
                                   {"FalseRejectLow", Number, "false reject risk at PctLow"},
                                   {"FalseRejectHigh", Number, "false reject risk at PctHigh"}};
constexpr FigureColumn decide[] = {
    {"Verdict", Text, "pass, fail, undecided, conditional-pass, conditional-fail or no-decision"},
    {"Conformance", Number, "probability that the item conforms"},
    {"DecideLower", Place, "lower acceptance limit of the rule"},
    {"DecideUpper", Place, "upper acceptance limit of the rule"},
    {"NonConformance", Number, "the complement of Conformance, computed apart"}};

constexpr WantInfo table[] = {
    {WantWord::Risks, "risks", risks},          {WantWord::Tur, "tur", tur},
    {WantWord::Ratio, "ratio", ratio},          {WantWord::Exact, "exact", exact},
    {WantWord::Baseline, "baseline", baseline}, {WantWord::Fit, "fit", fit},
    {WantWord::Entries, "entries", entries},    {WantWord::Guardband, "guardband", guardband},
    {WantWord::Worst, "worst", worst},          {WantWord::Uncertainty, "uncertainty", uncertainty},
    {WantWord::Counts, "counts", counts},       {WantWord::Decide, "decide", decide}};

/// A risk as in "2%", "500ppm", "2"; a fraction.
std::optional<double> riskCellOf(std::string_view text) {
    const auto read = quantityOf(text);
    if (!read || !(read->number > 0)) return std::nullopt;
    if (read->unit == "ppm") return read->number / 1e6;
    if (read->unit.empty() || read->unit == "%") return read->number / 100;
    return std::nullopt;
}

bool takeWord(Want& want, std::string_view text) {
    const auto colon = text.find(':');
    const std::string_view name = text.substr(0, colon);
    const std::string_view rest = colon == text.npos ? std::string_view{} : text.substr(colon + 1);
    for (const WantInfo& info : table) {
        if (info.name != name) continue;
        bool& given = want.words[static_cast<std::size_t>(info.word)];
        if (given && colon != text.npos) return false;
        given = true;
        if (info.word == WantWord::Guardband) return readGuardbandWant(rest, want);
        if (info.word != WantWord::Decide) return colon == text.npos;
        if (colon == text.npos) return true;
        const auto rule = ruleCellOf(rest);
        if (rule) want.rule = *rule;
        return rule.has_value();
    }
    return false;
}

} // namespace

std::span<const WantInfo> wantTable() {
    return table;
}

bool Want::anyLength() const {
    for (const WantInfo& info : table)
        if (has(info.word))
            for (const FigureColumn& column : info.columns)
                if (column.isLength()) return true;
    return false;
}

std::size_t Want::columnCount() const {
    std::size_t count = 0;
    for (const WantInfo& info : table)
        if (has(info.word)) count += info.columns.size();
    return count;
}

Wanted Want::ofEvaluate() const {
    return {.exact = has(WantWord::Exact) || has(WantWord::Uncertainty),
            .reference = has(WantWord::Baseline),
            .ratio = has(WantWord::Ratio)};
}

bool readGuardbandWant(std::string_view text, Want& want) {
    if (text.ends_with(":k")) {
        want.guardbandByK = true;
        text.remove_suffix(2);
    }
    if (text == "equal") {
        want.guardband = {GuardbandKey::Equalize};
        return true;
    }
    if (!text.starts_with("fa=") && !text.starts_with("fr=")) return false;
    const auto risk = riskCellOf(text.substr(3));
    if (!risk) return false;
    want.guardband = {text[1] == 'a' ? GuardbandKey::FalseAccept : GuardbandKey::FalseReject, *risk};
    return true;
}

std::optional<DecisionRule> ruleCellOf(std::string_view text) {
    text = trimmedCell(text);
    if (auto rule = decisionRuleOf(text)) return refusedRule(*rule) ? std::nullopt : rule;
    const auto colon = text.rfind(':');
    if (colon == text.npos || text.size() != colon + 2) return std::nullopt;
    auto rule = decisionRuleOf(text.substr(0, colon));
    const char outcomes = text.back();
    if (!rule || outcomes < '2' || outcomes > '4') return std::nullopt;
    rule->outcomes = outcomes - '0';
    return refusedRule(*rule) ? std::nullopt : rule;
}

std::variant<Want, std::string> wantOf(std::string_view list) {
    Want want;
    for (std::size_t from = 0; from <= list.size();) {
        const std::size_t comma = std::min(list.find(',', from), list.size());
        const std::string_view word = trimmedCell(list.substr(from, comma - from));
        if (!takeWord(want, word))
            return "--want: " + std::string(word) + " is no word of the list, or has a wrong parameter";
        from = comma + 1;
    }
    return want;
}

} // namespace metrisk
