// A figure with a bound of its error.
#pragma once

namespace metrisk {

/// A figure and how far it can be from the truth, both fractions.
struct BoundedFigure {
    double value = 0;
    double bound = 0;
};

inline BoundedFigure operator+(const BoundedFigure& a, const BoundedFigure& b) {
    return {a.value + b.value, a.bound + b.bound};
}

} // namespace metrisk
