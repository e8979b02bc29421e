// The rows of the process errors table: what is entered, what follows from it, what is shown.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"
#include "uncertainty/ErrorCell.h"

#include <string>

namespace metrisk {

inline constexpr const char* infinitySign = "\u221E";

/// A row as it stands. Limit and uncertainty in tolerance units of the measuring parameter, confidence in
/// percent.
struct ErrorTableRow {
    ErrorCell limit;
    ErrorCell confidence;
    ErrorCell uncertainty;
    ErrorCell degFreedom; // shown in a row with an uncertainty only
    bool included = false;
    std::string name;
};

/// Row 0 comes from the measuring parameter, the others from ErrTableText.
ErrorTableRow readErrorTableRow(const Analysis& record, int row, const Regional& regional);

enum class ErrorEntry { Limit, Confidence, Uncertainty, DegFreedom };

/// Takes the text of an entry that is a number, not negative, or empty, and derives what follows: of limit,
/// confidence and uncertainty the two that are known give the third. Raises RuntimeFault if that is not
/// finite; the row stays as it was then.
void EnterError(Analysis& record, int row, ErrorEntry entry, const std::string& text,
                const Regional& regional);

/// What leaving the box refuses, in that order: text, a negative number, a confidence above 100.
enum class ErrorRefusal { None, NotANumber, Negative, ConfidenceOutside };
ErrorRefusal refusalOf(ErrorEntry entry, const std::string& text, const Regional& regional);

/// "12.50", or the infinity sign for 0 and beyond largestDegFreedom.
std::string degFreedomText(double degFreedom, const Regional& regional);

/// Rows without an uncertainty lose their mark, so that one entered later counts; cells that read 0 are
/// emptied.
void SyncIncludes(ProcessErrors& errors, const Regional& regional);
void BlankZeros(ProcessErrors& errors, const Regional& regional);

/// Fills ErrTableDisplay with what the table shows.
void ShowErrorTable(Analysis& record, const Regional& regional);

} // namespace metrisk
