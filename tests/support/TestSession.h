// A session for tests: scripted boxes, settings in memory, a fresh record.
#pragma once

#include "model/Session.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/ScriptedInteraction.h"

namespace metrisk::testing {

struct TestSession {
    MemorySettings settings;
    ScriptedInteraction ui;
    Session session{settings, ui};
    Analysis& record = session.record;
};

} // namespace metrisk::testing
