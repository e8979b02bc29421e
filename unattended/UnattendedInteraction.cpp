#include "unattended/UnattendedInteraction.h"

#include "desk/kit/Worksheet.h"

namespace metrisk {

namespace {

const char* answerWord(Answer answer) {
    switch (answer) {
    case Answer::Ok: return "OK";
    case Answer::Cancel: return "Cancel";
    case Answer::Yes: return "Yes";
    case Answer::No: return "No";
    }
    return "";
}

} // namespace

Answer UnattendedInteraction::show(const Box& box) {
    messages_.push_back({box.title, box.text, answerWord(box.unattended), box.buttons != BoxButtons::Ok});
    return box.unattended;
}

void UnattendedInteraction::run(Worksheet& screen, const std::function<void()>& work) {
    if (work)
        work();
    else
        screen.close(Way::Cancel);
}

} // namespace metrisk
