// Unsaved rows that outlive the program: written while it runs, offered when it starts again.
#pragma once

#include "persistence/RecoveryCopy.h"

#include <cstddef>
#include <filesystem>

namespace metrisk {

class Talk;
struct PointDesk;

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

    Talk& ui_;
    PointDesk& desk_;
    std::filesystem::path folder_;
    RecoveryCopy copy_;
    std::size_t written_ = 0; // what tells the text of the copy from others
};

} // namespace metrisk
