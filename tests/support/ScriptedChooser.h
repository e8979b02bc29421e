// A file dialog whose answers are foreseen.
#pragma once

#include "desk/kit/FileChooser.h"

#include <deque>
#include <gtest/gtest.h>
#include <vector>

namespace metrisk::testing {

/// Answers each dialogue in turn; an answer of "" cancels.
class ScriptedChooser final : public FileChooser {
  public:
    std::deque<std::string> answers;
    std::vector<FileRequest> requests;

    std::optional<std::string> chooseToOpen(const FileRequest& request) override { return next(request); }
    std::optional<std::string> chooseToSave(const FileRequest& request) override { return next(request); }

  private:
    std::optional<std::string> next(const FileRequest& request) {
        requests.push_back(request);
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected dialogue \"" << request.title << '"';
            return std::nullopt;
        }
        std::string answer = answers.front();
        answers.pop_front();
        return answer.empty() ? std::nullopt : std::optional(answer);
    }
};

} // namespace metrisk::testing
