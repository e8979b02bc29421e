// Taking ErrorLedger's data into the analysis: what the user is asked, and what follows.
#pragma once

#include "desk/kit/Session.h"

#include <ctime>
#include <filesystem>
#include <functional>

namespace metrisk {

class Worksheet;

/// Who has asked for the data, and takes them.
struct ImportTarget {
    Worksheet& screen;                    // on which it was asked
    Session& session;                     // whose record they come into
    bool takesTolerances = false;         // beside the process errors
    std::function<bool()> clearEntries{}; // starts a new analysis; false if the user thinks better of it
    std::function<void()> taken{};        // afterwards; may raise RuntimeFault, which takes all back
};

/// Reads the file, asks what of it is wanted, and takes that. Where there is no file, it ends without a word
/// and with AbortFlag set. A file that is refused, damaged or was written before `since` is told; nothing of
/// it is taken then, and AbortFlag is set.
void ImportErrorLedgerData(const ImportTarget& target, const std::filesystem::path& FileExchangeIn,
                           std::time_t since);

} // namespace metrisk
