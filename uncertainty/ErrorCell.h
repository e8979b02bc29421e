// A cell of the process errors table: its value, what a file keeps of it and what is shown.
#pragma once

#include "base/Regional.h"
#include "record/Analysis.h"

#include <string>

namespace metrisk {

/// Decimals of the row that comes from the measuring parameter.
inline constexpr int biasDecimals = 4;

/// A typed cell keeps its text to the letter. A computed one keeps 15 digits in the file and shows fewer: its
/// value goes into sums and derivations unrounded.
struct ErrorCell {
    double value = 0;
    std::string stored;
    std::string shown;
    int decimals = 0; // shown
    bool typed = false;

    /// 0 and an empty text alike are nothing entered.
    bool present() const { return value != 0; }

    static ErrorCell ofTyped(const std::string& text, const Regional& regional);
    /// At least three significant digits are shown, however few decimals are asked for.
    static ErrorCell ofComputed(double value, int decimals, const Regional& regional);
    /// A computed percentage below 100 neither shows nor keeps as 100, which means a rectangle.
    static ErrorCell ofConfidence(double percent, const Regional& regional);
    /// A number as computed cells show it.
    static std::string readable(double value, int decimals, const Regional& regional);
    /// Of a file: a text with more digits than anybody types was computed.
    static ErrorCell ofStored(const std::string& text, int decimals, const Regional& regional);
};

/// Digits of the number from its first one that is not 0; 0 for zero and for what is no number.
int significantDigits(const std::string& text, const Regional& regional);

/// Decimals that show three significant digits of the value, or `decimals` if those are more.
int readableDecimals(double value, int decimals);

/// Decimals that computed limits and uncertainties of a stored row are shown with: those of its typed texts,
/// for a sample row also those of the samples.
int rowDecimals(const Analysis& record, int row, const Regional& regional);

ErrorCell readUncertainty(const Analysis& record, int row, const Regional& regional);

} // namespace metrisk
