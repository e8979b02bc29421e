// Comparison in the relative sense, with a failure text that shows everything.
#pragma once

#include <cmath>
#include <gtest/gtest.h>
#include <iomanip>
#include <sstream>
#include <string>

namespace metrisk::testing {

/// |got - expected| <= tolerance |expected|; an expected 0 must be met exactly.
inline ::testing::AssertionResult relativelyClose(const std::string& call, long double got,
                                                  long double expected, double tolerance) {
    const long double difference = std::fabs(got - expected);
    if (difference <= tolerance * std::fabs(expected)) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << std::setprecision(18) << call << ": expected " << expected
                                         << ", got " << got << std::setprecision(3) << ", relative error "
                                         << difference / std::fabs(expected) << ", tolerance " << tolerance;
}

/// "name(a)" or "name(a, b)" with all digits.
template <class... Arguments>
std::string callText(const char* name, Arguments... arguments) {
    std::ostringstream text;
    text << std::setprecision(17) << name << '(';
    const char* separator = "";
    ((text << separator << arguments, separator = ", "), ...);
    text << ')';
    return text.str();
}

} // namespace metrisk::testing
