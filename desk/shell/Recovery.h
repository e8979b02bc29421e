// Unsaved work that outlives the program: written while it runs, offered when it starts again.
#pragma once

#include "persistence/RecoveryCopy.h"
#include "record/Analysis.h"

#include <functional>
#include <optional>
#include <string>

namespace metrisk {

struct Session;

class Recovery {
  public:
    Recovery(Session& session, std::filesystem::path folder);

    /// The user acts: screens that come up may put figures into the record that are none of the analysis.
    /// Until settled() the copy is of the record as it is now.
    void hold();
    void settled() { held_.reset(); }

    /// Writes a copy if there is unsaved work that it does not hold yet, and removes it if there is none.
    /// Nothing of the session changes. `changed`: there is such work.
    void update(bool changed);
    /// The work has been saved, or the user wants none of it.
    void remove();

    /// Asks about each copy that a process has left behind, the newest first. The first one wanted is opened
    /// in place of the analysis, under the name of its file and as changed; true then.
    bool offer(const std::function<void()>& opened);

  private:
    std::string textOf(const Analysis& record) const;
    bool open(const AbandonedCopy& copy);

    Session& session_;
    std::filesystem::path folder_;
    RecoveryCopy copy_;
    std::string written_;
    std::optional<Analysis> held_;
};

} // namespace metrisk
