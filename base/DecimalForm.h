// A double as its decimal digits, the form in which numbers are rounded for showing and for files.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

/// The value is +-0.d1d2d3... x 10^point. `digits` has no leading and no trailing zero and is empty
/// for zero.
struct DecimalForm {
    bool negative = false;
    std::string digits;
    int point = 0;

    /// The nearest decimal number of at most `significant` digits (1 to 17). The value must be finite.
    static DecimalForm of(double value, int significant = 15);

    /// Rounds half away from zero to so many decimals; the sign stays even if nothing else does.
    void roundTo(int decimals);

    /// The double nearest to the digits, infinite if they are beyond the doubles.
    double value() const;
};

/// The shortest text of at most `significant` digits, period as decimal mark, minus as sign: fixed
/// form where that needs no more digits than `significant`, else exponent form with sign and at
/// least two digits ("1E+15"). With `leadingZero` false the zero before a period is left out (".5").
/// A value that is not finite gives an empty text.
std::string shortestText(double value, int significant, bool leadingZero);

/// What a value reads after it was shown with so many decimals and read back.
double roundedToDecimals(double value, int decimals);

} // namespace metrisk
