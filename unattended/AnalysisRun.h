// One analysis that a program works on without a user: its own record, boxes and settings.
#pragma once

#include "desk/kit/Session.h"
#include "persistence/AnalysisContent.h"
#include "persistence/SettingsFile.h"
#include "unattended/Json.h"
#include "unattended/UnattendedInteraction.h"

#include <functional>
#include <string>

namespace metrisk {

/// What all analyses of one run share: the settings, and a new analysis by them. Only read once made.
struct Workplace {
    /// An empty path means the user's own settings. Raises Unreadable where a path is given and the file
    /// cannot be read.
    explicit Workplace(const std::string& settingsPath);
    /// By settings that come from elsewhere: none of the user's.
    explicit Workplace(const SettingsContent& content);

    SettingsFile settings;
    SystemClock clock;
    Analysis newAnalysis{};

  private:
    void makeNew();
};

class AnalysisRun {
  public:
    explicit AnalysisRun(Workplace& workplace)
        : session{workplace.settings, ui, workplace.clock}, workplace_(workplace) {}

    /// Reads the file, or "-", into a new analysis; false when it cannot be read.
    bool open(const std::string& path);
    /// The same of a content that has been read already, under that name in what is told.
    bool openText(std::string content, const std::string& name);
    const Analysis& newAnalysis() const { return workplace_.newAnalysis; }
    /// Writes under the name an analysis is saved as and tells if that is another than that of the file;
    /// false when it cannot be written.
    bool save(const std::string& file, const std::string& path);

    /// Makes the record what its file would be read as: what a reading derives is derived, what no file holds
    /// is gone. False where a file cannot hold it; the record is as before then.
    bool settle();

    /// {"file", "status", "messages"}.
    Json result(const std::string& file, const char* status) const {
        return resultJson(file, status, ui.messages());
    }

    UnattendedInteraction ui;
    Session session;
    Analysis& record = session.record;

  private:
    /// Tells what was found on reading; false where it failed.
    bool told(const ReadOutcome& outcome);

    const Workplace& workplace_;
};

/// Validates and fits both parameters; false when that was refused, and why has been told.
bool fitBoth(AnalysisRun& run);

/// Runs what may refuse an analysis, with the messages of a compute. If it refuses without a word, as some
/// faults do in the window, whose user sees that there are no figures, "These entries lead to WHAT." is told.
bool withReason(AnalysisRun& run, const char* what, const std::function<bool()>& work);

/// Writes to the file that was read, or beside it under the extension of today; an existing file of that name
/// is replaced only with `force`. False if it did not, which has been told.
bool saveResults(AnalysisRun& run, const std::string& file, bool force);

} // namespace metrisk
