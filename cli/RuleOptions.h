// The decision rule of a command line, with its outcomes and its prior.
#pragma once

#include "cli/Arguments.h"
#include "risk/decision/DecisionRule.h"

#include <string>

namespace metrisk::cli {

struct RuleOptions {
    DecisionRule rule{};
    bool prior = false;

    /// --rule, --outcomes, --reject and --prior.
    void addTo(const Arguments& command);
    /// What is wrong with options that are each right; empty if nothing is.
    std::string fault() const;
};

} // namespace metrisk::cli
