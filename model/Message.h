// Boxes as constants: what the user is told, and what the user is asked.
#pragma once

#include "model/Interaction.h"

#include <string_view>

namespace metrisk {

/// A box with OK alone. Texts that several routines use stand once, beside the rule that owns them.
struct Message {
    std::string_view text;
    std::string_view title;
    BoxIcon icon = BoxIcon::Exclamation;
};

struct Question {
    std::string_view text;
    std::string_view title;
    BoxButtons buttons;
    Answer unattended; // the answer of a run that nobody watches
    std::string_view yesCaption{}, noCaption{};
};

void tell(Interaction& ui, const Message& message);
Answer ask(Interaction& ui, const Question& question);

/// Asked by several screens; unattended it is Cancel.
inline constexpr Question retainChanges{"Do you want to retain changes?", "Changes Made",
                                        BoxButtons::YesNoCancel, Answer::Cancel};

} // namespace metrisk
