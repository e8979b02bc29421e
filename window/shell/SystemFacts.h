// Facts of the user's system: regional settings, data folder, fonts.
#pragma once

#include "base/Regional.h"

#include <string>

namespace metrisk {

class Talk;

Regional systemRegional();

/// Version and platform of Qt.
std::string toolkitName();

/// The per-user data folder of the program; it may not exist yet.
std::string dataFolder();

/// "Symbol" if that font is installed, else empty.
std::string SymbolFontName();

/// Warns if there is no Symbol font and no installed font has infinity, sigma and plus-minus either.
void warnOfMissingSymbols(Talk& ui);

} // namespace metrisk
