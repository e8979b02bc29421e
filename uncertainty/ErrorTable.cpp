#include "uncertainty/ErrorTable.h"

#include "base/NumberText.h"
#include "base/Real.h"
#include "base/Text.h"
#include "numerics/CoverageFactor.h"
#include "numerics/mathlib/StudentsT.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/EffectiveFreedom.h"
#include "uncertainty/ErrorRows.h"

#include <cmath>
#include <numbers>

namespace metrisk {

namespace {

constexpr const char* biasName = "MTE Bias";
constexpr const char* freedomPicture = "#,##0.00";

bool isFinite(double degFreedom) {
    return degFreedom > 0 && degFreedom <= largestDegFreedom;
}

ErrorCell freedomCell(double degFreedom, const std::string& stored, bool shown, const Regional& regional) {
    return {.value = degFreedom,
            .stored = stored,
            .shown = shown ? degFreedomText(degFreedom, regional) : "",
            .decimals = 0,
            .typed = true};
}

ErrorTableRow measuringRow(const Analysis& r, const Regional& regional) {
    const ToleranceUnits units = measuringUnits(r);
    ErrorTableRow row;
    row.limit = ErrorCell::ofComputed(units.shown(r.MTE_Offset), biasDecimals, regional);
    row.confidence = ErrorCell::ofComputed(r.MTE_PctInTol, PictureDecimals(r.MTE_PctInTol_fmt), regional);
    row.uncertainty = ErrorCell::ofComputed(units.shown(r.MTE_StdUncertainty), biasDecimals, regional);
    row.degFreedom = freedomCell(r.MTE_DegFreedom, "", row.uncertainty.present(), regional);
    row.included = r.IncludeMTEBias;
    row.name = biasName;
    return row;
}

/// The factor between limit and uncertainty; 0 if the row tells none.
double factorOf(double confidence, double degFreedom) {
    if (!(confidence > 0 && confidence <= 100)) return 0;
    return CoverageFactor(confidence, isFinite(degFreedom) ? degFreedom : 0);
}

double confidenceOf(double factor, double degFreedom) {
    return 100 * (isFinite(degFreedom) ? tDistribution(factor, degFreedom)
                                       : std::erf(factor / std::numbers::sqrt2));
}

/// The cells of a row while one of them changes.
class Derivation {
  public:
    Derivation(Analysis& record, int row, const Regional& regional)
        : record_(record), row_(row), cells_(record.ErrTableText[row]), regional_(regional) {}

    void take(ErrorEntry entry, const std::string& text) {
        cells_[columnOf(entry)] = ParseValue(text, regional_) == 0 ? "" : withoutQuotes(text);
    }

    void derive(ErrorEntry entry) {
        const bool confidence = value(errorColumn::confidence) > 0;
        const bool uncertainty = value(errorColumn::uncertainty) > 0;
        const bool limit = value(errorColumn::limit) > 0;
        switch (entry) {
        case ErrorEntry::Uncertainty:
            if (confidence)
                LimitsFromUncertainty();
            else if (uncertainty && limit)
                ConfidenceFromLimits();
            return;
        case ErrorEntry::Limit:
            if (confidence)
                UncertaintyFromLimits();
            else if (uncertainty && limit)
                ConfidenceFromLimits();
            return;
        case ErrorEntry::Confidence:
        case ErrorEntry::DegFreedom:
            if (uncertainty)
                LimitsFromUncertainty();
            else
                UncertaintyFromLimits();
            return;
        }
    }

    void keep() {
        record_.ErrTableText[row_] = std::move(cells_);
        if (factor_ > 0 && isSampleRow(row_)) record_.Stat_tStatistic[sampleSlot(row_)] = factor_;
    }

  private:
    static int columnOf(ErrorEntry entry) {
        switch (entry) {
        case ErrorEntry::Limit: return errorColumn::limit;
        case ErrorEntry::Confidence: return errorColumn::confidence;
        case ErrorEntry::Uncertainty: return errorColumn::uncertainty;
        case ErrorEntry::DegFreedom: return errorColumn::degFreedom;
        }
        return errorColumn::limit;
    }

    double value(int column) const { return ParseValue(cells_[column], regional_); }

    /// A result that is none (0) empties its cell.
    void put(int column, double result) {
        cells_[column] = ErrorCell::ofComputed(checked(result), 0, regional_).stored;
    }

