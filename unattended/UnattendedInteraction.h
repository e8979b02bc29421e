// A run that nobody watches, with what was told meanwhile.
#pragma once

#include "desk/kit/UnwatchedInteraction.h"

#include <string>
#include <vector>

namespace metrisk {

/// What was said or asked, and the answer given ("OK", "Cancel", "Yes" or "No"). A note, which no box tells,
/// has neither title nor answer.
struct Told {
    std::string title;
    std::string text;
    std::string answer;
    bool asked; // there was a choice of answers
};

class UnattendedInteraction final : public UnwatchedInteraction {
  public:
    /// Everything shown so far, in order.
    const std::vector<Told>& messages() const { return messages_; }

    void forget() { messages_.clear(); }

    void note(const std::string& text) { messages_.push_back({"", text, "", false}); }

    Answer show(const Box& box) override;

  private:
    std::vector<Told> messages_;
};

} // namespace metrisk
