// Refusals of the figures that go with readings and decisions.
#pragma once

#include "base/Refusal.h"

namespace metrisk {

inline constexpr const char* coverageTitle = "Coverage Factor";
inline constexpr const char* decisionTitle = "Decision";
inline constexpr const char* uncertaintyNeeded = "Needs an uncertainty of the measurement.";
inline constexpr const char* toleranceNeeded = "Needs a tolerance.";
inline constexpr const char* nothingAcceptedText = "Nothing is accepted between these test limits.";

/// An entry or an option that can be read but not computed with.
inline Refusal refusedFigure(const char* title, std::string text) {
    Refusal refusal(RefusalKind::Entry, "decision");
    refusal.title = title;
    refusal.text = std::move(text);
    return refusal;
}

/// A search or a rule that has no figure here.
inline Refusal noFigureOf(const char* title, std::string text) {
    Refusal refusal = refusedFigure(title, std::move(text));
    refusal.kind = RefusalKind::NoAnswer;
    return refusal;
}

} // namespace metrisk
