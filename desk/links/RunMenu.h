// The menu of other programs, which almost every screen bears.
#pragma once

#include "desk/kit/Menu.h"

namespace metrisk {

struct Session;

/// Ends with the screen it is made for; the session must outlive it.
MenuItem runMenu(Session& session);

/// Shows the list of other programs.
void runExternal(Session& session);

} // namespace metrisk
