#include "persistence/SettleAnalysis.h"

#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "base/Text.h"
#include "persistence/SettingKeys.h"
#include "record/ToleranceUnits.h"
#include "uncertainty/ErrorMessages.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"
#include "units/ToleranceDecimals.h"
#include "units/UnitFactor.h"

#include <algorithm>
#include <cmath>

namespace metrisk {
namespace {

constexpr int stressResponseRow = 4;

void copyErrorTable(ProcessErrors& errors) {
    for (int row = 1; row <= 8; ++row) errors.ErrTableDisplay[row + 1] = errors.ErrTableText[row];
}

/// As the worksheet shows it: computed figures bear 15 digits in the file.
void shortenComputed(Analysis& record, const Regional& regional) {
    for (int row = 1; row <= 8; ++row) {
        const ErrorTableRow shown = readErrorTableRow(record, row, regional);
        auto& cells = record.ErrTableDisplay[row + 1];
        cells[errorColumn::limit] = shown.limit.shown;
        cells[errorColumn::confidence] = shown.confidence.shown;
        cells[errorColumn::uncertainty] = shown.uncertainty.shown;
        if (shown.degFreedom.present()) cells[errorColumn::degFreedom] = shown.degFreedom.shown;
    }
}

/// Old files may carry no name for a row that has one today.
void nameStressResponse(ProcessErrors& errors) {
    if (!withoutOuterBlanks(errors.ErrorSourceName[stressResponseRow]).empty()) return;
    const std::string name(errorSourceNames[stressResponseRow - 1]);
    errors.ErrTableText[stressResponseRow][errorColumn::name] = name;
    errors.ErrTableDisplay[stressResponseRow + 1][errorColumn::name] = name;
}

/// Rules ask for each kind on its own, so that any other number of them would be taken for one kind here
/// and for another there. Without a single choice both limits count.
void settleToleranceKind(SubjectParameter& subject) {
    if (subject.OptTwoSided + subject.OptSingleUpper + subject.OptSingleLower == 1) return;
    subject.OptTwoSided = true;
    subject.OptSingleUpper = false;
    subject.OptSingleLower = false;
}

/// Only 1 is Producer.
void settleConvention(RiskResults& results) {
    if (results.FalseAcceptOption != 1) results.FalseAcceptOption = 0;
}

std::string picturePctReading(double percent) {
    return PictureForDecimals(DecimalsOfValue(percent, 0));
}

void settleShift(Analysis& record) {
    if (record.NominalUnits != record.SU_ToleranceUnits && !record.MeasurementArea.empty() &&
        record.SU_TolDecimalShift == 0)
        UpdateToleranceDecimals(record);
}

void settleUnits(Analysis& record) {
    for (double* factor : {&record.SU_TolUnitsFactor, &record.MTE_TolUnitsFactor})
        *factor = usableFactor(*factor);
    settleShift(record);
    record.ShowLimits = false;

    // A tolerance with more decimals than its fixed part got them from the percentage of the reading.
    const int decimals = PictureDecimals(record.MTE_Offset_fmt);
    record.MTE_PctReading_fmt = decimals > PictureDecimals(record.MTE_FixedOffset_fmt)
                                    ? PictureForDecimals(decimals - 2)
                                    : picturePctReading(record.MTE_PctReading);
}

/// Row 0, the measuring parameter's bias, is never stored: it comes from the parameter itself.
void composeBiasRow(Analysis& record, const Regional& regional) {
    const ToleranceUnits units = measuringUnits(record);
    auto& row = record.ErrTableDisplay[1];
    row[1] = FormatNumber(units.shown(record.MTE_Offset), "##0.0000", regional);
    row[2] = FormatNumber(record.MTE_PctInTol, "##0.000", regional);
    row[3] = FormatNumber(units.shown(record.MTE_Sigma), "##0.0000", regional);
    row[4] = record.IncludeMTEBias ? "True" : "False";
    row[5] = "MTE Bias";
    row[6] =
        record.MTE_DegFreedom == 0 ? infinitySign : FormatNumber(record.MTE_DegFreedom, "##0.00", regional);
}

/// The picture of a part of an offset, from the decimals that the part has in its tolerance units.
std::string pictureOfPart(double part, const ToleranceUnits& units) {
    return HeldOffsetPicture(DecimalsOfValue(units.shown(part), 0), units.shift);
}

void derivePictures(Analysis& record) {
    const ToleranceUnits units = subjectUnits(record);
    if (record.SU_UpperFixed != 0) record.SU_UpperFixed_fmt = pictureOfPart(record.SU_UpperFixed, units);
    if (record.SU_LowerFixed != 0) record.SU_LowerFixed_fmt = pictureOfPart(record.SU_LowerFixed, units);
    record.SU_UpperPctReading_fmt = picturePctReading(record.SU_UpperPctReading);
    record.SU_LowerPctReading_fmt = picturePctReading(record.SU_LowerPctReading);
    record.SU_PctInTol_fmt = "##0.0000";
    record.MTE_PctInTol_fmt = "##0.0000";
    record.FalseAccept_fmt = riskPicture(record.FalseAcceptUnits);
    record.FalseReject_fmt = riskPicture(record.FalseRejectUnits);
    record.Base_Accept_fmt = baselinePicture(record.Base_AcceptUnits);
    record.Base_Reject_fmt = baselinePicture(record.Base_RejectUnits);
}

/// As an entry of the correlation worksheet would be refused.
bool dropUnlawfulCorrelations(ProcessErrors& errors) {
    bool refused = false;
    for (auto& row : errors.CorrelationMatrix)
        for (double& correlation : row)
            if (std::fabs(correlation) > 1) {
                correlation = 0;
                refused = true;
            }
    return refused;
}

bool agrees(double limit, double mode, double offset) {
    constexpr double fileRounding = 4e-14; // three figures of 15 digits
    const double largest = std::max({std::fabs(limit), std::fabs(mode), std::fabs(offset)});
    return std::fabs(limit - (mode + offset)) <= fileRounding * largest;
}

void settleLimits(Analysis& r) {
    r.LimitsReformed = false;
    const auto settle = [&r](double& limit, double mode, double offset, bool used) {
        if (agrees(limit, mode, offset)) return;
        limit = checked(mode + offset);
        if (used) r.LimitsReformed = true;
    };
    settle(r.SU_UpperLimit, r.SU_Mode, r.SU_UpperOffset, !r.OptSingleLower);
    settle(r.SU_LowerLimit, r.SU_Mode, -r.SU_LowerOffset, !r.OptSingleUpper);
    settle(r.MTE_UpperLimit, r.MTE_Mode, r.MTE_Offset, true);
    settle(r.MTE_LowerLimit, r.MTE_Mode, -r.MTE_Offset, true);
}

} // namespace

bool settle(Analysis& record, LayoutPoint point, const Regional& regional, LoadNotes& notes) {
    const auto noted = [&notes](bool dropped, const Message& message) {
        if (dropped) notes.push_back(message);
        return dropped;
    };
    bool changed = false;
    switch (point) {
    case LayoutPoint::Options: settleToleranceKind(record); break;
    case LayoutPoint::ErrorTable: copyErrorTable(record); break;
    case LayoutPoint::SourceNames: nameStressResponse(record); break;
    case LayoutPoint::Units:
        settleConvention(record);
        settleUnits(record);
        break;
    case LayoutPoint::Statistics:
        changed = noted(emptyNegativeErrors(record, regional), negativeError);
        changed |= noted(dropUnlawfulCorrelations(record), unlawfulCorrelation);
        SettleTableMarks(record, regional);
        copyErrorTable(record);
        shortenComputed(record, regional);
        SumProcessUncertainty(record, regional);
        break;
    }
    return changed;
}

bool settleEnd(Analysis& record, const Regional& regional) {
    settleShift(record); // the nominal units come a second time behind the tolerances, and may differ
    settleLimits(record);
    composeBiasRow(record, regional);
    derivePictures(record);
    return record.LimitsReformed;
}

} // namespace metrisk
