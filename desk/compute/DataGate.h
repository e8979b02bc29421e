// What must hold before a command shows or prints results.
#pragma once

#include "desk/kit/Menu.h"

namespace metrisk {

struct Session;

/// Validates and fits what the command needs; false when it cannot go on, the user having been told.
bool haveData(Session& session, Needs needs);

} // namespace metrisk