    double factor() {
        return factor_ = factorOf(value(errorColumn::confidence), value(errorColumn::degFreedom));
    }

    void LimitsFromUncertainty() { put(errorColumn::limit, factor() * value(errorColumn::uncertainty)); }

    void UncertaintyFromLimits() {
        const double k = factor();
        put(errorColumn::uncertainty, k > 0 ? value(errorColumn::limit) / k : 0);
    }

    void ConfidenceFromLimits() {
        const double k = checked(value(errorColumn::limit) / value(errorColumn::uncertainty));
        const double percent = confidenceOf(k, value(errorColumn::degFreedom));
        cells_[errorColumn::confidence] = ErrorCell::ofConfidence(percent, regional_).stored;
    }

    Analysis& record_;
    int row_;
    OneBased<std::string, 6> cells_;
    const Regional& regional_;
    double factor_ = 0;
};

} // namespace

std::string degFreedomText(double degFreedom, const Regional& regional) {
    if (!isFinite(degFreedom)) return infinitySign;
    return FormatNumber(degFreedom, WidenPicture(degFreedom, freedomPicture), regional);
}

ErrorTableRow readErrorTableRow(const Analysis& record, int row, const Regional& regional) {
    if (row == biasRow) return measuringRow(record, regional);
    const auto& cells = record.ErrTableText[row];
    const int decimals = rowDecimals(record, row, regional);
    ErrorTableRow read;
    read.limit = ErrorCell::ofStored(cells[errorColumn::limit], decimals, regional);
    read.uncertainty = ErrorCell::ofStored(cells[errorColumn::uncertainty], decimals, regional);
    read.confidence = ErrorCell::ofStored(cells[errorColumn::confidence], 0, regional);
    if (!read.confidence.typed) read.confidence = ErrorCell::ofConfidence(read.confidence.value, regional);
    const std::string& freedom = cells[errorColumn::degFreedom];
    read.degFreedom =
        freedomCell(ParseValue(freedom, regional), freedom, read.uncertainty.value > 0, regional);
    read.included = isIncluded(cells[errorColumn::include], read.uncertainty.value);
    read.name = record.ErrorSourceName[row];
    return read;
}

void EnterError(Analysis& record, int row, ErrorEntry entry, const std::string& text,
                const Regional& regional) {
    Derivation derivation(record, row, regional);
    derivation.take(entry, text);
    derivation.derive(entry);
    derivation.keep();
}

ErrorRefusal refusalOf(ErrorEntry entry, const std::string& text, const Regional& regional) {
    const std::string_view content = withoutOuterBlanks(text);
    if (content.empty() || (entry == ErrorEntry::DegFreedom && content == infinitySign))
        return ErrorRefusal::None;
    if (!isNumeric(text, regional)) return ErrorRefusal::NotANumber;
    const double value = ParseValue(text, regional);
    if (value == 0 && significantDigits(text, regional) > 0) return ErrorRefusal::NotANumber; // too large
    if (value < 0) return ErrorRefusal::Negative;
    return entry == ErrorEntry::Confidence && value > 100 ? ErrorRefusal::ConfidenceOutside
                                                          : ErrorRefusal::None;
}

void SyncIncludes(ProcessErrors& errors, const Regional& regional) {
    for (auto& row : errors.ErrTableText)
        if (!(ParseValue(row[errorColumn::uncertainty], regional) > 0)) row[errorColumn::include].clear();
}

void BlankZeros(ProcessErrors& errors, const Regional& regional) {
    for (auto& row : errors.ErrTableText)
        for (const int column : {errorColumn::limit, errorColumn::uncertainty})
            if (isNumeric(row[column], regional) && ParseValue(row[column], regional) == 0)
                row[column].clear();
}

void ShowErrorTable(Analysis& record, const Regional& regional) {
    for (int row = 0; row < errorRowCount; ++row) {
        const ErrorTableRow shown = readErrorTableRow(record, row, regional);
        auto& cells = record.ErrTableDisplay[row + 1];
        cells[errorColumn::limit] = shown.limit.shown;
        cells[errorColumn::confidence] = shown.confidence.shown;
        cells[errorColumn::uncertainty] = shown.uncertainty.shown;
        cells[errorColumn::include] = shown.included ? "True" : "False";
        cells[errorColumn::name] = shown.name;
        cells[errorColumn::degFreedom] = shown.degFreedom.shown;
    }
}

} // namespace metrisk
