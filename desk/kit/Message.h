// What the user is told, and what the user is asked.
#pragma once

#include "desk/kit/Interaction.h"

namespace metrisk {

void tell(Interaction& ui, const Message& message);
Answer ask(Interaction& ui, const Question& question);

/// Asked by several screens; unattended it is Cancel.
inline constexpr Question retainChanges{"Do you want to retain changes?", "Changes Made",
                                        BoxButtons::YesNoCancel, Answer::Cancel};

} // namespace metrisk
