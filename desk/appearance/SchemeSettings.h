// The colours and bold texts in the settings.
#pragma once

#include "record/ColorScheme.h"

namespace metrisk {

class Settings;

/// A key that is missing among others reads as 0, which is black or not bold; settings without any of them
/// give a new scheme.
ColorScheme LoadColorScheme(const Settings& settings);
void SaveColorScheme(Settings& settings, const ColorScheme& scheme);

} // namespace metrisk
