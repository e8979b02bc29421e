#include "rows/Entries.h"

#include "base/Text.h"

#include <array>
#include <string>

namespace metrisk {

namespace {

using enum EntryKind;

constexpr std::string_view ofTemplate = "template";
constexpr std::string_view notNegative = ">= 0";
constexpr std::string_view percentRange = "0 to 100";

constexpr std::array<EntryInfo, entryCount> table{{
    {Entry::Area, "area", "MeasurementArea", Text, "", ofTemplate,
     "measurement area in which units are looked up"},
    {Entry::Unit, "unit", "NominalUnits", Text, "", ofTemplate, "unit of the nominal"},
    {Entry::Sided, "sided", "", Word, "two, upper, lower", "two", "which tolerance limits there are"},
    {Entry::Nominal, "nominal", "SU_Mode", Length, "", "0", "nominal value, the mode of both parameters"},
    {Entry::Tol, "tol", "", Offset, notNegative, "", "both tolerance offsets"},
    {Entry::TolUpper, "tol_upper", "SU_UpperOffset", Offset, notNegative, "", "upper tolerance offset"},
    {Entry::TolLower, "tol_lower", "SU_LowerOffset", Offset, notNegative, "", "lower tolerance offset"},
    {Entry::TolPct, "tol_pct", "", Percent, notNegative, "0",
     "part of both offsets in percent of the size of the nominal, added to the others"},
    {Entry::Upper, "upper", "SU_UpperLimit", Limit, "a limit or none", "", "upper tolerance limit"},
    {Entry::Lower, "lower", "SU_LowerLimit", Limit, "a limit or none", "", "lower tolerance limit"},
    {Entry::Phys, "phys", "PhysicalLimit", Length, "", "", "physical limit of a single-sided tolerance"},
    {Entry::SubjectPct, "su_pct", "SU_PctInTol", Percent, percentRange, "",
     "% in-tolerance of the subject parameter"},
    {Entry::Passed, "passed", "", Number, "0 to tested", "", "items that passed, in place of su_pct"},
    {Entry::Tested, "tested", "", Number, "1 to 1e9", "", "items that were tested"},
    {Entry::MteTol, "mte_tol", "MTE_Offset", Offset, "> 0", "", "tolerance of the measuring parameter"},
    {Entry::MteTolPct, "mte_tol_pct", "MTE_PctReading", Percent, notNegative, "0",
     "part of that tolerance in percent of the size of the nominal"},
    {Entry::MtePct, "mte_pct", "MTE_PctInTol", Percent, percentRange, "",
     "% in-tolerance of the measuring parameter"},
    {Entry::MteU, "mte_u", "MTE_StdUncertainty", Offset, "> 0", "",
     "standard uncertainty of the measuring parameter"},
    {Entry::MteExpanded, "mte_expanded", "", Offset, "> 0", "",
     "expanded uncertainty of the measuring parameter"},
    {Entry::MteK, "mte_k", "", Number, "0 to 6", "", "coverage factor of mte_expanded"},
    {Entry::MteConf, "mte_conf", "", Percent, percentRange, "95", "confidence of mte_expanded"},
    {Entry::MteDof, "mte_dof", "MTE_DegFreedom", Number, "0 or inf: infinite", "0",
     "degrees of freedom of the measuring parameter"},
    {Entry::Tur, "tur", "", Ratio, "> 0", "", "test uncertainty ratio d/(1.959964 u), in place of mte_u"},
    {Entry::MteRatio, "mte_ratio", "", Ratio, "> 0", "", "accuracy ratio d/mte_tol, in place of mte_tol"},
    {Entry::ProcessU, "process_u", "ProcessUncertainty", Offset, notNegative, "",
     "standard uncertainty of the measurement process, included"},
    {Entry::Gb, "gb", "", Number, "", "1", "guardband multiplier of both sides"},
    {Entry::GbUpper, "gb_upper", "GB_UpperMult", Number, "", "1", "upper guardband multiplier"},
    {Entry::GbLower, "gb_lower", "GB_LowerMult", Number, "", "1", "lower guardband multiplier"},
    {Entry::GbK, "gb_k", "", Number, "", "0", "guardband k-factor of both sides"},
    {Entry::GbKUpper, "gb_k_upper", "GB_UpperK", Number, "", "0", "upper guardband k-factor"},
    {Entry::GbKLower, "gb_k_lower", "GB_LowerK", Number, "", "0", "lower guardband k-factor"},
    {Entry::AcceptUpper, "accept_upper", "", Length, "", "", "upper acceptance limit, as a guardband"},
    {Entry::AcceptLower, "accept_lower", "", Length, "", "", "lower acceptance limit, as a guardband"},
    {Entry::Convention, "convention", "FalseAcceptOption", Word, "consumer, producer", "consumer",
     "whose false accept risk FalseAccept is"},
    {Entry::BaseRatio, "base_ratio", "", Ratio, "> 0", "4", "accuracy ratio of the baseline"},
    {Entry::BaseMtePct, "base_mte_pct", "Base_MTEPctInTol", Percent, percentRange, "85",
     "measuring % in-tolerance of the baseline"},
    {Entry::BaseSubjectPct, "base_su_pct", "Base_SUPctInTol", Percent, percentRange, "72",
     "subject % in-tolerance of the baseline"},
    {Entry::EqOn, "eq_on", "", Word, "fa, fr", "fa",
     "risk for which the equivalent accuracy ratio is searched"},
    {Entry::Reading, "reading", "", Length, "", "", "measured value that is decided on"},
    {Entry::Rule, "rule", "", Text, "", "simple", "decision rule, as in guard=1"},
}};

constexpr std::string_view texts[] = {"column COLUMN: TEXT is no number",
                                      "column COLUMN: TEXT is no percentage",
                                      "column COLUMN: TEXT is no ratio",
                                      "column COLUMN: TEXT is no number; use --decimal-comma",
                                      "column COLUMN: longer than 64 KiB",
                                      "column COLUMN: UNIT needs a unit of the nominal",
                                      "column COLUMN: a temperature must be in the unit of the nominal",
                                      "column nominal: a temperature must be in the unit of the header",
                                      "column mte_dof: below 0",
                                      "column sided: TEXT is none of two, upper, lower",
                                      "column convention: TEXT is neither consumer nor producer",
                                      "column eq_on: TEXT is neither fa nor fr",
                                      "column rule: TEXT is no decision rule",
                                      "column COLUMN: UNIT is no unit that UNIT can be told in",
                                      "column COLUMN: UNIT may be of area AREA or AREA: name the area",
                                      "column area: no area AREA",
                                      "COUNT cells, wanted COUNT",
                                      "a quote inside a cell without quotes: ROW",
                                      "text behind a closing quote: ROW",
                                      "a quote that is not closed: ROW",
                                      "a zero byte: ROW",
                                      "longer than 1 MiB: ROW",
                                      "more than 4,096 cells: ROW",
                                      "key KEY stands twice",
                                      "key KEY: its entry is named twice",
                                      "key KEY: neither text nor number",
                                      "key KEY is that of an output: --prefix P gives outputs others",
                                      "the line FLAW"};

constexpr bool inOrder() {
    for (std::size_t i = 0; i < entryCount; ++i)
        if (static_cast<std::size_t>(table[i].entry) != i) return false;
    return true;
}
static_assert(inOrder());

std::string bare(std::string_view name) {
    std::string letters;
    for (const char c : name)
        if (c != ' ' && c != '-' && c != '_') letters += c;
    return letters;
}

} // namespace

std::span<const EntryInfo> entryTable() {
    return table;
}

std::span<const std::string_view> readingTexts() {
    return texts;
}

const EntryInfo& infoOf(Entry entry) {
    return table[static_cast<std::size_t>(entry)];
}

std::string_view nameOf(EntryKind kind) {
    switch (kind) {
    case Text: return "text";
    case Word: return "word";
    case Length:
    case Limit:
    case Offset: return "length";
    case Percent: return "percent";
    case Ratio: return "ratio";
    case Number: break;
    }
    return "number";
}

std::optional<Entry> entryNamed(std::string_view name) {
    for (const EntryInfo& info : table)
        if (equalCaseBlind(name, info.name) || (!info.field.empty() && equalCaseBlind(name, info.field)))
            return info.entry;
    return std::nullopt;
}

std::optional<Entry> entryNearly(std::string_view name) {
    const std::string letters = bare(name);
    for (const EntryInfo& info : table)
        if (equalCaseBlind(letters, bare(info.name))) return info.entry;
    return std::nullopt;
}

} // namespace metrisk
