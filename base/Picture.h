// Pictures: number formats such as "#,##0.00", and how many decimals a value needs.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

/// No double needs more decimals to be told from 0.
inline constexpr int maxPictureDecimals = 400;

/// "#,##0" for n < 1, otherwise "#,##0." and n zeros (at most maxPictureDecimals).
std::string PictureForDecimals(int n);

/// Digit places behind the point of a picture.
int PictureDecimals(std::string_view picture);

/// A picture that shows the value: the given one unless the value would read 0 in it; otherwise one
/// with the decimals up to the first digit that is not 0, 11 at most. A value of 0 leaves it.
std::string WidenPicture(double value, std::string_view picture);

/// Picture of a ratio label: the fewest decimals that show the value within the tolerance, relative
/// to the value. "###" for 0, "##0" for a value that vanishes at 14 decimals.
std::string RatioPicture(double value, double tolerance);

/// The smallest number of decimals, from n on, that shows the value as 14 decimals show it.
int DecimalsOfValue(double value, int n);

/// Offsets are entered and shown in tolerance units but their pictures are held for nominal units.
/// `shift` is SU_TolDecimalShift for the subject parameter and SU_SigDigits for the measuring one.
std::string HeldOffsetPicture(int decimalsTyped, int shift);
std::string ShownOffsetPicture(std::string_view heldPicture, int shift);

} // namespace metrisk
