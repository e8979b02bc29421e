// The subject parameter's boxes.
#include "shell/mainscreen/FieldRules.h"

#include "model/NumberText.h"
#include "model/Session.h"
#include "numerics/Real.h"
#include "risk/RatioPanels.h"
#include "risk/ValidateAndFit.h"
#include "shell/mainscreen/OffsetPictures.h"

#include <algorithm>
#include <cmath>

namespace metrisk {

namespace {

constexpr const char* ppmModeTitle = "Illegal Mode Value";
constexpr const char* ppmModeText =
    "The mode value cannot be zero when units are expressed in ppm.\n"
    "You may need to change the units on the Metrisk screen or on the Tolerance "
    "Offset Worksheet.";
constexpr const char* offsetText = "Must be greater than or equal to zero.";
constexpr const char* upperTitle = "Upper Tolerance Offset";
constexpr const char* lowerTitle = "Lower Tolerance Offset";
constexpr const char* illegalTitle = "Illegal Entry";
constexpr const char* pctText =
    "The Subject Parameter % In-Tolerance must be greater than 0 and less than or "
    "equal to 100.";
constexpr const char* ppm = "ppm";

FieldResult refuse(Session& session, const char* title, const char* text, std::string shown) {
    session.ui.show({.text = text, .title = title, .icon = BoxIcon::Exclamation});
    return {true, std::move(shown)};
}

void markChanged(Analysis& r, const char* scope) {
    r.ComputeScope = scope;
    r.ComputeNeeded = true;
    r.FileChanged = true;
}

/// A limit or the mode alone is no reason to fit: the other data must be there.
void fitSubjectIfEntered(Session& session) {
    const Analysis& r = session.record;
    if (r.SU_PctInTol != 0 && (r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0)) ValidateAndFit(session);
}

/// The two rows of the subject parameter, told apart once.
struct Row {
    double& offset;
    std::string& offsetPicture;
    double& fixed;
    std::string& fixedPicture;
    double& pctReading;
    double& limit;
    double sign; // of the offset in the limit
    const char* title;
};

Row rowOf(Analysis& r, LimitRow row) {
    if (row == LimitRow::Upper)
        return {r.SU_UpperOffset,
                r.SU_UpperOffset_fmt,
                r.SU_UpperFixed,
                r.SU_UpperFixed_fmt,
                r.SU_UpperPctReading,
                r.SU_UpperLimit,
                1,
                upperTitle};
    return {r.SU_LowerOffset,
            r.SU_LowerOffset_fmt,
            r.SU_LowerFixed,
            r.SU_LowerFixed_fmt,
            r.SU_LowerPctReading,
            r.SU_LowerLimit,
            -1,
            lowerTitle};
}

void storeOffset(Analysis& r, const Row& row, double offset, const std::string& picture) {
    row.offset = row.fixed = offset;
    row.offsetPicture = row.fixedPicture = picture;
    row.pctReading = 0;
    row.limit = checked(r.SU_Mode + row.sign * offset);
}

/// The row that the tolerance kind leaves to the physical limit.
bool isAbsentSide(const Analysis& r, LimitRow row) {
    return row == LimitRow::Upper ? r.OptSingleLower : r.OptSingleUpper;
}

void commitPhysicalLimit(Session& session, const std::string& text) {
    Analysis& r = session.record;
    const bool blank = text.find_first_not_of(" \t\r\n") == std::string::npos;
    r.PhysicalLimit = ParseValue(text, session.regional);
    r.PhysicalLimit_fmt = PictureForDecimals(DigitsForEntry(text, session.regional));
    r.PhysicalLimitEntered = !blank;
}

} // namespace

FieldResult commitMode(Session& session, const std::string& text, const std::string& last) {
    Analysis& r = session.record;
    const double mode = ParseValue(text, session.regional);
    if (mode == 0 && (r.NominalUnits == ppm || r.SU_ToleranceUnits == ppm))
        return refuse(session, ppmModeTitle, ppmModeText, last);

    const int before = PictureDecimals(r.SU_Mode_fmt);
    const int after = DigitsForEntry(text, session.regional);
    r.SU_Mode = r.MTE_Mode = mode;
    r.SU_Mode_fmt = PictureForDecimals(after);
    followModeInUnits(session);
    // A part in percent of reading is a part of the new reading.
    if (r.MTE_PctReading != 0 && !r.MTE_EntryByUncertainty)
        r.MTE_Offset = checked(r.MTE_FixedOffset + std::fabs(mode) * r.MTE_PctReading / 100);
    r.SU_UpperLimit = checked(mode + r.SU_UpperOffset);
    r.SU_LowerLimit = checked(mode - r.SU_LowerOffset);
    r.MTE_UpperLimit = checked(mode + r.MTE_Offset);
    r.MTE_LowerLimit = checked(mode - r.MTE_Offset);
    moveOffsetPictures(r, after - before);

    const bool measuringEntered = r.MTE_Offset > 0 && r.MTE_PctInTol > 0;
    markChanged(r, measuringEntered ? "Both" : "SU");
    fitSubjectIfEntered(session);
    return {false, text};
}

FieldResult commitLimit(Session& session, LimitRow which, const std::string& text, const std::string& last) {
    Analysis& r = session.record;
    if (isAbsentSide(r, which)) {
        if (!r.PhysLimitRequired) return {false, text};
        commitPhysicalLimit(session, text);
        markChanged(r, "SU");
        fitSubjectIfEntered(session);
        return {false, text};
    }
    const bool followsUpper = which == LimitRow::Lower && r.OptTwoSided && r.SymmetricTolerances;
    if (followsUpper) return {false, text};
    const Row row = rowOf(r, which);
    const double value = ParseValue(text, session.regional);
    double offset = 0;
    std::string picture;
    if (r.ShowLimits) {
        offset = checked(row.sign * (value - r.SU_Mode));
        // The offset must show all digits of both the limit and the mode.
        picture = PictureForDecimals(
            std::max(DigitsForEntry(text, session.regional), PictureDecimals(r.SU_Mode_fmt)));
    } else {
        offset = checked(value / nonZeroFactor(r.SU_TolUnitsFactor));
        picture = HeldOffsetPicture(DigitsForEntry(text, session.regional), r.SU_TolDecimalShift);
    }
    if (offset < 0) return refuse(session, row.title, offsetText, last);

    storeOffset(r, row, offset, picture);
    if (r.SymmetricTolerances)
        storeOffset(r, rowOf(r, which == LimitRow::Upper ? LimitRow::Lower : LimitRow::Upper), offset,
                    picture);
    markChanged(r, "SU");
    fitSubjectIfEntered(session);
    return {false, text};
}

FieldResult commitPctInTol(Session& session, const std::string& text) {
    Analysis& r = session.record;
    const double value = ParseValue(text, session.regional);
    if (value > 100 || value <= 0)
        return refuse(session, illegalTitle, pctText,
                      FormatNumber(r.SU_PctInTol, pctEntryPicture, session.regional));
    if (value == r.SU_PctInTol) return {false, text};
    r.SU_PctInTol = value;
    markChanged(r, "SU");
    ValidateAndFit(session);
    UpdateRatioPanels(session);
    return {false, text};
}

} // namespace metrisk
