// What change detection looks at: model numbers and descriptions are not among it.
#pragma once

#include <string>
#include <vector>

namespace metrisk {

struct Analysis;

struct SavedCopy {
    std::vector<std::string> texts;
    std::vector<double> numbers;
    std::vector<bool> flags;
    double MTE_StdUncertainty = 0;
};

SavedCopy savedCopyOf(const Analysis& record);
/// The standard uncertainty, being derived, counts as changed only from 1e-14 on.
bool differs(const SavedCopy& a, const SavedCopy& b);

} // namespace metrisk
