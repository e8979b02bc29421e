#include "desk/mainscreen/PctEntry.h"

#include "base/NumberText.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "record/AnalysisTexts.h"
#include "risk/decision/Counts.h"

namespace metrisk {

namespace {

void tellRefusal(Session& session, const Refusal& refusal) {
    tell(session.ui, {refusal.text, refusal.title});
}

/// All passed: the limit or the median, or neither.
std::optional<double> pickedByUser(Session& session, const Counts& counts, const Refusal& why) {
    const auto lower = countsLowerEntry(counts);
    const auto pct = countedPct(counts);
    if (!lower || !pct || !pct->median) return std::nullopt;
    const auto caption = [&](const char* confidence, double value) {
        return pctEntryText(value, session.regional) + " % (" + confidence + " confidence)";
    };
    const std::string text = why.text + "\nWhich of them is to be entered?";
    const std::string atLeast = caption("95 %", *lower);
    const std::string median = caption("50 %", *pct->median);
    switch (ask(session.ui, {text, why.title, BoxButtons::YesNoCancel, Answer::Cancel, atLeast, median})) {
    case Answer::Yes: return *lower;
    case Answer::No: return *pct->median;
    case Answer::Ok:
    case Answer::Cancel: break;
    }
    return std::nullopt;
}

} // namespace

std::optional<double> pctEntered(Session& session, const std::string& text) {
    const auto counts = countsOf(text);
    if (!counts) return ParseValue(text, session.regional);
    const auto estimate = countsEntry(*counts);
    std::optional<double> pct;
    if (estimate)
        pct = *estimate;
    else if (counts->allPassed() && !refusedCounts(*counts))
        pct = pickedByUser(session, *counts, estimate.refusal());
    else
        tellRefusal(session, estimate.refusal());
    if (pct)
        session.ui.status(
            "Counts of passes are observed: false accepts and false rejects are in them. True vs. "
            "Observed % In-Tolerance tells the true percentage.");
    return pct;
}

} // namespace metrisk
