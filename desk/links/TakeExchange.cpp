#include "desk/links/TakeExchange.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/Text.h"
#include "desk/compute/FollowMode.h"
#include "desk/files/UnitSelection.h"
#include "persistence/SettingKeys.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"
#include "uncertainty/Samples.h"
#include "units/UnitFactor.h"

#include <algorithm>
#include <cmath>

namespace metrisk {
namespace {

/// As a box of the table would take it, in other units and the user's marks.
std::string cellOf(const std::string& text, ErrorEntry entry, double ratio, const Regional& regional) {
    if (refusalOf(entry, text, {}) != ErrorRefusal::None) return "";
    const double value = checked(ParseValue(text, {}) * ratio);
    if (value == 0) return "";
    const bool asTyped = ratio == 1 && isNumeric(text, regional) && ParseValue(text, regional) == value;
    return asTyped ? std::string(withoutOuterBlanks(text)) : GeneralText(value, regional);
}

/// No mark stays none: the row then counts if it has an uncertainty.
bool isMarked(std::string_view mark) {
    mark = withoutOuterBlanks(mark);
    return std::ranges::none_of(std::initializer_list<std::string_view>{"False", "#FALSE#", "No", "0"},
                                [mark](std::string_view no) { return equalCaseBlind(mark, no); });
}

/// An empty row of the partner's says nothing of its name.
std::string nameOf(const Exchange::ErrorRow& row) {
    const std::string_view name = withoutOuterBlanks(row.name);
    if (!name.empty()) return withoutQuotes(std::string(name));
    const std::string_view type = withoutOuterBlanks(row.type);
    if (type.empty()) return "";
    return type == "1" ? "Environmental" : type == "2" ? "User Defined" : "Miscellaneous";
}

void takeSamples(Analysis& r, int slot, const std::vector<Exchange::Sample>& given,
                 const Regional& regional) {
    std::vector<double> values;
    int decimals = 0;
    for (const Exchange::Sample& sample : given) {
        if (!isNumeric(sample.value, {})) throw RuntimeFault{};
        if (!isMarked(sample.include)) continue;
        const double value = ParseValue(sample.value, {});
        values.push_back(
            checked(areDeviations(r, slot) ? measuringUnits(r).shown(value) : r.SU_Mode + value));
        decimals = std::max(decimals, DecimalsOfValue(values.back(), 0));
    }
    StoreSamples(r, slot, values, decimals, regional);
}

void takeRow(Session& session, int row, const Exchange::ErrorRow& given, double ratio) {
    Analysis& r = session.record;
    auto& cells = r.ErrTableText[row];
    const auto take = [&](int column, const std::string& text, ErrorEntry entry, double scale) {
        // The row of samples has figures of its own where the partner gives none.
        std::string cell = cellOf(text, entry, scale, session.regional);
        if (!cell.empty() || !isSampleRow(row)) cells[column] = std::move(cell);
    };
    take(errorColumn::limit, given.limit, ErrorEntry::Limit, ratio);
    take(errorColumn::confidence, given.confidence, ErrorEntry::Confidence, 1);
    take(errorColumn::uncertainty, given.uncertainty, ErrorEntry::Uncertainty, ratio);
    take(errorColumn::degFreedom, given.degFreedom, ErrorEntry::DegFreedom, 1);
    if (!withoutOuterBlanks(given.include).empty())
        cells[errorColumn::include] = isMarked(given.include) ? "True" : "False";
    else if (!isSampleRow(row))
        cells[errorColumn::include].clear();
    const std::string name = nameOf(given);
    if (isFixedErrorSource(row))
        r.ErrorSourceName[row] = errorSourceNames[row - 1];
    else
        r.ErrorSourceName[row] = name.empty() ? session.settings.read(errorSourceSetting(row)) : name;
    cells[errorColumn::name] = r.ErrorSourceName[row];
}

void settleErrors(Session& session) {
    Analysis& r = session.record;
    SyncIncludes(r, session.regional);
    BlankZeros(r, session.regional);
    r.ProcessUncertainty = 0; // of a table without any uncertainty
    ComputeTotals(readErrorRows(r, session.regional), r.CorrelationMatrix);
    SumProcessUncertainty(session.record, session.regional);
    ShowErrorTable(r, session.regional);
    r.SMPC_Computed = r.SMPC_Computed && BiasResultsStand(r, session.regional);
}

double numberOf(const std::string& text) {
    return isNumeric(text, {}) ? checked(ParseValue(text, {})) : 0;
}

std::string pictureOf(double value) {
    return PictureForDecimals(DigitsForEntry(GeneralText(value, {}), {}));
}

/// Parts that are not told are those of a fixed offset.
Exchange::Tolerance settled(Exchange::Tolerance tolerance, const std::string& limit, double mode) {
    if (tolerance.offset == 0 && isNumeric(limit, {})) tolerance = {.offset = numberOf(limit) - mode};
    tolerance.offset = std::fabs(checked(tolerance.offset));
    tolerance.pctReading = std::fabs(tolerance.pctReading);
    tolerance.fixed = std::fabs(tolerance.fixed);
    if (tolerance.fixed == 0 && tolerance.pctReading == 0) tolerance.fixed = tolerance.offset;
    return tolerance;
}

void takeSide(Analysis& r, const SubjectSide& side, const Exchange::Tolerance& given,
              const std::string& limit) {
    const Exchange::Tolerance tolerance = settled(given, limit, r.SU_Mode);
    r.*side.offset = tolerance.offset;
    r.*side.fixed = tolerance.fixed;
    r.*side.pctReading = tolerance.pctReading;
    r.*side.limit = checked(r.SU_Mode + side.sign * tolerance.offset);
    r.*side.offsetPicture = pictureOf(tolerance.offset);
    r.*side.fixedPicture = pictureOf(tolerance.fixed);
}

void takeMeasuring(Analysis& r, const Exchange& data) {
    const Exchange::Tolerance tolerance = settled(data.MTE_Offset, data.MTE_UpperLimit, r.SU_Mode);
    r.MTE_Mode = r.SU_Mode;
    r.MTE_Offset = tolerance.offset;
    r.MTE_FixedOffset = tolerance.fixed;
    r.MTE_PctReading = tolerance.pctReading;
    r.MTE_UpperLimit = checked(r.MTE_Mode + r.MTE_Offset);
    r.MTE_LowerLimit = checked(r.MTE_Mode - r.MTE_Offset);
    r.MTE_Offset_fmt = pictureOf(r.MTE_Offset);
    r.MTE_FixedOffset_fmt = pictureOf(r.MTE_FixedOffset);
    r.MTE_PctReading_fmt = pictureOf(r.MTE_PctReading);
    r.MTE_PctInTol = numberOf(data.MTE_PctInTol);
    const bool byUncertainty = data.MTE_EntryByUncertainty != 0;
    if (r.MTE_EntryByUncertainty != byUncertainty) r.OffsetWorksheetFlag = false;
    r.MTE_EntryByUncertainty = byUncertainty;
    r.MTE_DegFreedom = std::max(data.MTE_DegFreedom, 0.0);
}

void takeUnits(Analysis& r, const Exchange& data) {
    r.MeasurementArea = data.MeasurementArea;
    r.NominalUnits = data.NominalUnits;
    r.SU_ToleranceUnits = data.SU_ToleranceUnits;
    r.MTE_ToleranceUnits = data.MTE_ToleranceUnits;
    r.SU_TolUnitsFactor = usableFactor(data.SU_TolUnitsFactor);
    r.MTE_TolUnitsFactor = usableFactor(data.MTE_TolUnitsFactor);
}

void takeIdentification(Identification& ids, const Exchange& data) {
    using Field = std::string Identification::*;
    static constexpr Field subject[] = {&Identification::SU_Manufacturer, &Identification::SU_ModelNumber,
                                        &Identification::SU_Description,  &Identification::SU_ParameterName,
                                        &Identification::SU_Qualifier1,   &Identification::SU_Qualifier2};
    static constexpr Field measuring[] = {
        &Identification::MTE_Manufacturer, &Identification::MTE_ModelNumber,
        &Identification::MTE_Description,  &Identification::MTE_ParameterName,
        &Identification::MTE_Qualifier1,   &Identification::MTE_Qualifier2};
    for (std::size_t i = 0; i < 6; ++i) {
        ids.*subject[i] = data.subject[i];
        ids.*measuring[i] = data.measuring[i];
    }
}

/// Exactly one kind of tolerance; without a single choice both limits count.
void takeOptions(Analysis& r, const Exchange& data) {
    const auto& [two, upper, lower, entered, required] = data.options;
    r.OptSingleUpper = upper != 0 && !two && !lower;
    r.OptSingleLower = lower != 0 && !two && !upper;
    r.OptTwoSided = !r.OptSingleUpper && !r.OptSingleLower;
    r.PhysicalLimitEntered = entered != 0;
    r.PhysLimitRequired = required != 0;
    r.PhysicalLimit = data.PhysicalLimit;
    r.PhysicalLimit_fmt = pictureOf(r.PhysicalLimit);
}

} // namespace

void takeProcessErrors(Session& session, const Exchange& data) {
    Analysis& r = session.record;
    const double ratio = measuringUnits(r).factor / usableFactor(data.SU_TolUnitsFactor);
    static_cast<ProcessErrors&>(r).CorrelationMatrix = {};
    for (int slot = 1; slot <= 2; ++slot) {
        const auto& row =
            data.rows[static_cast<std::size_t>((slot == 1 ? measuringSampleRow : subjectSampleRow) - 1)];
        const double confidence = numberOf(row.confidence) / 100;
        r.Stat_Value5[slot] = confidence > 0 && confidence <= 1 ? confidence : defaultSampleConfidence;
        takeSamples(r, slot, data.samples[static_cast<std::size_t>(slot - 1)], session.regional);
    }
    for (int row = 1; row < errorRowCount; ++row)
        takeRow(session, row, data.rows[static_cast<std::size_t>(row - 1)], ratio);
    settleErrors(session);
}

void takeTolerances(Session& session, const Exchange& data) {
    Analysis& r = session.record;
    takeIdentification(r, data);
    takeUnits(r, data);
    takeOptions(r, data);
    r.SU_Mode = data.SU_Mode;
    r.SU_Mode_fmt = pictureOf(r.SU_Mode);
    takeSide(r, upperSide, data.upper, data.SU_UpperLimit);
    takeSide(r, lowerSide, data.lower, data.SU_LowerLimit);
    r.SU_PctInTol = numberOf(data.SU_PctInTol);
    r.SU_UpperPctReading_fmt = pictureOf(r.SU_UpperPctReading);
    r.SU_LowerPctReading_fmt = pictureOf(r.SU_LowerPctReading);
    r.SymmetricTolerances = data.SymmetricTolerances && r.OptTwoSided && r.SU_UpperOffset == r.SU_LowerOffset;

    takeMeasuring(r, data);
    r.ShowLimits = false;
    followModeInUnits(session);
}

void resetProcessErrors(Session& session) {
    Analysis& r = session.record;
    takeProcessErrors(session, {});
    for (int slot = 1; slot <= 2; ++slot) r.Stat_Value5[slot] = 0;
    r.ProcessUncertainty = r.Process_DegFreedom = r.Total_DegFreedom = 0;
}

} // namespace metrisk
