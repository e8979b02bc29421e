// One analysis opened on the command line: its own record, boxes and settings.
#pragma once

#include "cli/ConsoleInteraction.h"
#include "cli/Output.h"
#include "model/Session.h"
#include "persistence/SettingsFile.h"

#include <string>

namespace metrisk::cli {

class AnalysisRun {
  public:
    explicit AnalysisRun(const std::string& settingsPath);

    /// Reads the file into a cleared record; false when it cannot be read.
    bool open(const std::string& path);
    /// Writes under the name an analysis is saved as; false when it cannot be written.
    bool save(const std::string& path);

    /// The messages so far, named after the file, for stderr.
    std::string diagnostics(const std::string& name) const { return diagnosticLines(name, ui.messages()); }

    SettingsFile settings;
    ConsoleInteraction ui;
    Session session{settings, ui};
    Analysis& record = session.record;
};

/// The path under which a save to `path` would land exists already.
bool saveWouldReplace(const std::string& path);

} // namespace metrisk::cli
