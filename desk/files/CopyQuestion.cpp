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

Answer askAbout(Talk& ui, const AbandonedCopy& copy, const std::string& name) {
    const std::string question = "Metrisk ended before \"" + name +
                                 "\" was saved. Open the unsaved copy from " + timeText(copy.seconds) + "?";
    return ask(ui, {question, "Unsaved Work", BoxButtons::YesNoCancel, Answer::Cancel});
}

} // namespace

bool offerCopies(Talk& ui, const std::filesystem::path& folder,
                 const std::function<std::string(const std::string& path)>& nameOf,
                 const std::function<bool(const AbandonedCopy&)>& opened, const std::function<bool()>& kept) {
    for (const AbandonedCopy& copy : abandonedCopies(folder)) {
        const Answer answer = askAbout(ui, copy, nameOf(copy.work.name));
        std::error_code ignored;
        if (answer == Answer::No) std::filesystem::remove(copy.path, ignored);
        if (answer != Answer::Yes || !opened(copy)) continue;
        if (kept()) std::filesystem::remove(copy.path, ignored);
        return true;
    }
    return false;
}

} // namespace metrisk
