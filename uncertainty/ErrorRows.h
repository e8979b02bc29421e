// The process errors table as the numbers that its sums are made of.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"

#include <array>
#include <string_view>

namespace metrisk {

/// Columns of the stored table.
namespace errorColumn {
inline constexpr int limit = 1, confidence = 2, uncertainty = 3, include = 4, name = 5, degFreedom = 6;
}

/// Rows of the table: the measuring parameter's bias and those of samples.
inline constexpr int errorRowCount = 9;
inline constexpr int biasRow = 0;
inline constexpr int measuringSampleRow = 1;
inline constexpr int subjectSampleRow = 7;
constexpr bool isSampleRow(int row) {
    return row == measuringSampleRow || row == subjectSampleRow;
}
/// 1 for the measuring parameter, 2 for the subject parameter.
constexpr int sampleSlot(int row) {
    return row == subjectSampleRow ? 2 : 1;
}
/// What a row is called in CorrelationMatrix.
constexpr int correlationIndex(int row) {
    return row + 2;
}

/// One error source, in tolerance units of the measuring parameter.
struct ErrorRow {
    double uncertainty = 0; // included or not
    double degFreedom = 0;  // not above 0 means infinite
    int decimals = 0;       // of the uncertainty as shown
    bool included = false;

    double counted() const { return included ? uncertainty : 0; }
};

using ErrorRows = std::array<ErrorRow, errorRowCount>;

/// Whether a row counts: its mark decides, no mark speaks for a row with an uncertainty, and a row without
/// one never counts.
bool isIncluded(std::string_view mark, double uncertainty);

/// Rows 1 to 8 of ErrTableText, and row 0 as the measuring parameter has it.
ErrorRows readErrorRows(const Analysis& record, const Regional& regional);

} // namespace metrisk
