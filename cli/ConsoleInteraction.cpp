#include "cli/ConsoleInteraction.h"

namespace metrisk::cli {

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

Answer ConsoleInteraction::show(const Box& box) {
    messages_.push_back({box.title, box.text, answerWord(box.unattended), box.buttons != BoxButtons::Ok});
    return box.unattended;
}

void ConsoleInteraction::runComputing(ComputingScreen&, const std::function<void()>& step) {
    step();
}

} // namespace metrisk::cli
