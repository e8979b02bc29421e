// The files by which this program and ErrorLedger hand each other their data: texts in the conventions of
// analysis files, each row a line.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

inline constexpr float exchangeVersion = 1.512F;

/// What this program writes. Limits and uncertainties of the process errors are in the subject parameter's
/// tolerance units, samples and their spread in nominal ones, relative to the mode. Numbers have periods.
/// Raises RuntimeFault if a number could not be read back.
std::string writeExchange(const Analysis& record, const Regional& regional);

/// What the partner writes, as it stands there: numbers that are texts in the file are texts here.
struct Exchange {
    struct ErrorRow {
        std::string limit, confidence, degFreedom, uncertainty; // subject's tolerance units
        std::string include, type, name;
    };
    struct Sample {
        std::string value; // nominal units, relative to the mode
        std::string include;
    };
    /// An offset, its fixed part and its percentage of the reading.
    struct Tolerance {
        double offset = 0, fixed = 0, pctReading = 0;
    };

    bool hasData = false;
    bool isObsolete = false; // of an older program: it may end before the tolerances
    bool hasTolerances = false;
    bool SymmetricTolerances = false;
    std::array<ErrorRow, 8> rows;               // of process errors 1 to 8
    std::array<std::vector<Sample>, 2> samples; // measuring, subject parameter
    std::string MeasurementArea;

    double SU_Mode = 0;
    std::string NominalUnits, MTE_ToleranceUnits, SU_ToleranceUnits;
    double MTE_TolUnitsFactor = 1, SU_TolUnitsFactor = 1;
    std::array<std::string, 6> subject, measuring; // identification
    std::string SU_UpperLimit, SU_LowerLimit, SU_PctInTol;
    std::string MTE_UpperLimit, MTE_LowerLimit, MTE_PctInTol;
    double PhysicalLimit = 0;
    std::array<int, 5> options{};       // two-sided, upper, lower, physical limit entered, required
    Tolerance upper, lower, MTE_Offset; // nominal units
    int MTE_EntryByUncertainty = 0;
    double MTE_DegFreedom = 0;
};

/// Raises RuntimeFault if the text is cut off, has an item of another kind or a number out of range.
Exchange readExchange(std::string_view text);

} // namespace metrisk
