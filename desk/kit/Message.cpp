#include "desk/kit/Message.h"

#include <string>

namespace metrisk {

void tell(Talk& ui, const Message& message) {
    ui.show({.text = std::string(message.text), .title = std::string(message.title), .icon = message.icon});
}

Answer ask(Talk& ui, const Question& question) {
    return ui.show({.text = std::string(question.text),
                    .title = std::string(question.title),
                    .icon = BoxIcon::Question,
                    .buttons = question.buttons,
                    .unattended = question.unattended,
                    .yesCaption = std::string(question.yesCaption),
                    .noCaption = std::string(question.noCaption)});
}

} // namespace metrisk
