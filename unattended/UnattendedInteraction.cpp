#include "unattended/UnattendedInteraction.h"

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

} // namespace metrisk
