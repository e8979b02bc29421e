// Unsaved rows that outlive the program: written while it runs, offered when it starts again.
#pragma once

#include "desk/points/PointDesk.h"
#include "persistence/RecoveryCopy.h"

#include <cstddef>
#include <filesystem>

namespace metrisk {

class Talk;

class PointRecovery {
  public:
    PointRecovery(Talk& ui, PointDesk& desk, std::filesystem::path folder);

    /// Writes a copy if there are unsaved rows that it does not hold yet, and removes it if there are none.
    void update();
    /// They have been saved, or the user wants none of them.
    void remove() { copy_.remove(); }

    /// Asks about each copy that a process has left behind, the newest first. The first one wanted takes the
    /// place of the table, under the name of its file and as changed; true then.
    bool offer();

  private:
    bool open(const AbandonedCopy& copy);
    bool isHeld() const { return !copy_.path().empty() && written_ == desk_.sheet.state(); }

    Talk& ui_;
    PointDesk& desk_;
    std::filesystem::path folder_;
    RecoveryCopy copy_;
    std::size_t written_ = 0; // the state of the sheet that the copy holds
};

} // namespace metrisk
