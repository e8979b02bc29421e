// Everything one running program has; passed by reference, never global.
#pragma once

#include "base/Clock.h"
#include "base/FileStamp.h"
#include "base/Places.h"
#include "base/Regional.h"
#include "base/Settings.h"
#include "desk/kit/Interaction.h"
#include "record/Analysis.h"
#include "record/ColorScheme.h"

#include <optional>

namespace metrisk {

struct Desktop;

/// Two sessions in two threads do not know of each other.
struct Session {
    Settings& settings;
    Interaction& ui;
    const Clock& clock;
    Regional regional{};
    Analysis record{};
    Places places{};
    ColorScheme colorScheme{};
    Desktop* desktop = nullptr;           // none in a run that nobody watches
    std::optional<FileStamp> fileStamp{}; // of the analysis file as it was opened or saved last
};

} // namespace metrisk
