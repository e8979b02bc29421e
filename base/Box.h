// A message box as a value: what is said, and what may be answered.
#pragma once

#include <string>
#include <string_view>

namespace metrisk {

enum class BoxIcon { None, Information, Exclamation, Question, Critical };
enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };

/// A modal message box. `unattended` is the answer of a run that nobody watches; each question
/// names it where it is asked.
struct Box {
    std::string text;
    std::string title = "Metrisk";
    BoxIcon icon = BoxIcon::Information;
    BoxButtons buttons = BoxButtons::Ok;
    Answer unattended = Answer::Ok;
    std::string yesCaption{}, noCaption{}; // where the buttons say what they mean
};

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

} // namespace metrisk
