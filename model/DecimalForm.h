// A number as its significant decimal digits: what formatting, counting and files build on.
#pragma once

#include <string>

namespace metrisk {

inline constexpr int doubleDigits = 15; // digits of a double that survive any decimal round trip
inline constexpr int singleDigits = 7;

/// value = +/- 0.d1d2d3... x 10^point, without trailing zeros; zero has no digits and point 0.
struct DecimalForm {
    bool negative = false;
    std::string digits;
    int point = 0; // digits before the decimal mark; negative for leading zeros behind it

    bool isZero() const { return digits.empty(); }
    /// Digits behind the decimal mark in plain notation.
    int decimals() const;
    /// Rounds half away from zero to that many digits behind the decimal mark. A rounded zero keeps
    /// its sign.
    void round(int decimals);
};

/// The value, which is finite, to at most `significant` digits.
DecimalForm decimalForm(double value, int significant = doubleDigits);

/// Plain notation if that needs at most `significant` digits, otherwise an exponent with sign and at
/// least two digits (1E+15, 1E-16). `leadingZero` writes 0.5 rather than .5. The decimal mark is a
/// period. A value that is not finite gives "".
std::string shortText(double value, int significant, bool leadingZero);

} // namespace metrisk
