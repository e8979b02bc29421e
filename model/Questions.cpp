#include "model/Questions.h"

namespace metrisk {

Answer askRetainChanges(Interaction& ui) {
    return ui.show({.text = "Do you want to retain changes?",
                    .title = "Changes Made",
                    .icon = BoxIcon::Question,
                    .buttons = BoxButtons::YesNoCancel,
                    .unattended = Answer::Cancel});
}

} // namespace metrisk
