// Entries kept as the user wrote them: loose number text in, pictures and shown text out.
//
// A picture is a number format: # an optional digit, 0 a forced one, a comma among the integer digits
// for grouping, a period before the decimals. Texts are UTF-8 in the user's regional setting.
#pragma once

#include "model/Regional.h"

#include <string>
#include <string_view>

namespace metrisk {

/// The numeric part of a text without units, percent and currency signs and grouping marks, with a
/// period as decimal mark and "-" as sign.
std::string CleanNumberText(std::string_view text, const Regional& regional);

/// The number that a text begins with once cleaned; 0 if there is none or it is out of range.
double ParseValue(std::string_view text, const Regional& regional);

/// The whole text is a number: optional sign, digits with optional grouping, decimal mark, optional
/// exponent; "%" and "$" are tolerated.
bool isNumeric(std::string_view text, const Regional& regional);

/// Digits behind the decimal mark of the cleaned text.
int CountDecimals(std::string_view text, const Regional& regional);
/// The same without trailing zeros.
int CountSignificantDecimals(std::string_view text, const Regional& regional);

/// "#,##0" for n < 1, else "#,##0." and n zeros.
std::string PictureForDecimals(int n);
/// Digit places behind the point of a picture.
int decimalsOfPicture(std::string_view picture);

/// The value in a picture, rounded half away from zero on its 15-digit decimal form. A rounded
/// negative zero keeps its sign; a value that is not finite gives "". Named formats ("General Number",
/// "Fixed", "Standard", "Percent", "Scientific", "h:mm AM/PM") are known. Where the thousands separator
/// is a period no grouping marks are written, so that a shown text always reads back as its number.
std::string FormatNumber(double value, std::string_view picture, const Regional& regional);

/// A number as plain as it can be, at most 15 significant digits; the user's decimal symbol.
std::string GeneralText(double value, const Regional& regional);

/// The smallest n, from the given one up, at which the value shown with n decimals reads back as the
/// value at 14 decimals.
int DecimalsOfValue(double value, int n);

/// The picture, or one with enough decimals (11 at most) that a small value does not read as zero.
std::string WidenPicture(double value, std::string_view picture);

/// Picture of a ratio label: the fewest decimals that keep the relative tolerance.
std::string RatioPicture(double value, double tolerance, const Regional& regional);

/// The text without percent signs and with an exponent written out in plain digits.
std::string DisplayValueText(std::string_view text, const Regional& regional);
/// Decimals of the entry once it is written out.
int DigitsForEntry(std::string_view text, const Regional& regional);
/// An entry in plain notation with the decimals it was typed with; "" if it holds no number.
std::string NormalizeBoxText(std::string_view text, const Regional& regional);

/// Offsets are shown in tolerance units and held in nominal units: a held picture has the decimals of
/// the entry plus the decimal shift of the units factor, a shown picture gives them back.
std::string heldPicture(std::string_view entryText, int shift, const Regional& regional);
std::string shownPicture(std::string_view heldPicture, int shift);

} // namespace metrisk
