#include "desk/files/CopyQuestion.h"

#include "desk/kit/Message.h"

#include <ctime>

namespace metrisk {

namespace {

std::string timeText(std::int64_t seconds) {
    const std::time_t time = seconds;
    std::tm local{};
    ::localtime_r(&time, &local);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return text;
}

} // namespace

Answer askAboutCopy(Talk& ui, const AbandonedCopy& copy, const std::string& name) {
    const std::string question = "Metrisk ended before \"" + name +
                                 "\" was saved. Open the unsaved copy from " + timeText(copy.seconds) + "?";
    return ask(ui, {question, "Unsaved Work", BoxButtons::YesNoCancel, Answer::Cancel});
}

} // namespace metrisk
