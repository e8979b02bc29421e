// Questions that several screens ask in the same words.
#pragma once

#include "model/Interaction.h"

namespace metrisk {

/// "Do you want to retain changes?" with Yes, No and Cancel; unattended it is Cancel.
Answer askRetainChanges(Interaction& ui);

} // namespace metrisk
