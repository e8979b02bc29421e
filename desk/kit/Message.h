// What the user is told, and what the user is asked.
#pragma once

#include "desk/kit/Talk.h"

namespace metrisk {

void tell(Talk& ui, const Message& message);
Answer ask(Talk& ui, const Question& question);

/// Asked by several screens; unattended it is Cancel.
inline constexpr Question retainChanges{"Do you want to retain changes?", "Changes Made",
                                        BoxButtons::YesNoCancel, Answer::Cancel};

} // namespace metrisk
