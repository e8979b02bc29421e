// What the main screen shows of a record.
#pragma once

#include <string>

namespace metrisk {

class MainScreen;
struct Session;

/// Sets every control's text and state.
void showRecord(MainScreen& screen, const Session& session);

/// "NAME - Metrisk".
std::string mainCaption(const Session& session);

} // namespace metrisk
