// Rules that the record must keep before a worksheet goes on, as a table.
#pragma once

#include "desk/kit/Message.h"

#include <span>

namespace metrisk {

struct Analysis;

struct Check {
    bool (*broken)(const Analysis& record);
    Message message;
    const char* box; // to be filled in
};

/// The first one broken; null if all are kept.
inline const Check* firstBroken(std::span<const Check> checks, const Analysis& record) {
    for (const Check& check : checks)
        if (check.broken(record)) return &check;
    return nullptr;
}

} // namespace metrisk
