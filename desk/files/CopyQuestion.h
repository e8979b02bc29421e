// What becomes of the copies of unsaved work that processes have left behind.
#pragma once

#include "persistence/RecoveryCopy.h"

#include <filesystem>
#include <functional>
#include <string>

namespace metrisk {

class Talk;

/// Asks about each copy, the newest first: Yes to open it, No to give it up, Cancel to be asked again. Ends
/// with the first one that is `opened`; true then. That copy goes as soon as this program has `kept` one of
/// its own. `nameOf`: what the user calls the file of that path.
bool offerCopies(Talk& ui, const std::filesystem::path& folder,
                 const std::function<std::string(const std::string& path)>& nameOf,
                 const std::function<bool(const AbandonedCopy&)>& opened, const std::function<bool()>& kept);

} // namespace metrisk
