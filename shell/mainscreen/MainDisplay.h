// What the main screen shows of a record: a state for each control, by the control's name.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace metrisk {

struct Session;

struct ControlState {
    std::optional<std::string> text; // box text or caption; none leaves what stands there
    std::optional<bool> checked;
    bool visible = true;
    bool enabled = true;
    bool locked = false;     // shows its text but takes no entry
    bool emphasised = false; // stands out among its like
};

/// Controls not named here never change. An array control has "_" and its index behind its name; the
/// control Heading is Heading_0 above the computed and Heading_1 above the baseline risks.
using ScreenState = std::map<std::string, ControlState, std::less<>>;

/// `guardbandsAsLimits`: the guardband boxes show test limits instead of multipliers.
ScreenState mainDisplay(const Session& session, bool guardbandsAsLimits = false);

/// "NAME - Metrisk".
std::string mainCaption(const Session& session);

} // namespace metrisk
