// What must hold of a record, whatever it was read from; a breach ends the fuzzer.
#pragma once

#include "record/AnalysisFields.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace metrisk::fuzz {

inline void require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

inline void requireSoundRecord(const Analysis& record) {
    visitFields(record, [](std::string_view field, const auto& member) {
        eachElement(member, [&]<class T>(const T& element) {
            if constexpr (std::is_same_v<std::remove_const_t<T>, double>)
                if (!std::isfinite(element)) require(false, std::string(field).c_str());
        });
    });
    for (int size : record.Stat_SampleSize) require(size >= 0 && size <= maxSampleSize, "sample size");
}

} // namespace metrisk::fuzz
