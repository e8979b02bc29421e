// The program's own figures beside published ones.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk {

enum class CheckVerdict {
    Pass, // rounds to the figure as printed
    Note, // within what the source itself is good to
    Diff
};
const char* wordOf(CheckVerdict verdict);

/// One published figure in the units of its source.
struct CheckedFigure {
    std::string name;  // the case, as texts quote it
    std::string title; // and in words
    std::string figure;
    std::string source;
    std::string printed;
    double tolerance = 0;
    std::optional<double> computed; // as the program publishes it
    std::optional<double> exact;    // by exact integration, for risks
    CheckVerdict verdict = CheckVerdict::Diff;
};

/// The data that the program carries: lines of tab-separated fields, as they tell themselves.
std::string_view publishedFigures();

/// Computes every figure of such data. A line that cannot be computed is a Diff.
std::vector<CheckedFigure> selfCheck(std::string_view data);

} // namespace metrisk
