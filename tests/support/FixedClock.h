// A clock that stands still.
#pragma once

#include "base/Clock.h"

namespace metrisk::testing {

struct FixedClock final : Clock {
    Moment moment{.year = 2026, .month = 11, .day = 21, .time = 0.5};

    Moment now() const override { return moment; }
};

} // namespace metrisk::testing
