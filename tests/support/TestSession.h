// A session for tests: scripted boxes, settings in memory, a fresh record.
#pragma once

#include "desk/kit/Session.h"
#include "tests/support/FixedClock.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/ScriptedInteraction.h"

namespace metrisk::testing {

struct TestSession {
    MemorySettings settings;
    ScriptedInteraction ui;
    FixedClock clock;
    Session session{settings, ui, clock};
    Analysis& record = session.record;
};

} // namespace metrisk::testing
