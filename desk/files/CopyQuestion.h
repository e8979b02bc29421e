// What is asked about a copy of unsaved work that a process has left behind.
#pragma once

#include "base/Box.h"
#include "persistence/RecoveryCopy.h"

#include <string>

namespace metrisk {

class Talk;

/// Yes to open it, No to give it up, Cancel to be asked again.
Answer askAboutCopy(Talk& ui, const AbandonedCopy& copy, const std::string& name);

} // namespace metrisk
